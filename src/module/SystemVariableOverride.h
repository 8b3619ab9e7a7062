#pragma once
// Sets a system variable of the host for the length of a piece of work and puts the old
// value back on every way out. A variable the host does not have is left alone.
#include <string>

#include "boundary/ResBuf.h"

namespace ardo {

class SystemVariableOverride {
public:
    SystemVariableOverride(std::string name, const ResBuf& value);
    ~SystemVariableOverride();
    SystemVariableOverride(const SystemVariableOverride&) = delete;
    SystemVariableOverride& operator=(const SystemVariableOverride&) = delete;

private:
    std::string name_;
    ResBuf old_;
    bool saved_ = false;
};

}  // namespace ardo
