#include "cadhost/dxf/DxfBinary.h"

#include <charconv>
#include <cstdint>
#include <cstring>

#include "cadhost/dxf/DxfText.h"
#include "cadhost/dxf/GroupCode.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

namespace {

constexpr std::string_view kSentinel{"AutoCAD Binary DXF\r\n\x1a\0", 22};

class BinaryReader {
public:
    explicit BinaryReader(std::string_view bytes) : bytes_(bytes), pos_(kSentinel.size()) {}

    bool atEnd() const { return pos_ >= bytes_.size(); }
    std::size_t offset() const { return pos_; }

    bool take(std::size_t n, const char*& p) {
        if (bytes_.size() - pos_ < n) return false;
        p = bytes_.data() + pos_;
        pos_ += n;
        return true;
    }
    template <class T>
    bool number(T& v) {
        const char* p;
        if (!take(sizeof(T), p)) return false;
        std::memcpy(&v, p, sizeof(T));   // binary DXF is little-endian, as is every target
        return true;
    }
    bool cstring(std::string_view& s) {
        const void* end = std::memchr(bytes_.data() + pos_, 0, bytes_.size() - pos_);
        if (!end) return false;
        const auto len = static_cast<const char*>(end) - (bytes_.data() + pos_);
        s = bytes_.substr(pos_, len);
        pos_ += len + 1;
        return true;
    }

private:
    std::string_view bytes_;
    std::size_t pos_;
};

void appendCode(std::string& out, int code) {
    std::string c = std::to_string(code);
    if (c.size() < 3) out.append(3 - c.size(), ' ');
    out += c;
    out += '\n';
}

template <class T>
void appendNumber(std::string& out, T v) {
    char buf[64];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, end);
}

bool appendValue(BinaryReader& in, int code, std::string& out) {
    switch (valueKind(code)) {
        case ValueKind::Double: { double v; if (!in.number(v)) return false; appendNumber(out, v); break; }
        case ValueKind::Int16: { std::int16_t v; if (!in.number(v)) return false; appendNumber(out, v); break; }
        case ValueKind::Int32: { std::int32_t v; if (!in.number(v)) return false; appendNumber(out, v); break; }
        case ValueKind::Int64: { std::int64_t v; if (!in.number(v)) return false; appendNumber(out, v); break; }
        case ValueKind::Bool: { std::uint8_t v; if (!in.number(v)) return false; appendNumber(out, int(v)); break; }
        case ValueKind::Binary: {
            std::uint8_t len; const char* p;
            if (!in.number(len) || !in.take(len, p)) return false;
            static const char hex[] = "0123456789ABCDEF";
            for (std::uint8_t i = 0; i < len; ++i) {
                out += hex[static_cast<unsigned char>(p[i]) >> 4];
                out += hex[static_cast<unsigned char>(p[i]) & 15];
            }
            break;
        }
        case ValueKind::String:
        case ValueKind::Handle: {
            std::string_view s;
            if (!in.cstring(s)) return false;
            // A line break inside a binary string would split its text line.
            if (s.find_first_of("\r\n") == std::string_view::npos)
                out += s;
            else
                out += caretEncode(s);
            break;
        }
    }
    out += '\n';
    return true;
}

}  // namespace

bool isBinaryDxf(std::string_view bytes) { return bytes.substr(0, kSentinel.size()) == kSentinel; }

std::string_view binaryDxfSentinel() { return kSentinel; }

std::variant<BinaryDxfText, DxfError> binaryDxfToText(std::string_view bytes) {
    // Release 12 writes one-byte group codes (255 announces a two-byte one); later
    // releases write two bytes. The first tag (0 SECTION) tells which.
    const bool twoByteCodes = bytes.size() > kSentinel.size() + 1 && bytes[kSentinel.size()] == 0 &&
                              bytes[kSentinel.size() + 1] == 0;
    BinaryReader in(bytes);
    BinaryDxfText result;
    result.twoByteCodes = twoByteCodes;
    std::string& out = result.text;
    out.reserve(bytes.size() * 2);
    std::size_t tagNo = 0;
    while (!in.atEnd()) {
        ++tagNo;
        const std::size_t at = in.offset();
        result.tagOffsets.push_back(at);
        int code = 0;
        if (twoByteCodes) {
            std::int16_t c;
            if (!in.number(c)) break;
            code = c;
        } else {
            std::uint8_t c;
            if (!in.number(c)) break;
            code = c;
            if (c == 255) {
                std::int16_t wide;
                if (!in.number(wide)) break;
                code = wide;
            }
        }
        if (!isValidGroupCode(code))
            return DxfError{"Binary DXF, byte " + std::to_string(at) + " (tag " + std::to_string(tagNo) +
                                "): " + std::to_string(code) +
                                " is no DXF group code; the file is damaged. Save it again as DXF in the "
                                "program that made it.",
                            0};
        appendCode(out, code);
        if (!appendValue(in, code, out))
            return DxfError{"Binary DXF, byte " + std::to_string(at) + " (tag " + std::to_string(tagNo) +
                                "): the file ends inside a value; it is truncated. Save it again as DXF in "
                                "the program that made it.",
                            0};
    }
    result.tagOffsets.push_back(bytes.size());
    return result;
}

void appendBinaryTag(std::string& out, int code, std::string_view value, bool oneByteCodes) {
    auto put = [&out](auto v) { out.append(reinterpret_cast<const char*>(&v), sizeof v); };
    if (!oneByteCodes) {
        put(static_cast<std::int16_t>(code));
    } else if (code >= 0 && code < 255) {
        put(static_cast<std::uint8_t>(code));
    } else {
        put(static_cast<std::uint8_t>(255));
        put(static_cast<std::int16_t>(code));
    }
    switch (valueKind(code)) {
        case ValueKind::Double: put(toDouble(value)); break;
        case ValueKind::Int16: put(static_cast<std::int16_t>(toGroupInteger(code, value))); break;
        case ValueKind::Int32: put(static_cast<std::int32_t>(toGroupInteger(code, value))); break;
        case ValueKind::Int64: put(static_cast<std::int64_t>(toGroupInteger(code, value))); break;
        case ValueKind::Bool: put(static_cast<std::uint8_t>(toGroupInteger(code, value))); break;
        case ValueKind::Binary: {
            // Hex text, two digits a byte; a chunk holds at most 255 bytes.
            std::string chunk;
            for (std::size_t i = 0; i + 1 < value.size() && chunk.size() < 255; i += 2) {
                unsigned byte = 0;
                std::from_chars(value.data() + i, value.data() + i + 2, byte, 16);
                chunk += static_cast<char>(byte);
            }
            put(static_cast<std::uint8_t>(chunk.size()));
            out += chunk;
            break;
        }
        case ValueKind::String:
        case ValueKind::Handle:
            // A NUL ends the value in this form, so a value holding one is written in caret
            // form, as the text form writes a line break; the rest of the value survives.
            if (value.find('\0') == std::string_view::npos)
                out += value;
            else
                out += caretEncode(value);
            out += '\0';
            break;
    }
}

}  // namespace cadhost
