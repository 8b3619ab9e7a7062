#include "cadhost/commands/Offsets.h"

#include <cmath>

#include "cadhost/commands/CurveEdits.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/geometry/Paths.h"
#include "cadhost/geometry/Queries.h"

namespace cadhost::commands {

namespace {

struct Direction {
    double x = 0, y = 0;
    Direction left() const { return {-y, x}; }
};

double cross(const Direction& a, const Direction& b) { return a.x * b.y - a.y * b.x; }

Direction unit(double x, double y) {
    const double length = std::hypot(x, y);
    return length == 0 ? Direction{} : Direction{x / length, y / length};
}

Direction rotated(const Direction& d, double angle) {
    return {d.x * std::cos(angle) - d.y * std::sin(angle), d.x * std::sin(angle) + d.y * std::cos(angle)};
}

ardo::Point3 along(const ardo::Point3& p, const Direction& d, double distance) {
    return {p[0] + d.x * distance, p[1] + d.y * distance, p[2]};
}

// A polyline span's direction where it leaves its first vertex and where it reaches its
// second: the chord turned by half the arc's sweep (sweep = 4 atan(bulge)).
struct Span {
    ardo::Point3 from{}, to{};
    Direction out, in;
};

Span spanOf(const geometry::Vertex& from, const geometry::Vertex& to) {
    const Direction chord = unit(to.at[0] - from.at[0], to.at[1] - from.at[1]);
    const double half = 2 * std::atan(from.bulge);
    return {from.at, to.at, rotated(chord, -half), rotated(chord, half)};
}

// The offset corner where span `a` meets span `b` at their shared vertex: on a smooth
// bend both offsets end at the same point; two straight spans meet where their parallels
// cross.
std::optional<ardo::Point3> corner(const Span& a, bool aStraight, const Span& b, bool bStraight, double s) {
    const ardo::Point3 onA = along(a.to, a.in.left(), s), onB = along(b.from, b.out.left(), s);
    const double turn = cross(a.in, b.out);
    if (std::abs(turn) < 1e-9) return onA;
    if (!aStraight || !bStraight) return std::nullopt;
    const double t = ((onB[0] - onA[0]) * b.out.y - (onB[1] - onA[1]) * b.out.x) / turn;
    return along(onA, a.in, t);
}

std::optional<std::vector<EntityTag>> offsetPolyline(std::vector<EntityTag> tags, const geometry::Polyline& polyline,
                                                     double distance, const ardo::Point3& side) {
    const auto& v = polyline.vertices;
    const std::size_t n = v.size();
    if (n < 2) return std::nullopt;
    const std::size_t spans = polyline.closed ? n : n - 1;
    std::vector<Span> span;
    for (std::size_t i = 0; i < spans; ++i) span.push_back(spanOf(v[i], v[(i + 1) % n]));
    // The side is judged on the span nearest the point.
    std::size_t nearest = 0;
    double best = INFINITY;
    for (std::size_t i = 0; i < spans; ++i) {
        geometry::Shape one;
        if (const auto arc = geometry::bulgeArc(v[i].at, v[(i + 1) % n].at, v[i].bulge)) one.arcs.push_back(*arc);
        else one.segments.push_back({v[i].at, v[(i + 1) % n].at});
        const double d = geometry::distanceTo(one, side);
        if (d < best) best = d, nearest = i;
    }
    double s = distance;
    if (const auto arc = geometry::bulgeArc(v[nearest].at, v[(nearest + 1) % n].at, v[nearest].bulge)) {
        // Inside a counter-clockwise arc is to its left.
        const bool inside = std::hypot(side[0] - arc->center[0], side[1] - arc->center[1]) < arc->radius;
        s = (inside == (v[nearest].bulge > 0)) ? distance : -distance;
    } else {
        const Span& near = span[nearest];
        s = cross(near.out, unit(side[0] - near.from[0], side[1] - near.from[1])) > 0 ? distance : -distance;
    }
    for (std::size_t i = 0; i < spans; ++i)
        if (const auto arc = geometry::bulgeArc(v[i].at, v[(i + 1) % n].at, v[i].bulge))
            if ((v[i].bulge > 0 ? arc->radius - s : arc->radius + s) <= 0) return std::nullopt;   // turned inside out
    std::vector<ardo::Point3> moved(n);
    for (std::size_t i = 0; i < n; ++i) {
        const bool first = i == 0 && !polyline.closed, last = i == n - 1 && !polyline.closed;
        if (first) moved[i] = along(v[0].at, span[0].out.left(), s);
        else if (last) moved[i] = along(v[i].at, span[i - 1].in.left(), s);
        else {
            const std::size_t before = (i + spans - 1) % spans;
            const auto at = corner(span[before], v[before].bulge == 0, span[i], v[i].bulge == 0, s);
            if (!at) return std::nullopt;
            moved[i] = *at;
        }
    }
    std::size_t vertex = 0;
    for (std::size_t i = 0; i < tags.size() && tags[i].code != 1001; ++i) {
        if (tags[i].code == 10 && vertex < n) tags[i].value = dxfNumber(moved[vertex][0]);
        if (tags[i].code == 20 && vertex < n) tags[i].value = dxfNumber(moved[vertex++][1]);
    }
    return tags;
}

}  // namespace

std::optional<std::vector<EntityTag>> offsetTags(const Drawing& drawing, Handle entity, double distance,
                                                 const ardo::Point3& side) {
    auto tags = drawing.entityTags(entity);
    if (tags.empty()) return std::nullopt;
    if (tags.front().value == "LWPOLYLINE") {
        const auto polyline = geometry::polylineOf(drawing, entity, tags);
        return polyline ? offsetPolyline(std::move(tags), *polyline, distance, side) : std::nullopt;
    }
    auto curve = curveOf(tags);
    if (!curve) return std::nullopt;
    if (curve->kind == Curve::Kind::Line) {
        const Direction d = unit(curve->b[0] - curve->a[0], curve->b[1] - curve->a[1]);
        const double s = cross(d, unit(side[0] - curve->a[0], side[1] - curve->a[1])) > 0 ? distance : -distance;
        curve->a = along(curve->a, d.left(), s);
        curve->b = along(curve->b, d.left(), s);
    } else {
        const double r = curve->arc.radius;
        const bool inside = std::hypot(side[0] - curve->arc.center[0], side[1] - curve->arc.center[1]) < r;
        if (inside && distance >= r) return std::nullopt;
        curve->arc.radius = inside ? r - distance : r + distance;
    }
    return curveTags(std::move(tags), *curve);
}

}  // namespace cadhost::commands
