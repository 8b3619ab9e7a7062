#include "settings/SettingsFunctions.h"

#include "base/FileLock.h"
#include "boundary/ResBuf.h"
#include "module/lisp/CallFrame.h"
#include "settings/ModuleFiles.h"

namespace ardo::handlers {

namespace {

// A write takes milliseconds; a session holding the lock longer has hung.
constexpr std::chrono::milliseconds kPatienceWithOtherSessions{10000};

}  // namespace

int kemb_iniSchreiben() {
    CallFrame frame;
    // Argument by argument: a missing one is a count error and a non-string a type error,
    // each before the next argument is looked at.
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}})) return RSRSLT;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::String}})) return RSRSLT;

    ModuleFiles& files = moduleFiles();
    if (!files.centralLayerFile) return RSRSLT;
    const std::string& path = files.centralLayerFilePath;
    // Sessions on other workstations write the same central file: one writes at a time, and
    // a file another session changed since it was read here is read again, so that only this
    // call's key is set on top of their changes.
    const auto lock = FileLock::acquire(path, kPatienceWithOtherSessions);
    if (!lock) {
        SettingsStore::reportCannotWrite(path);
        return RSRSLT;
    }
    if (files.centralLayerFile->changedOnDisk(path))
        if (auto fresh = SettingsStore::load(path)) files.centralLayerFile = std::move(fresh);
    SettingsStore& store = *files.centralLayerFile;
    auto header = store.findOrCreateSection(frame.text(0));
    store.findOrCreateKey(header, frame.text(1))->value = frame.text(2);
    // A failed write shows its own alert; the result stays nil either way.
    store.write(path);
    return RSRSLT;
}

}  // namespace ardo::handlers
