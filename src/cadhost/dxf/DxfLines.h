#pragma once
// The line rules of ASCII DXF, shared by the first reading of a file and the later reading
// of one record's tags: lines end in LF or CRLF, group codes may stand between blanks.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "cadhost/dxf/GroupCode.h"

namespace cadhost::dxflines {

inline std::string_view trimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

// Every other line of a file is a group code, so this is read digit by digit rather than
// through a general number parser: blanks, an optional minus, digits, blanks (or a CR).
inline bool parseCode(std::string_view text, int& code) {
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p != end && (*p == ' ' || *p == '\t')) ++p;
    const bool negative = p != end && *p == '-';
    if (negative) ++p;
    const char* const digits = p;
    // Saturates far above the largest code, so that long numbers stay invalid and never overflow.
    constexpr int kBeyond = 1 << 20;
    int value = 0;
    for (; p != end && static_cast<unsigned>(*p - '0') < 10; ++p) value = std::min(value * 10 + (*p - '0'), kBeyond);
    if (p == digits) return false;
    while (p != end && (*p == ' ' || *p == '\t' || *p == '\r')) ++p;
    if (p != end) return false;
    code = negative ? -value : value;
    return isValidGroupCode(code);
}

class LineCursor {
public:
    LineCursor(std::string_view bytes, std::size_t pos) : data_(bytes.data()), size_(bytes.size()), pos_(pos) {}

    std::size_t pos() const { return pos_; }
    void seek(std::size_t pos) { pos_ = pos; }
    bool atEnd() const { return pos_ >= size_; }

    // The next line without its line end; false at the end of the bytes.
    bool next(std::string_view& line) {
        if (pos_ >= size_) return false;
        const void* nl = std::memchr(data_ + pos_, '\n', size_ - pos_);
        const std::size_t end = nl ? static_cast<std::size_t>(static_cast<const char*>(nl) - data_) : size_;
        line = std::string_view(data_ + pos_, end - pos_);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        pos_ = nl ? end + 1 : size_;
        return true;
    }

    // The next line read as a group code, the common case of every other line in one pass:
    // blanks, digits and the line end. Any other line is read by next() and parseCode().
    // False at the end of the bytes; `valid` tells whether the line held a group code.
    bool nextCode(std::string_view& line, int& code, bool& valid) {
        const char* p = data_ + pos_;
        const char* const end = data_ + size_;
        const char* const start = p;
        while (p != end && *p == ' ') ++p;
        const char* const digits = p;
        int value = 0;
        while (p != end && p - digits < 4 && static_cast<unsigned>(*p - '0') < 10) value = value * 10 + (*p++ - '0');
        if (p != digits && isValidGroupCode(value)) {
            const char* lineEnd = p;
            if (p != end && *p == '\r') ++p;
            if (p != end && *p == '\n') {
                line = std::string_view(start, static_cast<std::size_t>(lineEnd - start));
                pos_ = static_cast<std::size_t>(p + 1 - data_);
                code = value;
                valid = true;
                return true;
            }
        }
        if (!next(line)) return false;
        valid = parseCode(line, code);
        return true;
    }

private:
    const char* data_;
    std::size_t size_;
    std::size_t pos_;
};

}  // namespace cadhost::dxflines
