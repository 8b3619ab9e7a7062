#pragma once
// The host's colour object: method, index, RGB and, for book colours, book and colour name.
#include <cstdint>
#include <string>

namespace ardo {

struct HostColor {
    enum class Method { ByLayer, ByBlock, Index, TrueColor, ColorBook, None };

    Method method = Method::ByLayer;
    int index = 256;           // 0 by block, 256 by layer, 1..255 index colours
    std::uint8_t red = 0, green = 0, blue = 0;
    std::string bookName;      // set for book colours only
    std::string colorName;

    static HostColor byLayer() { return {}; }
    static HostColor byBlock() { HostColor c; c.method = Method::ByBlock; c.index = 0; return c; }
    static HostColor fromIndex(int i) { HostColor c; c.method = Method::Index; c.index = i; return c; }
    static HostColor fromRgb(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
        HostColor c; c.method = Method::TrueColor; c.red = r; c.green = g; c.blue = b; return c;
    }
    std::uint32_t rgb() const { return (std::uint32_t(red) << 16) | (std::uint32_t(green) << 8) | blue; }
    bool operator==(const HostColor&) const = default;
};

}  // namespace ardo
