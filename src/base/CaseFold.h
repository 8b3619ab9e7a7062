#pragma once
// Case-insensitive handling of keys, layer names and sections, folding letters the way
// the Windows code page does (umlauts included: "ä" equals "Ä"; "ß" has no capital).
#include <string>
#include <string_view>

namespace ardo {

std::string upperCase(std::string_view utf8);
std::string lowerCase(std::string_view utf8);
// One character; letters without a case pair (and "ß") come back unchanged.
char32_t upperChar(char32_t c);
char32_t lowerChar(char32_t c);
bool equalsNoCase(std::string_view a, std::string_view b);
// Trims blanks, tabs, carriage returns and line feeds.
std::string_view trimWhite(std::string_view s);
std::string_view trimWhiteLeft(std::string_view s);
std::string_view trimWhiteRight(std::string_view s);

}  // namespace ardo
