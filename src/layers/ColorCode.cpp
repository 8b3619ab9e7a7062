#include "layers/ColorCode.h"

#include "host/Host.h"

namespace ardo {

namespace {

HostColor trueColorOf(std::uint32_t rgb) {
    return HostColor::fromRgb(std::uint8_t(rgb >> 16), std::uint8_t(rgb >> 8), std::uint8_t(rgb));
}

}  // namespace

std::optional<HostColor> colorFromCode(std::int32_t code, const std::string& bookName,
                                       const std::string& colorName) {
    const auto bits = static_cast<std::uint32_t>(code);
    const std::uint32_t rgb = bits & 0xFFFFFF;
    switch (bits >> 24) {
        case 0x00: {
            const int index = int(bits & 0xFFFF);
            if (index == 0) return HostColor::byBlock();
            if (index == 256) return HostColor::byLayer();
            if (index > 256) return std::nullopt;
            return HostColor::fromIndex(index);
        }
        case 0x01:
        case 0x02:
            return trueColorOf(rgb);
        case 0x04: {
            HostColor book;
            if (host().colorFromColorBookName(bookName, colorName, book)) return book;
            return trueColorOf(rgb);
        }
        default:
            return std::nullopt;
    }
}

}  // namespace ardo
