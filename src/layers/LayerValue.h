#pragma once
// The value of one key line of the central layer control file: eleven comma-separated
// fields, name, colour, linetype, linetype file, states, colour book name, colour name,
// lineweight, plot style, text field 10, plottable.
#include <cstdint>
#include <string>

namespace ardo {

struct LayerValue {
    std::string name;
    std::int32_t color = 0;
    std::string linetype;
    std::string linetypeFile;
    std::int32_t states = 0;
    std::string colorBookName;
    std::string colorName;
    std::int32_t lineweight = -3;
    std::string plotStyle;
    std::string textField10;
    bool plottable = true;

    // The fields as cut, without conversion, for callers that hand them on as texts.
    std::string colorText;
    std::string statesText;
    std::string lineweightText;
    std::string plottableText;
};

// Fills the fields; true when the line is valid (5 to 11 fields). A valid value with an
// empty plot style gets "Normal".
bool parseLayerValue(const std::string& value, LayerValue& out);

// The value line of an entry's file half: all eleven fields, empty ones between commas.
std::string formatLayerValue(const LayerValue& v);

// Decimal integer as the C runtime reads it: leading blanks and sign, digits up to the
// first other character; no digits reads as 0 and reports false.
bool readDecimal(const std::string& text, std::int32_t& value);

}  // namespace ardo
