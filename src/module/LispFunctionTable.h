#pragma once
// The module's LISP functions and commands; a row's place is its function code.
#include <span>

#include "module/LispRegistry.h"

namespace ardo {

std::span<const LispFunction> lispFunctionTable();

}  // namespace ardo
