#pragma once
// Reads one key of an INI-style file the way Windows' private profile strings do, over the
// settings-file store. Stands in until the settings folder's profile-string reader is shared.
#include <string>

namespace ardo {

// The value of the key in the section (both found without regard to case), blanks around
// it and one pair of enclosing quotes removed, cut to bufferChars - 1 characters; the
// default when the file, the section or the key is missing.
std::string readProfileString(const std::string& section, const std::string& key,
                              const std::string& defaultValue, const std::string& path,
                              size_t bufferChars);

}  // namespace ardo
