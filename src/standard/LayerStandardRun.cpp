#include "standard/LayerStandardRun.h"

#include <string>

#include "base/CaseFold.h"
#include "base/FileReplace.h"
#include "module/HostBinding.h"
#include "settings/ModuleFiles.h"
#include "standard/AuditRecord.h"
#include "standard/AuditReport.h"
#include "standard/LayerApply.h"
#include "standard/RenameMap.h"

namespace ardo {

namespace {

constexpr int kDrawingFailed = 1;
constexpr int kRunFailed = 2;
constexpr int kReportNotWritten = 2;

void send(const ArdoTextSink& sink, const std::string& text) {
    if (sink.write) sink.write(sink.context, text.data(), text.size());
}

bool given(const char* text) { return text && *text; }

// The central file loaded into the list; the failure, after which no drawing can be audited.
std::string loadCentral(const ArdoStandardCall& call, CentralLayerFile& list) {
    const std::string path = given(call.centralFile) ? call.centralFile : moduleFiles().centralLayerFilePath;
    if (path.empty()) return "no central layer file is configured; name one with --central FILE";
    if (!list.loadFileImage(path) || !list.hasLayerSection())
        return "cannot use the central layer file \"" + path + "\": it is missing or has no [LAYER] section";
    list.loadEntries();
    return {};
}

// The list loaded afresh and merged with the drawing's layers; the status to return, or 0.
int loadMerged(const ArdoStandardCall& call, const HostDrawing& drawing, CentralLayerFile& list) {
    list = CentralLayerFile();
    if (const std::string failure = loadCentral(call, list); !failure.empty()) {
        send(call.messages, failure);
        return kRunFailed;
    }
    if (!list.mergeDrawingLayers(drawing)) {
        send(call.messages, "the drawing's layer table is missing or could not be read to its end");
        return kDrawingFailed;
    }
    return 0;
}

int auditWorkingDrawing(ArdoStandardCall& call) {
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) {
        send(call.messages, "no drawing is open");
        return kDrawingFailed;
    }
    const bool dryRun = call.dryRun != 0;
    DrawingAudit audit;
    CentralLayerFile list;
    if (const int status = loadMerged(call, *drawing, list)) return status;
    if (given(call.renameFile)) {
        const auto map = readRenameMap(call.renameFile);
        if (const auto* failure = std::get_if<std::string>(&map)) {
            send(call.messages, *failure);
            return kRunFailed;
        }
        if (renameLayers(std::get<RenameMap>(map), list, *drawing, audit.changes, dryRun) > 0 && !dryRun) {
            call.changed = 1;
            // The layers moved; the comparison starts afresh.
            if (const int status = loadMerged(call, *drawing, list)) return status;
        }
    }
    const std::vector<LayerChange> renames = std::move(audit.changes);
    audit = auditLayers(list, drawing->usesNamedPlotStyles());
    audit.changes = renames;
    if (call.apply && applyStandard(list, *drawing, audit, dryRun) > 0 && !dryRun) call.changed = 1;
    send(call.out, writeAuditRecord(audit));
    return 0;
}

int writeReports(const ArdoStandardCall& call) {
    AuditRun run;
    run.apply = call.apply != 0;
    run.dryRun = call.dryRun != 0;
    run.seconds = call.seconds;
    run.workers = call.workers;
    for (size_t i = 0; i < call.drawingCount; ++i) {
        const ArdoDrawingOutcome& o = call.drawings[i];
        DrawingResult r;
        r.path = o.path ? o.path : "";
        r.saved = o.saved != 0;
        if (given(o.failure)) r.failure = o.failure;
        if (o.record) {
            if (auto audit = readAuditRecord(o.record)) r.audit = std::move(*audit);
            else if (r.failure.empty()) r.failure = "the audit's result could not be read";
        }
        run.drawings.push_back(std::move(r));
    }
    send(call.out, consoleSummary(run));
    int status = runExitStatus(run);
    for (size_t i = 0; i < call.reportFileCount; ++i) {
        const std::string path = call.reportFiles[i];
        const bool csv = upperCase(path).ends_with(".CSV");
        if (!replaceFile(path, csv ? csvReport(run) : htmlReport(run))) {
            send(call.messages, "cannot write the report \"" + path + "\"; check the folder and that it may be written");
            status = kReportNotWritten;
        }
    }
    return status;
}

}  // namespace

int runLayerStandard(ArdoStandardCall& call) {
    switch (call.operation) {
        case kArdoAuditDrawing: return auditWorkingDrawing(call);
        case kArdoWriteReports: return writeReports(call);
        default: send(call.messages, "unknown layer standard operation " + std::to_string(call.operation));
    }
    return kRunFailed;
}

}  // namespace ardo
