#pragma once
// What ardo-cad --version prints: the program's version, the module it would load with its
// version, and the DXF versions it reads and writes.
#include <optional>
#include <string>

namespace cadhost::console {

// `module` is the module the session would load, or nothing with --no-module or none found.
std::string versionText(const std::optional<std::string>& module);

}  // namespace cadhost::console
