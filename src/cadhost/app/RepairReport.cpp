#include "cadhost/app/RepairReport.h"

namespace cadhost {

std::string repairReport(const std::vector<DxfRepair>& repairs) {
    std::string report;
    for (const DxfRepair& r : repairs) report += "Line " + std::to_string(r.line) + ": " + r.what + "\n";
    const std::size_t n = repairs.size();
    report += n == 0 ? std::string("The drawing needed no repair.\n")
                     : std::to_string(n) + (n == 1 ? " repair" : " repairs") + " made.\n";
    return report;
}

}  // namespace cadhost
