#pragma once
// The host's system variables as the layer core reads them.
#include <optional>
#include <string>

namespace ardo {

// The value of an integer variable; none when the host does not know it as an integer.
std::optional<int> integerVariable(const char* name);
// The value of a text variable; empty when the host does not know it as a text.
std::string textVariable(const char* name);

}  // namespace ardo
