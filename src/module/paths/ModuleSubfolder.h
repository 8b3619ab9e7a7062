#pragma once
// The settings subfolder of a suite module, from the configuration's MODULE section.
#include <string>

namespace ardo {

// The last folder name of the module's MODULE entry (either slash separates folders), or
// the module's name when the configuration has no such entry.
std::string moduleSubfolder(const std::string& moduleName);

}  // namespace ardo
