#pragma once
// UTF-8 text as AutoLISP's string functions see it: one character per code point. Case
// folding is the host's one rule for every name and text (base/CaseFold).
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cadhost::lisp {

std::vector<char32_t> decodeUtf8(std::string_view text);
std::size_t utf8Length(std::string_view text);

}  // namespace cadhost::lisp
