#pragma once
// Points, distances and angles as a drafter types them at a prompt. Commands and the LISP
// input functions read typed input through these, so both accept the same forms.
#include <optional>
#include <string_view>

#include "boundary/ResBuf.h"
#include "cadhost/commands/InputRequest.h"

namespace cadhost::commands {

// "x,y", "x,y,z", "@dx,dy[,dz]", "@dist<angle", "dist<angle" and "@" alone (the last point
// itself). Relative forms start from `last`; polar angles are degrees, counter-clockwise
// from the x axis. A point typed without z lies at z 0; a relative one keeps the last z.
std::optional<ardo::Point3> parsePoint(std::string_view text, const ardo::Point3& last);

// A real number ("2.5", "-3", "1e3", ".5"); the whole text must be the number.
std::optional<double> parseReal(std::string_view text);

// An angle in degrees as typed ("45", "-90", "30.5", "45d30'15\"", "<45" as the common
// hosts accept it), in radians.
std::optional<double> parseAngle(std::string_view text);

// What a prompt for a point offers a view: a rubber band from `from`, or a rectangle.
inline InputRequest pointRequest(std::optional<ardo::Point3> from = std::nullopt, bool rectangle = false) {
    InputRequest point;
    point.kind = InputRequest::Kind::Point;
    point.from = from;
    point.rectangle = rectangle;
    return point;
}

// The complaint about input that is no point.
inline constexpr const char* kInvalidPoint = "Invalid point.\n";
inline constexpr const char* kPointOrKeyword = "Point or option keyword required.\n";

// Distance between two points, and the angle from one to another (radians, counter-clockwise
// from the x axis, in [0, 2pi)). `flat` leaves z out of the distance.
double distanceBetween(const ardo::Point3& a, const ardo::Point3& b, bool flat = false);
double angleBetween(const ardo::Point3& from, const ardo::Point3& to);
// The point at a distance in a direction (radians) from a base point, in its plane.
ardo::Point3 polarPoint(const ardo::Point3& base, double angle, double distance);

}  // namespace cadhost::commands
