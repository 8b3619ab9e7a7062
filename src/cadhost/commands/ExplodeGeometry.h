#pragma once
// What EXPLODE makes of an entity: a block's contents placed where an insert shows them,
// and a polyline's segments as lines and arcs.
#include <optional>
#include <vector>

#include "cadhost/commands/BlockGeometry.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::commands {

// The block entity's tags (as the drawing gives them) placed by the insert, with its own
// layer, colour and linetype kept. A circle, arc or ellipse under unequal X and Y scales
// becomes an ellipse. Nothing for what cannot be placed exactly: a polyline with arcs or a
// nested insert turned inside unequal scales, a hatch, a dimension, an old-style polyline,
// an entity on another plane, or a type the host does not know.
std::optional<std::vector<EntityTag>> placedEntity(const std::vector<EntityTag>& tags, const Placement& placement);

// The segments of a polyline (as geometry::polylineOf reads it) as LINE and ARC tags with
// the polyline's properties (`tags`, its own). `widthLost` is set when a segment had a width
// the lines and arcs cannot keep.
std::vector<std::vector<EntityTag>> polylineSegments(const std::vector<EntityTag>& tags, const geometry::Polyline& polyline,
                                                     bool& widthLost);

// The groups an entity's copy keeps whatever its geometry becomes: layer, linetype, colour,
// lineweight, linetype scale, visibility, space, transparency.
std::vector<EntityTag> entityProperties(const std::vector<EntityTag>& tags);

}  // namespace cadhost::commands
