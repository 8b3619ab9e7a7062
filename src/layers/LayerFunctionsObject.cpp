#include <memory>

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "layers/ActiveKeyMap.h"
#include "layers/LayerFunctions.h"
#include "layers/LayerFunctionsEntry.h"
#include "layers/LayerKeyRules.h"
#include "layers/ObjectLayerFile.h"
#include "settings/LayerDialogSettings.h"

namespace ardo::handlers {

// (kemb_getObjektLayer command object objecttype folder) gives (key name current inDrawing):
// the object's active layer key in the object-type layer file, its layer name, 1 when that
// layer is the current layer (CLAYER, any case), and 1 when the drawing has the layer.
int kemb_getObjektLayer() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::String}, {ArgKind::String}}))
        return RSRSLT;
    const std::string& object = frame.text(1);
    const std::string& objectType = frame.text(2);
    const std::string& folder = frame.text(3);
    if (folder.empty() || !isValidObjectTypeName(objectType)) return RSRSLT;

    const std::string& setupFile = moduleSettings().setup.filePath();
    std::unique_ptr<SetupFileActiveKeys> activeKeys;
    if (!setupFile.empty()) activeKeys = std::make_unique<SetupFileActiveKeys>(setupFile);
    ObjectLayerFile file(activeKeys.get());
    if (!file.read(objectLayerFilePath(folder, objectType))) return RSRSLT;
    const ObjectLayerLine* line = file.findLine(object);
    if (!line) return RSRSLT;
    const auto entry = layerEntryOfKey(line->key);
    if (!entry) return RSRSLT;

    ResBuf current;
    const bool isCurrent = host().getVar("CLAYER", current) == RTNORM && equalsNoCase(current.text, entry->name);
    const HostDrawing* drawing = host().workingDrawing();
    const bool inDrawing = drawing && drawing->findLayer(entry->name).has_value();
    host().retList({ResBuf::marker(RTLB), ResBuf::str(line->key), ResBuf::str(entry->name),
                    ResBuf::shortInt(isCurrent ? 1 : 0), ResBuf::shortInt(inDrawing ? 1 : 0),
                    ResBuf::marker(RTLE)});
    return RSRSLT;
}

}  // namespace ardo::handlers
