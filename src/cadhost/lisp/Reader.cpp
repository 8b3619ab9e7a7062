#include "cadhost/lisp/Reader.h"

#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cadhost/lisp/LispError.h"

namespace cadhost::lisp {

namespace {

// The blanks of the C locale, tested inline: the reader asks this of every character.
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool isDelimiter(char c) { return isBlank(c) || c == '(' || c == ')' || c == '\'' || c == '"' || c == ';'; }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

[[noreturn]] void malformedList() { throw LispError("malformed list on input"); }

}  // namespace

std::optional<Value> parseNumber(std::string_view t) {
    std::size_t i = 0;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    std::size_t digits = 0;
    while (i < t.size() && isDigit(t[i])) ++i, ++digits;
    bool isReal = false;
    if (i < t.size() && t[i] == '.') {
        isReal = true;
        ++i;
        while (i < t.size() && isDigit(t[i])) ++i, ++digits;
    }
    if (digits == 0) return std::nullopt;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        isReal = true;
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
        std::size_t expDigits = 0;
        while (i < t.size() && isDigit(t[i])) ++i, ++expDigits;
        if (expDigits == 0) return std::nullopt;
    }
    if (i != t.size()) return std::nullopt;
    const std::string token(t);
    if (!isReal) {
        // Integers are 32-bit; a literal beyond that range is read as a real.
        errno = 0;
        const long long v = std::strtoll(token.c_str(), nullptr, 10);
        if (errno == 0 && v >= INT32_MIN && v <= INT32_MAX) return Value::integer(static_cast<std::int32_t>(v));
    }
    return Value::real(std::strtod(token.c_str(), nullptr));
}

bool Reader::skipSpace() {
    while (pos_ < text_.size()) {
        const char c = text_[pos_];
        if (isBlank(c)) {
            ++pos_;
        } else if (c == ';') {
            if (pos_ + 1 < text_.size() && text_[pos_ + 1] == '|') {
                const auto end = text_.find("|;", pos_ + 2);
                pos_ = end == std::string_view::npos ? text_.size() : end + 2;
            } else {
                const auto end = text_.find('\n', pos_);
                pos_ = end == std::string_view::npos ? text_.size() : end + 1;
            }
        } else {
            return true;
        }
    }
    return false;
}

bool Reader::atDelimiter() const { return pos_ >= text_.size() || isDelimiter(text_[pos_]); }

std::optional<Value> Reader::next() {
    if (!skipSpace()) return std::nullopt;
    if (text_[pos_] == ')') {
        ++pos_;
        throw LispError("extra right paren on input");
    }
    return readForm(0);
}

Value Reader::readForm(int depth) {
    if (depth > maxDepth)
        throw LispError("malformed list on input: nested deeper than " + std::to_string(maxDepth) + " levels");
    if (!skipSpace()) malformedList();
    const char c = text_[pos_];
    if (c == '(') {
        ++pos_;
        return readList(depth + 1);
    }
    if (c == ')') malformedList();
    if (c == '\'') {
        ++pos_;
        Value quoted = readForm(depth + 1);
        return Value::cons(Value::symbol(symbols_.intern("QUOTE")), Value::cons(std::move(quoted), Value()));
    }
    if (c == '"') return readString();
    return readAtom();
}

Value Reader::readList(int depth) {
    ListBuilder list;
    for (;;) {
        if (!skipSpace()) malformedList();
        const char c = text_[pos_];
        if (c == ')') {
            ++pos_;
            break;
        }
        if (c == '.' && (pos_ + 1 >= text_.size() || isDelimiter(text_[pos_ + 1]))) {
            ++pos_;
            if (list.empty()) malformedList();
            list.endWith(readForm(depth));
            if (!skipSpace() || text_[pos_] != ')') malformedList();
            ++pos_;
            break;
        }
        list.append(readForm(depth));
    }
    return list.take();
}

Value Reader::readString() {
    ++pos_;  // opening quote
    std::string s;
    while (pos_ < text_.size()) {
        // The text up to the next quote or escape is taken as it stands.
        std::size_t plain = pos_;
        while (plain < text_.size() && text_[plain] != '"' && text_[plain] != '\\') ++plain;
        s.append(text_.substr(pos_, plain - pos_));
        pos_ = plain;
        if (pos_ >= text_.size()) break;
        const char c = text_[pos_++];
        if (c == '"') return Value::string(std::move(s));
        if (pos_ >= text_.size()) break;
        const char e = text_[pos_++];
        switch (e) {
        case 'n': s += '\n'; break;
        case 'r': s += '\r'; break;
        case 't': s += '\t'; break;
        case 'e': s += '\x1b'; break;
        default:
            if (e >= '0' && e <= '7') {
                // Up to three octal digits give one byte.
                unsigned code = static_cast<unsigned>(e - '0');
                for (int n = 1; n < 3 && pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '7'; ++n)
                    code = code * 8 + static_cast<unsigned>(text_[pos_++] - '0');
                s += static_cast<char>(code & 0xFF);
            } else {
                s += e;  // \\, \" and any other escaped character stand for themselves
            }
        }
    }
    throw LispError("malformed string on input");
}

Value Reader::readAtom() {
    const std::size_t start = pos_;
    while (!atDelimiter()) ++pos_;
    const std::string_view token = text_.substr(start, pos_ - start);
    if (auto number = parseNumber(token)) return *number;
    if (token.size() == 3 && std::toupper(static_cast<unsigned char>(token[0])) == 'N' &&
        std::toupper(static_cast<unsigned char>(token[1])) == 'I' &&
        std::toupper(static_cast<unsigned char>(token[2])) == 'L')
        return Value();
    return Value::symbol(symbols_.intern(token));
}

}  // namespace cadhost::lisp
