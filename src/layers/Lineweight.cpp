#include "layers/Lineweight.h"

#include "layers/DrawingLayersVariables.h"

namespace ardo {

const std::array<LineweightRow, 25> kLineweights{{
    {"Vorgabe", "Vorgabe", -3},
    {"0.00 mm", "0.000\"", 0},
    {"0.05 mm", "0.002\"", 5},
    {"0.09 mm", "0.004\"", 9},
    {"0.13 mm", "0.005\"", 13},
    {"0.15 mm", "0.006\"", 15},
    {"0.18 mm", "0.007\"", 18},
    {"0.20 mm", "0.008\"", 20},
    {"0.25 mm", "0.010\"", 25},
    {"0.30 mm", "0.012\"", 30},
    {"0.35 mm", "0.014\"", 35},
    {"0.40 mm", "0.016\"", 40},
    {"0.50 mm", "0.020\"", 50},
    {"0.53 mm", "0.021\"", 53},
    {"0.60 mm", "0.024\"", 60},
    {"0.70 mm", "0.028\"", 70},
    {"0.80 mm", "0.031\"", 80},
    {"0.90 mm", "0.035\"", 90},
    {"1.00 mm", "0.039\"", 100},
    {"1.06 mm", "0.042\"", 106},
    {"1.20 mm", "0.047\"", 120},
    {"1.40 mm", "0.055\"", 140},
    {"1.58 mm", "0.062\"", 158},
    {"2.00 mm", "0.079\"", 200},
    {"2.11 mm", "0.083\"", 211},
}};

std::optional<size_t> lineweightRowOfValue(int value) {
    for (size_t row = 0; row < kLineweights.size(); ++row)
        if (kLineweights[row].value == value) return row;
    return std::nullopt;
}

LineweightState readLineweightState() {
    LineweightState state;
    if (auto units = integerVariable("LWUNITS")) state.millimetres = *units != 0;
    if (auto weight = integerVariable("LWDEFAULT")) state.defaultLineweight = *weight;
    if (auto display = integerVariable("LWDISPLAY")) state.display = *display != 0;
    return state;
}

std::vector<LineweightListRow> lineweightListRows(const LineweightState& state) {
    std::vector<LineweightListRow> rows;
    rows.reserve(kLineweights.size());
    for (size_t row = 0; row < kLineweights.size(); ++row) {
        const LineweightRow& r = kLineweights[row];
        rows.push_back({state.millimetres ? r.millimetreText : r.inchText, row});
    }
    return rows;
}

}  // namespace ardo
