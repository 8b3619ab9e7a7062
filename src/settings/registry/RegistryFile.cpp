#include "settings/registry/RegistryFile.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "base/FileReplace.h"
#include "base/TextFile.h"

namespace ardo {

namespace {

// Another session writes the registry in a moment; waiting longer means it hangs.
constexpr std::chrono::milliseconds kPatienceWithOtherSessions{2000};

std::string configHome() {
    if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg) return xdg;
    if (const char* home = std::getenv("HOME"); home && *home) return std::string(home) + "/.config";
    return {};
}

}  // namespace

std::string RegistryFile::userPath() {
    const std::string home = configHome();
    return (std::filesystem::path(home.empty() ? "." : home) / "ardo" / "registry.reg").string();
}

RegistryFile& RegistryFile::user() {
    static std::unique_ptr<RegistryFile> file;
    const std::string path = userPath();
    if (!file || file->path() != path) file = std::make_unique<RegistryFile>(path);
    return *file;
}

bool RegistryFile::refresh() {
    const auto stamp = FileStamp::of(path_);
    if (loaded_ && stamp == stamp_) return true;
    problem_.clear();
    if (!stamp) {
        tree_ = RegistryTree{};
    } else {
        const auto bytes = readFileBytes(path_);
        if (!bytes) {
            problem_ = "cannot read " + path_;
            loaded_ = false;
            return false;
        }
        auto parsed = RegistryTree::fromRegedit4(*bytes);
        if (!parsed) {
            problem_ = path_ + ", " + parsed.error();
            loaded_ = false;
            return false;
        }
        tree_ = std::move(*parsed);
    }
    stamp_ = stamp;
    loaded_ = true;
    return true;
}

std::uint32_t RegistryFile::read(const std::function<std::uint32_t(const RegistryTree&)>& look) {
    if (!refresh()) return kRegBadDatabase;
    return look(tree_);
}

std::uint32_t RegistryFile::write(const std::function<std::uint32_t(RegistryTree&)>& change) {
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ec);
    const auto lock = FileLock::acquire(path_, kPatienceWithOtherSessions);
    if (!lock) {
        problem_ = "another session keeps " + path_ + " locked";
        return kRegWriteFault;
    }
    if (!refresh()) return kRegBadDatabase;
    RegistryTree changed = tree_;
    const std::uint32_t result = change(changed);
    if (result != kRegOk) return result;
    if (const Status saved = replaceFile(path_, changed.toRegedit4()); !saved) {
        problem_ = saved.error();
        return kRegWriteFault;
    }
    tree_ = std::move(changed);
    stamp_ = FileStamp::of(path_);
    return kRegOk;
}

}  // namespace ardo
