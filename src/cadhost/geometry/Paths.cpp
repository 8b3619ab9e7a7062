#include "cadhost/geometry/Paths.h"

#include <algorithm>
#include <cmath>

#include "cadhost/dxf/TagValue.h"

namespace cadhost::geometry {

namespace {

constexpr double kDegree = M_PI / 180.0;

// Extended data begins here; its codes repeat the entity's own.
constexpr int kExtendedData = 1001;

Polyline lightweight(const std::vector<EntityTag>& tags) {
    Polyline out;
    const Groups g(tags);
    const double elevation = g.get(38), constant = g.get(43);
    out.closed = (g.flags(70) & 1) != 0;
    for (const EntityTag& t : tags) {
        if (t.code == kExtendedData) break;
        if (t.code == 10) out.vertices.push_back({{toDouble(t.value), 0, elevation}, 0, constant, constant});
        if (out.vertices.empty()) continue;
        Vertex& v = out.vertices.back();
        if (t.code == 20) v.at[1] = toDouble(t.value);
        else if (t.code == 42) v.bulge = toDouble(t.value);
        else if (t.code == 40) v.startWidth = toDouble(t.value);
        else if (t.code == 41) v.endWidth = toDouble(t.value);
    }
    return out;
}

Polyline heavy(const Drawing& drawing, Handle entity, const std::vector<EntityTag>& tags) {
    Polyline out;
    const Groups g(tags);
    out.closed = (g.flags(70) & 1) != 0;
    const double startWidth = g.get(40), endWidth = g.get(41);
    for (const auto& part : drawing.entityParts(entity)) {
        const Groups v(part);
        if (v.flags(70) & 16) continue;   // spline frame point
        out.vertices.push_back({v.point(10), v.get(42), v.get(40, startWidth), v.get(41, endWidth)});
    }
    return out;
}

std::vector<ardo::Point3> ellipsePoints(const Groups& g, int circleSegments) {
    const ardo::Point3 c = g.point(10), major = g.point(11);
    const double ratio = g.get(40, 1);
    double p0 = g.get(41, 0), p1 = g.get(42, 2 * M_PI);
    if (p1 <= p0) p1 += 2 * M_PI;
    const ardo::Point3 minor{-major[1] * ratio, major[0] * ratio, 0};
    const int n = std::max(8, static_cast<int>(std::ceil((p1 - p0) / (2 * M_PI) * circleSegments)));
    std::vector<ardo::Point3> out;
    out.reserve(n + 1);
    for (int i = 0; i <= n; ++i) {
        const double a = p0 + (p1 - p0) * i / n;
        out.push_back({c[0] + major[0] * std::cos(a) + minor[0] * std::sin(a),
                       c[1] + major[1] * std::cos(a) + minor[1] * std::sin(a), c[2]});
    }
    return out;
}

// The spline's control points and knots; its fit points when it has no control points.
std::vector<ardo::Point3> splinePoints(const std::vector<EntityTag>& tags) {
    std::vector<double> knots;
    std::vector<ardo::Point3> control, fit;
    for (std::size_t i = 0; i < tags.size() && tags[i].code != kExtendedData; ++i) {
        const int code = tags[i].code;
        if (code == 40) knots.push_back(toDouble(tags[i].value));
        if ((code == 10 || code == 11) && i + 1 < tags.size() && tags[i + 1].code == code + 10)
            (code == 10 ? control : fit).push_back({toDouble(tags[i].value), toDouble(tags[i + 1].value), 0});
    }
    if (control.empty()) return fit;
    const int degree = Groups(tags).flags(71);
    return bsplinePoints(degree ? degree : 3, knots, control);
}

}  // namespace

const std::string* Groups::text(int code) const {
    for (const EntityTag& t : tags_) {
        if (t.code == kExtendedData) break;
        if (t.code == code) return &t.value;
    }
    return nullptr;
}

double Groups::get(int code, double fallback) const {
    const std::string* t = text(code);
    return t ? toDouble(*t, fallback) : fallback;
}

std::vector<ardo::Point3> bsplinePoints(int degree, const std::vector<double>& knots,
                                        const std::vector<ardo::Point3>& control) {
    const int n = static_cast<int>(control.size());
    if (degree < 1 || n <= degree || knots.size() != static_cast<std::size_t>(n + degree + 1)) return control;
    std::vector<ardo::Point3> out;
    const double u0 = knots[degree], u1 = knots[n];
    const int steps = std::max(8, n * 8);
    std::vector<ardo::Point3> d(degree + 1);
    for (int s = 0; s <= steps; ++s) {
        const double u = u0 + (u1 - u0) * s / steps;
        int k = degree;
        while (k < n - 1 && u >= knots[k + 1]) ++k;
        std::copy(control.begin() + (k - degree), control.begin() + k + 1, d.begin());
        for (int r = 1; r <= degree; ++r)
            for (int j = degree; j >= r; --j) {
                const double span = knots[j + 1 + k - r] - knots[j + k - degree];
                const double alpha = span == 0 ? 0 : (u - knots[j + k - degree]) / span;
                for (int axis = 0; axis < 2; ++axis) d[j][axis] = (1 - alpha) * d[j - 1][axis] + alpha * d[j][axis];
            }
        out.push_back(d[degree]);
    }
    return out;
}

std::optional<Polyline> polylineOf(const Drawing& drawing, Handle entity, const std::vector<EntityTag>& tags) {
    if (tags.empty()) return std::nullopt;
    if (tags.front().value == "LWPOLYLINE") return lightweight(tags);
    if (tags.front().value == "POLYLINE") return heavy(drawing, entity, tags);
    return std::nullopt;
}

void appendArc(std::vector<ardo::Point3>& out, const Arc& arc, int circleSegments, bool reversed) {
    const double sweep = arc.end - arc.start;
    const int n = std::max(2, static_cast<int>(std::ceil(sweep / (2 * M_PI) * circleSegments)));
    for (int i = 1; i <= n; ++i) {
        const double t = static_cast<double>(i) / n;
        out.push_back(arc.pointAt(reversed ? arc.end - sweep * t : arc.start + sweep * t));
    }
}

void appendSpan(std::vector<ardo::Point3>& out, const ardo::Point3& from, const ardo::Point3& to, double bulge,
                int circleSegments) {
    const auto arc = bulgeArc(from, to, bulge);
    if (!arc) {
        out.push_back(to);
        return;
    }
    // A clockwise bulge is the counter-clockwise arc walked backwards.
    appendArc(out, *arc, circleSegments, bulge < 0);
    out.back() = to;   // exactly, not as the arc's rounding puts it
}

std::vector<Path> pathsOf(const Drawing& drawing, Handle entity, const std::vector<EntityTag>& tags,
                          int circleSegments) {
    if (tags.empty()) return {};
    const std::string& type = tags.front().value;
    const Groups g(tags);
    std::vector<Path> out;
    if (type == "LINE") {
        out.push_back({{g.point(10), g.point(11)}});
    } else if (type == "CIRCLE" || type == "ARC") {
        Arc arc{g.point(10), g.get(40), 0, 2 * M_PI};
        if (type == "ARC") {
            arc.start = g.get(50) * kDegree;
            arc.end = g.get(51, 360) * kDegree;
            while (arc.end <= arc.start) arc.end += 2 * M_PI;
        }
        Path path{{arc.pointAt(arc.start)}, type == "CIRCLE"};
        appendArc(path.points, arc, circleSegments);
        out.push_back(std::move(path));
    } else if (type == "ELLIPSE") {
        out.push_back({ellipsePoints(g, circleSegments)});
    } else if (const auto polyline = polylineOf(drawing, entity, tags)) {
        const auto& v = polyline->vertices;
        if (v.empty()) return {};
        Path path{{v.front().at}, polyline->closed && v.size() > 1};
        for (std::size_t i = 0; i + 1 < v.size(); ++i) appendSpan(path.points, v[i].at, v[i + 1].at, v[i].bulge, circleSegments);
        if (polyline->closed && v.size() > 1) {
            appendSpan(path.points, v.back().at, v.front().at, v.back().bulge, circleSegments);
            path.points.pop_back();   // the first point again: the path is closed
        }
        out.push_back(std::move(path));
    } else if (type == "SPLINE") {
        out.push_back({splinePoints(tags), (g.flags(70) & 1) != 0});
    } else if (type == "POINT") {
        out.push_back({{g.point(10)}});
    } else if (type == "SOLID" || type == "TRACE" || type == "3DFACE") {
        // The third and fourth corners of a solid are in zig-zag order.
        const bool solid = type != "3DFACE";
        out.push_back({{g.point(10), g.point(11), g.point(solid ? 13 : 12), g.point(solid ? 12 : 13)}, true, solid});
    } else {
        out = framePathsOf(drawing, tags);
    }
    for (const Path& p : out)
        if (p.points.empty()) return {};
    return out;
}

}  // namespace cadhost::geometry
