#pragma once
// The lineweights a drawing may hold, in hundredths of a millimetre: the host's own fact,
// as every CAD application keeps its own list.
#include <array>

namespace cadhost {

inline constexpr std::array<int, 24> kStandardLineweights{
    0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

// The default lineweight.
inline constexpr int kLineweightDefault = -3;

}  // namespace cadhost
