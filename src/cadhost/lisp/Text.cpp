#include "cadhost/lisp/Text.h"

namespace cadhost::lisp {

std::vector<char32_t> decodeUtf8(std::string_view text) {
    std::vector<char32_t> out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto b = static_cast<unsigned char>(text[i]);
        int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
        char32_t c = extra == 3 ? b & 0x07 : extra == 2 ? b & 0x0F : extra == 1 ? b & 0x1F : b;
        std::size_t j = i + 1;
        for (; extra > 0 && j < text.size() && (static_cast<unsigned char>(text[j]) & 0xC0) == 0x80; --extra, ++j)
            c = (c << 6) | (static_cast<unsigned char>(text[j]) & 0x3F);
        // A broken sequence keeps its lead byte as a character of its own.
        if (extra > 0) {
            c = b;
            j = i + 1;
        }
        out.push_back(c);
        i = j;
    }
    return out;
}

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | ((c >> 18) & 0x07));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::size_t utf8Length(std::string_view text) {
    std::size_t n = 0;
    for (char ch : text)
        if ((static_cast<unsigned char>(ch) & 0xC0) != 0x80) ++n;
    return n;
}

char32_t upperChar(char32_t c) {
    if (c >= 'a' && c <= 'z') return c - 32;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
    return c;
}

char32_t lowerChar(char32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
    return c;
}

namespace {
template <typename Fold>
std::string mapChars(std::string_view text, Fold fold) {
    std::string out;
    out.reserve(text.size());
    bool ascii = true;
    for (char ch : text) ascii = ascii && static_cast<unsigned char>(ch) < 0x80;
    if (ascii) {
        for (char ch : text) out += static_cast<char>(fold(static_cast<char32_t>(ch)));
        return out;
    }
    for (char32_t c : decodeUtf8(text)) appendUtf8(out, fold(c));
    return out;
}
}  // namespace

std::string toUpper(std::string_view text) { return mapChars(text, upperChar); }
std::string toLower(std::string_view text) { return mapChars(text, lowerChar); }

}  // namespace cadhost::lisp
