#include "cadhost/geometry/Queries.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace cadhost::geometry {

namespace {

constexpr double kTolerance = 1e-9;

double cross(double ax, double ay, double bx, double by) { return ax * by - ay * bx; }

double distanceToSegment(const Segment& s, const ardo::Point3& p) {
    const ardo::Point3 q = closestOn(s, p);
    return std::hypot(p[0] - q[0], p[1] - q[1]);
}

double distanceToArc(const Arc& arc, const ardo::Point3& p) {
    const ardo::Point3 q = closestOn(arc, p);
    return std::hypot(p[0] - q[0], p[1] - q[1]);
}

void segmentSegment(const Segment& s, const Segment& t, std::vector<ardo::Point3>& out) {
    const double rx = s.b[0] - s.a[0], ry = s.b[1] - s.a[1];
    const double qx = t.b[0] - t.a[0], qy = t.b[1] - t.a[1];
    const double denominator = cross(rx, ry, qx, qy);
    const double wx = t.a[0] - s.a[0], wy = t.a[1] - s.a[1];
    if (std::abs(denominator) < kTolerance) {
        // Parallel: they meet only when collinear and overlapping; the overlap's ends count.
        if (std::abs(cross(wx, wy, rx, ry)) > kTolerance) return;
        for (const Segment* from : {&s, &t})
            for (const ardo::Point3& end : {from->a, from->b})
                if (distanceToSegment(from == &s ? t : s, end) < kTolerance) out.push_back(end);
        return;
    }
    const double u = cross(wx, wy, qx, qy) / denominator;
    const double v = cross(wx, wy, rx, ry) / denominator;
    if (u < -kTolerance || u > 1 + kTolerance || v < -kTolerance || v > 1 + kTolerance) return;
    out.push_back({s.a[0] + u * rx, s.a[1] + u * ry, s.a[2] + u * (s.b[2] - s.a[2])});
}

void segmentArc(const Segment& s, const Arc& arc, std::vector<ardo::Point3>& out) {
    const double dx = s.b[0] - s.a[0], dy = s.b[1] - s.a[1];
    const double fx = s.a[0] - arc.center[0], fy = s.a[1] - arc.center[1];
    const double a = dx * dx + dy * dy;
    if (a == 0) return;
    const double b = 2 * (fx * dx + fy * dy);
    const double c = fx * fx + fy * fy - arc.radius * arc.radius;
    double discriminant = b * b - 4 * a * c;
    if (discriminant < -kTolerance) return;
    discriminant = std::sqrt(std::max(discriminant, 0.0));
    for (double t : {(-b - discriminant) / (2 * a), (-b + discriminant) / (2 * a)}) {
        if (t < -kTolerance || t > 1 + kTolerance) continue;
        const ardo::Point3 p{s.a[0] + t * dx, s.a[1] + t * dy, s.a[2]};
        if (arc.covers(std::atan2(p[1] - arc.center[1], p[0] - arc.center[0]))) out.push_back(p);
        if (discriminant == 0) break;
    }
}

void arcArc(const Arc& p, const Arc& q, std::vector<ardo::Point3>& out) {
    const double dx = q.center[0] - p.center[0], dy = q.center[1] - p.center[1];
    const double d = std::hypot(dx, dy);
    // Concentric circles share no single point; circles too far apart or one inside the other none.
    if (d < kTolerance || d > p.radius + q.radius + kTolerance || d < std::abs(p.radius - q.radius) - kTolerance) return;
    const double along = (d * d + p.radius * p.radius - q.radius * q.radius) / (2 * d);
    const double across = std::sqrt(std::max(p.radius * p.radius - along * along, 0.0));
    const double mx = p.center[0] + along * dx / d, my = p.center[1] + along * dy / d;
    for (double side : {-1.0, 1.0}) {
        const ardo::Point3 at{mx - side * across * dy / d, my + side * across * dx / d, p.center[2]};
        const auto on = [&](const Arc& a) { return a.covers(std::atan2(at[1] - a.center[1], at[0] - a.center[0])); };
        if (on(p) && on(q)) out.push_back(at);
        if (across < kTolerance) break;   // touching: one point
    }
}

// The ends of each piece and the loose points: what must lie inside a window.
std::vector<ardo::Point3> vertices(const Shape& shape) {
    std::vector<ardo::Point3> out = shape.points;
    for (const Segment& s : shape.segments) out.insert(out.end(), {s.a, s.b});
    for (const Arc& a : shape.arcs) out.insert(out.end(), {a.pointAt(a.start), a.pointAt(a.end)});
    return out;
}

bool touchesEdges(const Shape& shape, const std::vector<ardo::Point3>& line, bool closed) {
    const std::size_t n = line.size();
    const std::size_t edges = closed ? n : (n == 0 ? 0 : n - 1);
    for (std::size_t i = 0; i < edges; ++i) {
        const Segment edge{line[i], line[(i + 1) % n]};
        if (!intersections(edge, shape).empty()) return true;
        for (const ardo::Point3& p : shape.points)
            if (distanceToSegment(edge, p) < kTolerance) return true;
    }
    return false;
}

}  // namespace

double distanceTo(const Shape& shape, const ardo::Point3& p) {
    double best = std::numeric_limits<double>::infinity();
    for (const Segment& s : shape.segments) best = std::min(best, distanceToSegment(s, p));
    for (const Arc& a : shape.arcs) best = std::min(best, distanceToArc(a, p));
    for (const ardo::Point3& q : shape.points) best = std::min(best, std::hypot(p[0] - q[0], p[1] - q[1]));
    return best;
}

