#pragma once
// The floating viewports of the active layout and which of them is current.
//
// The current viewport is the one whose ID (group 69) the drawing's CVPORT names. DXF files
// seldom keep CVPORT, so without it (or when it names paper space itself, ID 1) the
// current viewport is the first floating viewport of the layout that is on (status 68
// above 0), in file order: the one the host would enter first when switching into model
// space of the layout.
#include <optional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// VIEWPORT entities of the active layout other than the layout's own paper-space view.
std::vector<Handle> layoutViewports(const Drawing& drawing);
// Floating viewports of every layout.
std::vector<Handle> allFloatingViewports(const Drawing& drawing);
std::optional<Handle> currentViewport(const Drawing& drawing);

// Adds the layers to the viewport's frozen list or takes them out of it.
void freezeInViewport(Drawing& drawing, Handle viewport, const std::vector<std::string>& layers, bool freeze);

}  // namespace cadhost::commands
