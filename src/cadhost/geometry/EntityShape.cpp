#include <cmath>
#include <string>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Paths.h"
#include "cadhost/geometry/Queries.h"
#include "cadhost/geometry/Shape.h"

namespace cadhost::geometry {

namespace {

constexpr double kDegree = M_PI / 180.0;
// Chords of a full circle for curves measured along their points (ellipses, splines).
constexpr int kMeasureSegments = 144;

Shape polylineShape(const Polyline& polyline) {
    Shape shape;
    const auto& v = polyline.vertices;
    if (v.size() == 1) shape.points.push_back(v.front().at);
    const std::size_t n = v.size();
    const std::size_t spans = polyline.closed ? n : (n == 0 ? 0 : n - 1);
    for (std::size_t i = 0; i < spans; ++i) {
        const Vertex& from = v[i];
        const Vertex& to = v[(i + 1) % n];
        if (auto arc = bulgeArc(from.at, to.at, from.bulge)) shape.arcs.push_back(*arc);
        else shape.segments.push_back({from.at, to.at});
    }
    return shape;
}

Shape pathShape(const std::vector<Path>& paths) {
    Shape shape;
    for (const Path& p : paths) {
        if (p.points.size() == 1) shape.points.push_back(p.points.front());
        for (std::size_t i = 0; i + 1 < p.points.size(); ++i) shape.segments.push_back({p.points[i], p.points[i + 1]});
        if (p.closed && p.points.size() > 2) shape.segments.push_back({p.points.back(), p.points.front()});
    }
    return shape;
}

Shape boxShape(const Extents& e) {
    Shape shape;
    const Polygon corners = rectangle(e.min, e.max);
    for (std::size_t i = 0; i < corners.size(); ++i)
        shape.segments.push_back({corners[i], corners[(i + 1) % corners.size()]});
    return shape;
}

}  // namespace

ardo::Point3 Arc::pointAt(double angle) const {
    return {center[0] + radius * std::cos(angle), center[1] + radius * std::sin(angle), center[2]};
}

bool Arc::covers(double angle) const {
    double a = std::fmod(angle - start, 2 * M_PI);
    if (a < 0) a += 2 * M_PI;
    return a <= end - start + 1e-12;
}

std::optional<Arc> bulgeArc(const ardo::Point3& from, const ardo::Point3& to, double bulge) {
    const double chord = std::hypot(to[0] - from[0], to[1] - from[1]);
    if (std::abs(bulge) < 1e-12 || chord == 0) return std::nullopt;
    const double sweep = 4 * std::atan(bulge);   // signed
    const double radius = chord / (2 * std::sin(std::abs(sweep) / 2));
    // Centre: from the chord's middle, along its normal, by the sagitta's complement.
    const double mx = (from[0] + to[0]) / 2, my = (from[1] + to[1]) / 2;
    const double toCentre = radius * std::cos(sweep / 2) * (sweep > 0 ? 1 : -1);
    const double nx = -(to[1] - from[1]) / chord, ny = (to[0] - from[0]) / chord;
    Arc arc;
    arc.center = {mx + nx * toCentre, my + ny * toCentre, from[2]};
    arc.radius = radius;
    const double a0 = std::atan2(from[1] - arc.center[1], from[0] - arc.center[0]);
    const double a1 = std::atan2(to[1] - arc.center[1], to[0] - arc.center[0]);
    // Arcs run counter-clockwise; a clockwise bulge is the same arc from the other end.
    arc.start = sweep > 0 ? a0 : a1;
    arc.end = arc.start + std::abs(sweep);
    return arc;
}

std::optional<Shape> shapeOf(const Drawing& drawing, Handle entity) {
    const auto info = drawing.entity(entity);
    if (!info) return std::nullopt;
    const std::vector<EntityTag> tags = drawing.entityTags(entity);
    const Groups g(tags);
    Shape shape;
    if (info->type == "LINE") {
        shape.segments.push_back({g.point(10), g.point(11)});
    } else if (info->type == "CIRCLE" || info->type == "ARC") {
        Arc arc{g.point(10), g.get(40), 0, 2 * M_PI};
        if (info->type == "ARC") {
            arc.start = g.get(50) * kDegree;
            arc.end = g.get(51) * kDegree;
            while (arc.end <= arc.start) arc.end += 2 * M_PI;
        }
        shape.arcs.push_back(arc);
    } else if (info->type == "POINT") {
        shape.points.push_back(g.point(10));
    } else if (const auto polyline = polylineOf(drawing, entity, tags)) {
        shape = polylineShape(*polyline);
    } else if (auto paths = pathsOf(drawing, entity, tags, kMeasureSegments); !paths.empty()) {
        shape = pathShape(paths);
    } else if (const auto box = drawing.extents(entity)) {
        shape = boxShape(*box);
    }
    if (shape.empty()) return std::nullopt;
    return shape;
}

}  // namespace cadhost::geometry
