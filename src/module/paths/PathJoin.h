#pragma once
// Paths are formed in one place, with the platform separator.
#include <string>

namespace ardo {

inline constexpr char kPathSeparator = '/';

// The folder and the name with one separator between them; a folder that already ends
// with a separator gets none added, an empty folder gives the name alone.
std::string joinPath(const std::string& folder, const std::string& name);

// The folder with a trailing separator, as folder results are given.
std::string withTrailingSeparator(const std::string& folder);

// The path with the extension of its last component replaced (or added when it has none),
// e.g. the dialog text file beside the module: withExtension(modulePath, ".dlg").
std::string withExtension(const std::string& path, const std::string& extension);

}  // namespace ardo
