#include "base/Utf8.h"

namespace ardo {

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | (c >> 6));
        out += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += char(0xE0 | (c >> 12));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    } else {
        out += char(0xF0 | (c >> 18));
        out += char(0x80 | ((c >> 12) & 0x3F));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    }
}

char32_t decodeUtf8At(std::string_view s, size_t& pos) {
    auto b0 = static_cast<unsigned char>(s[pos]);
    int len = b0 < 0x80 ? 1 : (b0 >> 5) == 6 ? 2 : (b0 >> 4) == 14 ? 3 : (b0 >> 3) == 30 ? 4 : 0;
    if (len == 1) {
        ++pos;
        return b0;
    }
    if (len == 0 || pos + size_t(len) > s.size()) {
        ++pos;
        return b0;
    }
    char32_t c = b0 & (0x7F >> len);
    for (int i = 1; i < len; ++i) {
        auto b = static_cast<unsigned char>(s[pos + size_t(i)]);
        if ((b & 0xC0) != 0x80) {
            ++pos;
            return b0;
        }
        c = (c << 6) | (b & 0x3F);
    }
    pos += size_t(len);
    return c;
}

bool hasControlCharacter(std::string_view s) {
    for (unsigned char c : s)
        if (c < 0x20 || c == 0x7F) return true;
    return false;
}

}  // namespace ardo
