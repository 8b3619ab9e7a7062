#include "cadhost/commands/Stretch.h"

#include <algorithm>

#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/EntityTransform.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::commands {

namespace {

bool inAny(const std::vector<geometry::Polygon>& regions, const ardo::Point3& p) {
    return std::any_of(regions.begin(), regions.end(), [&](const geometry::Polygon& r) { return geometry::insidePolygon(r, p); });
}

bool wholly(const geometry::Shape& shape, const std::vector<geometry::Polygon>& regions) {
    return std::any_of(regions.begin(), regions.end(), [&](const geometry::Polygon& r) { return geometry::withinPolygon(shape, r); });
}

// Moves each point of the entity's own data (x under `code`, y and z after it) that lies
// in a region; whether any did.
bool movePointsInside(std::vector<EntityTag>& tags, const std::vector<int>& codes,
                      const std::vector<geometry::Polygon>& regions, const ardo::Point3& by) {
    bool moved = false;
    for (std::size_t i = 0; i < tags.size() && tags[i].code != 1001; ++i) {
        if (std::find(codes.begin(), codes.end(), tags[i].code) == codes.end()) continue;
        const std::size_t y = i + 1;
        if (y >= tags.size() || tags[y].code != tags[i].code + 10) continue;
        const ardo::Point3 p{parseReal(tags[i].value).value_or(0), parseReal(tags[y].value).value_or(0), 0};
        if (!inAny(regions, p)) continue;
        tags[i].value = dxfNumber(p[0] + by[0]);
        tags[y].value = dxfNumber(p[1] + by[1]);
        moved = true;
    }
    return moved;
}

}  // namespace

void stretchEntities(const Context& context, const std::vector<Handle>& entities,
                     const std::vector<geometry::Polygon>& regions, const ardo::Point3& by) {
    Drawing& drawing = *context.drawing;
    std::vector<Handle> moving;
    for (Handle h : entities) {
        const auto shape = geometry::shapeOf(drawing, h);
        auto tags = drawing.entityTags(h);
        if (!shape || tags.empty()) continue;
        const std::string& type = tags.front().value;
        if (wholly(*shape, regions)) {
            moving.push_back(h);
        } else if (type == "LINE" || type == "LWPOLYLINE") {
            if (movePointsInside(tags, {10, 11}, regions, by)) drawing.modifyEntity(h, tags);
        } else if (type != "ARC" && type != "ELLIPSE" && type != "SPLINE" && type != "POLYLINE") {
            // Objects without stretchable ends go along with their defining point.
            const geometry::Groups groups(tags);
            if (inAny(regions, groups.point(10))) moving.push_back(h);
        }
    }
    transformEntities(context, moving, Transform::translation(by), false);
}

}  // namespace cadhost::commands
