#pragma once
// UTF-8 encoding and decoding of code points. Invalid bytes decode as the Latin-1
// character of the same value, so no input is ever rejected.
#include <string>
#include <string_view>

namespace ardo {

void appendUtf8(std::string& out, char32_t c);

template <class F>
void forEachCodePoint(std::string_view s, F&& f);

char32_t decodeUtf8At(std::string_view s, size_t& pos);

// True when the text holds a C0 control character (line breaks, tab, NUL, ...) or DEL:
// characters no name and no one-line value may hold.
bool hasControlCharacter(std::string_view s);

template <class F>
void forEachCodePoint(std::string_view s, F&& f) {
    size_t pos = 0;
    while (pos < s.size()) f(decodeUtf8At(s, pos));
}

}  // namespace ardo
