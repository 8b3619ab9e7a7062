#include "base/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <unordered_map>

#include "base/Utf8.h"

namespace ardo {

namespace {

// Windows-1252 bytes 0x80..0x9F; zero marks the five bytes the code page leaves undefined,
// which Windows maps to the C1 control of the same number.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

std::string& currentName() {
    static std::string name = "WINDOWS-1252";
    return name;
}

bool isCp1252(const std::string& n) { return n == "WINDOWS-1252"; }
bool isUtf8(const std::string& n) { return n == "UTF-8"; }

std::string normalise(const std::string& name) {
    std::string n;
    for (char c : name) n += char(std::toupper(static_cast<unsigned char>(c)));
    if (n.rfind("ANSI_", 0) == 0) n = n.substr(5);
    if (!n.empty() && std::isdigit(static_cast<unsigned char>(n[0]))) {
        if (n == "65001") return "UTF-8";
        if (n.size() == 4 && n[0] == '1' && n[1] == '2') return "WINDOWS-" + n;
        return "CP" + n;
    }
    if (n == "CP1252") return "WINDOWS-1252";
    if (n == "UTF8") return "UTF-8";
    return n;
}

char32_t cp1252ToUnicode(unsigned char b) {
    if (b < 0x80 || b >= 0xA0) return b;
    char32_t c = kCp1252High[b - 0x80];
    return c ? c : char32_t(b);
}

int unicodeToCp1252(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return int(c);
    if (c >= 0x80 && c < 0xA0) {
        // Only the undefined bytes stand for themselves.
        return kCp1252High[c - 0x80] == 0 ? int(c) : -1;
    }
    static const std::unordered_map<char32_t, int> reverse = [] {
        std::unordered_map<char32_t, int> m;
        for (int i = 0; i < 32; ++i)
            if (kCp1252High[i]) m[kCp1252High[i]] = 0x80 + i;
        return m;
    }();
    auto it = reverse.find(c);
    return it == reverse.end() ? -1 : it->second;
}

// Conversion through iconv for the code pages without a built-in table.
std::string iconvConvert(std::string_view in, const char* to, const char* from, bool* ok) {
    *ok = false;
    iconv_t cd = iconv_open(to, from);
    if (cd == iconv_t(-1)) return {};
    std::string out;
    out.resize(in.size() * 4 + 16);
    char* src = const_cast<char*>(in.data());
    size_t srcLeft = in.size();
    char* dst = out.data();
    size_t dstLeft = out.size();
    while (srcLeft > 0) {
        if (iconv(cd, &src, &srcLeft, &dst, &dstLeft) != size_t(-1)) break;
        if (errno == E2BIG) {
            size_t used = size_t(dst - out.data());
            out.resize(out.size() * 2);
            dst = out.data() + used;
            dstLeft = out.size() - used;
            continue;
        }
        // An unconvertible or cut-off character: keep going with a replacement.
        if (dstLeft < 1) {
            size_t used = size_t(dst - out.data());
            out.resize(out.size() * 2);
            dst = out.data() + used;
            dstLeft = out.size() - used;
        }
        *dst++ = '?';
        --dstLeft;
        // One '?' for one character: from UTF-8, the whole sequence is skipped.
        size_t skip = 1;
        if (std::string_view(from) == "UTF-8") {
            const auto lead = static_cast<unsigned char>(*src);
            skip = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        }
        skip = std::min(skip, srcLeft);
        src += skip;
        srcLeft -= skip;
    }
    out.resize(size_t(dst - out.data()));
    iconv_close(cd);
    *ok = true;
    return out;
}

}  // namespace

bool setFileCodePage(const std::string& name) {
    std::string n = normalise(name);
    if (!isCp1252(n) && !isUtf8(n)) {
        iconv_t cd = iconv_open("UTF-8", n.c_str());
        if (cd == iconv_t(-1)) return false;
        iconv_close(cd);
    }
    currentName() = n;
    return true;
}

const std::string& fileCodePage() { return currentName(); }

std::string decodeFileText(std::string_view bytes) {
    const std::string& cp = currentName();
    if (isUtf8(cp)) return std::string(bytes);
    bool ascii = true;
    for (unsigned char b : bytes)
        if (b >= 0x80) { ascii = false; break; }
    if (ascii) return std::string(bytes);
    if (isCp1252(cp)) {
        std::string out;
        out.reserve(bytes.size() + bytes.size() / 4);
        for (unsigned char b : bytes) appendUtf8(out, cp1252ToUnicode(b));
        return out;
    }
    bool ok = false;
    std::string out = iconvConvert(bytes, "UTF-8", cp.c_str(), &ok);
    return ok ? out : std::string(bytes);
}

std::string encodeFileText(std::string_view utf8) {
    const std::string& cp = currentName();
    if (isUtf8(cp)) return std::string(utf8);
    bool ascii = true;
    for (unsigned char b : utf8)
        if (b >= 0x80) { ascii = false; break; }
    if (ascii) return std::string(utf8);
    if (isCp1252(cp)) {
        std::string out;
        out.reserve(utf8.size());
        forEachCodePoint(utf8, [&](char32_t c) {
            int b = unicodeToCp1252(c);
            out += b < 0 ? '?' : char(b);
        });
        return out;
    }
    bool ok = false;
    std::string out = iconvConvert(utf8, cp.c_str(), "UTF-8", &ok);
    return ok ? out : std::string(utf8);
}

std::string charactersNotInFileCodePage(std::string_view utf8) {
    const std::string& cp = currentName();
    std::string lost;
    if (isUtf8(cp)) return lost;
    std::u32string seen;
    forEachCodePoint(utf8, [&](char32_t c) {
        if (c < 0x80 || seen.find(c) != std::u32string::npos) return;
        std::string one;
        appendUtf8(one, c);
        const bool missing = isCp1252(cp) ? unicodeToCp1252(c) < 0 : encodeFileText(one) == "?";
        if (!missing) return;
        seen += c;
        lost += one;
    });
    return lost;
}

}  // namespace ardo
