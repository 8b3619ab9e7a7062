#pragma once
// An entity's geometry as the host measures it: straight segments, circular arcs and
// single points in the xy plane (z is carried but not measured). Picking, window and
// crossing selection and the editing commands work on these.
#include <cstdint>
#include <optional>
#include <vector>

#include "boundary/ResBuf.h"
#include "cadhost/drawing/Geometry.h"

namespace cadhost {

class Drawing;
using Handle = std::uint64_t;

namespace geometry {

struct Segment {
    ardo::Point3 a{}, b{};
};

// Counter-clockwise from `start` to `end` (radians); a full circle has end = start + 2pi.
struct Arc {
    ardo::Point3 center{};
    double radius = 0, start = 0, end = 0;
    ardo::Point3 pointAt(double angle) const;
    // Whether the angle lies on the arc's sweep.
    bool covers(double angle) const;
};

struct Shape {
    std::vector<Segment> segments;
    std::vector<Arc> arcs;
    std::vector<ardo::Point3> points;
    bool empty() const { return segments.empty() && arcs.empty() && points.empty(); }
};

// LINE, LWPOLYLINE and POLYLINE (bulges become arcs), CIRCLE, ARC and POINT exactly;
// ELLIPSE and SPLINE along fine chords; SOLID, TRACE and 3DFACE by their edges; other
// entities with extents (texts, inserts, hatches, ...) as the outline of their box. Nothing for an entity that has no geometry the host knows.
std::optional<Shape> shapeOf(const Drawing& drawing, Handle entity);

// The arc through a bulge between two polyline vertices (bulge = tan(sweep/4), positive
// counter-clockwise); nothing for a bulge of 0.
std::optional<Arc> bulgeArc(const ardo::Point3& from, const ardo::Point3& to, double bulge);

}  // namespace geometry
}  // namespace cadhost
