#include "layers/ColourCode.h"

#include "module/HostBinding.h"

namespace ardo {

namespace {

std::int32_t withRgb(std::int32_t top, const HostColor& c) {
    return top | static_cast<std::int32_t>(c.rgb());
}

HostColor rgbColour(std::int32_t code) {
    const auto bits = static_cast<std::uint32_t>(code);
    return HostColor::fromRgb(static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 8),
                              static_cast<std::uint8_t>(bits));
}

}  // namespace

ColourCode encodeColour(const HostColor& colour) {
    ColourCode out;
    switch (colour.method) {
        case HostColor::Method::ByLayer:
        case HostColor::Method::ByBlock:
        case HostColor::Method::Index:
            out.code = colour.index & 0xFFFF;
            break;
        case HostColor::Method::TrueColor:
        case HostColor::Method::ColorBook:
            if (!colour.bookName.empty() && !colour.colorName.empty()) {
                out.code = withRgb(colourcode::kBookColour, colour);
                out.bookName = colour.bookName;
                out.colourName = colour.colorName;
            } else {
                out.code = withRgb(colourcode::kTrueColour, colour);
            }
            break;
        case HostColor::Method::None:
            out.code = colourcode::kNoColour;
            break;
    }
    return out;
}

HostColor decodeColour(std::int32_t code, const std::string& bookName, const std::string& colourName) {
    const auto top = static_cast<std::uint32_t>(code) >> 24;
    switch (top) {
        case 0x00: {
            const int index = code & 0xFFFF;
            if (index == colourcode::kByLayer) return HostColor::byLayer();
            if (index == colourcode::kByBlock) return HostColor::byBlock();
            if (index > 0 && index < colourcode::kByLayer) return HostColor::fromIndex(index);
            break;
        }
        case 0x01:
        case 0x02:
            return rgbColour(code);
        case 0x04: {
            HostColor c = rgbColour(code);
            c.method = HostColor::Method::ColorBook;
            c.bookName = bookName;
            c.colorName = colourName;
            return c;
        }
        default:
            break;
    }
    HostColor none;
    none.method = HostColor::Method::None;
    return none;
}

std::optional<HostColor> colorFromCode(std::int32_t code, const std::string& bookName,
                                       const std::string& colorName) {
    HostColor colour = decodeColour(code, bookName, colorName);
    if (colour.method == HostColor::Method::None) return std::nullopt;
    if (colour.method == HostColor::Method::ColorBook) {
        HostColor shipped;
        if (host().colorFromColorBookName(bookName, colorName, shipped)) return shipped;
        // A book the host does not ship: its names are labels of the code's RGB and stay on
        // the layer, as the common hosts keep them. Without both names it is a true colour.
        if (bookName.empty() || colorName.empty()) {
            colour.method = HostColor::Method::TrueColor;
            colour.bookName.clear();
            colour.colorName.clear();
        }
    }
    return colour;
}

}  // namespace ardo
