#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "layers/LayerFunctions.h"
#include "layers/LayerFunctionsEntry.h"
#include "settings/ModuleFiles.h"

namespace ardo::handlers {

namespace {

// The entry of the key in the second argument, after the two strings were checked.
const LayerValue* entryOfCall(CallFrame& frame) {
    if (!frame.check({{ArgKind::String}, {ArgKind::String}})) return nullptr;
    return layerEntryOfKey(frame.text(1));
}

}  // namespace

int kemb_getlayername() {
    CallFrame frame;
    if (const auto entry = entryOfCall(frame)) host().retStr(entry->name);
    return RSRSLT;
}

int kemb_getlayerkey() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}})) return RSRSLT;
    const std::string& name = frame.text(1);
    forEachLayerEntry([&](const std::string& key, const LayerValue& value) {
        if (value.name != name) return true;
        host().retStr(key);
        return false;
    });
    return RSRSLT;
}

int kemb_getLayerData() {
    CallFrame frame;
    const auto entry = entryOfCall(frame);
    if (!entry) return RSRSLT;
    host().retList({ResBuf::str(entry->name), ResBuf::longInt(entry->color), ResBuf::str(entry->linetype),
                    ResBuf::str(entry->linetypeFile), ResBuf::shortInt(entry->states)});
    return RSRSLT;
}

int Kemb_GetLayerDataEx() {
    CallFrame frame;
    const auto entry = entryOfCall(frame);
    if (!entry) return RSRSLT;
    host().retList({ResBuf::str(entry->name), ResBuf::longInt(entry->color), ResBuf::str(entry->linetype),
                    ResBuf::str(entry->linetypeFile), ResBuf::shortInt(entry->states),
                    ResBuf::str(entry->colorBookName), ResBuf::str(entry->colorName),
                    ResBuf::shortInt(entry->lineweight), ResBuf::str(entry->plotStyle),
                    ResBuf::str(entry->textField10), ResBuf::shortInt(entry->plottable ? 1 : 0)});
    return RSRSLT;
}

int Kemb_GetLayerFile() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    const std::string& path = moduleFiles().centralLayerFilePath;
    if (!path.empty()) host().retStr(path);
    return RSRSLT;
}

}  // namespace ardo::handlers
