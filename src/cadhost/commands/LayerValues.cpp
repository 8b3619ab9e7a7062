#include "cadhost/commands/LayerValues.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/drawing/StandardLineweights.h"

namespace cadhost::commands {

using ardo::HostColor;

std::optional<HostColor> layerIndexColor(const ardo::ResBuf& input, const ColorServices& colors) {
    HostColor color;
    if (!colors.fromAciName(inputText(input), color) || color.method != HostColor::Method::Index) return std::nullopt;
    return color;
}

std::optional<HostColor> layerTrueColor(const ardo::ResBuf& input, const ColorServices& colors) {
    HostColor color;
    if (input.restype != ardo::RTSTR || !colors.fromRgbName(input.text, color)) return std::nullopt;
    return color;
}

std::optional<HostColor> layerBookColor(const ardo::ResBuf& input, const ColorServices& colors) {
    const auto dollar = input.text.find('$');
    if (input.restype != ardo::RTSTR || dollar == std::string::npos) return std::nullopt;
    HostColor color;
    if (!colors.fromColorBookName(input.text.substr(0, dollar), input.text.substr(dollar + 1), color))
        return std::nullopt;
    return color;
}

std::string layerColorText(const HostColor& color) {
    switch (color.method) {
        case HostColor::Method::TrueColor:
            return std::to_string(color.red) + "," + std::to_string(color.green) + "," + std::to_string(color.blue);
        case HostColor::Method::ColorBook: return color.bookName + "$" + color.colorName;
        default: return std::to_string(color.index);
    }
}

std::optional<int> layerLineweight(const ardo::ResBuf& input) {
    const std::string text = inputText(input);
    char* end = nullptr;
    const double mm = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(mm >= 0.0 && mm <= 2.11 + 1e-9)) return std::nullopt;
    const double hundredths = mm * 100.0;
    std::optional<int> nearest;
    for (const int value : kStandardLineweights)
        if (!nearest || std::abs(value - hundredths) < std::abs(*nearest - hundredths)) nearest = value;
    return nearest;
}

std::string lineweightText(int lineweight) {
    if (lineweight < 0) return "Default";
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2fmm", lineweight / 100.0);
    return buffer;
}

}  // namespace cadhost::commands
