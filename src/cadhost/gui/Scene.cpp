#include "cadhost/gui/Scene.h"

#include <cmath>

#include "cadhost/colors/AciPalette.h"
#include "cadhost/geometry/Linetypes.h"
#include "cadhost/geometry/Queries.h"
#include "cadhost/gui/EntityShapes.h"

namespace cadhost::gui {

namespace {

ardo::Point3 point3(Vec2 v) { return {v.x, v.y, 0}; }

// Calls `edge` for each line of a piece: chains joined, closed ones and each loop of a fill
// back to their first point, segments in pairs.
template <class F>
void forEachEdge(const Piece& p, F&& edge) {
    if (p.kind == Piece::Kind::Segments) {
        for (std::size_t k = 0; k + 1 < p.points.size(); k += 2) edge(p.points[k], p.points[k + 1]);
        return;
    }
    const bool closed = p.closed || p.kind == Piece::Kind::Fill;
    std::size_t begin = 0;
    for (std::size_t l = 0; l <= p.loops.size(); ++l) {
        const std::size_t end = l < p.loops.size() ? p.loops[l] : p.points.size();
        for (std::size_t k = begin; k + 1 < end; ++k) edge(p.points[k], p.points[k + 1]);
        if (closed && end - begin > 2) edge(p.points[end - 1], p.points[begin]);
        begin = end;
    }
}

// A piece's lines as the host measures entities.
geometry::Shape shapeOf(const Piece& p) {
    geometry::Shape shape;
    if (p.points.size() == 1) shape.points.push_back(point3(p.points.front()));
    else forEachEdge(p, [&](Vec2 a, Vec2 b) { shape.segments.push_back({point3(a), point3(b)}); });
    return shape;
}

// Inside a fill: within an odd number of its loops, so that loops inside loops are holes.
bool insideFill(const Piece& p, Vec2 at) {
    if (p.kind != Piece::Kind::Fill || p.points.size() < 3) return false;
    bool inside = false;
    std::size_t begin = 0;
    for (std::size_t l = 0; l <= p.loops.size(); ++l) {
        const std::size_t end = l < p.loops.size() ? p.loops[l] : p.points.size();
        geometry::Polygon loop;
        for (std::size_t k = begin; k < end; ++k) loop.push_back(point3(p.points[k]));
        if (loop.size() > 2 && geometry::insidePolygon(loop, point3(at))) inside = !inside;
        begin = end;
    }
    return inside;
}

// The box a text run covers, estimated from its height and longest line.
Box2 textBox(const Piece& p) {
    const TextExtent extent = textExtent(p.text);
    const double w = kCharacterAdvance * p.height * static_cast<double>(extent.longest), h = p.height;
    const double c = std::cos(p.angle), s = std::sin(p.angle);
    const double down = -kLineSpacing * h * static_cast<double>(extent.lines - 1);
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

Scene::Scene(Drawing& drawing, Space space, std::string block)
    : drawing_(drawing), space_(space), block_(foldName(block)) {
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
        layer.plottable = record.isPlottable;
        layer.dashes = pattern(record.linetype);
        layer.lineweight = record.lineweight;
        return true;
    });
}

const std::vector<double>& Scene::pattern(const std::string& linetype) {
    const std::string key = foldName(linetype);
    if (const auto it = patterns_.find(key); it != patterns_.end()) return it->second;
    auto found = geometry::linetypePattern(drawing_, linetype).value_or(std::vector<double>{});
    // A pattern with no length at all cannot be walked: it draws solid.
    double period = 0;
    for (double e : found) period += std::fabs(e);
    if (period <= 0) found.clear();
    return patterns_.emplace(key, std::move(found)).first->second;
}

void Scene::readVariables() {
    const auto scale = drawing_.getVar("LTSCALE");
    linetypeScale_ = scale && scale->real > 0 ? scale->real : 1.0;
    const auto display = drawing_.getVar("LWDISPLAY");
    lineweightsShown_ = display && display->integer != 0;
    const auto fallback = drawing_.getVar("LWDEFAULT");
    defaultLineweight_ = fallback && fallback->integer >= 0 ? static_cast<int>(fallback->integer) : 25;
}

void Scene::linetypeChanged(Change, const std::string&) {
    // Entities keep the patterns they were read with until the next regeneration.
    patterns_.clear();
    ++revision_;
    readLayers();
    if (changed_) changed_();
}

void Scene::variableChanged(const std::string& name) {
    if (name != "LTSCALE" && name != "LWDISPLAY" && name != "LWDEFAULT") return;
    ++revision_;
    readVariables();
    if (changed_) changed_();
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
    ++revision_;
    ++highlightRevision_;
    items_.clear();
    looks_.clear();
    highlighted_.clear();
    hidden_ = 0;
    itemByHandle_.clear();
    patterns_.clear();
    readVariables();
    readLayers();
    Box2 bounds;
    auto add = [&](Handle handle) {
        SceneItem item = itemOf(handle);
        bounds.add(item.box);
        itemByHandle_.emplace(handle, static_cast<std::uint32_t>(items_.size()));
        items_.push_back(std::move(item));
    };
    if (space_ == Space::Block) {
        if (const auto block = drawing_.blockContents(block_))
            for (Handle h : block->entities) add(h);
    } else {
        drawing_.forEachEntity([&](const EntityInfo& info) {
            if (info.space == space_) add(info.handle);
            return true;
        });
    }
    looks_.assign(items_.size(), Look::Normal);
    listed_.assign(items_.size(), false);
    grid_.reset(bounds, items_.size());
    for (std::uint32_t i = 0; i < items_.size(); ++i) grid_.insert(i, items_[i].box);
}

SceneItem Scene::itemOf(Handle handle) {
    EntityShapes shapes(
        drawing_, [this](const std::string& name) { return layerIndex(name); },
        [this](const std::string& name) -> const std::vector<double>& { return pattern(name); });
    SceneItem item{handle, {}, shapes.shapes(handle)};
    for (const Piece& p : item.pieces) item.box.add(pieceBox(p));
    return item;
}

bool Scene::shows(const EntityInfo& info) const {
    return info.space == space_ && (space_ != Space::Block || foldName(info.block) == block_);
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

void Scene::visitHighlighted(const Box2& area, const std::function<void(const SceneItem&)>& draw) const {
    std::size_t kept = 0;
    for (std::uint32_t i : highlighted_) {
        if (looks_[i] != Look::Highlighted) {
            listed_[i] = false;
            continue;
        }
        highlighted_[kept++] = i;
        const SceneItem& item = items_[i];
        if (item.box.intersects(area) && itemShown(item)) draw(item);
    }
    highlighted_.resize(kept);
}

const SceneItem* Scene::item(Handle entity) const {
    const std::uint32_t* index = itemByHandle_.find(entity);
    return index ? &items_[*index] : nullptr;
}

std::optional<double> Scene::distance(const SceneItem& item, Vec2 at, double limit) const {
    std::optional<double> best;
    auto consider = [&](double d) {
        if (d <= limit && (!best || d < *best)) best = d;
    };
    for (const Piece& p : item.pieces) {
        if (!layers_[p.layer].shown()) continue;
        if (p.kind == Piece::Kind::Text) {
            if (textBox(p).contains(Box2{at.x, at.y, at.x, at.y})) consider(0);
        } else if (insideFill(p, at)) {
            consider(0);
        } else {
            consider(geometry::distanceTo(shapeOf(p), point3(at)));
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
    const geometry::Polygon window = geometry::rectangle({area.x0, area.y0, 0}, {area.x1, area.y1, 0});
    for (const Piece& p : item.pieces) {
        if (!layers_[p.layer].shown()) continue;
        if (p.kind == Piece::Kind::Text || p.points.size() == 1) {
            if (pieceBox(p).intersects(area)) return true;
            continue;
        }
        // A window inside a fill meets it without touching an edge.
        if (geometry::crossesPolygon(shapeOf(p), window) || insideFill(p, Vec2{area.x0, area.y0})) return true;
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
    const std::uint32_t* index = itemByHandle_.find(entity);
    if (!index) return false;
    setLookAt(*index, look);
    return true;
}

void Scene::setLookAt(std::uint32_t i, Look look) {
    const Look old = looks_[i];
    if (old == look) return;
    looks_[i] = look;
    if (old == Look::Hidden || look == Look::Hidden) {
        ++revision_;
        hidden_ += look == Look::Hidden ? 1 : -1;
    }
    if (old == Look::Highlighted || look == Look::Highlighted) ++highlightRevision_;
    if (look == Look::Highlighted && !listed_[i]) {
        listed_[i] = true;
        highlighted_.push_back(i);
    }
}

void Scene::unhighlight(Handle entity) {
    if (const std::uint32_t* index = itemByHandle_.find(entity); index && looks_[*index] == Look::Highlighted)
        setLookAt(*index, Look::Normal);
}

Look Scene::look(Handle entity) const {
    const std::uint32_t* index = itemByHandle_.find(entity);
    return index ? looks_[*index] : Look::Normal;
}

void Scene::clearLooks() {
    if (hidden_ > 0) ++revision_;
    if (!highlighted_.empty()) ++highlightRevision_;
    std::fill(looks_.begin(), looks_.end(), Look::Normal);
    std::fill(listed_.begin(), listed_.end(), false);
    highlighted_.clear();
    hidden_ = 0;
}

void Scene::layerChanged(Change, const std::string&) {
    ++revision_;
    readLayers();
    if (changed_) changed_();
}

void Scene::entityChanged(Change change, std::uint64_t handle) {
    ++revision_;
    const auto info = change == Change::Erased ? std::nullopt : drawing_.entity(handle);
    const bool own = info && shows(*info);
    // A layout's block is never inserted: its entities change no reference.
    const bool layoutBlock = info && info->space == Space::Block && foldName(info->block).starts_with("*PAPER_SPACE");
    if (info && info->space == Space::Block && !own && !layoutBlock) {
        // A block's contents changed: every reference may look different.
        rebuild();
    } else if (const std::uint32_t* index = itemByHandle_.find(handle)) {
        const std::uint32_t at = *index;
        items_[at] = own ? itemOf(handle) : SceneItem{handle, {}, {}};
        place(at);
    } else if (own) {
        SceneItem item = itemOf(handle);
        const auto index = static_cast<std::uint32_t>(items_.size());
        itemByHandle_.emplace(handle, index);
        items_.push_back(std::move(item));
        looks_.push_back(Look::Normal);
        listed_.push_back(false);
        place(index);
    }
    if (changed_) changed_();
}

}  // namespace cadhost::gui
