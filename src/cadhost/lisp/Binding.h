#pragma once
// Dynamic binding of symbols for a function call or foreach: the old values come back
// when the scope ends, also when an error unwinds through it.
#include <utility>
#include <vector>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

class Binding {
public:
    Binding() = default;
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;
    ~Binding() {
        for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) it->first->value = std::move(it->second);
    }
    void reserve(std::size_t n) { saved_.reserve(n); }
    void bind(Symbol* s, Value v) {
        saved_.emplace_back(s, std::move(s->value));
        s->value = std::move(v);
    }

private:
    std::vector<std::pair<Symbol*, Value>> saved_;
};

}  // namespace cadhost::lisp
