#include "cadhost/lisp/SymbolTable.h"

#include "base/CaseFold.h"

namespace cadhost::lisp {

Symbol* SymbolTable::intern(std::string_view name) {
    std::string key = ardo::upperCase(name);
    auto it = symbols_.find(key);
    if (it != symbols_.end()) return it->second.get();
    auto sym = std::make_unique<Symbol>();
    sym->name = key;
    Symbol* raw = sym.get();
    symbols_.emplace(std::move(key), std::move(sym));
    return raw;
}

Symbol* SymbolTable::find(std::string_view name) const {
    auto it = symbols_.find(ardo::upperCase(name));
    return it == symbols_.end() ? nullptr : it->second.get();
}

}  // namespace cadhost::lisp
