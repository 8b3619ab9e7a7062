#pragma once
// What STRETCH does to the objects a crossing window or polygon chose: an object wholly
// inside moves; of the others, the line ends and polyline vertices inside move and the
// rest stays, and a circle, text, block or point moves when its defining point is inside.
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Queries.h"

namespace cadhost::commands {

void stretchEntities(const Context& context, const std::vector<Handle>& entities,
                     const std::vector<geometry::Polygon>& regions, const ardo::Point3& by);

}  // namespace cadhost::commands
