#pragma once
// The options of ardo-cad --audit-layers: the drawings and folders to check against the
// central layer file, what to change and which reports to write. They are rows of the
// console's option table; the parser hands their values here.
#include <optional>
#include <string>
#include <vector>

namespace cadhost::audit {

struct LayerAuditOptions {
    std::vector<std::string> inputs;   // drawings and folders, searched recursively for .dxf
    std::optional<std::string> central;
    bool apply = false;
    bool dryRun = false;
    std::optional<std::string> renameFile;
    std::vector<std::string> reports;  // .html or .csv
    std::optional<std::string> jobsText;
    int jobs = 0;                      // from jobsText; 0: as many as the machine has cores

    // Whether any option of the audit was given.
    bool any() const;
};

// Takes the value of --central, --rename, --report or --jobs as given.
void setLayerAuditValue(LayerAuditOptions& options, const std::string& option, const std::string& value);

// Whether the options make a run: what is missing or wrong, if anything. Reads the number of jobs.
std::optional<std::string> checkLayerAudit(bool auditLayers, LayerAuditOptions& options);

}  // namespace cadhost::audit
