#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "layers/DrawingLayers.h"
#include "layers/LayerFunctions.h"
#include "layers/LayerFunctionsEntry.h"

namespace ardo::handlers {

namespace {

struct MadeLayer {
    std::string name;
    int bits = 0;
    bool created = false;
};

std::string optionalText(const CallFrame& frame, size_t i) { return frame.has(i) ? frame.text(i) : std::string(); }

// Creates the layer of a key under its decorated name unless the drawing has it already.
std::optional<MadeLayer> makeLayerOfKey(const std::string& key, const std::string& prefix,
                                        const std::string& suffix) {
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) return std::nullopt;
    const auto entry = layerEntryOfKey(key);
    if (!entry) return std::nullopt;
    MadeLayer made;
    made.name = decoratedLayerName(entry->name, prefix, suffix);
    if (const auto existing = drawing->findLayer(made.name)) {
        made.bits = layerStateBits(*existing);
        return made;
    }
    if (createLayer(made.name, *entry) != RTNORM) return std::nullopt;
    made.bits = entry->states;
    made.created = true;
    return made;
}

// Applies the bits and reads the layer's record again.
std::optional<int> applyAndReread(const std::string& name, int bits) {
    applyLayerStates(name, bits);
    HostDrawing* drawing = host().workingDrawing();
    const auto layer = drawing ? drawing->findLayer(name) : std::nullopt;
    if (!layer) return std::nullopt;
    return layerStateBits(*layer);
}

}  // namespace

int kemb_newlayer() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::String, Presence::OptionalLenient},
                      {ArgKind::String, Presence::OptionalLenient}}))
        return RSRSLT;
    const auto made = makeLayerOfKey(frame.text(1), optionalText(frame, 2), optionalText(frame, 3));
    if (made) host().retInt(made->bits);
    return RSRSLT;
}

int kemb_setlayer() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::Integer}})) return RSRSLT;
    const auto entry = layerEntryOfKey(frame.text(1));
    HostDrawing* drawing = host().workingDrawing();
    if (!entry || !drawing || !drawing->findLayer(entry->name)) return RSRSLT;
    if (const auto bits = applyAndReread(entry->name, int(frame.integer(2)))) host().retInt(*bits);
    return RSRSLT;
}

int Kemb_MakeLayer() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::Integer},
                      {ArgKind::String, Presence::OptionalLenient}, {ArgKind::String, Presence::OptionalLenient}}))
        return RSRSLT;
    const auto made = makeLayerOfKey(frame.text(1), optionalText(frame, 3), optionalText(frame, 4));
    if (!made) return RSRSLT;
    const auto bits = applyAndReread(made->name, int(frame.integer(2)));
    if (!bits) return RSRSLT;
    host().retList({ResBuf::shortInt(*bits), ResBuf::str(made->name)});
    return RSRSLT;
}

}  // namespace ardo::handlers
