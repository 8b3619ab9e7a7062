#include "cadhost/audit/LayerAuditOptions.h"

#include <charconv>

namespace cadhost::audit {

const char* const kLayerAuditUsage =
    "       ardo-cad --audit-layers [--central FILE] [--apply [--dry-run]] [--rename MAPFILE]\n"
    "                [--report FILE.html|FILE.csv]... [--jobs N] DRAWING.dxf|FOLDER...\n"
    "  --audit-layers  check the drawings' layers against the central layer file; the exit\n"
    "                  status is 0 when all meet it, 1 on deviations, 3 when drawings failed\n"
    "  --central FILE  the central layer file (default: the installation's configured one)\n"
    "  --apply         bring the named layers in line with the central file and save\n"
    "  --dry-run       with --apply or --rename: show what would change, save nothing\n"
    "  --rename FILE   move layers by a mapping file of old name patterns and keys\n"
    "  --report FILE   write an HTML page or a CSV file of the results (repeatable)\n"
    "  --jobs N        drawings audited at once (default: the number of cores)\n";

namespace {

bool endsWithNoCase(const std::string& text, const std::string& end) {
    if (text.size() < end.size()) return false;
    for (size_t i = 0; i < end.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(text[text.size() - end.size() + i])) != end[i]) return false;
    return true;
}

}  // namespace

std::variant<LayerAuditOptions, std::string> parseLayerAuditOptions(const std::vector<std::string>& args) {
    LayerAuditOptions o;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&]() -> const std::string* { return i + 1 < args.size() ? &args[++i] : nullptr; };
        if (a == "--apply") {
            o.apply = true;
        } else if (a == "--dry-run") {
            o.dryRun = true;
        } else if (a == "--central" || a == "--rename" || a == "--report" || a == "--jobs") {
            const std::string* v = value();
            if (!v) return "option " + a + " needs a value";
            if (a == "--central") o.central = *v;
            if (a == "--rename") o.renameFile = *v;
            if (a == "--report") {
                if (!endsWithNoCase(*v, ".html") && !endsWithNoCase(*v, ".htm") && !endsWithNoCase(*v, ".csv"))
                    return "--report writes an .html or a .csv file, not \"" + *v + "\"";
                o.reports.push_back(*v);
            }
            if (a == "--jobs") {
                const auto [end, ec] = std::from_chars(v->data(), v->data() + v->size(), o.jobs);
                if (ec != std::errc() || end != v->data() + v->size() || o.jobs < 1)
                    return "--jobs takes a number of at least 1, not \"" + *v + "\"";
            }
        } else if (a.starts_with('-') && a.size() > 1) {
            return "unknown option " + a + " for --audit-layers";
        } else {
            o.inputs.push_back(a);
        }
    }
    if (o.inputs.empty()) return "--audit-layers needs at least one drawing or folder";
    if (o.dryRun && !o.apply && !o.renameFile) return "--dry-run goes with --apply or --rename";
    return o;
}

}  // namespace cadhost::audit
