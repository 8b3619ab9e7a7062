#pragma once
// Interned symbols: one Symbol per name, folded to upper case, so that evaluation
// compares pointers and never strings.
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

class SymbolTable {
public:
    Symbol* intern(std::string_view name);
    // The symbol of that name, or null when it was never interned.
    Symbol* find(std::string_view name) const;
    // Visits every symbol interned so far, in no particular order.
    template <class Visit>
    void forEach(Visit visit) const {
        for (const auto& entry : symbols_) visit(*entry.second);
    }

private:
    std::unordered_map<std::string, std::unique_ptr<Symbol>> symbols_;
};

}  // namespace cadhost::lisp
