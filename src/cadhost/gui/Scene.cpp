#include "cadhost/gui/Scene.h"

#include <cmath>

#include "cadhost/colors/AciPalette.h"
#include "cadhost/gui/EntityShapes.h"

namespace cadhost::gui {

namespace {

double segmentDistance(Vec2 p, Vec2 a, Vec2 b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    double t = length2 == 0 ? 0 : ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2;
    t = std::clamp(t, 0.0, 1.0);
    return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

bool insidePolygon(Vec2 p, const std::vector<Vec2>& polygon) {
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Vec2 a = polygon[i], b = polygon[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

// Cohen-Sutherland style test: does the segment meet the box?
bool segmentMeetsBox(Vec2 a, Vec2 b, const Box2& box) {
    auto code = [&](Vec2 p) {
        return (p.x < box.x0 ? 1 : 0) | (p.x > box.x1 ? 2 : 0) | (p.y < box.y0 ? 4 : 0) | (p.y > box.y1 ? 8 : 0);
    };
    int ca = code(a), cb = code(b);
    for (int guard = 0; guard < 8; ++guard) {
        if (!(ca | cb)) return true;
        if (ca & cb) return false;
        const int out = ca ? ca : cb;
        Vec2 p;
        if (out & 8) p = {a.x + (b.x - a.x) * (box.y1 - a.y) / (b.y - a.y), box.y1};
        else if (out & 4) p = {a.x + (b.x - a.x) * (box.y0 - a.y) / (b.y - a.y), box.y0};
        else if (out & 2) p = {box.x1, a.y + (b.y - a.y) * (box.x1 - a.x) / (b.x - a.x)};
        else p = {box.x0, a.y + (b.y - a.y) * (box.x0 - a.x) / (b.x - a.x)};
        if (out == ca) a = p, ca = code(a);
        else b = p, cb = code(b);
    }
    return false;
}

// The box a text run covers, estimated from its height and longest line.
Box2 textBox(const Piece& p) {
    std::size_t longest = 0, lines = 1, current = 0;
    for (char c : p.text) {
        if (c == '\n') ++lines, current = 0;
        else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) longest = std::max(longest, ++current);
    }
    const double w = 0.7 * p.height * static_cast<double>(longest), h = p.height;
    const double c = std::cos(p.angle), s = std::sin(p.angle);
    const double down = -1.6 * h * static_cast<double>(lines - 1);
    Box2 box;
    for (Vec2 corner : {Vec2{0, down - 0.3 * h}, Vec2{w, down - 0.3 * h}, Vec2{0, h}, Vec2{w, h}})
        box.add(Vec2{p.points[0].x + corner.x * c - corner.y * s, p.points[0].y + corner.x * s + corner.y * c});
    return box;
}

Box2 pieceBox(const Piece& p) {
    if (p.kind == Piece::Kind::Text) return textBox(p);
    Box2 box;
    for (Vec2 v : p.points) box.add(v);
    return box;
}

}  // namespace

Scene::Scene(Drawing& drawing, Space space) : drawing_(drawing), space_(space) {
    rebuild();
    drawing_.addListener(*this);
}

Scene::~Scene() {
    if (attached_) drawing_.removeListener(*this);
}

void Scene::readLayers() {
    drawing_.forEachLayer([&](const ardo::LayerRecord& record) {
        SceneLayer& layer = layers_[layerIndex(record.name)];
        layer.name = record.name;
        layer.rgb = record.color.method == ardo::HostColor::Method::TrueColor ? record.color.rgb()
                                                                               : aciRgb(std::abs(record.color.index));
        layer.off = record.isOff;
        layer.frozen = record.isFrozen;
        layer.locked = record.isLocked;
        return true;
    });
}

int Scene::layerIndex(const std::string& name) {
    const std::string key = foldName(name);
    if (const auto it = layerByName_.find(key); it != layerByName_.end()) return it->second;
    const int index = static_cast<int>(layers_.size());
    layers_.push_back({name});
    layerByName_.emplace(key, index);
    return index;
}

void Scene::rebuild() {
    items_.clear();
    looks_.clear();
    itemByHandle_.clear();
    readLayers();
    Box2 bounds;
    drawing_.forEachEntity([&](const EntityInfo& info) {
        if (info.space != space_) return true;
        SceneItem item = itemOf(info.handle);
        bounds.add(item.box);
        itemByHandle_.emplace(info.handle, static_cast<std::uint32_t>(items_.size()));
        items_.push_back(std::move(item));
        return true;
    });
    looks_.assign(items_.size(), Look::Normal);
    grid_.reset(bounds, items_.size());
    for (std::uint32_t i = 0; i < items_.size(); ++i) grid_.insert(i, items_[i].box);
}

SceneItem Scene::itemOf(Handle handle) {
    EntityShapes shapes(drawing_, [this](const std::string& name) { return layerIndex(name); });
    SceneItem item{handle, {}, shapes.shapes(handle)};
    for (const Piece& p : item.pieces) item.box.add(pieceBox(p));
    return item;
}

void Scene::place(std::uint32_t index) { grid_.insert(index, items_[index].box); }

Box2 Scene::extents() const {
    Box2 box;
    for (const SceneItem& item : items_)
        if (itemShown(item)) box.add(item.box);
    return box;
}

bool Scene::itemShown(const SceneItem& item) const {
    for (const Piece& p : item.pieces)
        if (layers_[p.layer].shown()) return true;
    return false;
}

void Scene::visit(const Box2& area, const std::function<void(const SceneItem&, Look)>& draw) const {
    grid_.query(area, [&](std::uint32_t i) {
        const SceneItem& item = items_[i];
        if (looks_[i] == Look::Hidden || !item.box.intersects(area) || !itemShown(item)) return;
        draw(item, looks_[i]);
    });
}

std::optional<double> Scene::distance(const SceneItem& item, Vec2 at, double limit) const {
    std::optional<double> best;
    auto consider = [&](double d) {
        if (d <= limit && (!best || d < *best)) best = d;
    };
    for (const Piece& p : item.pieces) {
        if (!layers_[p.layer].shown()) continue;
        if (p.kind == Piece::Kind::Text) {
            const Box2 box = textBox(p);
            if (box.contains(Box2{at.x, at.y, at.x, at.y})) consider(0);
        } else if (p.kind == Piece::Kind::Fill && p.points.size() > 2 && insidePolygon(at, p.points)) {
            consider(0);
        } else if (p.points.size() == 1) {
            consider(std::hypot(at.x - p.points[0].x, at.y - p.points[0].y));
        } else {
            for (std::size_t k = 0; k + 1 < p.points.size(); ++k)
                consider(segmentDistance(at, p.points[k], p.points[k + 1]));
            if (p.closed || p.kind == Piece::Kind::Fill)
                consider(segmentDistance(at, p.points.back(), p.points.front()));
        }
    }
    return best;
}

std::optional<Handle> Scene::pick(Vec2 at, double tolerance) const {
    std::optional<Handle> found;
    double best = tolerance;
    const Box2 area{at.x - tolerance, at.y - tolerance, at.x + tolerance, at.y + tolerance};
    visit(area, [&](const SceneItem& item, Look) {
        if (const auto d = distance(item, at, best); d && (!found || *d < best)) {
            best = *d;
            found = item.handle;
        }
    });
    return found;
}

bool Scene::crosses(const SceneItem& item, const Box2& area) const {
    for (const Piece& p : item.pieces) {
        if (!layers_[p.layer].shown()) continue;
        if (p.kind == Piece::Kind::Text || p.points.size() == 1) {
            if (pieceBox(p).intersects(area)) return true;
            continue;
        }
        for (std::size_t k = 0; k + 1 < p.points.size(); ++k)
            if (segmentMeetsBox(p.points[k], p.points[k + 1], area)) return true;
        if ((p.closed || p.kind == Piece::Kind::Fill) && segmentMeetsBox(p.points.back(), p.points.front(), area))
            return true;
        if (p.kind == Piece::Kind::Fill && insidePolygon(Vec2{area.x0, area.y0}, p.points)) return true;
    }
    return false;
}

std::vector<Handle> Scene::select(const Box2& area, bool crossing) const {
    std::vector<std::pair<std::uint32_t, Handle>> found;
    grid_.query(area, [&](std::uint32_t i) {
        const SceneItem& item = items_[i];
        if (looks_[i] == Look::Hidden || item.box.empty() || !itemShown(item)) return;
        if (area.contains(item.box) || (crossing && item.box.intersects(area) && crosses(item, area)))
            found.push_back({i, item.handle});
    });
    // In drawing order, as the selection set lists them.
    std::sort(found.begin(), found.end());
    std::vector<Handle> out;
    for (const auto& f : found) out.push_back(f.second);
    return out;
}

bool Scene::setLook(Handle entity, Look look) {
    const auto it = itemByHandle_.find(entity);
    if (it == itemByHandle_.end()) return false;
    looks_[it->second] = look;
    return true;
}

Look Scene::look(Handle entity) const {
    const auto it = itemByHandle_.find(entity);
    return it == itemByHandle_.end() ? Look::Normal : looks_[it->second];
}

void Scene::clearLooks() { std::fill(looks_.begin(), looks_.end(), Look::Normal); }

void Scene::layerChanged(Change, const std::string&) {
    readLayers();
    if (changed_) changed_();
}

void Scene::entityChanged(Change change, std::uint64_t handle) {
    const auto info = change == Change::Erased ? std::nullopt : drawing_.entity(handle);
    if (info && info->space == Space::Block) {
        // A block's contents changed: every reference may look different.
        rebuild();
    } else if (const auto it = itemByHandle_.find(handle); it != itemByHandle_.end()) {
        items_[it->second] = info && info->space == space_ ? itemOf(handle) : SceneItem{handle, {}, {}};
        place(it->second);
    } else if (info && info->space == space_) {
        SceneItem item = itemOf(handle);
        const auto index = static_cast<std::uint32_t>(items_.size());
        itemByHandle_.emplace(handle, index);
        items_.push_back(std::move(item));
        looks_.push_back(Look::Normal);
        place(index);
    }
    if (changed_) changed_();
}

}  // namespace cadhost::gui
