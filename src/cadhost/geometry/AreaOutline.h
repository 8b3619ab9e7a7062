#pragma once
// The outline of a closed area as a map exports it: one ring of points in the xy plane,
// clockwise and closed (its last point is its first), with the area the entity encloses
// exactly (arcs measured as arcs, not as the ring's chords).
#include <array>
#include <optional>
#include <vector>

#include "cadhost/geometry/Shape.h"

namespace cadhost::geometry {

struct AreaOutline {
    std::vector<std::array<double, 2>> ring;
    double area = 0;
};

// Arcs become chords of at most this many degrees.
inline constexpr double kArcStepDegrees = 5.0;

// A closed LWPOLYLINE, a closed 2D POLYLINE or a CIRCLE; nothing for any other entity and
// for one that encloses no area (fewer than three distinct points, or all in a line).
std::optional<AreaOutline> areaOutlineOf(const Drawing& drawing, Handle entity);

}  // namespace cadhost::geometry
