#include "cadhost/dxf/DxfText.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <optional>
#include <utility>

#include "base/Utf8.h"

namespace cadhost {

using ardo::appendUtf8;

namespace {

constexpr std::array<std::pair<std::string_view, const char*>, 16> kCodePages{{
    {"ANSI_874", "CP874"},   {"ANSI_932", "CP932"},   {"ANSI_936", "CP936"},   {"ANSI_949", "CP949"},
    {"ANSI_950", "CP950"},   {"ANSI_1250", "CP1250"}, {"ANSI_1251", "CP1251"}, {"ANSI_1252", "CP1252"},
    {"ANSI_1253", "CP1253"}, {"ANSI_1254", "CP1254"}, {"ANSI_1255", "CP1255"}, {"ANSI_1256", "CP1256"},
    {"ANSI_1257", "CP1257"}, {"ANSI_1258", "CP1258"}, {"DOS437", "CP437"},     {"DOS850", "CP850"},
}};

bool isAscii(std::string_view s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// One conversion with a fresh iconv descriptor; iconv keeps state, and conversions of DXF
// values are rare outside loading of names.
class Iconv {
public:
    Iconv(const char* to, const char* from) : cd_(iconv_open(to, from)) {}
    ~Iconv() { if (ok()) iconv_close(cd_); }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;
    bool ok() const { return cd_ != reinterpret_cast<iconv_t>(-1); }
    // Converts as much as it can; returns the number of input bytes consumed.
    std::size_t run(std::string_view in, std::string& out) {
        char* src = const_cast<char*>(in.data());
        std::size_t left = in.size();
        char buf[1024];
        while (left > 0) {
            char* dst = buf;
            std::size_t room = sizeof buf;
            const std::size_t r = iconv(cd_, &src, &left, &dst, &room);
            out.append(buf, dst);
            if (r == static_cast<std::size_t>(-1) && errno != E2BIG) break;
        }
        return in.size() - left;
    }

private:
    iconv_t cd_;
};

// The four hex digits of an escape \U+XXXX at `at`, if there is one.
std::optional<unsigned> escapeAt(const std::string& s, std::size_t at) {
    if (s.compare(at, 3, "\\U+") != 0 || s.size() < at + 7) return std::nullopt;
    unsigned cp = 0;
    const char* first = s.data() + at + 3;
    auto [end, ec] = std::from_chars(first, first + 4, cp, 16);
    if (ec != std::errc() || end != first + 4) return std::nullopt;
    return cp;
}

bool isHighSurrogate(unsigned cp) { return cp >= 0xD800 && cp <= 0xDBFF; }
bool isLowSurrogate(unsigned cp) { return cp >= 0xDC00 && cp <= 0xDFFF; }

// Replaces \U+XXXX escapes by the character; characters beyond U+FFFF come as a pair of
// surrogate escapes. A surrogate without its partner is kept as the escape text.
std::string expandUnicodeEscapes(std::string s) {
    std::size_t at = s.find("\\U+");
    if (at == std::string::npos) return s;
    std::string out;
    std::size_t from = 0;
    for (; at != std::string::npos; at = s.find("\\U+", from)) {
        out.append(s, from, at - from);
        const auto cp = escapeAt(s, at);
        const auto low = cp && isHighSurrogate(*cp) ? escapeAt(s, at + 7) : std::nullopt;
        if (low && isLowSurrogate(*low)) {
            appendUtf8(out, static_cast<char32_t>(0x10000 + ((*cp - 0xD800) << 10) + (*low - 0xDC00)));
            from = at + 14;
        } else if (cp && !isHighSurrogate(*cp) && !isLowSurrogate(*cp)) {
            appendUtf8(out, static_cast<char32_t>(*cp));
            from = at + 7;
        } else {
            out += "\\U+";
            from = at + 3;
        }
    }
    out.append(s, from);
    return out;
}

void appendEscape(std::string& out, unsigned cp) {
    static const char hex[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4) out += hex[(cp >> shift) & 15];
}

bool isCaretControl(char c) { return c >= '@' && c <= '_'; }

// Whether a caret written just before this character would read as the start of a pair:
// a control character is itself written with a leading caret.
bool startsCaretPair(char next) {
    return isCaretControl(next) || next == ' ' || static_cast<unsigned char>(next) < 0x20;
}

}  // namespace

DxfTextCodec::DxfTextCodec() = default;

DxfTextCodec DxfTextCodec::forDrawing(std::string_view acadVersion, std::string_view dwgCodePage) {
    DxfTextCodec codec;
    if (acadVersion >= "AC1021") return codec;
    codec.iconvName_ = "CP1252";
    if (dwgCodePage.empty()) return codec;
    for (const auto& [name, iconvName] : kCodePages)
        if (std::equal(name.begin(), name.end(), dwgCodePage.begin(), dwgCodePage.end(),
                       [](char a, char b) { return a == std::toupper(static_cast<unsigned char>(b)); })) {
            codec.iconvName_ = iconvName;
            return codec;
        }
    codec.knewCodePage_ = false;
    return codec;
}

std::string caretEncode(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (static_cast<unsigned char>(c) < 0x20) {
            out += '^';
            out += static_cast<char>(c + 0x40);
        } else if (c == '^' && i + 1 < text.size() && startsCaretPair(text[i + 1])) {
            out += "^ ";   // a caret that would otherwise read as the start of one
        } else {
            out += c;
        }
    }
    return out;
}

std::string caretDecode(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '^' && i + 1 < text.size() && (isCaretControl(text[i + 1]) || text[i + 1] == ' ')) {
            out += text[i + 1] == ' ' ? '^' : static_cast<char>(text[i + 1] - 0x40);
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

namespace {
bool needsCaretCoding(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return c == '^' || static_cast<unsigned char>(c) < 0x20; });
}
}  // namespace

