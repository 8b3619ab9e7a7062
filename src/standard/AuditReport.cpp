#include "standard/AuditReport.h"

#include <algorithm>

#include "base/Printf.h"

namespace ardo {

bool isResolved(const AuditRun& run, const DrawingResult& drawing, const LayerDeviation& d) {
    if (!run.apply || run.dryRun) return false;
    const std::string what = propertyName(d.property);
    return std::any_of(drawing.audit.changes.begin(), drawing.audit.changes.end(), [&](const LayerChange& c) {
        return c.failure.empty() && c.layer == d.layer && c.what == what;
    });
}

size_t remainingDeviations(const AuditRun& run, const DrawingResult& drawing) {
    const DrawingAudit& a = drawing.audit;
    size_t left = a.unnamed.size();
    for (const LayerDeviation& d : a.deviations) left += isResolved(run, drawing, d) ? 0 : 1;
    return left;
}

int runExitStatus(const AuditRun& run) {
    bool deviations = false;
    for (const DrawingResult& d : run.drawings) {
        if (!d.failure.empty()) return 3;
        deviations = deviations || remainingDeviations(run, d) > 0;
    }
    return deviations ? 1 : 0;
}

std::string countOf(size_t n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::string drawingCounts(const AuditRun& run) {
    size_t meeting = 0, deviating = 0, failed = 0;
    for (const DrawingResult& r : run.drawings) {
        if (!r.failure.empty()) ++failed;
        else if (remainingDeviations(run, r) > 0) ++deviating;
        else ++meeting;
    }
    return countOf(run.drawings.size(), "drawing", "drawings") + ": " +
           countOf(meeting, "meets", "meet") + " the standard, " + countOf(deviating, "deviates", "deviate") + ", " +
           std::to_string(failed) + " failed";
}

namespace {

void appendDrawing(std::string& out, const AuditRun& run, const DrawingResult& r) {
    const DrawingAudit& a = r.audit;
    if (!r.failure.empty() && a.deviations.empty() && a.unnamed.empty() && a.changes.empty()) {
        out += r.path + ": " + r.failure + "\n";
        return;
    }
    out += r.path + ": ";
    if (a.meetsStandard()) {
        out += "meets the standard";
    } else {
        out += countOf(a.deviations.size(), "deviation", "deviations") + ", " +
               countOf(a.unnamed.size(), "layer without a key", "layers without a key");
    }
    out += " (" + countOf(a.missing.size(), "key", "keys") + " without a layer)\n";
    for (const LayerDeviation& d : a.deviations)
        out += "  " + d.layer + " [" + d.key + "] " + propertyName(d.property) + ": " + d.drawingValue +
               ", standard " + d.fileValue + (isResolved(run, r, d) ? " (fixed)" : "") + "\n";
    for (const UnnamedLayer& u : a.unnamed)
        out += "  " + u.layer + ": no key names it" +
               (u.hintKey.empty() ? std::string() : "; nearest " + u.hintKey + " \"" + u.hintName + "\"") + "\n";
    const char* verb = run.dryRun ? "would change: " : "changed: ";
    for (const LayerChange& c : a.changes) {
        out += "  " + std::string(c.failure.empty() ? verb : "not changed: ") + c.layer + " " + c.what + " " +
               (c.from.empty() ? "" : c.from + " -> ") + c.to;
        out += c.failure.empty() ? "\n" : " (" + c.failure + ")\n";
    }
    if (!r.failure.empty()) out += "  " + r.failure + "\n";
    else if (r.saved) out += "  saved\n";
}

}  // namespace

std::string consoleSummary(const AuditRun& run) {
    std::string out;
    size_t saved = 0;
    for (const DrawingResult& r : run.drawings) {
        appendDrawing(out, run, r);
        if (r.saved) ++saved;
    }
    out += drawingCounts(run);
    if (run.apply && !run.dryRun) out += ", " + std::to_string(saved) + " saved";
    if (run.dryRun) out += " (dry run: nothing saved)";
    out += "\n";
    const double perSecond = run.seconds > 0 ? static_cast<double>(run.drawings.size()) / run.seconds : 0;
    out += format("%.2f s, %.1f drawings/s with ", run.seconds, perSecond) + countOf(static_cast<size_t>(run.workers), "worker", "workers") + "\n";
    return out;
}

}  // namespace ardo
