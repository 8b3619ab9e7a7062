#include "cadhost/gui/DrawingView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace cadhost::gui {

namespace {

const QColor kBackground(0x21, 0x28, 0x30);
// Window selection blue, crossing green, as the common hosts show them.
const QColor kWindowFill(40, 90, 220, 60), kWindowEdge(90, 140, 255);
const QColor kCrossingFill(40, 200, 90, 60), kCrossingEdge(90, 230, 120);
constexpr double kPickPixels = 5;
constexpr double kDragPixels = 4;

// Moves an image's pixels by whole pixels; what is uncovered keeps old pixels until painted.
void shiftImage(QImage& image, int dx, int dy) {
    const int w = image.width(), h = image.height();
    const qsizetype line = image.bytesPerLine();
    const int bytes = 4 * (w - std::abs(dx));
    uchar* bits = image.bits();
    auto move = [&](int y) {
        const uchar* from = bits + static_cast<qsizetype>(y - dy) * line + 4 * std::max(0, -dx);
        uchar* to = bits + static_cast<qsizetype>(y) * line + 4 * std::max(0, dx);
        std::memmove(to, from, bytes);
    };
    // Rows are moved in the order that never reads a row already overwritten.
    if (dy > 0)
        for (int y = h - 1; y >= dy; --y) move(y);
    else
        for (int y = 0; y < h + dy; ++y) move(y);
}

}  // namespace

DrawingView::DrawingView(Drawing& drawing, Space space, QWidget* parent)
    : QWidget(parent), scene_(drawing, space) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
    setMinimumSize(200, 150);
    scene_.setChanged([this] { update(); });
}

Vec2 DrawingView::toWorld(QPointF s) const {
    return {centre_.x + (s.x() - width() / 2.0) / scale_, centre_.y - (s.y() - height() / 2.0) / scale_};
}

QPointF DrawingView::toScreen(Vec2 w) const {
    return {width() / 2.0 + (w.x - centre_.x) * scale_, height() / 2.0 - (w.y - centre_.y) * scale_};
}

Box2 DrawingView::visibleArea() const {
    Box2 box;
    box.add(toWorld(QPointF(0, 0)));
    box.add(toWorld(QPointF(width(), height())));
    return box;
}

void DrawingView::rememberView() {
    previous_.push_back({centre_, scale_});
    if (previous_.size() > 10) previous_.erase(previous_.begin());
}

void DrawingView::zoomExtents() {
    fitted_ = true;
    // A margin of 5 % on each side.
    fit(layout_ ? layout_->extents() : scene_.extents(), 0.9);
}

void DrawingView::zoomWindow(const Box2& area) { fit(area, 1); }

