#include "base/CaseFold.h"

#include "base/Utf8.h"

namespace ardo {

namespace {

bool isWhite(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f'; }

// Folds every letter of the text. Keys and names are mostly ASCII and every lookup folds
// one, so ASCII text is folded in place without decoding.
template <class Fold>
std::string foldText(std::string_view utf8, Fold fold) {
    std::string out(utf8);
    bool ascii = true;
    for (char& c : out) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            ascii = false;
            break;
        }
        c = char(fold(static_cast<unsigned char>(c)));
    }
    if (ascii) return out;
    out.clear();
    size_t pos = 0;
    while (pos < utf8.size()) {
        auto b = static_cast<unsigned char>(utf8[pos]);
        if (b < 0x80) {
            out += char(fold(b));
            ++pos;
            continue;
        }
        appendUtf8(out, fold(decodeUtf8At(utf8, pos)));
    }
    return out;
}

}  // namespace

// The letters of Windows-1252: ASCII, Latin-1 (not × and ÷, and ß has no capital) and
// Š š Œ œ Ž ž Ÿ ÿ.
char32_t upperChar(char32_t c) {
    if (c >= 'a' && c <= 'z') return c - 0x20;
    if (c < 0x80) return c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 0x20;
    switch (c) {
        case 0xFF: return 0x178;
        case 0x161: return 0x160;
        case 0x153: return 0x152;
        case 0x17E: return 0x17D;
        default: return c;
    }
}

char32_t lowerChar(char32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 0x20;
    if (c < 0x80) return c;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 0x20;
    switch (c) {
        case 0x178: return 0xFF;
        case 0x160: return 0x161;
        case 0x152: return 0x153;
        case 0x17D: return 0x17E;
        default: return c;
    }
}

// Lambdas, not the functions' addresses: each fold gets its own copy of foldText with the
// letter rule inlined, which every symbol, variable and layer lookup pays for.
std::string lowerCase(std::string_view utf8) {
    return foldText(utf8, [](char32_t c) { return lowerChar(c); });
}

std::string upperCase(std::string_view utf8) {
    return foldText(utf8, [](char32_t c) { return upperChar(c); });
}

bool equalsNoCase(std::string_view a, std::string_view b) {
    // Most names are compared with their own spelling; that needs no folding.
    if (a == b) return true;
    size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        auto ca = static_cast<unsigned char>(a[i]);
        auto cb = static_cast<unsigned char>(b[j]);
        if (ca < 0x80 && cb < 0x80) {
            if (ca >= 'a' && ca <= 'z') ca -= 0x20;
            if (cb >= 'a' && cb <= 'z') cb -= 0x20;
            if (ca != cb) return false;
            ++i;
            ++j;
            continue;
        }
        if (upperChar(decodeUtf8At(a, i)) != upperChar(decodeUtf8At(b, j))) return false;
    }
    return i == a.size() && j == b.size();
}

std::string_view trimWhiteLeft(std::string_view s) {
    size_t b = 0;
    while (b < s.size() && isWhite(s[b])) ++b;
    return s.substr(b);
}

std::string_view trimWhiteRight(std::string_view s) {
    size_t e = s.size();
    while (e > 0 && isWhite(s[e - 1])) --e;
    return s.substr(0, e);
}

std::string_view trimWhite(std::string_view s) { return trimWhiteRight(trimWhiteLeft(s)); }

}  // namespace ardo
