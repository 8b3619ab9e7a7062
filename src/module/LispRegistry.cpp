#include "module/LispRegistry.h"

namespace ardo {

int registerFunctions(std::span<const LispFunction> table) {
    for (size_t code = 0; code < table.size(); ++code) {
        if (host().defun(table[code].name, int(code)) != RTNORM) return RTERROR;
        host().regFunc(table[code].handler, int(code));
    }
    return RTNORM;
}

int unregisterFunctions(std::span<const LispFunction> table) {
    for (size_t code = 0; code < table.size(); ++code) {
        host().undef(table[code].name, int(code));
        host().regFunc(nullptr, int(code));
    }
    return RTNORM;
}

int dispatchFunction(std::span<const LispFunction> table) {
    const int code = host().getFunCode();
    if (code < 0 || size_t(code) >= table.size()) return RTNORM;
    table[size_t(code)].handler();
    return RTNORM;
}

}  // namespace ardo
