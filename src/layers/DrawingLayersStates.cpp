#include "module/HostBinding.h"
#include "layers/DrawingLayers.h"
#include "module/SystemVariableOverride.h"
#include "layers/DrawingLayersVariables.h"

namespace ardo {

namespace {

void add(ResBufChain& tokens, std::initializer_list<std::string> texts) {
    for (const auto& t : texts) tokens.push_back(ResBuf::str(t));
}

}  // namespace

int applyLayerStates(const std::string& name, int bits) {
    const bool current = textVariable("CLAYER") == name;
    const bool layout = integerVariable("TILEMODE").value_or(1) == 0;
    SystemVariableOverride echoOff("CMDECHO", ResBuf::shortInt(0));

    ResBufChain layer;
    add(layer, {"_.LAYER"});
    add(layer, {(bits & LayerFrozen) && !current ? "_FREEZE" : "_THAW", name});
    add(layer, {(bits & LayerLocked) && !current ? "_LOCK" : "_UNLOCK", name});
    add(layer, {(bits & LayerOff) && !current ? "_OFF" : "_ON", name});
    if (bits & LayerCurrent) add(layer, {"_UNLOCK", name, "_THAW", name, "_ON", name, "_SET", name});
    add(layer, {""});
    host().command(layer);

    if (layout) {
        ResBufChain vplayer;
        add(vplayer, {"_VPLAYER", "_VPVISDFLT", name, (bits & LayerFrozenInNewViewports) ? "_FROZEN" : "_THAWED"});
        add(vplayer, {(bits & LayerFrozenInCurrentViewport) ? "_FREEZE" : "_THAW", name, "", ""});
        host().command(vplayer);
    }
    return RTNORM;
}

}  // namespace ardo
