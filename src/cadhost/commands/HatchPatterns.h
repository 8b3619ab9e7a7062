#pragma once
// The predefined hatch patterns the HATCH command offers, and the pattern lines a HATCH
// entity carries for one of them at a scale and angle.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// "SOLID", "ANSI31" to "ANSI38", "LINE", "NET", "DOTS", in that order.
std::vector<std::string_view> hatchPatternNames();
// The name as the table spells it, for a name in any case; nothing for an unknown one.
std::optional<std::string_view> findHatchPattern(std::string_view name);

// The pattern's definition lines as HATCH groups 53, 43, 44, 45, 46, 79 and 49, turned by
// `angle` (radians) and scaled; none for SOLID.
std::vector<EntityTag> hatchPatternTags(std::string_view name, double scale, double angle);

}  // namespace cadhost::commands
