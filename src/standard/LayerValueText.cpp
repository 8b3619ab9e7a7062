#include "standard/LayerValueText.h"

#include "base/CaseFold.h"
#include "base/Printf.h"
#include "layers/ColourCode.h"
#include "layers/Lineweight.h"
#include "module/HostBinding.h"

namespace ardo {

namespace {

std::uint32_t topByte(std::int32_t code) { return static_cast<std::uint32_t>(code) >> 24; }

}  // namespace

bool namesLayerColour(std::int32_t code) {
    const HostColor::Method method = decodeColour(code).method;
    return method == HostColor::Method::Index || method == HostColor::Method::TrueColor ||
           method == HostColor::Method::ColorBook;
}

std::string colourText(std::int32_t code, const std::string& bookName, const std::string& colourName) {
    const HostColor c = decodeColour(code, bookName, colourName);
    switch (c.method) {
        case HostColor::Method::ByLayer: return "ByLayer";
        case HostColor::Method::ByBlock: return "ByBlock";
        case HostColor::Method::Index: return std::to_string(c.index);
        case HostColor::Method::TrueColor: return format("RGB:%d,%d,%d", c.red, c.green, c.blue);
        case HostColor::Method::ColorBook: return c.bookName + "$" + c.colorName;
        case HostColor::Method::None: break;
    }
    return "none";
}

std::string colourRgbText(std::int32_t code) {
    const HostColor c = decodeColour(code);
    switch (c.method) {
        case HostColor::Method::Index: return format("#%06x", host().rgbOfIndexColor(c.index) & 0xFFFFFFu);
        case HostColor::Method::TrueColor:
        case HostColor::Method::ColorBook: return format("#%06x", c.rgb());
        default: return {};
    }
}

std::string lineweightText(std::int32_t lineweight) {
    if (const auto row = lineweightRowOfValue(lineweight)) return kLineweights[*row].millimetreText;
    return std::to_string(lineweight);
}

std::string plottableText(bool plottable) { return plottable ? "yes" : "no"; }

bool sameColour(std::int32_t fileCode, const std::string& fileBook, const std::string& fileName,
                std::int32_t drawingCode, const std::string& drawingBook, const std::string& drawingName) {
    const HostColor file = decodeColour(fileCode, fileBook, fileName);
    const HostColor drawing = decodeColour(drawingCode, drawingBook, drawingName);
    if (file.method != drawing.method) return false;
    switch (file.method) {
        case HostColor::Method::Index: return file.index == drawing.index;
        case HostColor::Method::TrueColor: return file.rgb() == drawing.rgb();
        case HostColor::Method::ColorBook:
            return equalsNoCase(file.bookName, drawing.bookName) && equalsNoCase(file.colorName, drawing.colorName);
        default: return topByte(fileCode) == topByte(drawingCode);
    }
}

}  // namespace ardo
