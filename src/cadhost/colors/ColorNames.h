#pragma once
// Index colours by name or number, as the host's colour-name lookup knows them. The host
// speaks one language: an English host knows "red" and "BYLAYER", a German one "rot" and
// "VONLAYER"; numbers 1..255 are known to both.
#include <string_view>

#include "boundary/HostColor.h"

namespace cadhost {

enum class ColorNameLanguage { English, German };

// True when the text (blanks around it ignored, any case) names an index colour, by layer
// or by block in the host's language, or is a number 1..255.
bool colorFromAciName(std::string_view text, ColorNameLanguage language, ardo::HostColor& color);

}  // namespace cadhost
