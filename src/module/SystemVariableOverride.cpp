#include "module/SystemVariableOverride.h"

#include "module/HostBinding.h"

namespace ardo {

SystemVariableOverride::SystemVariableOverride(std::string name, const ResBuf& value) : name_(std::move(name)) {
    saved_ = host().getVar(name_, old_) == RTNORM;
    if (saved_) host().setVar(name_, value);
}

SystemVariableOverride::~SystemVariableOverride() {
    if (saved_) host().setVar(name_, old_);
}

}  // namespace ardo
