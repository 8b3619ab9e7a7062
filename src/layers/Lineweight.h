#pragma once
// The lineweights the module offers, their texts in millimetres and inches, and the
// drawing's lineweight settings that decide which text a list shows.
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace ardo {

struct LineweightRow {
    const char* millimetreText;
    const char* inchText;
    int value;  // hundredths of a millimetre; -3 is the host's default lineweight
};

extern const std::array<LineweightRow, 25> kLineweights;

// The first table row with that value, or none.
std::optional<size_t> lineweightRowOfValue(int value);

// "LWUNITS" (non-zero: millimetres), "LWDEFAULT" and "LWDISPLAY", as the host has them.
struct LineweightState {
    bool millimetres = true;
    int defaultLineweight = 25;
    bool display = false;
};

// Reads the three system variables; a variable the host does not know keeps its default.
LineweightState readLineweightState();

// One row of a lineweight list: the text to show and the table row it stands for.
struct LineweightListRow {
    std::string text;
    size_t tableRow;
};

// Every table row in table order, with the text of the drawing's unit.
std::vector<LineweightListRow> lineweightListRows(const LineweightState& state);

}  // namespace ardo
