#pragma once
// eq and equal as AutoLISP defines them; member, assoc, subst and vl-position compare
// with equal.
#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

// Same object: numbers and names by value, symbols by identity, heap data by address.
bool isEq(const Value& a, const Value& b);
// Same structure and contents; numbers may differ by up to fuzz.
bool isEqual(const Value& a, const Value& b, double fuzz = 0.0);

}  // namespace cadhost::lisp
