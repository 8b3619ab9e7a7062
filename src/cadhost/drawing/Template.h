#pragma once
// The drawing every new drawing starts from: a minimal but complete AutoCAD 2018 DXF.
#include <string>

namespace cadhost {

std::string templateDxf();

}  // namespace cadhost
