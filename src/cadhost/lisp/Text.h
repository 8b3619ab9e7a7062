#pragma once
// UTF-8 text as AutoLISP's string functions see it: one character per code point,
// letters folded the way the Windows Latin code page does (umlauts included).
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cadhost::lisp {

std::vector<char32_t> decodeUtf8(std::string_view text);
void appendUtf8(std::string& out, char32_t c);
std::size_t utf8Length(std::string_view text);
char32_t upperChar(char32_t c);
char32_t lowerChar(char32_t c);
std::string toUpper(std::string_view text);
std::string toLower(std::string_view text);

}  // namespace cadhost::lisp