void DrawingView::fit(const Box2& box, double fill) {
    rememberView();
    if (box.empty()) {
        centre_ = {0, 0};
        scale_ = 1;
    } else {
        centre_ = {(box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2};
        const double w = std::max(box.x1 - box.x0, 1e-9), h = std::max(box.y1 - box.y0, 1e-9);
        scale_ = std::clamp(fill * std::min(width() / w, height() / h), 1e-9, 1e12);
    }
    update();
}

void DrawingView::zoomAt(double factor, QPointF screen) {
    const Vec2 anchor = toWorld(screen);
    scale_ = std::clamp(scale_ * factor, 1e-9, 1e12);
    const Vec2 moved = toWorld(screen);
    centre_.x += anchor.x - moved.x;
    centre_.y += anchor.y - moved.y;
    update();
}

void DrawingView::panBy(QPointF pixels) {
    centre_.x -= pixels.x() / scale_;
    centre_.y += pixels.y() / scale_;
    update();
}

bool DrawingView::zoomPrevious() {
    // The last view remembered is the one shown before the latest zoom.
    if (previous_.empty()) return false;
    centre_ = previous_.back().centre;
    scale_ = previous_.back().scale;
    previous_.pop_back();
    update();
    return true;
}

void DrawingView::setSelection(std::vector<Handle> entities) {
    selection_ = std::move(entities);
    selected_ = {selection_.begin(), selection_.end()};
    ++selectionRevision_;
    update();
}

void DrawingView::clearSelection() { setSelection({}); }

void DrawingView::resizeEvent(QResizeEvent*) {
    if (!fitted_) zoomExtents();
}

ViewTransform DrawingView::transform() const {
    return {width() / 2.0 - centre_.x * scale_, height() / 2.0 + centre_.y * scale_, scale_};
}

void DrawingView::refreshPicture() {
    // Highlights on a layout cut their gaps in the sheet's white.
    const ScenePainter painter(shown(), layout_ ? QColor(Qt::white) : kBackground);
    const ViewTransform now = transform();
    const std::uint64_t revision = layout_ ? layout_->revision(scene_) : scene_.revision();
    bool current = drawing_.size() == size() && drawingRevision_ == revision && drawn_.scale == now.scale;
    // A layout is painted whole: its sheet and viewports do not shift in strips.
    if (layout_ && current) current = drawn_.left == now.left && drawn_.top == now.top;
    if (current && (drawn_.left != now.left || drawn_.top != now.top)) {
        const double dx = now.left - drawn_.left, dy = now.top - drawn_.top;
        const int ix = static_cast<int>(std::lround(dx)), iy = static_cast<int>(std::lround(dy));
        // Only a whole-pixel move smaller than the view keeps what was painted.
        current = std::fabs(dx - ix) < 1e-3 && std::fabs(dy - iy) < 1e-3 && std::abs(ix) < width() && std::abs(iy) < height();
        if (current) {
            picture_ = QImage();   // shares the pixels: let go, so the shift copies nothing
            shiftImage(drawing_, ix, iy);
            const int w = width(), h = height();
            if (ix > 0) painter.paintDrawing(drawing_, QRect(0, 0, ix, h), now);
            if (ix < 0) painter.paintDrawing(drawing_, QRect(w + ix, 0, -ix, h), now);
            if (iy > 0) painter.paintDrawing(drawing_, QRect(0, 0, w, iy), now);
            if (iy < 0) painter.paintDrawing(drawing_, QRect(0, h + iy, w, -iy), now);
            drawn_ = now;
            pictureStale_ = true;
        }
    }
    if (!current) {
        drawing_ = QImage(size(), QImage::Format_RGB32);
        if (layout_) {
            QPainter onto(&drawing_);
            paintLayout(onto, drawing_.rect(), now, *layout_, scene_);
        } else {
            painter.paintDrawing(drawing_, drawing_.rect(), now);
        }
        drawn_ = now;
        drawingRevision_ = revision;
        pictureStale_ = true;
    }
    if (highlightRevision_ != shown().highlightRevision() || shownSelection_ != selectionRevision_)
        pictureStale_ = true;
    if (!pictureStale_) return;
    picture_ = drawing_;
    highlightRevision_ = shown().highlightRevision();
    shownSelection_ = selectionRevision_;
    pictureStale_ = false;
    if (shown().anyHighlighted() || !selected_.empty()) painter.paintHighlights(picture_, now, selected_);
}

void DrawingView::paintEvent(QPaintEvent*) {
    refreshPicture();
    QPainter painter(this);
    painter.drawImage(0, 0, picture_);
    drawRubberBand(painter);
}

void DrawingView::drawRubberBand(QPainter& painter) {
    if (windowFrom_) {
        const bool crossing = mouse_.x() < windowFrom_->x();
        QPen pen(crossing ? kCrossingEdge : kWindowEdge);
        pen.setStyle(crossing ? Qt::DashLine : Qt::SolidLine);
        painter.setPen(pen);
        painter.setBrush(crossing ? kCrossingFill : kWindowFill);
        painter.drawRect(QRectF(*windowFrom_, mouse_).normalized());
        return;
    }
    const commands::InputRequest request = input_.request ? input_.request() : commands::InputRequest{};
    if (request.kind != commands::InputRequest::Kind::Point || !request.from) return;
    const QPointF from = toScreen({(*request.from)[0], (*request.from)[1]});
    painter.setPen(QPen(Qt::white, 0, Qt::SolidLine));
    painter.setBrush(Qt::NoBrush);
    if (request.rectangle) painter.drawRect(QRectF(from, mouse_).normalized());
    else painter.drawLine(from, mouse_);
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    const double steps = event->angleDelta().y() / 120.0;
    if (steps != 0) zoomAt(std::pow(1.25, steps), event->position());
    event->accept();
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    setFocus();
    if (event->button() == Qt::MiddleButton) {
        panFrom_ = event->position();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    mouse_ = event->position();
    dragged_ = false;
    if (windowFrom_) {
        finishWindow(event->position(), event->modifiers().testFlag(Qt::ShiftModifier));
        return;
    }
    click(event->position(), event->modifiers().testFlag(Qt::ShiftModifier));
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (panFrom_) {
        panBy(at - *panFrom_);
        panFrom_ = at;
    }
    if (windowFrom_ && (at - *windowFrom_).manhattanLength() > kDragPixels) dragged_ = true;
    mouse_ = at;
    if (input_.cursor) input_.cursor(toWorld(at));
    const auto request = input_.request ? input_.request() : commands::InputRequest{};
    if (windowFrom_ || request.from) update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        panFrom_.reset();
        setCursor(Qt::CrossCursor);
        return;
    }
    // A window dragged open ends where the button is let go; a click leaves it open for
    // the second corner.
    if (event->button() == Qt::LeftButton && windowFrom_ && dragged_)
        finishWindow(event->position(), event->modifiers().testFlag(Qt::ShiftModifier));
}

void DrawingView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        windowFrom_.reset();
        clearSelection();
        if (input_.cancel) input_.cancel();
        return;
    }
    if (input_.typed && !event->text().isEmpty()) {
        input_.typed(event);
        return;
    }
    QWidget::keyPressEvent(event);
}

void DrawingView::click(QPointF at, bool shift) {
    const auto request = input_.request ? input_.request() : commands::InputRequest{};
    if (request.kind == commands::InputRequest::Kind::Point) {
        if (input_.point) input_.point(toWorld(at));
        return;
    }
    const auto hit = shown().pick(toWorld(at), kPickPixels / scale_);
    if (hit || (input_.singlePick && input_.singlePick())) {
        hand(hit ? std::vector<Handle>{*hit} : std::vector<Handle>{}, at, shift);
        return;
    }
    windowFrom_ = at;
    update();
}

void DrawingView::finishWindow(QPointF at, bool shift) {
    const QPointF from = *windowFrom_;
    windowFrom_.reset();
    Box2 area;
    area.add(toWorld(from));
    area.add(toWorld(at));
    hand(shown().select(area, at.x() < from.x()), at, shift);
    update();
}

void DrawingView::hand(const std::vector<Handle>& found, QPointF at, bool remove) {
    const auto request = input_.request ? input_.request() : commands::InputRequest{};
    if (request.kind == commands::InputRequest::Kind::Objects) {
        if (input_.objects) input_.objects(found, toWorld(at), remove);
        return;
    }
    // No prompt asks: the picks make the selection that a later command or the layers
    // toolbar works on.
    std::vector<Handle> next;
    for (Handle h : selection_)
        if (!remove || std::find(found.begin(), found.end(), h) == found.end()) next.push_back(h);
    if (!remove)
        for (Handle h : found)
            if (!selected_.count(h)) next.push_back(h);
    setSelection(std::move(next));
}

}  // namespace cadhost::gui
