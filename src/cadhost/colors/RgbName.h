#pragma once
// True colours by their RGB name: three numbers 0..255 separated by commas ("255,128,0"),
// blanks allowed around each number.
#include <string_view>

#include "boundary/HostColor.h"

namespace cadhost {

bool colorFromRgbName(std::string_view text, ardo::HostColor& color);

}  // namespace cadhost
