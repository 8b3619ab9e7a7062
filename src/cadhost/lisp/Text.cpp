#include "cadhost/lisp/Text.h"

#include "base/Utf8.h"

namespace cadhost::lisp {

std::vector<char32_t> decodeUtf8(std::string_view text) {
    std::vector<char32_t> out;
    out.reserve(text.size());
    ardo::forEachCodePoint(text, [&](char32_t c) { out.push_back(c); });
    return out;
}

std::size_t utf8Length(std::string_view text) {
    std::size_t n = 0;
    for (char ch : text)
        if ((static_cast<unsigned char>(ch) & 0xC0) != 0x80) ++n;
    return n;
}

}  // namespace cadhost::lisp
