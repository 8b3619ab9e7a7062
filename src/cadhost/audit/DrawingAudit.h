#pragma once
// One drawing's audit in a worker process: open the drawing, load the module, hand the
// drawing to the module's layer-standard entry, and save the drawing when the module
// changed it. The outcome travels to the parent as NUL-separated fields.
#include <optional>
#include <string>

#include "boundary/LayerStandardCall.h"
#include "cadhost/audit/LayerAuditOptions.h"

namespace cadhost {
class Application;
}

namespace cadhost::audit {

struct DrawingOutcome {
    std::string path;
    std::string failure;      // the drawing's own failure, empty when none
    std::string runFailure;   // nothing can be audited (central or mapping file unusable)
    std::string record;       // the module's record
    bool saved = false;
};

std::string encodeOutcome(const DrawingOutcome& outcome);
// The outcome, or none when the bytes are no complete outcome (the worker died).
std::optional<DrawingOutcome> decodeOutcome(const std::string& path, const std::string& bytes);

// Audits the drawing in this process. `module`: the module file to load.
DrawingOutcome auditDrawing(const std::string& path, const LayerAuditOptions& options, const std::string& module,
                            const std::string& programFolder);

// A sink for the module's text that appends to the string.
ArdoTextSink appendingTo(std::string& text);

// The layer-standard entry of the loaded module, or null when the module has none.
ArdoLayerStandardEntry layerStandardEntry(Application& app, const std::string& module);

}  // namespace cadhost::audit
