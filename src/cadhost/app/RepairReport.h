#pragma once
// What a recover reading repaired, as the console and the window list it: one line per
// repair with the file's line, then how many there were.
#include <string>
#include <vector>

#include "cadhost/dxf/DxfDocument.h"

namespace cadhost {

std::string repairReport(const std::vector<DxfRepair>& repairs);

}  // namespace cadhost
