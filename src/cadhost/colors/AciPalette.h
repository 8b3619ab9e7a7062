#pragma once
// The standard 256-colour index palette of the CAD host (ACI).
#include <cstdint>

namespace cadhost {

// 0x00RRGGBB of an index colour 1..255; 0 (black) for 0 and for indexes outside the palette.
std::uint32_t aciRgb(int index);

}  // namespace cadhost
