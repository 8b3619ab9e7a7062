#pragma once
// The plot style names the plot style picker offers, and which row a current name selects.
#include <string>
#include <vector>

#include "layers/CentralLayerFile.h"

namespace ardo {

// "Normal" first, then the names the drawing's layers and the list's entries use, each
// once whatever its case, in the order of their upper-case names.
std::vector<std::string> plotStyleNames(const CentralLayerFile& list);
// The row whose name equals the name in any case; the first row when none does.
int plotStyleRow(const std::vector<std::string>& names, const std::string& name);

}  // namespace ardo
