#include "cadhost/colors/RgbName.h"

#include <array>
#include <cstddef>

#include "base/CaseFold.h"

namespace cadhost {

namespace {

bool readComponent(std::string_view text, std::uint8_t& value) {
    text = ardo::trimWhite(text);
    if (text.empty() || text.size() > 3) return false;
    int n = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return false;
        n = n * 10 + (c - '0');
    }
    if (n > 255) return false;
    value = std::uint8_t(n);
    return true;
}

}  // namespace

bool colorFromRgbName(std::string_view text, ardo::HostColor& color) {
    std::array<std::uint8_t, 3> rgb{};
    for (std::size_t i = 0; i < rgb.size(); ++i) {
        const std::size_t comma = text.find(',');
        const bool last = i + 1 == rgb.size();
        if (last != (comma == std::string_view::npos)) return false;
        if (!readComponent(text.substr(0, comma), rgb[i])) return false;
        if (!last) text.remove_prefix(comma + 1);
    }
    color = ardo::HostColor::fromRgb(rgb[0], rgb[1], rgb[2]);
    return true;
}

}  // namespace cadhost
