#include "cadhost/geometry/Picking.h"

#include <cmath>
#include <functional>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::geometry {

namespace {

void forEachModelShape(const Drawing& drawing, const std::function<void(Handle, const Shape&)>& visit) {
    drawing.forEachEntity([&](const EntityInfo& e) {
        if (e.space != Space::Model) return true;
        if (const auto shape = shapeOf(drawing, e.handle)) visit(e.handle, *shape);
        return true;
    });
}

}  // namespace

double pickAperture(const Drawing& drawing) {
    BoxBuilder all;
    drawing.forEachEntity([&](const EntityInfo& e) {
        if (e.space != Space::Model) return true;
        if (const auto box = drawing.extents(e.handle)) all.add(*box);
        return true;
    });
    if (!all.result()) return 0;
    const Extents& e = *all.result();
    return std::hypot(e.max[0] - e.min[0], e.max[1] - e.min[1]) / 200.0;
}

std::optional<Handle> pickAt(const Drawing& drawing, const ardo::Point3& point, double aperture) {
    std::optional<Handle> best;
    double bestDistance = aperture;
    forEachModelShape(drawing, [&](Handle h, const Shape& shape) {
        const double d = distanceTo(shape, point);
        if (d <= bestDistance) {
            best = h;
            bestDistance = d;
        }
    });
    return best;
}

std::vector<Handle> selectByPolygon(const Drawing& drawing, const Polygon& polygon, Region region) {
    std::vector<Handle> out;
    forEachModelShape(drawing, [&](Handle h, const Shape& shape) {
        if (region == Region::Window ? withinPolygon(shape, polygon) : crossesPolygon(shape, polygon)) out.push_back(h);
    });
    return out;
}

std::vector<Handle> selectByFence(const Drawing& drawing, const std::vector<ardo::Point3>& fence) {
    std::vector<Handle> out;
    forEachModelShape(drawing, [&](Handle h, const Shape& shape) {
        if (crossesFence(shape, fence)) out.push_back(h);
    });
    return out;
}

}  // namespace cadhost::geometry
