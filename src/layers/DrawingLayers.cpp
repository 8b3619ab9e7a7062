#include "layers/DrawingLayers.h"

#include "module/HostBinding.h"
#include "base/FileLookup.h"
#include "base/Printf.h"
#include "layers/ColourCode.h"
#include "module/SystemVariableOverride.h"
#include "layers/DrawingLayersMessages.h"
#include "layers/DrawingLayersVariables.h"
#include "layers/PlotStyle.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

constexpr const char* kContinuous = "Continuous";

// A new layer record's own colour, kept when the colour code names no colour.
constexpr int kNewLayerColorIndex = 7;

void warnPlotStyleNotAssigned(const std::string& plotStyle, const std::string& layer) {
    const std::string text = format("%s\n    %s\n%s\n    %s\n%s\n", catalogText(MsgKey::EtCantAssignPlotStyle1),
                                    plotStyle, catalogText(MsgKey::EtCantAssignPlotStyle2), layer,
                                    catalogText(MsgKey::EtCantAssignPlotStyle3));
    host().messageBox(text, catalogText(MsgKey::TiMsgBoxWarn), MbButtons::Ok, MbIcon::Exclamation);
}

}  // namespace

void ensureLinetype(const std::string& linetype, const std::string& linetypeFile) {
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) {
        printLayerMessage("LnNoDataBase");
        return;
    }
    if (drawing->hasLinetype(linetype)) return;
    // As the host's loader does, a file not found as given is looked for along the
    // host's support folders.
    std::string file = linetypeFile;
    if (const auto onDisk = findOnDisk(linetypeFile)) file = *onDisk;
    else if (!file.empty()) host().findFile(linetypeFile, file);
    const DbStatus status = drawing->loadLinetype(linetype, file);
    if (status != DbStatus::Ok) printLayerError("EsOpenLinetypeTable", status);
}

int createLayer(const std::string& name, const LayerValue& fields) {
    if (name.empty() || name == "0") return RTERROR;
    const bool modelSpace = integerVariable("TILEMODE").value_or(1) == 1;
    SystemVariableOverride echoOff("CMDECHO", ResBuf::shortInt(0));

    LayerRecord record;
    record.name = name;
    const std::int32_t states = fields.states;
    record.isOff = states & LayerOff;
    record.isFrozen = states & LayerFrozen;
    record.isLocked = states & LayerLocked;
    record.frozenInNewViewports = (states & LayerFrozenInNewViewports) && !modelSpace;
    record.isPlottable = fields.plottableText.empty() || fields.plottableText[0] != '0';

    ensureLinetype(fields.linetype, fields.linetypeFile);
    record.color = colorFromCode(fields.color, fields.colorBookName, fields.colorName)
                       .value_or(HostColor::fromIndex(kNewLayerColorIndex));

    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) {
        printLayerMessage("LnNoDataBase");
        return RTERROR;
    }
    if (drawing->hasLinetype(fields.linetype)) {
        record.linetype = fields.linetype;
    } else {
        record.linetype = kContinuous;
        printLayerMessage("TxUsingContinuous");
    }
    const bool namedPlotStyles = drawing->usesNamedPlotStyles();
    if (namedPlotStyles) preparePlotStyle(fields.plotStyle);

    record.lineweight = fields.lineweight;
    const DbStatus added = drawing->addLayer(record);
    if (added != DbStatus::Ok) {
        printLayerError("EsLayerOperation", added);
        return RTERROR;
    }
    if (namedPlotStyles && drawing->setLayerPlotStyleName(name, fields.plotStyle) != DbStatus::Ok)
        warnPlotStyleNotAssigned(fields.plotStyle, name);
    return RTNORM;
}

int layerStateBits(const LayerRecord& layer) {
    int bits = 0;
    if (layer.isOff) bits |= LayerOff;
    if (layer.isFrozen) bits |= LayerFrozen;
    if (layer.isLocked) bits |= LayerLocked;
    if (layer.frozenInNewViewports) bits |= LayerFrozenInNewViewports;
    if (layer.name == textVariable("CLAYER")) bits |= LayerCurrent;
    return bits;
}

}  // namespace ardo
