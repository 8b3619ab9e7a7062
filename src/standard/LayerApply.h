#pragma once
// Bringing a drawing's named layers in line with the central layer control file: colour
// and linetype as the layer dialog's Regenerate does, and lineweight, plottable and plot
// style besides. Linetypes the drawing lacks are loaded from their files.
#include "boundary/HostDrawing.h"
#include "standard/LayerAudit.h"

namespace ardo {

// Changes every layer with deviations in `audit` (from auditLayers on the same merged list)
// and records each change in audit.changes; a change that could not be made carries its
// reason. With `dryRun` nothing is changed and the changes are recorded as they would be
// made. The number of layers changed (or that would be).
int applyStandard(const CentralLayerFile& merged, HostDrawing& drawing, DrawingAudit& audit, bool dryRun);

}  // namespace ardo
