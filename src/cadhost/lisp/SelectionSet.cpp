#include "cadhost/lisp/SelectionSet.h"

#include <algorithm>

namespace cadhost::lisp {

bool SelectionSet::contains(std::int64_t e) const {
    return std::find(entities.begin(), entities.end(), e) != entities.end();
}

}  // namespace cadhost::lisp
