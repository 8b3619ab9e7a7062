// The view's spaces (model space and the layouts) and what ZOOM and PAN ask of it.
#include "cadhost/gui/DrawingView.h"

#include <algorithm>

namespace cadhost::gui {

void DrawingView::forgetDrawing() {
    scene_.forgetDrawing();
    if (layout_) layout_->paper().forgetDrawing();
}

void DrawingView::showLayout(std::optional<Layout> layout) {
    if (!layout && !layout_) return;
    if (layout && layout_ && layout->block == layout_->layout().block) return;
    // Model space and the layouts keep their views apart: the one left is kept for coming
    // back, and a layout shown for the first time shows its whole sheet.
    const bool fromModel = !layout_;
    SpaceView left{centre_, scale_, fitted_, std::move(previous_)};
    if (fromModel || !layout) {
        centre_ = otherSpace_.centre;
        scale_ = otherSpace_.scale;
        fitted_ = otherSpace_.fitted;
        previous_ = std::move(otherSpace_.previous);
        otherSpace_ = std::move(left);
    }
    if (layout_) layout_->paper().setChanged({});
    layout_.reset();
    if (layout) {
        layout_ = std::make_unique<LayoutScene>(scene_.drawing(), std::move(*layout));
        layout_->paper().setChanged([this] { update(); });
        // Another layout than the one before starts at its sheet.
        if (!fromModel) fitted_ = false;
    }
    clearSelection();
    // A view not shown yet fits its space when it gets its size.
    if (!fitted_ && isVisible()) {
        zoomExtents();
        previous_.clear();
    }
    update();
}

void DrawingView::zoomWindow(const ardo::Point3& a, const ardo::Point3& b) {
    Box2 area;
    area.add(Vec2{a[0], a[1]});
    area.add(Vec2{b[0], b[1]});
    zoomWindow(area);
}

void DrawingView::zoomCenter(const ardo::Point3& centre, std::optional<double> height) {
    rememberView();
    centre_ = {centre[0], centre[1]};
    if (height && *height > 0) scale_ = std::clamp(this->height() / *height, 1e-9, 1e12);
    update();
}

void DrawingView::zoomScale(double factor, bool relative) {
    // "2X" shows half of what is shown now, twice as large; a bare 2 the drawing's
    // extents at twice the size.
    const Box2 box = relative ? visibleArea() : (layout_ ? layout_->extents() : scene_.extents());
    if (box.empty()) return;
    const double cx = (box.x0 + box.x1) / 2, cy = (box.y0 + box.y1) / 2;
    const double hw = (box.x1 - box.x0) / 2 / factor, hh = (box.y1 - box.y0) / 2 / factor;
    zoomWindow(Box2{cx - hw, cy - hh, cx + hw, cy + hh});
}

void DrawingView::pan(const ardo::Point3& from, const ardo::Point3& to) {
    // The drawing moves with the displacement, as a drag of the view does; ZOOM Previous
    // comes back.
    rememberView();
    panBy(QPointF((to[0] - from[0]) * scale_, -(to[1] - from[1]) * scale_));
}

double DrawingView::viewHeight() const { return height() / scale_; }

}  // namespace cadhost::gui
