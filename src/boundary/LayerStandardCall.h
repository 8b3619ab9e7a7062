#pragma once
// The one C entry of the module through which the host hands it a layer-standard run
// (ardo-cad --audit-layers). The host opens each drawing and saves it; the module compares,
// changes and reports. Plain C types only: the host finds the entry with dlsym.
#include <cstddef>

extern "C" {

// Text the module hands back: a drawing's result record, the console summary, messages.
struct ArdoTextSink {
    void* context;
    void (*write)(void* context, const char* text, std::size_t size);
};

enum ArdoStandardOperation {
    // Audit the host's working drawing (and with apply, change it); its record goes to `out`.
    kArdoAuditDrawing = 1,
    // Merge the records of all drawings, write the console summary to `out` and the report files.
    kArdoWriteReports = 2,
};

// One drawing of a run as the host saw it: its record from kArdoAuditDrawing, and the
// host's own failure (unreadable, not written), or null.
struct ArdoDrawingOutcome {
    const char* path;
    const char* record;
    const char* failure;
    int saved;   // the drawing was written back
};

struct ArdoStandardCall {
    int operation;
    // Both operations.
    const char* centralFile;   // null or empty: the installation's configured central file
    int apply;                 // bring the layers in line
    int dryRun;                // with apply: only tell what would change
    const char* renameFile;    // null or a mapping file of old name patterns and keys
    ArdoTextSink out;          // the record, or the console summary
    ArdoTextSink messages;     // what the user must know (missing files and the like)
    // kArdoAuditDrawing: set by the module when the drawing was changed.
    int changed;
    // kArdoWriteReports.
    const ArdoDrawingOutcome* drawings;
    std::size_t drawingCount;
    const char* const* reportFiles;   // ".html" or ".csv" each
    std::size_t reportFileCount;
    double seconds;                   // the run's wall time
    int workers;                      // drawings audited at once
};

// Audit: 0 when the drawing was audited; 1 when this drawing could not be (messages tell
// why); 2 when no drawing can be (the central file or the mapping file is unreadable).
// Reports: the run's exit status: 0 every drawing meets the standard, 1 deviations found,
// 3 drawings could not be read or written, 2 a report file could not be written.
using ArdoLayerStandardEntry = int (*)(ArdoStandardCall* call);
}

namespace ardo {
inline constexpr const char* kLayerStandardEntryName = "ardoLayerStandard";
}
