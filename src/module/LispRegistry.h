#pragma once
// Registration of the module's LISP functions with the host and dispatch of the host's
// calls. A row's place in its table is its function code.
#include <span>

#include "module/HostBinding.h"

namespace ardo {

struct LispFunction {
    const char* name;  // registered exactly as written, mixed case included
    LispHandler handler;
};

// Registers every row in order; stops at the first refused name and reports RTERROR.
int registerFunctions(std::span<const LispFunction> table);
int unregisterFunctions(std::span<const LispFunction> table);
// Calls the handler of the host's current function code; codes outside the table are
// ignored. Always RTNORM: handlers set their own LISP result.
int dispatchFunction(std::span<const LispFunction> table);

}  // namespace ardo
