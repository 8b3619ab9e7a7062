#include "cadhost/commands/CurveEdits.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "cadhost/commands/EntityTransform.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::commands {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

void setPoint(std::vector<EntityTag>& tags, int code, const ardo::Point3& p) {
    for (int i = 0; i < 3; ++i) setGroupNumber(tags, code + 10 * i, p[static_cast<std::size_t>(i)]);
}

// Handles and owners belong to the entity copied from, not to the copy.
std::vector<EntityTag> withoutIdentity(std::vector<EntityTag> tags) {
    std::erase_if(tags, [](const EntityTag& t) { return t.code == 5 || t.code == 330; });
    return tags;
}

}  // namespace

double Curve::span() const { return kind == Kind::Line ? 1.0 : arc.end - arc.start; }

double Curve::parameterOf(const ardo::Point3& p) const {
    if (kind == Kind::Line) {
        const double dx = b[0] - a[0], dy = b[1] - a[1];
        const double length2 = dx * dx + dy * dy;
        return length2 == 0 ? 0 : ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / length2;
    }
    return normalizedAngle(std::atan2(p[1] - arc.center[1], p[0] - arc.center[0]) - arc.start);
}

ardo::Point3 Curve::pointAt(double t) const {
    if (kind == Kind::Line) return {a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), a[2] + t * (b[2] - a[2])};
    return arc.pointAt(arc.start + t);
}

Curve Curve::piece(double from, double to) const {
    Curve out = *this;
    if (kind == Kind::Line) {
        out.a = pointAt(from);
        out.b = pointAt(to);
        return out;
    }
    out.kind = Kind::Arc;
    out.arc.start = arc.start + from;
    out.arc.end = arc.start + to;
    return out;
}

geometry::Shape Curve::shape() const {
    geometry::Shape s;
    if (kind == Kind::Line) s.segments.push_back({a, b});
    else s.arcs.push_back(arc);
    return s;
}

std::optional<Curve> curveOf(const std::vector<EntityTag>& tags) {
    if (tags.empty()) return std::nullopt;
    const geometry::Groups groups(tags);
    const std::string& type = tags.front().value;
    Curve curve;
    if (type == "LINE") {
        curve.a = groups.point(10);
        curve.b = groups.point(11);
        return curve;
    }
    if (type != "ARC" && type != "CIRCLE") return std::nullopt;
    curve.arc.center = groups.point(10);
    curve.arc.radius = groups.get(40);
    if (type == "CIRCLE") {
        curve.kind = Curve::Kind::Circle;
        curve.arc.end = kTwoPi;
        return curve;
    }
    curve.kind = Curve::Kind::Arc;
    curve.arc.start = normalizedAngle(groups.get(50) * std::numbers::pi / 180);
    curve.arc.end = curve.arc.start + normalizedAngle(groups.get(51) * std::numbers::pi / 180 - curve.arc.start);
    if (curve.arc.end <= curve.arc.start) curve.arc.end += kTwoPi;
    return curve;
}

std::vector<EntityTag> curveTags(std::vector<EntityTag> tags, const Curve& curve) {
    if (curve.kind == Curve::Kind::Line) {
        setPoint(tags, 10, curve.a);
        setPoint(tags, 11, curve.b);
        return tags;
    }
    setPoint(tags, 10, curve.arc.center);
    setGroupNumber(tags, 40, curve.arc.radius);
    if (curve.kind == Curve::Kind::Circle) return tags;
    if (tags.front().value == "CIRCLE") {
        tags.front().value = "ARC";
        // The arc's own data follow the circle's under their own subclass marker.
        const auto radius = std::find_if(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 40; });
        const bool markers = std::any_of(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 100; });
        auto at = radius == tags.end() ? radius : radius + 1;
        at = tags.insert(at, {{50, "0.0"}, {51, "0.0"}});
        if (markers) tags.insert(at, EntityTag{100, "AcDbArc"});
    }
    setGroupNumber(tags, 50, normalizedAngle(curve.arc.start) * 180 / std::numbers::pi);
    setGroupNumber(tags, 51, normalizedAngle(curve.arc.end) * 180 / std::numbers::pi);
    return tags;
}

void EditLog::modify(Handle entity, const std::vector<EntityTag>& tags) {
    auto before = drawing_.entityTags(entity);
    if (drawing_.modifyEntity(entity, tags) != ardo::DbStatus::Ok) return;
    if (actions_.empty()) beginAction();
    actions_.back().push_back({Change::What::Modified, entity, std::move(before)});
}

std::optional<Handle> EditLog::make(const std::vector<EntityTag>& tags) {
    const auto made = drawing_.makeEntity(tags);
    if (!made) return std::nullopt;
    if (actions_.empty()) beginAction();
    actions_.back().push_back({Change::What::Made, *made, {}});
    return made;
}

void EditLog::erase(Handle entity) {
    if (drawing_.eraseEntity(entity) != ardo::DbStatus::Ok) return;
    if (actions_.empty()) beginAction();
    actions_.back().push_back({Change::What::Erased, entity, {}});
}

std::optional<Handle> EditLog::replace(Handle entity, const Curve& curve) {
    const auto tags = drawing_.entityTags(entity);
    auto changed = curveTags(tags, curve);
    if (changed.front().value == tags.front().value) {
        modify(entity, changed);
        return entity;
    }
    const auto made = make(withoutIdentity(std::move(changed)));
    if (made) erase(entity);
    return made;
}

std::optional<Handle> EditLog::copyWith(Handle entity, const Curve& curve) {
    return make(withoutIdentity(curveTags(drawing_.entityTags(entity), curve)));
}

bool EditLog::undo() {
    while (!actions_.empty() && actions_.back().empty()) actions_.pop_back();
    if (actions_.empty()) return false;
    const auto& changes = actions_.back();
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        switch (change->what) {
            case Change::What::Modified: drawing_.modifyEntity(change->entity, change->before); break;
            case Change::What::Made: drawing_.eraseEntity(change->entity); break;
            case Change::What::Erased: drawing_.restoreEntity(change->entity); break;
        }
    }
    actions_.pop_back();
    return true;
}

}  // namespace cadhost::commands
