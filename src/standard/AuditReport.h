#pragma once
// The results of a run over many drawings and the reports made from them: the console
// summary, a self-contained HTML page and a CSV file.
#include <string>
#include <vector>

#include "standard/LayerAudit.h"

namespace ardo {

struct DrawingResult {
    std::string path;
    DrawingAudit audit;
    std::string failure;   // not read, not audited or not written; empty when all went well
    bool saved = false;
};

struct AuditRun {
    std::vector<DrawingResult> drawings;
    bool apply = false;
    bool dryRun = false;
    double seconds = 0;
    int workers = 1;
};

// A deviation that a change (not a dry run's) brought in line.
bool isResolved(const AuditRun& run, const DrawingResult& drawing, const LayerDeviation& deviation);
// The deviations and unnamed layers left after the run's changes.
size_t remainingDeviations(const AuditRun& run, const DrawingResult& drawing);
// 0 every drawing meets the standard, 1 deviations remain, 3 drawings failed.
int runExitStatus(const AuditRun& run);

// "1 drawing", "2 drawings": the count with the word in its number.
std::string countOf(size_t n, const char* one, const char* many);
// "4 drawings: 1 meets the standard, 2 deviate, 1 failed", verbs agreeing with the counts.
std::string drawingCounts(const AuditRun& run);

std::string consoleSummary(const AuditRun& run);
std::string csvReport(const AuditRun& run);
std::string htmlReport(const AuditRun& run);

}  // namespace ardo
