#include "cadhost/geometry/Snaps.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/CaseFold.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Paths.h"
#include "cadhost/geometry/Queries.h"

namespace cadhost::geometry {

namespace {

struct KindName {
    SnapKind kind;
    std::string_view name, typed;
};

constexpr KindName kKinds[] = {
    {SnapKind::Endpoint, "Endpoint", "END"},         {SnapKind::Midpoint, "Midpoint", "MID"},
    {SnapKind::Center, "Center", "CEN"},             {SnapKind::Node, "Node", "NOD"},
    {SnapKind::Quadrant, "Quadrant", "QUA"},         {SnapKind::Intersection, "Intersection", "INT"},
    {SnapKind::Insertion, "Insertion", "INS"},       {SnapKind::Perpendicular, "Perpendicular", "PER"},
    {SnapKind::Tangent, "Tangent", "TAN"},           {SnapKind::Nearest, "Nearest", "NEA"},
};

// Entities whose measured shape is their own lines; the others are measured by their box.
bool drawnByLines(const std::string& type) {
    static const char* const kLines[] = {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "POLYLINE",
                                         "SPLINE", "POINT", "SOLID", "TRACE", "3DFACE"};
    return std::any_of(std::begin(kLines), std::end(kLines), [&](const char* t) { return type == t; });
}

// Typed overrides: the first three letters count, with an optional "_" before them, as the
// common hosts take "_endp" or "mid".
std::string overrideKey(std::string_view typed) {
    std::string key = ardo::upperCase(std::string(ardo::trimWhite(typed)));
    if (!key.empty() && key.front() == '_') key.erase(0, 1);
    return key.size() >= 3 ? key : std::string();
}

bool isFullCircle(const Arc& arc) { return arc.end - arc.start >= 2 * M_PI - 1e-9; }

double planarDistance(const ardo::Point3& a, const ardo::Point3& b) { return std::hypot(a[0] - b[0], a[1] - b[1]); }

void add(std::vector<SnapPoint>& out, SnapKind kind, const ardo::Point3& at) { out.push_back({kind, at}); }

// The foot of the perpendicular from `from` on the segment's line, when it lies on the segment.
std::optional<ardo::Point3> footOn(const Segment& s, const ardo::Point3& from) {
    const double dx = s.b[0] - s.a[0], dy = s.b[1] - s.a[1];
    const double length2 = dx * dx + dy * dy;
    if (length2 == 0) return std::nullopt;
    const double t = ((from[0] - s.a[0]) * dx + (from[1] - s.a[1]) * dy) / length2;
    if (t < -1e-9 || t > 1 + 1e-9) return std::nullopt;
    return ardo::Point3{s.a[0] + t * dx, s.a[1] + t * dy, s.a[2]};
}

void perpendiculars(const SnapSource& source, const ardo::Point3& from, std::vector<SnapPoint>& out) {
    for (const Segment& s : source.shape.segments)
        if (const auto foot = footOn(s, from)) add(out, SnapKind::Perpendicular, *foot);
    for (const Arc& arc : source.shape.arcs) {
        const double d = planarDistance(from, arc.center);
        if (d < 1e-12) continue;
        // Both points where the line through the centre meets the circle stand at right angles to it.
        const double angle = std::atan2(from[1] - arc.center[1], from[0] - arc.center[0]);
        for (double a : {angle, angle + M_PI})
            if (arc.covers(a)) add(out, SnapKind::Perpendicular, arc.pointAt(a));
    }
}

void tangents(const SnapSource& source, const ardo::Point3& from, std::vector<SnapPoint>& out) {
    for (const Arc& arc : source.shape.arcs) {
        const double d = planarDistance(from, arc.center);
        if (d <= arc.radius) continue;   // from inside or on the circle no tangent touches it
        const double angle = std::atan2(from[1] - arc.center[1], from[0] - arc.center[0]);
        const double spread = std::acos(arc.radius / d);
        for (double a : {angle - spread, angle + spread})
            if (arc.covers(a)) add(out, SnapKind::Tangent, arc.pointAt(a));
    }
}

}  // namespace

const std::vector<SnapKind>& snapKinds() {
    static const std::vector<SnapKind> kinds = [] {
        std::vector<SnapKind> all;
        for (const KindName& k : kKinds) all.push_back(k.kind);
        return all;
    }();
    return kinds;
}

std::string_view snapName(SnapKind kind) {
    for (const KindName& k : kKinds)
        if (k.kind == kind) return k.name;
    return {};
}

std::optional<SnapKind> snapOverride(std::string_view typed) {
    const std::string key = overrideKey(typed);
    if (key.empty()) return std::nullopt;
    for (const KindName& k : kKinds)
        if (ardo::upperCase(std::string(k.name)).starts_with(key) || key == k.typed) return k.kind;
    return std::nullopt;
}

bool isNoSnapOverride(std::string_view typed) {
    const std::string key = overrideKey(typed);
    return !key.empty() && std::string("NONE").starts_with(key);
}

std::optional<SnapSource> snapSourceOf(const Drawing& drawing, Handle entity) {
    const auto info = drawing.entity(entity);
    auto shape = shapeOf(drawing, entity);
    if (!info || !shape) return std::nullopt;
    SnapSource source;
    source.shape = std::move(*shape);
    source.ownLines = drawnByLines(info->type);
    source.chorded = info->type == "ELLIPSE" || info->type == "SPLINE";
    const bool inserted = info->type == "INSERT" || info->type == "TEXT" || info->type == "MTEXT" ||
                          info->type == "ATTDEF" || info->type == "ATTRIB";
    if (inserted || info->type == "ELLIPSE") {
        const std::vector<EntityTag> tags = drawing.entityTags(entity);
        const Groups groups(tags);
        if (inserted) source.insertion = groups.point(10);
        else source.center = groups.point(10);
    }
    return source;
}

std::vector<SnapPoint> snapPoints(const SnapSource& source, int kinds, const ardo::Point3& cursor,
                                  const std::optional<ardo::Point3>& from) {
    std::vector<SnapPoint> out;
    const auto wanted = [&](SnapKind k) { return (kinds & static_cast<int>(k)) != 0; };
    if (wanted(SnapKind::Insertion) && source.insertion) add(out, SnapKind::Insertion, *source.insertion);
    if (!source.ownLines) return out;
    const Shape& shape = source.shape;
    if (wanted(SnapKind::Endpoint)) {
        if (source.chorded) {
            // A closed curve has no ends.
            if (!shape.segments.empty() && planarDistance(shape.segments.front().a, shape.segments.back().b) > 1e-9) {
                add(out, SnapKind::Endpoint, shape.segments.front().a);
                add(out, SnapKind::Endpoint, shape.segments.back().b);
            }
        } else {
            for (const Segment& s : shape.segments) add(out, SnapKind::Endpoint, s.a), add(out, SnapKind::Endpoint, s.b);
            for (const Arc& a : shape.arcs)
                if (!isFullCircle(a)) add(out, SnapKind::Endpoint, a.pointAt(a.start)), add(out, SnapKind::Endpoint, a.pointAt(a.end));
        }
    }
    if (wanted(SnapKind::Midpoint) && !source.chorded) {
        for (const Segment& s : shape.segments)
            add(out, SnapKind::Midpoint, {(s.a[0] + s.b[0]) / 2, (s.a[1] + s.b[1]) / 2, (s.a[2] + s.b[2]) / 2});
        for (const Arc& a : shape.arcs)
            if (!isFullCircle(a)) add(out, SnapKind::Midpoint, a.pointAt((a.start + a.end) / 2));
    }
    if (wanted(SnapKind::Center)) {
        for (const Arc& a : shape.arcs) add(out, SnapKind::Center, a.center);
        if (source.center) add(out, SnapKind::Center, *source.center);
    }
    if (wanted(SnapKind::Node))
        for (const ardo::Point3& p : shape.points) add(out, SnapKind::Node, p);
    if (wanted(SnapKind::Quadrant))
        for (const Arc& a : shape.arcs)
            for (int q = 0; q < 4; ++q)
                if (a.covers(q * M_PI / 2)) add(out, SnapKind::Quadrant, a.pointAt(q * M_PI / 2));
    if (from && wanted(SnapKind::Perpendicular)) perpendiculars(source, *from, out);
    if (from && wanted(SnapKind::Tangent)) tangents(source, *from, out);
    if (wanted(SnapKind::Nearest)) {
        std::optional<ardo::Point3> best;
        const auto consider = [&](const ardo::Point3& p) {
            if (!best || planarDistance(p, cursor) < planarDistance(*best, cursor)) best = p;
        };
        for (const Segment& s : shape.segments) consider(closestOn(s, cursor));
        for (const Arc& a : shape.arcs) consider(closestOn(a, cursor));
        for (const ardo::Point3& p : shape.points) consider(p);
        if (best) add(out, SnapKind::Nearest, *best);
    }
    return out;
}

std::vector<ardo::Point3> snapIntersections(const SnapSource& a, const SnapSource& b) {
    if (!a.ownLines || !b.ownLines) return {};
    return intersections(a.shape, b.shape);
}

}  // namespace cadhost::geometry
