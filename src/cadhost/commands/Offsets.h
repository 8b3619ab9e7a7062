#pragma once
// The parallel of a line, arc, circle or lightweight polyline at a distance, on the side
// of a given point: what OFFSET makes.
#include <optional>
#include <vector>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// The entity's tags with its geometry moved `distance` towards `side`; nothing for other
// types, for an arc or circle that would shrink to nothing, and for a polyline with a
// bend between an arc and another span that is not smooth.
std::optional<std::vector<EntityTag>> offsetTags(const Drawing& drawing, Handle entity, double distance,
                                                 const ardo::Point3& side);

}  // namespace cadhost::commands
