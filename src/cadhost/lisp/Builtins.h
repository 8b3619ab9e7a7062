#pragma once
// The built-in function tables, one per group; the interpreter binds them at start.
#include <span>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

std::span<const Builtin> specialForms();
std::span<const Builtin> listBuiltins();
std::span<const Builtin> numberBuiltins();
std::span<const Builtin> stringBuiltins();
std::span<const Builtin> outputBuiltins();
std::span<const Builtin> systemBuiltins();
std::span<const Builtin> hostBuiltins();
std::span<const Builtin> geometryBuiltins();

}  // namespace cadhost::lisp
