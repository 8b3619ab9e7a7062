#pragma once
// Files the system saves are replaced atomically: a temporary file beside the target,
// then a rename, so a crash or a full disk never leaves a half-written file.
#include <string>
#include <string_view>

#include "base/Result.h"

namespace ardo {

// Writes `bytes` to `path`. A symbolic link is followed and the file it names is replaced,
// so a file shared through a link gets the change. Only regular files are replaced: a
// folder, a device or a pipe is refused. The replaced file keeps its mode, and its owner
// and group where this user may set them. Temporary files that a killed save of the same
// file left behind are removed. On failure the target is untouched and the message, which
// is the failure's, says what stood in the way.
Status replaceFile(const std::string& path, std::string_view bytes);

// The file a save of `path` writes: `path` itself, or the end of its chain of links.
std::string saveTarget(const std::string& path);

}  // namespace ardo
