#include "settings/SettingsFunctions.h"

#include "boundary/ResBuf.h"
#include "module/lisp/CallFrame.h"
#include "settings/ModuleFiles.h"

namespace ardo::handlers {

int kemb_iniSchreiben() {
    CallFrame frame;
    // Argument by argument: a missing one is a count error and a non-string a type error,
    // each before the next argument is looked at.
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}})) return RSRSLT;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::String}})) return RSRSLT;

    ModuleFiles& files = moduleFiles();
    if (!files.centralLayerFile) return RSRSLT;
    SettingsStore& store = *files.centralLayerFile;
    auto header = store.findOrCreateSection(frame.text(0));
    store.findOrCreateKey(header, frame.text(1))->value = frame.text(2);
    // A failed write shows its own alert; the result stays nil either way.
    store.write(files.centralLayerFilePath);
    return RSRSLT;
}

}  // namespace ardo::handlers
