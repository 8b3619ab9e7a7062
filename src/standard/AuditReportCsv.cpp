// The run as CSV for spreadsheets: one row per finding, UTF-8 with a byte order mark so
// that spreadsheet programs take the umlauts as they are.
#include "standard/AuditReport.h"

namespace ardo {

namespace {

std::string csvField(const std::string& value) {
    if (value.find_first_of(",\"\r\n") == std::string::npos) return value;
    std::string out = "\"";
    for (char c : value) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

void row(std::string& out, std::initializer_list<std::string> fields) {
    bool first = true;
    for (const std::string& f : fields) {
        if (!first) out += ',';
        out += csvField(f);
        first = false;
    }
    out += "\r\n";
}

}  // namespace

std::string csvReport(const AuditRun& run) {
    std::string out = "\xEF\xBB\xBF";
    row(out, {"drawing", "finding", "layer", "key", "property", "standard", "drawing value", "nearest key",
              "nearest key's layer", "change", "failure"});
    for (const DrawingResult& r : run.drawings) {
        if (!r.failure.empty()) row(out, {r.path, "failed", "", "", "", "", "", "", "", "", r.failure});
        for (const LayerDeviation& d : r.audit.deviations)
            row(out, {r.path, "deviation", d.layer, d.key, propertyName(d.property), d.fileValue, d.drawingValue, "",
                      "", isResolved(run, r, d) ? "fixed" : "", ""});
        for (const UnnamedLayer& u : r.audit.unnamed)
            row(out, {r.path, "no key", u.layer, "", "", "", "", u.hintKey, u.hintName, "", ""});
        for (const MissingKey& m : r.audit.missing)
            row(out, {r.path, "missing layer", m.layer, m.key, "", "", "", "", "", "", ""});
        for (const LayerChange& c : r.audit.changes)
            row(out, {r.path, run.dryRun ? "would change" : "change", c.layer, "", c.what, c.to, c.from, "", "",
                      c.failure.empty() ? "done" : "failed", c.failure});
    }
    return out;
}

}  // namespace ardo
