#pragma once
// Putting a layer entry into the current drawing: creating its layer record with all its
// properties, applying state bits through the host's layer commands, and making sure a
// linetype is present.
#include <string>

#include "boundary/HostDrawing.h"
#include "layers/LayerValue.h"

namespace ardo {

// Layer state bits as the layer core hands them around.
enum LayerStateBit : int {
    LayerOff = 1,
    LayerFrozen = 2,
    LayerLocked = 4,
    LayerFrozenInCurrentViewport = 8,
    LayerFrozenInNewViewports = 16,
    LayerCurrent = 32,
};

// Loads the linetype from its file when the drawing lacks it; problems are printed.
void ensureLinetype(const std::string& linetype, const std::string& linetypeFile);

// Creates the layer of that name with the fields' colour, linetype (from its file when
// missing, else Continuous), states, lineweight, plottable and plot style. Plottable is
// off only when its text begins with "0"; a lineweight text that is empty or no number
// gives the default lineweight. RTNORM, or RTERROR with the reason printed; "" and "0"
// are never created.
int createLayer(const std::string& name, const LayerValue& fields);

// Applies state bits through the "_.LAYER" command (and "_VPLAYER" in a layout). The
// current layer always stays thawed, unlocked and on. RTNORM.
int applyLayerStates(const std::string& name, int bits);
// The name as a layer pattern that matches this layer only: every wildcard character taken
// literally with a backquote ("Plan#1" -> "Plan`#1").
std::string literalLayerPattern(const std::string& name);

// The state bits of a drawing layer; 32 when its name is "CLAYER", compared exactly.
int layerStateBits(const LayerRecord& layer);

}  // namespace ardo
