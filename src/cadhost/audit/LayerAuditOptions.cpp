#include "cadhost/audit/LayerAuditOptions.h"

#include <cctype>
#include <charconv>

namespace cadhost::audit {

namespace {

bool endsWithNoCase(const std::string& text, const std::string& end) {
    if (text.size() < end.size()) return false;
    for (size_t i = 0; i < end.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(text[text.size() - end.size() + i])) != end[i]) return false;
    return true;
}

}  // namespace

bool LayerAuditOptions::any() const {
    return !inputs.empty() || central || apply || dryRun || renameFile || !reports.empty() || jobsText;
}

void setLayerAuditValue(LayerAuditOptions& o, const std::string& option, const std::string& value) {
    if (option == "--central") o.central = value;
    if (option == "--rename") o.renameFile = value;
    if (option == "--report") o.reports.push_back(value);
    if (option == "--jobs") o.jobsText = value;
}

std::optional<std::string> checkLayerAudit(bool auditLayers, LayerAuditOptions& o) {
    if (!auditLayers) {
        if (o.any()) return "--central, --apply, --dry-run, --rename, --report and --jobs go with --audit-layers";
        return std::nullopt;
    }
    if (o.inputs.empty()) return "--audit-layers needs at least one drawing or folder";
    if (o.dryRun && !o.apply && !o.renameFile) return "--dry-run goes with --apply or --rename";
    for (const std::string& report : o.reports)
        if (!endsWithNoCase(report, ".html") && !endsWithNoCase(report, ".htm") && !endsWithNoCase(report, ".csv"))
            return "--report writes an .html or a .csv file, not \"" + report + "\"";
    if (o.jobsText) {
        const std::string& text = *o.jobsText;
        const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), o.jobs);
        if (ec != std::errc() || end != text.data() + text.size() || o.jobs < 1)
            return "--jobs takes a number of at least 1, not \"" + text + "\"";
    }
    return std::nullopt;
}

}  // namespace cadhost::audit
