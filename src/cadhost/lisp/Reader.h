#pragma once
// The reader: turns source text into values one top-level form at a time.
#include <cstddef>
#include <optional>
#include <string_view>

#include "cadhost/lisp/SymbolTable.h"
#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

class Reader {
public:
    // Lists nested deeper than this are refused with a LISP error.
    static constexpr int maxDepth = 1000;

    Reader(SymbolTable& symbols, std::string_view text) : symbols_(symbols), text_(text) {}

    // The next form, or nothing at the end of the text. Throws LispError on bad input
    // ("malformed list on input", "extra right paren on input", ...).
    std::optional<Value> next();

private:
    Value readForm(int depth);
    Value readList(int depth);
    Value readString();
    Value readAtom();
    // Skips blanks and comments; false at the end of the text.
    bool skipSpace();
    bool atDelimiter() const;

    SymbolTable& symbols_;
    std::string_view text_;
    std::size_t pos_ = 0;
};

// Parses a number the way the reader does; nothing when the token is not a number.
std::optional<Value> parseNumber(std::string_view token);

}  // namespace cadhost::lisp
