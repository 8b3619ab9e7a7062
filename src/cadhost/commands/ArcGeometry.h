#pragma once
// Arcs as the drawing commands construct them: from points, centres, included angles,
// chord lengths, radii and tangents, and as the bulge of a polyline segment.
#include <optional>
#include <utility>

#include "boundary/ResBuf.h"

namespace cadhost::commands {

// A counter-clockwise arc in the xy plane; angles in radians.
struct Arc {
    ardo::Point3 centre{};
    double radius = 0;
    double start = 0;
    double end = 0;
};

// An angle in [0, 2pi).
double normalAngle(double angle);

// The circle through three points; nothing when they lie on a line.
std::optional<std::pair<ardo::Point3, double>> circleThrough(const ardo::Point3& a, const ardo::Point3& b,
                                                              const ardo::Point3& c);

// From the start point through the second to the end; nothing when they lie on a line.
std::optional<Arc> arcThroughPoints(const ardo::Point3& start, const ardo::Point3& second, const ardo::Point3& end);
// Counter-clockwise from the start around the centre to the ray towards `end`.
std::optional<Arc> arcFromCentre(const ardo::Point3& centre, const ardo::Point3& start, const ardo::Point3& end);
// From the start around the centre through an included angle (negative: clockwise).
std::optional<Arc> arcFromCentreAngle(const ardo::Point3& centre, const ardo::Point3& start, double included);
// From the start around the centre to a chord of that length; a negative length takes the
// larger arc.
std::optional<Arc> arcFromCentreChord(const ardo::Point3& centre, const ardo::Point3& start, double chord);
// From start to end through an included angle (negative: clockwise).
std::optional<Arc> arcFromEndsAngle(const ardo::Point3& start, const ardo::Point3& end, double included);
// From start to end with that radius, counter-clockwise; a negative radius takes the larger arc.
std::optional<Arc> arcFromEndsRadius(const ardo::Point3& start, const ardo::Point3& end, double radius);
// The included angle (negative: clockwise) of the arc that leaves `start` in the direction
// `tangent` and ends at `end`; nothing when `end` lies straight behind or on the tangent.
std::optional<double> includedFromTangent(const ardo::Point3& start, double tangent, const ardo::Point3& end);
// The included angle (negative: clockwise) of the arc from `start` through `second` to `end`.
std::optional<double> includedThroughPoints(const ardo::Point3& start, const ardo::Point3& second,
                                            const ardo::Point3& end);

// The arc's other end seen from `from` (one of its ends), and the included angle from there
// (negative: clockwise).
std::pair<ardo::Point3, double> arcFrom(const Arc& arc, const ardo::Point3& from);

// A polyline segment's bulge for an arc of this included angle.
double bulgeOf(double included);

}  // namespace cadhost::commands

