#pragma once
// ardo-cad --audit-layers: every drawing is audited in a worker process of its own, as many
// at once as the machine has cores; the parent gathers the outcomes and has the module
// write the summary and the reports.
#include <string>

#include "cadhost/audit/LayerAuditOptions.h"

namespace cadhost::audit {

// The process's exit status: 0 every drawing meets the standard, 1 deviations, 2 the run
// could not be made, 3 drawings failed.
int runLayerAudit(const LayerAuditOptions& options, const std::string& module, const std::string& programFolder);

}  // namespace cadhost::audit
