#include "cadhost/commands/ArcGeometry.h"

#include <algorithm>
#include <cmath>

#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {

namespace {

// Relative tolerance for points that coincide or lie on one line.
constexpr double kTiny = 1e-12;

bool coincide(const ardo::Point3& a, const ardo::Point3& b) {
    const double scale = std::max({std::abs(a[0]), std::abs(a[1]), std::abs(b[0]), std::abs(b[1]), 1.0});
    return distanceBetween(a, b, true) <= kTiny * scale;
}

// In (-pi, pi].
double signedAngle(double angle) {
    angle = std::remainder(angle, 2 * M_PI);
    return angle <= -M_PI ? angle + 2 * M_PI : angle;
}

bool turnsClockwise(const ardo::Point3& a, const ardo::Point3& b, const ardo::Point3& c) {
    return (b[0] - a[0]) * (c[1] - b[1]) - (b[1] - a[1]) * (c[0] - b[0]) < 0;
}

}  // namespace

double normalAngle(double angle) {
    angle = std::fmod(angle, 2 * M_PI);
    return angle < 0 ? angle + 2 * M_PI : angle;
}

std::optional<std::pair<ardo::Point3, double>> circleThrough(const ardo::Point3& a, const ardo::Point3& b,
                                                              const ardo::Point3& c) {
    const double d = 2 * (a[0] * (b[1] - c[1]) + b[0] * (c[1] - a[1]) + c[0] * (a[1] - b[1]));
    const double scale = std::max({distanceBetween(a, b, true), distanceBetween(b, c, true), 1.0});
    if (std::abs(d) < kTiny * scale * scale) return std::nullopt;
    const double a2 = a[0] * a[0] + a[1] * a[1], b2 = b[0] * b[0] + b[1] * b[1], c2 = c[0] * c[0] + c[1] * c[1];
    const ardo::Point3 centre{(a2 * (b[1] - c[1]) + b2 * (c[1] - a[1]) + c2 * (a[1] - b[1])) / d,
                              (a2 * (c[0] - b[0]) + b2 * (a[0] - c[0]) + c2 * (b[0] - a[0])) / d, a[2]};
    return std::pair{centre, distanceBetween(centre, a, true)};
}

std::optional<Arc> arcThroughPoints(const ardo::Point3& start, const ardo::Point3& second, const ardo::Point3& end) {
    const auto circle = circleThrough(start, second, end);
    if (!circle || coincide(start, end)) return std::nullopt;
    const auto& [centre, radius] = *circle;
    Arc arc{centre, radius, angleBetween(centre, start), angleBetween(centre, end)};
    // Clockwise through the second point: the same arc counter-clockwise from the end.
    if (turnsClockwise(start, second, end)) std::swap(arc.start, arc.end);
    return arc;
}

std::optional<Arc> arcFromCentre(const ardo::Point3& centre, const ardo::Point3& start, const ardo::Point3& end) {
    if (coincide(centre, start) || coincide(centre, end)) return std::nullopt;
    return Arc{centre, distanceBetween(centre, start, true), angleBetween(centre, start), angleBetween(centre, end)};
}

std::optional<Arc> arcFromCentreAngle(const ardo::Point3& centre, const ardo::Point3& start, double included) {
    if (coincide(centre, start) || std::abs(signedAngle(included)) < kTiny) return std::nullopt;
    const double from = angleBetween(centre, start);
    const double to = normalAngle(from + included);
    Arc arc{centre, distanceBetween(centre, start, true), from, to};
    if (included < 0) std::swap(arc.start, arc.end);
    return arc;
}

std::optional<Arc> arcFromCentreChord(const ardo::Point3& centre, const ardo::Point3& start, double chord) {
    const double radius = distanceBetween(centre, start, true);
    if (chord == 0 || std::abs(chord) > 2 * radius) return std::nullopt;
    const double minor = 2 * std::asin(std::abs(chord) / (2 * radius));
    return arcFromCentreAngle(centre, start, chord > 0 ? minor : 2 * M_PI - minor);
}

std::optional<Arc> arcFromEndsAngle(const ardo::Point3& start, const ardo::Point3& end, double included) {
    if (coincide(start, end) || included == 0 || std::abs(included) >= 2 * M_PI) return std::nullopt;
    if (included < 0) return arcFromEndsAngle(end, start, -included);
    const double chord = distanceBetween(start, end, true);
    const double toCentre = chord / 2 / std::tan(included / 2);
    const double along = angleBetween(start, end);
    const ardo::Point3 middle{(start[0] + end[0]) / 2, (start[1] + end[1]) / 2, start[2]};
    const ardo::Point3 centre = polarPoint(middle, along + M_PI / 2, toCentre);
    return Arc{centre, chord / 2 / std::sin(included / 2), angleBetween(centre, start), angleBetween(centre, end)};
}

std::optional<Arc> arcFromEndsRadius(const ardo::Point3& start, const ardo::Point3& end, double radius) {
    const double chord = distanceBetween(start, end, true);
    if (radius == 0 || chord > 2 * std::abs(radius)) return std::nullopt;
    const double minor = 2 * std::asin(std::min(1.0, chord / (2 * std::abs(radius))));
    return arcFromEndsAngle(start, end, radius > 0 ? minor : 2 * M_PI - minor);
}

std::optional<double> includedFromTangent(const ardo::Point3& start, double tangent, const ardo::Point3& end) {
    if (coincide(start, end)) return std::nullopt;
    const double half = signedAngle(angleBetween(start, end) - tangent);
    if (std::abs(half) < kTiny || std::abs(half) >= M_PI - kTiny) return std::nullopt;
    return 2 * half;
}

std::optional<double> includedThroughPoints(const ardo::Point3& start, const ardo::Point3& second,
                                            const ardo::Point3& end) {
    const auto arc = arcThroughPoints(start, second, end);
    if (!arc) return std::nullopt;
    const double sweep = normalAngle(arc->end - arc->start);
    return turnsClockwise(start, second, end) ? -sweep : sweep;
}

std::pair<ardo::Point3, double> arcFrom(const Arc& arc, const ardo::Point3& from) {
    const ardo::Point3 first = polarPoint(arc.centre, arc.start, arc.radius);
    const ardo::Point3 last = polarPoint(arc.centre, arc.end, arc.radius);
    const double sweep = normalAngle(arc.end - arc.start);
    if (distanceBetween(from, first, true) <= distanceBetween(from, last, true)) return {last, sweep};
    return {first, -sweep};
}

double bulgeOf(double included) { return std::tan(included / 4); }

}  // namespace cadhost::commands
