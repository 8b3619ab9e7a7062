#include "dialog/LayerCellValue.h"

#include "base/CaseFold.h"
#include "layers/ColorText.h"
#include "layers/ColourCode.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

bool inDrawing(const LayerEntry& e) { return e.has(entryflag::kInDrawing); }
bool inFile(const LayerEntry& e) { return e.has(entryflag::kFromFile); }

std::uint32_t halfStates(const LayerEntry& e, DataHalf half) {
    const std::uint32_t states = half == DataHalf::Drawing ? e.dwgStates : static_cast<std::uint32_t>(e.fileStates);
    return states & kShownStateBits;
}

std::string statesText(std::uint32_t states) {
    std::string text = catalogText((states & 1) ? MsgKey::TtDlgPropOff : MsgKey::TtDlgPropOn);
    const auto add = [&](std::uint32_t bit, MsgKey key) {
        if (states & bit) text += ", " + catalogText(key);
    };
    add(2, MsgKey::TtDlgPropFrozen);
    add(4, MsgKey::TtDlgPropLocked);
    add(16, MsgKey::TtDlgPropFrInNewV);
    return text;
}

std::string lineweightText(int value, const LineweightState& state) {
    if (const auto row = lineweightRowOfValue(value))
        return state.millimetres ? kLineweights[*row].millimetreText : kLineweights[*row].inchText;
    return std::to_string(value);
}

}  // namespace

DataHalf shownHalf(const LayerEntry& entry, int priority) {
    if (priority == 2) {
        if (inFile(entry)) return DataHalf::File;
        if (inDrawing(entry)) return DataHalf::Drawing;
    } else {
        if (inDrawing(entry)) return DataHalf::Drawing;
        if (inFile(entry)) return DataHalf::File;
    }
    return DataHalf::None;
}

bool halvesDiffer(const LayerEntry& e, LayerColumn column) {
    if (!inDrawing(e) || !inFile(e)) return false;
    switch (column) {
        case LayerColumn::Color:
            return e.dwgColor != e.fileColor || !equalsNoCase(e.dwgColorBookName, e.fileColorBookName) ||
                   !equalsNoCase(e.dwgColorName, e.fileColorName);
        case LayerColumn::Linetype: return !equalsNoCase(e.dwgLinetype, e.fileLinetype);
        case LayerColumn::State: return halfStates(e, DataHalf::Drawing) != halfStates(e, DataHalf::File);
        case LayerColumn::Lineweight: return e.dwgLineweight != e.fileLineweight;
        case LayerColumn::PlotStyle: return !equalsNoCase(e.dwgPlotStyle, e.filePlotStyle);
        case LayerColumn::Plottable: return e.dwgPlottable != e.filePlottable;
        case LayerColumn::Key:
        case LayerColumn::Name: return false;
    }
    return false;
}

HostColor halfColour(const LayerEntry& e, DataHalf half) {
    if (half == DataHalf::Drawing) return decodeColour(e.dwgColor, e.dwgColorBookName, e.dwgColorName);
    if (half == DataHalf::File) return decodeColour(e.fileColor, e.fileColorBookName, e.fileColorName);
    HostColor none;
    none.method = HostColor::Method::None;
    return none;
}

std::string cellText(const LayerEntry& e, LayerColumn column, DataHalf half, const LineweightState& lineweights) {
    if (column == LayerColumn::Key) return e.key;
    if (column == LayerColumn::Name) return e.name;
    if (half == DataHalf::None) return {};
    const bool dwg = half == DataHalf::Drawing;
    switch (column) {
        case LayerColumn::Color: return colorText(halfColour(e, half));
        case LayerColumn::Linetype: return dwg ? e.dwgLinetype : e.fileLinetype;
        case LayerColumn::State: return statesText(halfStates(e, half));
        case LayerColumn::Lineweight: return lineweightText(dwg ? e.dwgLineweight : e.fileLineweight, lineweights);
        case LayerColumn::PlotStyle: return dwg ? e.dwgPlotStyle : e.filePlotStyle;
        case LayerColumn::Plottable:
            return catalogText((dwg ? e.dwgPlottable : e.filePlottable) ? MsgKey::RsBtnYes : MsgKey::RsBtnNo);
        case LayerColumn::Key:
        case LayerColumn::Name: break;
    }
    return {};
}

}  // namespace ardo
