#pragma once
// Folders named by the module's configuration file.
#include <string>

namespace ardo {

// The program folder without trailing separators, a separator, and the value of the name's
// key in section PFADINFO; a missing key gives the program folder and a separator.
std::string pathInfo(const std::string& name);

// The program folder followed directly by the module's entry in section MODULE.
std::string moduleFolder(const std::string& module);

// The value of a key in a section of the configuration file, or empty.
std::string configurationValue(const std::string& section, const std::string& key);

}  // namespace ardo
