#pragma once
// Numbers in DXF value text. Malformed text reads as the fallback, so one damaged value
// never stops a drawing from opening.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cadhost {

double toDouble(std::string_view text, double fallback = 0.0);
// Integers written as reals ("1.0") are read too; text that is no integer, or one beyond
// the range of long long (NaN, 1e300), reads as the fallback.
long long toInteger(std::string_view text, long long fallback = 0);
// The integer if the text holds one within [low, high], nothing otherwise.
std::optional<long long> toIntegerWithin(std::string_view text, long long low, long long high);
// The integer of a tag if it lies within the range of its group code's kind (16, 32 or 64
// bits, 0..255 for booleans); the fallback otherwise.
long long toGroupInteger(int code, std::string_view text, long long fallback = 0);
// Handles are hexadecimal; 0 when the text is none.
std::uint64_t toHandle(std::string_view text);
std::string handleToText(std::uint64_t handle);
// Shortest text that reads back as the same double.
std::string doubleToText(double value);

}  // namespace cadhost
