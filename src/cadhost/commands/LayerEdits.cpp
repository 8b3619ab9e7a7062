#include "cadhost/commands/LayerEdits.h"

#include "cadhost/commands/LayerNames.h"
#include "cadhost/commands/LayerValues.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

using ardo::DbStatus;
using ardo::LayerRecord;

namespace {

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

DbStatus createLayer(Drawing& drawing, const std::string& name) {
    LayerRecord record;
    record.name = name;
    record.color = ardo::HostColor::fromIndex(7);
    return drawing.addLayer(record);
}

void reportFailure(const Context& context, const std::string& name, DbStatus status) {
    context.message("Layer " + quoted(name) + " could not be changed (es " +
                    std::to_string(static_cast<int>(status)) + ").\n");
}

}  // namespace

bool makeLayer(Context& context, const std::string& name) {
    Drawing& drawing = *context.drawing;
    if (!drawing.findLayer(name)) {
        const DbStatus status = createLayer(drawing, name);
        if (status == DbStatus::InvalidInput) {
            context.message("Invalid layer name " + quoted(name) + ".\n");
            return false;
        }
        if (status != DbStatus::Ok) {
            reportFailure(context, name, status);
            return false;
        }
    }
    setCurrentLayer(context, name);
    return true;
}

void setCurrentLayer(Context& context, const std::string& name) {
    Drawing& drawing = *context.drawing;
    const auto layer = drawing.findLayer(name);
    if (!layer) {
        context.message("Cannot find layer " + quoted(name) + ".\n");
        return;
    }
    if (layer->isFrozen) {
        context.message("Cannot make frozen layer " + quoted(layer->name) + " current.  Thaw it first.\n");
        return;
    }
    drawing.setVar("CLAYER", ardo::ResBuf::str(layer->name));
}

bool newLayers(Context& context, const std::string& list) {
    Drawing& drawing = *context.drawing;
    for (const std::string& name : splitNames(list)) {
        if (drawing.findLayer(name)) {
            context.message("Layer " + quoted(name) + " already exists.\n");
            continue;
        }
        const DbStatus status = createLayer(drawing, name);
        if (status == DbStatus::InvalidInput) {
            context.message("Invalid layer name " + quoted(name) + ".\n");
            return false;
        }
        if (status != DbStatus::Ok) reportFailure(context, name, status);
    }
    return true;
}

void changeLayer(Context& context, const std::string& name, const LayerChange& change) {
    auto layer = context.drawing->findLayer(name);
    if (!layer) return;
    change(*layer);
    const DbStatus status = context.drawing->updateLayer(*layer);
    if (status != DbStatus::Ok) reportFailure(context, name, status);
}

void listLayers(const Context& context, const std::string& pattern) {
    const Drawing& drawing = *context.drawing;
    const auto names = matchingLayers(drawing, pattern);
    if (names.empty()) {
        context.message(kNoMatchingLayer);
        return;
    }
    std::string text = "Layer name        State                     Color       Linetype      Lineweight  Plot\n";
    for (const std::string& name : names) {
        const auto layer = drawing.findLayer(name);
        std::string line = quoted(layer->name);
        line += layer->isOff ? "  Off" : "  On";
        line += layer->isFrozen ? " Frozen" : " Thawed";
        line += layer->isLocked ? " Locked" : " Unlocked";
        if (layer->frozenInNewViewports) line += " VPDFLT-frozen";
        line += "  " + layerColorText(layer->color) + "  " + layer->linetype + "  " + lineweightText(layer->lineweight);
        line += layer->isPlottable ? "  Plot" : "  No plot";
        text += line + "\n";
    }
    text += "Current layer: " + quoted(currentLayer(drawing)) + "\n";
    context.message(text);
}

}  // namespace cadhost::commands
