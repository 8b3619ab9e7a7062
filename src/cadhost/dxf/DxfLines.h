#pragma once
// The line rules of ASCII DXF, shared by the first reading of a file and the later reading
// of one record's tags: lines end in LF or CRLF, group codes may stand between blanks.
#include <charconv>
#include <cstring>
#include <string_view>

#include "cadhost/dxf/GroupCode.h"

namespace cadhost::dxflines {

inline std::string_view trimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

inline bool parseCode(std::string_view text, int& code) {
    // The common case first: digits alone or right-aligned behind blanks.
    text = trimBlanks(text);
    if (text.empty()) return false;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), code);
    return ec == std::errc() && end == text.data() + text.size() && isValidGroupCode(code);
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

private:
    const char* data_;
    std::size_t size_;
    std::size_t pos_;
};

}  // namespace cadhost::dxflines
