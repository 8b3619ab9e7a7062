#pragma once
// A selection set: entity names in selection order, shared by every value that holds it.
#include <cstdint>
#include <vector>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

struct SelectionSet : Object {
    std::int64_t id = 0;
    std::vector<std::int64_t> entities;

    bool contains(std::int64_t e) const;
};

}  // namespace cadhost::lisp
