#include "cadhost/gui/DrawingView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace cadhost::gui {

namespace {

const QColor kBackground(0x21, 0x28, 0x30);
// Window selection blue, crossing green, as the common hosts show them.
const QColor kWindowFill(40, 90, 220, 60), kWindowEdge(90, 140, 255);
const QColor kCrossingFill(40, 200, 90, 60), kCrossingEdge(90, 230, 120);
constexpr double kPickPixels = 5;
constexpr double kDragPixels = 4;
// The cap height of a text is about this part of the font's pixel size.
constexpr double kCapHeight = 0.72;

QColor shown(std::uint32_t rgb, bool faded) {
    const std::uint32_t c = screenColor(rgb);
    QColor color((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
    if (!faded) return color;
    // A locked layer's entities blend halfway into the background.
    return QColor((color.red() + kBackground.red()) / 2, (color.green() + kBackground.green()) / 2,
                  (color.blue() + kBackground.blue()) / 2);
}

}  // namespace

std::uint32_t screenColor(std::uint32_t rgb) { return (rgb & 0xFFFFFF) == 0 ? 0xFFFFFF : rgb; }

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
    fit(scene_.extents(), 0.9);
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
    update();
}

void DrawingView::clearSelection() { setSelection({}); }

void DrawingView::resizeEvent(QResizeEvent*) {
    if (!fitted_) zoomExtents();
}

void DrawingView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), kBackground);
    drawScene(painter);
    drawRubberBand(painter);
}

void DrawingView::drawScene(QPainter& painter) {
    const auto& layers = scene_.layers();
    QPolygonF polygon;
    QPen pen;
    pen.setCosmetic(true);
    std::uint32_t penKey = ~0u;
    const double left = width() / 2.0 - centre_.x * scale_, top = height() / 2.0 + centre_.y * scale_;
    auto screen = [&](Vec2 w) { return QPointF(left + w.x * scale_, top - w.y * scale_); };
    QFont font("DejaVu Sans");
    painter.setBrush(Qt::NoBrush);

    scene_.visit(visibleArea(), [&](const SceneItem& item, Look look) {
        const bool highlighted = look == Look::Highlighted || (!selected_.empty() && selected_.count(item.handle));
        const bool tiny = (item.box.x1 - item.box.x0) * scale_ < 1 && (item.box.y1 - item.box.y0) * scale_ < 1;
        for (const Piece& p : item.pieces) {
            const SceneLayer& layer = layers[p.layer];
            if (!layer.shown()) continue;
            const std::uint32_t rgb = p.color.byLayer ? layer.rgb : p.color.rgb;
            // One key per pen: colour, fading and dashing.
            const std::uint32_t key = (rgb & 0xFFFFFF) | (layer.locked ? 1u << 24 : 0) | (highlighted ? 1u << 25 : 0);
            if (key != penKey) {
                penKey = key;
                pen.setColor(shown(rgb, layer.locked));
                pen.setStyle(highlighted ? Qt::DashLine : Qt::SolidLine);
                painter.setPen(pen);
            }
            if (tiny) {
                painter.drawPoint(screen(p.points.front()));
                break;
            }
            switch (p.kind) {
            case Piece::Kind::Dot:
                for (Vec2 v : p.points) painter.drawPoint(screen(v));
                break;
            case Piece::Kind::Stroke:
            case Piece::Kind::Fill:
                polygon.resize(static_cast<int>(p.points.size()));
                for (std::size_t i = 0; i < p.points.size(); ++i) polygon[static_cast<int>(i)] = screen(p.points[i]);
                if (p.kind == Piece::Kind::Fill) {
                    painter.setBrush(pen.color());
                    painter.drawPolygon(polygon);
                    painter.setBrush(Qt::NoBrush);
                } else if (p.closed) {
                    painter.drawPolygon(polygon);
                } else {
                    painter.drawPolyline(polygon);
                }
                break;
            case Piece::Kind::Text: {
                const double pixels = p.height * scale_ / kCapHeight;
                const QPointF at = screen(p.points.front());
                if (pixels < 3) {
                    painter.drawPoint(at);
                    break;
                }
                painter.save();
                painter.translate(at);
                painter.rotate(-p.angle * 180.0 / M_PI);
                font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
                painter.setFont(font);
                const QStringList lines = QString::fromStdString(p.text).split('\n');
                for (int i = 0; i < lines.size(); ++i) painter.drawText(QPointF(0, i * 1.6 * p.height * scale_), lines[i]);
                painter.restore();
                break;
            }
            }
        }
    });
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
    const auto hit = scene_.pick(toWorld(at), kPickPixels / scale_);
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
    hand(scene_.select(area, at.x() < from.x()), at, shift);
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