std::string DxfTextCodec::decode(std::string_view fileText) const {
    if (needsCaretCoding(fileText)) return decodeEscapes(caretDecode(fileText));
    return decodeEscapes(fileText);
}

std::string DxfTextCodec::encode(std::string_view utf8) const {
    if (needsCaretCoding(utf8)) return encodeEscapes(caretEncode(utf8));
    return encodeEscapes(utf8);
}

std::string DxfTextCodec::decodeEscapes(std::string_view fileText) const {
    if (isUtf8() || isAscii(fileText)) return expandUnicodeEscapes(std::string(fileText));
    std::string out;
    Iconv cv("UTF-8", iconvName_);
    std::size_t done = 0;
    while (cv.ok() && done < fileText.size()) {
        done += cv.run(fileText.substr(done), out);
        if (done < fileText.size()) {
            // A byte the code page leaves undefined is kept as the C1 control of its value.
            appendUtf8(out, static_cast<unsigned char>(fileText[done]));
            ++done;
        }
    }
    return expandUnicodeEscapes(std::move(out));
}

std::string DxfTextCodec::encodeEscapes(std::string_view utf8) const {
    if (isUtf8() || isAscii(utf8)) return std::string(utf8);
    std::string out;
    Iconv cv(iconvName_, "UTF-8");
    std::size_t done = 0;
    while (cv.ok() && done < utf8.size()) {
        done += cv.run(utf8.substr(done), out);
        if (done < utf8.size()) {
            const std::size_t start = done;
            const char32_t cp = ardo::decodeUtf8At(utf8, done);
            if (cp >= 0x80 && cp < 0xA0) {
                out += static_cast<char>(cp);   // back to the undefined byte it came from
            } else if (cp > 0xFFFF) {
                const unsigned v = static_cast<unsigned>(cp) - 0x10000;
                appendEscape(out, 0xD800 + (v >> 10));
                appendEscape(out, 0xDC00 + (v & 0x3FF));
            } else {
                appendEscape(out, static_cast<unsigned>(cp));
            }
            if (done == start) ++done;
        }
    }
    return out;
}

}  // namespace cadhost
