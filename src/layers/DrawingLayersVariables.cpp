#include "layers/DrawingLayersVariables.h"

#include "module/HostBinding.h"

namespace ardo {

std::optional<int> integerVariable(const char* name) {
    ResBuf rb;
    if (host().getVar(name, rb) != RTNORM) return std::nullopt;
    if (rb.restype != RTSHORT && rb.restype != RTLONG) return std::nullopt;
    return int(rb.integer);
}

std::string textVariable(const char* name) {
    ResBuf rb;
    if (host().getVar(name, rb) != RTNORM || rb.restype != RTSTR) return {};
    return std::move(rb.text);
}

}  // namespace ardo
