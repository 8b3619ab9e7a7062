#pragma once
// Binary DXF ("AutoCAD Binary DXF" sentinel) turned into the equivalent ASCII tags, so the
// rest of the host reads one format. The drawing is saved as ASCII DXF afterwards.
#include <optional>
#include <string>
#include <string_view>

#include "cadhost/dxf/DxfDocument.h"

namespace cadhost {

bool isBinaryDxf(std::string_view bytes);

// The ASCII text of a binary DXF, or the reason it cannot be read.
std::variant<std::string, DxfError> binaryDxfToText(std::string_view bytes);

}  // namespace cadhost
