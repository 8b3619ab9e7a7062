#pragma once
// The options of ardo-cad --audit-layers: the drawings and folders to check against the
// central layer file, what to change and which reports to write.
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace cadhost::audit {

struct LayerAuditOptions {
    std::vector<std::string> inputs;   // drawings and folders, searched recursively for .dxf
    std::optional<std::string> central;
    bool apply = false;
    bool dryRun = false;
    std::optional<std::string> renameFile;
    std::vector<std::string> reports;  // .html or .csv
    int jobs = 0;                      // 0: as many as the machine has cores
};

// Parses the arguments after --audit-layers; the options or what is wrong.
std::variant<LayerAuditOptions, std::string> parseLayerAuditOptions(const std::vector<std::string>& args);

extern const char* const kLayerAuditUsage;

}  // namespace cadhost::audit
