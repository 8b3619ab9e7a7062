#include "cadhost/geometry/AreaOutline.h"

#include <algorithm>
#include <cmath>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::geometry {

namespace {

using Ring = std::vector<std::array<double, 2>>;

// Twice the signed area of the ring, counter-clockwise positive.
double twiceSignedArea(const Ring& ring) {
    double sum = 0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        sum += ring[i][0] * ring[i + 1][1] - ring[i + 1][0] * ring[i][1];
    return sum;
}

void addArcPoints(Ring& ring, const Arc& arc, bool counterClockwise) {
    const double sweep = arc.end - arc.start;
    const int steps = std::max(1, static_cast<int>(std::ceil(sweep / (kArcStepDegrees * M_PI / 180.0))));
    // The arc runs counter-clockwise from start; a clockwise bulge walks it from its end.
    for (int i = 1; i < steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        const ardo::Point3 p = arc.pointAt(counterClockwise ? arc.start + t * sweep : arc.end - t * sweep);
        ring.push_back({p[0], p[1]});
    }
}

std::optional<AreaOutline> outlineOf(const std::vector<Vertex>& vertices) {
    AreaOutline outline;
    double twiceArea = 0, arcSegments = 0;
    const std::size_t n = vertices.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Vertex& from = vertices[i];
        const Vertex& to = vertices[(i + 1) % n];
        outline.ring.push_back({from.at[0], from.at[1]});
        twiceArea += from.at[0] * to.at[1] - to.at[0] * from.at[1];
        if (const auto arc = bulgeArc(from.at, to.at, from.bulge)) {
            addArcPoints(outline.ring, *arc, from.bulge > 0);
            // The circular segment between chord and arc, on the side the bulge says.
            const double sweep = arc->end - arc->start;
            arcSegments += std::copysign(arc->radius * arc->radius / 2 * (sweep - std::sin(sweep)), from.bulge);
        }
    }
    if (outline.ring.empty()) return std::nullopt;
    outline.ring.push_back(outline.ring.front());
    outline.area = std::abs(twiceArea / 2 + arcSegments);
    const double ringArea = twiceSignedArea(outline.ring);
    // Collinear or repeated points enclose nothing, whatever the float noise says.
    double extent = 0;
    for (const auto& p : outline.ring) extent = std::max({extent, std::abs(p[0]), std::abs(p[1])});
    if (outline.ring.size() < 4 || std::abs(ringArea) <= 1e-12 * std::max(1.0, extent * extent)) return std::nullopt;
    if (ringArea > 0) std::reverse(outline.ring.begin(), outline.ring.end());
    return outline;
}

std::vector<Vertex> circleVertices(const ardo::Point3& centre, double radius) {
    // Two half circles: a bulge of 1 is a semicircle.
    return {{{centre[0] - radius, centre[1], centre[2]}, 1}, {{centre[0] + radius, centre[1], centre[2]}, 1}};
}

// 3D polylines, meshes and polyface meshes are no outlines in the xy plane.
constexpr int kNotFlat = 8 | 16 | 64;

}  // namespace

std::optional<AreaOutline> areaOutlineOf(const Drawing& drawing, Handle entity) {
    const auto info = drawing.entity(entity);
    if (!info) return std::nullopt;
    const std::vector<EntityTag> tags = drawing.entityTags(entity);
    const Groups groups(tags);
    if (info->type == "LWPOLYLINE" || (info->type == "POLYLINE" && (groups.flags(70) & kNotFlat) == 0)) {
        const auto polyline = polylineOf(drawing, entity, tags);
        return polyline && polyline->closed ? outlineOf(polyline->vertices) : std::nullopt;
    }
    if (info->type == "CIRCLE") {
        const double radius = groups.get(40);
        if (radius <= 0) return std::nullopt;
        return outlineOf(circleVertices(groups.point(10), radius));
    }
    return std::nullopt;
}

}  // namespace cadhost::geometry
