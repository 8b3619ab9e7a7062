#include "cadhost/audit/DrawingAudit.h"

#include <sys/stat.h>

#include <filesystem>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"

namespace cadhost::audit {

namespace {

constexpr char kSeparator = '\0';
constexpr const char* kNoEntry = "the module has no layer-standard entry; load an ardo.arx built with it";

// What tells that a file changed on disk: where it is, how long it is and when it was written.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec modified{};
    bool operator==(const FileStamp& o) const {
        return device == o.device && inode == o.inode && size == o.size && modified.tv_sec == o.modified.tv_sec &&
               modified.tv_nsec == o.modified.tv_nsec;
    }
};

std::optional<FileStamp> stampOf(const std::string& path) {
    struct stat st {};
    if (stat(path.c_str(), &st) != 0) return std::nullopt;
    return FileStamp{st.st_dev, st.st_ino, st.st_size, st.st_mtim};
}

}  // namespace

ArdoTextSink appendingTo(std::string& text) {
    return {&text, [](void* context, const char* chars, std::size_t size) {
                static_cast<std::string*>(context)->append(chars, size);
            }};
}

std::string encodeOutcome(const DrawingOutcome& o) {
    std::string out;
    for (const std::string* field : {&o.failure, &o.runFailure})
        out.append(*field).push_back(kSeparator);
    out.push_back(o.saved ? '1' : '0');
    out.push_back(kSeparator);
    return out + o.record;
}

std::optional<DrawingOutcome> decodeOutcome(const std::string& path, const std::string& bytes) {
    DrawingOutcome o;
    o.path = path;
    const size_t first = bytes.find(kSeparator);
    const size_t second = first == std::string::npos ? first : bytes.find(kSeparator, first + 1);
    const size_t third = second == std::string::npos ? second : bytes.find(kSeparator, second + 1);
    if (third == std::string::npos || third != second + 2) return std::nullopt;
    o.failure = bytes.substr(0, first);
    o.runFailure = bytes.substr(first + 1, second - first - 1);
    o.saved = bytes[second + 1] == '1';
    o.record = bytes.substr(third + 1);
    return o;
}

ArdoLayerStandardEntry layerStandardEntry(Application& app, const std::string& module) {
    const LoadedModule* loaded = app.modules().find(module);
    return loaded ? reinterpret_cast<ArdoLayerStandardEntry>(loaded->symbol(ardo::kLayerStandardEntryName)) : nullptr;
}

DrawingOutcome auditDrawing(const std::string& path, const LayerAuditOptions& options, const std::string& module,
                            const std::string& programFolder) {
    DrawingOutcome outcome;
    outcome.path = path;
    const std::optional<FileStamp> before = stampOf(path);
    auto opened = Drawing::open(path);
    if (!opened) {
        outcome.failure = opened.error();
        return outcome;
    }
    // The module's own printing (linetype loads and the like) is not part of the report.
    ConsoleInterface ui([](std::string_view) {});
    Application app(ui);
    app.setSupportPath({programFolder, std::filesystem::absolute(path).parent_path()});
    app.addDocument(std::move(*opened), true);
    if (const ardo::Status loaded = app.modules().load(module); !loaded) {
        outcome.runFailure = loaded.error();
        return outcome;
    }
    const ArdoLayerStandardEntry entry = layerStandardEntry(app, module);
    if (!entry) {
        outcome.runFailure = kNoEntry;
        return outcome;
    }
    std::string messages;
    ArdoStandardCall call{};
    call.operation = kArdoAuditDrawing;
    call.centralFile = options.central ? options.central->c_str() : nullptr;
    call.apply = options.apply;
    call.dryRun = options.dryRun;
    call.renameFile = options.renameFile ? options.renameFile->c_str() : nullptr;
    call.out = appendingTo(outcome.record);
    call.messages = appendingTo(messages);
    const int status = entry(&call);
    if (status == 2) outcome.runFailure = messages;
    else if (status != 0) outcome.failure = messages;
    if (status != 0 || !call.changed || options.dryRun) return outcome;

    if (stampOf(path) != before) {
        outcome.failure = "the drawing changed on disk during the run; it was not written";
    } else if (const ardo::Status saved = app.drawing().save(path); !saved) {
        outcome.failure = saved.error();
    } else {
        outcome.saved = true;
    }
    return outcome;
}

}  // namespace cadhost::audit
