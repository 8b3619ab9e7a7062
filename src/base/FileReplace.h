#pragma once
// Files the system saves are replaced atomically: a temporary file beside the target,
// then a rename, so a crash or a full disk never leaves a half-written file.
#include <string>
#include <string_view>

namespace ardo {

// False when the temporary file cannot be made or written, or the rename fails; the
// target is then untouched. A replaced file keeps its permissions.
bool replaceFile(const std::string& path, std::string_view bytes);

}  // namespace ardo
