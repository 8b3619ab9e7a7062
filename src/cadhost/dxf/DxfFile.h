#pragma once
// Reading a drawing file from disk in one piece.
#include <string>

#include <variant>

#include "cadhost/dxf/DxfDocument.h"

namespace cadhost {

// The bytes of the file at `path`. Only regular files are read: a named pipe would block
// and a device such as /dev/zero would never end, so they are refused with a message.
std::variant<std::string, DxfError> readDrawingFile(const std::string& path);

}  // namespace cadhost
