// Entities drawn as outlines: leaders with their arrowheads, raster images and wipeouts
// as their frames, floating viewports as their borders.
#include <cmath>

#include "cadhost/dxf/TagValue.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::geometry {

namespace {

using ardo::Point3;

// The header's value when the drawing has it, else the common hosts' default.
double headerReal(const Drawing& drawing, const char* name, double fallback) {
    const auto value = drawing.getVar(name);
    return value && value->restype == ardo::RTREAL ? value->real : fallback;
}

// DIMASZ times DIMSCALE; a DIMSCALE of 0 (scaled to the layout) counts as 1.
double arrowSize(const Drawing& drawing, const Groups& leader) {
    double size = headerReal(drawing, "DIMASZ", 0.18), scale = headerReal(drawing, "DIMSCALE", 1);
    if (const std::string* style = leader.text(3)) {
        const auto tags = drawing.tableRecordTags("DIMSTYLE", *style);
        if (!tags.empty()) {
            const Groups record(tags);
            size = record.get(41, size);
            scale = record.get(40, scale);
        }
    }
    return size * (scale > 0 ? scale : 1);
}

std::vector<Path> leaderPaths(const Drawing& drawing, const std::vector<EntityTag>& tags) {
    std::vector<Point3> vertices;
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (tags[i].code == 10) {
            Point3 p{toDouble(tags[i].value), 0, 0};
            if (i + 1 < tags.size() && tags[i + 1].code == 20) p[1] = toDouble(tags[i + 1].value);
            vertices.push_back(p);
        }
    if (vertices.size() < 2) return {};
    const Groups g(tags);
    std::vector<Path> out{{vertices}};
    if (static_cast<int>(g.get(71, 1)) == 0) return out;   // no arrowhead
    // A closed filled arrow: its tip on the first vertex, pointing away from the second,
    // a third as wide as it is long.
    const double size = arrowSize(drawing, g);
    const double dx = vertices[1][0] - vertices[0][0], dy = vertices[1][1] - vertices[0][1];
    const double length = std::hypot(dx, dy);
    if (!(size > 0) || length == 0) return out;
    const double ux = dx / length, uy = dy / length, half = size / 6;
    const Point3 tip = vertices[0];
    const Point3 base{tip[0] + ux * size, tip[1] + uy * size, tip[2]};
    const Point3 left{base[0] - uy * half, base[1] + ux * half, base[2]};
    const Point3 right{base[0] + uy * half, base[1] - ux * half, base[2]};
    out.push_back({{tip, left, right}, true, true});
    return out;
}

// Insertion point, U and V vectors (one pixel each) and the size in pixels.
std::vector<Path> imageFrame(const Groups& g) {
    const Point3 at = g.point(10), u = g.point(11), v = g.point(12);
    const double w = g.get(13, 1), h = g.get(23, 1);
    auto corner = [&](double a, double b) {
        return Point3{at[0] + u[0] * a + v[0] * b, at[1] + u[1] * a + v[1] * b, at[2] + u[2] * a + v[2] * b};
    };
    return {{{corner(0, 0), corner(w, 0), corner(w, h), corner(0, h)}, true}};
}

}  // namespace

std::vector<Path> framePathsOf(const Drawing& drawing, const std::vector<EntityTag>& tags) {
    if (tags.empty()) return {};
    const std::string& type = tags.front().value;
    const Groups g(tags);
    if (type == "LEADER") return leaderPaths(drawing, tags);
    if (type == "IMAGE" || type == "WIPEOUT") return imageFrame(g);
    if (type == "VIEWPORT") {
        // The layout's own viewport is the sheet, which the layout draws itself.
        if (static_cast<long long>(g.get(69, 1)) <= 1) return {};
        const Point3 c = g.point(10);
        const double w = g.get(40) / 2, h = g.get(41) / 2;
        if (!(w > 0 && h > 0)) return {};
        const std::vector<Point3> border{
            {c[0] - w, c[1] - h, c[2]}, {c[0] + w, c[1] - h, c[2]}, {c[0] + w, c[1] + h, c[2]}, {c[0] - w, c[1] + h, c[2]}};
        return {{border, true}};
    }
    return {};
}

}  // namespace cadhost::geometry
