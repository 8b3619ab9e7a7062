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

std::string literalLayerPattern(const std::string& name) {
    std::string pattern;
    pattern.reserve(name.size() + 2);
    for (char c : name) {
        if (std::string_view("#@.*?~[]-`,").find(c) != std::string_view::npos) pattern += '`';
        pattern += c;
    }
    return pattern;
}

int applyLayerStates(const std::string& name, int bits) {
    const bool current = textVariable("CLAYER") == name;
    const bool layout = integerVariable("TILEMODE").value_or(1) == 0;
    SystemVariableOverride echoOff("CMDECHO", ResBuf::shortInt(0));
    // The state options take patterns; this layer alone is meant. _SET takes a plain name.
    const std::string only = literalLayerPattern(name);

    ResBufChain layer;
    add(layer, {"_.LAYER"});
    add(layer, {(bits & LayerFrozen) && !current ? "_FREEZE" : "_THAW", only});
    add(layer, {(bits & LayerLocked) && !current ? "_LOCK" : "_UNLOCK", only});
    add(layer, {(bits & LayerOff) && !current ? "_OFF" : "_ON", only});
    if (bits & LayerCurrent) add(layer, {"_UNLOCK", only, "_THAW", only, "_ON", only, "_SET", name});
    add(layer, {""});
    host().command(layer);

    if (layout) {
        ResBufChain vplayer;
        add(vplayer, {"_VPLAYER", "_VPVISDFLT", only, (bits & LayerFrozenInNewViewports) ? "_FROZEN" : "_THAWED"});
        add(vplayer, {(bits & LayerFrozenInCurrentViewport) ? "_FREEZE" : "_THAW", only, "", ""});
        host().command(vplayer);
    }
    return RTNORM;
}

}  // namespace ardo
