#pragma once
// Finding entities of model space by a picked point, a window or crossing, a polygon or a
// fence: what "Select objects:" and the LISP selection functions do with typed points.
#include <vector>

#include "cadhost/geometry/Queries.h"

namespace cadhost::geometry {

// How far from a picked point an entity still counts as hit: a two-hundredth of the
// drawing's extents, since a typed point has no screen pick box to go by.
double pickAperture(const Drawing& drawing);

// The entity nearest to the point within the aperture; when several are as near, the one
// drawn last (on top).
std::optional<Handle> pickAt(const Drawing& drawing, const ardo::Point3& point, double aperture);

enum class Region { Window, Crossing };
std::vector<Handle> selectByPolygon(const Drawing& drawing, const Polygon& polygon, Region region);
std::vector<Handle> selectByFence(const Drawing& drawing, const std::vector<ardo::Point3>& fence);

}  // namespace cadhost::geometry
