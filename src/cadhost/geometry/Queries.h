#pragma once
// Measures on shapes: distance to a point, extents, intersections, and the window,
// crossing, polygon and fence tests of object selection.
#include <vector>

#include "cadhost/geometry/Shape.h"

namespace cadhost::geometry {

double distanceTo(const Shape& shape, const ardo::Point3& p);
Extents extentsOf(const Shape& shape);

// The point of the segment or arc nearest to `p`.
ardo::Point3 closestOn(const Segment& s, const ardo::Point3& p);
ardo::Point3 closestOn(const Arc& arc, const ardo::Point3& p);

// Points where a segment or an arc meets the shape's segments and arcs.
std::vector<ardo::Point3> intersections(const Segment& segment, const Shape& shape);
std::vector<ardo::Point3> intersections(const Arc& arc, const Shape& shape);
// Points where two shapes meet.
std::vector<ardo::Point3> intersections(const Shape& a, const Shape& b);

// A closed polygon in the xy plane (the last vertex joins the first).
using Polygon = std::vector<ardo::Point3>;
Polygon rectangle(const ardo::Point3& a, const ardo::Point3& b);
bool insidePolygon(const Polygon& polygon, const ardo::Point3& p);

// Window: the whole shape lies inside. Crossing: inside or touching an edge.
bool withinPolygon(const Shape& shape, const Polygon& polygon);
bool crossesPolygon(const Shape& shape, const Polygon& polygon);
// Fence: an open line of points that the shape touches.
bool crossesFence(const Shape& shape, const std::vector<ardo::Point3>& fence);

}  // namespace cadhost::geometry
