#pragma once
// Numbers in DXF value text. Malformed text reads as the fallback, so one damaged value
// never stops a drawing from opening.
#include <cstdint>
#include <string>
#include <string_view>

namespace cadhost {

double toDouble(std::string_view text, double fallback = 0.0);
long long toInteger(std::string_view text, long long fallback = 0);
// Handles are hexadecimal; 0 when the text is none.
std::uint64_t toHandle(std::string_view text);
std::string handleToText(std::uint64_t handle);
// Shortest text that reads back as the same double.
std::string doubleToText(double value);

}  // namespace cadhost
