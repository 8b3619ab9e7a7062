#pragma once
// What TEXT and MTEXT share: the current text style and height, and the nine
// justifications by the corner or middle of the text they name.
#include <array>
#include <string>
#include <string_view>

#include "cadhost/commands/Command.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// Top, middle and bottom row, each left, centre and right: MTEXT's attachment 1 to 9.
inline constexpr std::array<std::string_view, 9> kBoxJustifications{"TL", "TC", "TR", "ML", "MC",
                                                                    "MR", "BL", "BC", "BR"};

// TEXTSTYLE, "Standard" when the drawing has none.
std::string currentTextStyle(const Drawing& drawing);
// TEXTSIZE, 2.5 when the drawing has none.
double currentTextHeight(const Drawing& drawing);
// "Current text style:  "Standard"  Text height:  2.5000", as the commands start.
std::string currentTextSettings(const Drawing& drawing);

// A height at its prompt: Enter keeps `height`, a positive distance (from `base` when
// picked) replaces it and becomes TEXTSIZE, the next default. False when the input was
// refused; the user has been told why.
bool takeTextHeight(const Context& context, const ardo::ResBuf& input, const ardo::Point3& base, double& height);
// A rotation at its prompt: Enter keeps `rotation`, an angle replaces it (in [0, 2pi)).
bool takeTextRotation(const Context& context, const ardo::ResBuf& input, const ardo::Point3& base, double& rotation);

}  // namespace cadhost::commands
