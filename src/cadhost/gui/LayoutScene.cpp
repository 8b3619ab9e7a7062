#include "cadhost/gui/LayoutScene.h"

#include <QPainter>
#include <algorithm>
#include <unordered_set>

#include "base/CaseFold.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::gui {

namespace {

const QColor kTable(0x8A, 0x8E, 0x94), kShadow(0x4A, 0x4D, 0x52), kSheet(Qt::white), kPrintable(0xA0, 0xA0, 0xA0);
constexpr int kShadowPixels = 4;

bool isActiveLayout(const Layout& layout) { return ardo::equalsNoCase(layout.block, "*Paper_Space"); }

Box2 box(const SheetArea& area) { return area.empty() ? Box2{} : Box2{area.x0, area.y0, area.x1, area.y1}; }

QRectF pixels(const ViewTransform& view, const Box2& b) {
    return QRectF(QPointF(view.x(b.x0), view.y(b.y1)), QPointF(view.x(b.x1), view.y(b.y0)));
}

ViewportView viewportOf(const Drawing& drawing, Handle handle) {
    const auto tags = drawing.entityTags(handle);
    const geometry::Groups g(tags);
    ViewportView v;
    v.handle = handle;
    const double cx = g.get(10), cy = g.get(20), w = g.get(40), h = g.get(41);
    v.frame = {cx - w / 2, cy - h / 2, cx + w / 2, cy + h / 2};
    v.viewCentre = {g.get(12), g.get(22)};
    const double viewHeight = g.get(45);
    v.scale = viewHeight > 0 ? h / viewHeight : 1;
    v.on = static_cast<long long>(g.get(68, 1)) != 0;
    v.frozenLayers = drawing.viewportFrozenLayers(handle);
    return v;
}

}  // namespace

Vec2 ViewportView::toPaper(Vec2 model) const {
    return {(frame.x0 + frame.x1) / 2 + (model.x - viewCentre.x) * scale,
            (frame.y0 + frame.y1) / 2 + (model.y - viewCentre.y) * scale};
}

Vec2 ViewportView::toModel(Vec2 paper) const {
    return {viewCentre.x + (paper.x - (frame.x0 + frame.x1) / 2) / scale,
            viewCentre.y + (paper.y - (frame.y0 + frame.y1) / 2) / scale};
}

std::vector<bool> ViewportView::frozenMask(const Scene& model) const {
    std::vector<bool> mask;
    if (frozenLayers.empty()) return mask;
    std::unordered_set<std::string> frozen;
    for (const std::string& name : frozenLayers) frozen.insert(foldName(name));
    for (const SceneLayer& layer : model.layers()) mask.push_back(frozen.count(foldName(layer.name)) != 0);
    return mask;
}

LayoutScene::LayoutScene(Drawing& drawing, Layout layout)
    : drawing_(drawing),
      layout_(std::move(layout)),
      paper_(drawing, isActiveLayout(layout_) ? Space::Paper : Space::Block,
             isActiveLayout(layout_) ? "" : layout_.block) {}

const std::vector<ViewportView>& LayoutScene::viewports() const {
    if (viewportsRead_ == paper_.revision()) return viewports_;
    viewportsRead_ = paper_.revision();
    viewports_.clear();
    const std::string block = foldName(layout_.block);
    const bool active = isActiveLayout(layout_);
    for (Handle h : drawing_.viewports()) {
        const auto info = drawing_.entity(h);
        const bool inLayout = info && (active ? info->space == Space::Paper
                                              : info->space == Space::Block && foldName(info->block) == block);
        if (!inLayout) continue;
        // The layout's own viewport (ID 1) is the sheet itself.
        const auto tags = drawing_.entityTags(h);
        if (static_cast<long long>(geometry::Groups(tags).get(69, 1)) <= 1) continue;
        ViewportView v = viewportOf(drawing_, h);
        if (!v.frame.empty() && v.frame.x1 > v.frame.x0 && v.frame.y1 > v.frame.y0) viewports_.push_back(std::move(v));
    }
    return viewports_;
}

Box2 LayoutScene::extents() const {
    Box2 out = box(layout_.paper);
    out.add(paper_.extents());
    return out;
}

ViewTransform throughViewport(const ViewTransform& paper, const ViewportView& v) {
    const double cx = (v.frame.x0 + v.frame.x1) / 2, cy = (v.frame.y0 + v.frame.y1) / 2;
    return {paper.left + (cx - v.viewCentre.x * v.scale) * paper.scale,
            paper.top - (cy - v.viewCentre.y * v.scale) * paper.scale, v.scale * paper.scale};
}

void paintLayout(QPainter& painter, const QRect& target, const ViewTransform& view, const LayoutScene& layout,
                 const Scene& model) {
    if (target.isEmpty()) return;
    // Painted into an image of the target's size: the scene painter writes pixels.
    QImage image(target.size(), QImage::Format_RGB32);
    const ViewTransform local{view.left - target.left(), view.top - target.top(), view.scale};
    {
        QPainter sheet(&image);
        sheet.fillRect(image.rect(), kTable);
        const Box2 paper = box(layout.layout().paper);
        if (!paper.empty()) {
            const QRectF r = pixels(local, paper);
            sheet.fillRect(r.translated(kShadowPixels, kShadowPixels), kShadow);
            sheet.fillRect(r, kSheet);
            const Box2 printable = box(layout.layout().printable);
            if (!printable.empty() && (printable.x0 != paper.x0 || printable.y1 != paper.y1)) {
                sheet.setPen(QPen(kPrintable, 0, Qt::DashLine));
                sheet.setBrush(Qt::NoBrush);
                sheet.drawRect(pixels(local, printable));
            }
        }
    }
    for (const ViewportView& v : layout.viewports()) {
        if (!v.on) continue;
        // Rounded, not widened: what lies beyond the border is not drawn.
        const QRect clip = pixels(local, v.frame).toRect().intersected(image.rect());
        if (clip.isEmpty()) continue;
        const ViewTransform through = throughViewport(local, v);
        ScenePainter inside(model, kSheet);
        if (!v.frozenLayers.empty()) inside.setFrozenLayers(v.frozenMask(model));
        inside.paintDrawing(image, clip, through);
    }
    ScenePainter(layout.paper(), kSheet).paintEntities(image, image.rect(), local);
    painter.drawImage(target.topLeft(), image);
}

ViewTransform sheetTransform(const Layout& layout, const QRect& target) {
    const Box2 paper = box(layout.paper);
    if (paper.empty() || target.isEmpty())
        return {static_cast<double>(target.left()), static_cast<double>(target.bottom()), 1};
    const double scale = std::min(target.width() / (paper.x1 - paper.x0), target.height() / (paper.y1 - paper.y0));
    // Centred in the target.
    const double left = target.left() + (target.width() - (paper.x1 - paper.x0) * scale) / 2 - paper.x0 * scale;
    const double top = target.top() + (target.height() - (paper.y1 - paper.y0) * scale) / 2 + paper.y1 * scale;
    return {left, top, scale};
}

}  // namespace cadhost::gui
