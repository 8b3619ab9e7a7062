#pragma once
// Installations moved from Windows name their files in any case and with backslashes
// ("Objektarten\", "ARDO.LIN" for "ardo.lin"). A lookup takes the path as given first, then
// with backslashes as separators and each part matched without regard to case.
#include <optional>
#include <string>

namespace ardo {

// The path of the regular file (or, with `folder`, the folder) that `path` names, as it is
// spelled on disk; none when there is none. A relative path stays relative.
std::optional<std::string> findOnDisk(const std::string& path, bool folder = false);

}  // namespace ardo
