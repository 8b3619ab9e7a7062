#pragma once
// The index colour nearest to an RGB colour, by the host's palette.
#include <cstdint>

namespace ardo {

// 1..255; the smallest index wins among equally near ones.
int nearestIndexColor(std::uint32_t rgb);

}  // namespace ardo