Extents extentsOf(const Shape& shape) {
    BoxBuilder box;
    for (const ardo::Point3& p : vertices(shape)) box.add(p);
    for (const Arc& a : shape.arcs)
        for (int quadrant = 0; quadrant < 4; ++quadrant)
            if (a.covers(quadrant * M_PI / 2)) box.add(a.pointAt(quadrant * M_PI / 2));
    return box.result().value_or(Extents{});
}

ardo::Point3 closestOn(const Segment& s, const ardo::Point3& p) {
    const double dx = s.b[0] - s.a[0], dy = s.b[1] - s.a[1];
    const double length2 = dx * dx + dy * dy;
    double t = length2 == 0 ? 0 : ((p[0] - s.a[0]) * dx + (p[1] - s.a[1]) * dy) / length2;
    t = std::clamp(t, 0.0, 1.0);
    return {s.a[0] + t * dx, s.a[1] + t * dy, s.a[2] + t * (s.b[2] - s.a[2])};
}

ardo::Point3 closestOn(const Arc& arc, const ardo::Point3& p) {
    const double angle = std::atan2(p[1] - arc.center[1], p[0] - arc.center[0]);
    if (arc.covers(angle)) return arc.pointAt(angle);
    const ardo::Point3 s = arc.pointAt(arc.start), e = arc.pointAt(arc.end);
    return std::hypot(p[0] - s[0], p[1] - s[1]) <= std::hypot(p[0] - e[0], p[1] - e[1]) ? s : e;
}

std::vector<ardo::Point3> intersections(const Segment& segment, const Shape& shape) {
    std::vector<ardo::Point3> out;
    for (const Segment& s : shape.segments) segmentSegment(segment, s, out);
    for (const Arc& a : shape.arcs) segmentArc(segment, a, out);
    return out;
}

std::vector<ardo::Point3> intersections(const Arc& arc, const Shape& shape) {
    std::vector<ardo::Point3> out;
    for (const Segment& s : shape.segments) segmentArc(s, arc, out);
    for (const Arc& a : shape.arcs) arcArc(arc, a, out);
    return out;
}

std::vector<ardo::Point3> intersections(const Shape& a, const Shape& b) {
    std::vector<ardo::Point3> out;
    for (const Segment& s : a.segments) {
        const auto hits = intersections(s, b);
        out.insert(out.end(), hits.begin(), hits.end());
    }
    for (const Arc& arc : a.arcs) {
        const auto hits = intersections(arc, b);
        out.insert(out.end(), hits.begin(), hits.end());
    }
    return out;
}

Polygon rectangle(const ardo::Point3& a, const ardo::Point3& b) {
    const double x0 = std::min(a[0], b[0]), x1 = std::max(a[0], b[0]);
    const double y0 = std::min(a[1], b[1]), y1 = std::max(a[1], b[1]);
    return {{x0, y0, 0}, {x1, y0, 0}, {x1, y1, 0}, {x0, y1, 0}};
}

bool insidePolygon(const Polygon& polygon, const ardo::Point3& p) {
    bool inside = false;
    const std::size_t n = polygon.size();
    for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
        const ardo::Point3& a = polygon[i];
        const ardo::Point3& b = polygon[j];
        if (distanceToSegment({a, b}, p) < kTolerance) return true;   // on the boundary counts as inside
        if ((a[1] > p[1]) != (b[1] > p[1]) && p[0] < (b[0] - a[0]) * (p[1] - a[1]) / (b[1] - a[1]) + a[0])
            inside = !inside;
    }
    return inside;
}

bool withinPolygon(const Shape& shape, const Polygon& polygon) {
    for (const ardo::Point3& p : vertices(shape))
        if (!insidePolygon(polygon, p)) return false;
    // With every end inside, the shape leaves the polygon only by crossing an edge; a
    // shape lying along an edge stays inside.
    const std::size_t n = polygon.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Segment edge{polygon[i], polygon[(i + 1) % n]};
        for (const ardo::Point3& hit : intersections(edge, shape)) {
            // A real crossing has points of the shape on both sides near the hit; sample
            // beside it along the shape's own pieces.
            for (const Arc& a : shape.arcs)
                for (double step : {-1e-6, 1e-6}) {
                    const double angle = std::atan2(hit[1] - a.center[1], hit[0] - a.center[0]) + step;
                    if (a.covers(angle) && !insidePolygon(polygon, a.pointAt(angle))) return false;
                }
            for (const Segment& s : shape.segments)
                for (double step : {-1e-6, 1e-6}) {
                    const double length = std::hypot(s.b[0] - s.a[0], s.b[1] - s.a[1]);
                    if (length == 0 || distanceToSegment(s, hit) > kTolerance) continue;
                    const double t = std::hypot(hit[0] - s.a[0], hit[1] - s.a[1]) / length + step;
                    if (t < 0 || t > 1) continue;
                    const ardo::Point3 near{s.a[0] + t * (s.b[0] - s.a[0]), s.a[1] + t * (s.b[1] - s.a[1]), 0};
                    if (!insidePolygon(polygon, near)) return false;
                }
        }
    }
    return true;
}

bool crossesPolygon(const Shape& shape, const Polygon& polygon) {
    for (const ardo::Point3& p : vertices(shape))
        if (insidePolygon(polygon, p)) return true;
    return touchesEdges(shape, polygon, true);
}

bool crossesFence(const Shape& shape, const std::vector<ardo::Point3>& fence) {
    return touchesEdges(shape, fence, false);
}

}  // namespace cadhost::geometry
