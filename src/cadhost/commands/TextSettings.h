#pragma once
// What TEXT and MTEXT share: the current text style and height, and the nine
// justifications by the corner or middle of the text they name.
#include <array>
#include <string>
#include <string_view>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// Top, middle and bottom row, each left, centre and right: MTEXT's attachment 1 to 9.
inline constexpr std::array<std::string_view, 9> kBoxJustifications{"TL", "TC", "TR", "ML", "MC",
                                                                    "MR", "BL", "BC", "BR"};

// TEXTSTYLE, "Standard" when the drawing has none.
std::string currentTextStyle(const Drawing& drawing);
// TEXTSIZE, 2.5 when the drawing has none; a height given becomes the next default.
double currentTextHeight(const Drawing& drawing);
void rememberTextHeight(Drawing& drawing, double height);

}  // namespace cadhost::commands
