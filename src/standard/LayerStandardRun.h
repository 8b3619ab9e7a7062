#pragma once
// The module's side of a layer-standard run: what the exported entry does with the host's call.
#include "boundary/LayerStandardCall.h"

namespace ardo {

int runLayerStandard(ArdoStandardCall& call);

}  // namespace ardo
