#include "cadhost/gui/ScenePainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>

#include "cadhost/gui/PixelCanvas.h"

namespace cadhost::gui {

namespace {

// The cap height of a text is about this part of the font's pixel size.
constexpr double kCapHeight = 0.72;
// Texts smaller than this many pixels every way are a dot; up to the next, a line where
// each of their lines stands.
constexpr double kTextDotPixels = 3, kTextLinePixels = 7;
// Highlighted lines show dashed: gaps of the background cut into them. Fills and texts,
// which gaps would not mark, get a dashed outline of this colour.
constexpr std::uint32_t kHighlight = 0xFF5AB4FF;
constexpr int kGap = 3, kDash = 5;
// A linetype whose pattern repeats within this many pixels draws solid: its dashes would
// not show, and walking them would cost more than the line.
constexpr double kSolidPeriod = 1.5;
// Pixels a millimetre of lineweight takes on a screen of 96 dots an inch.
constexpr double kPixelsPerMillimetre = 96 / 25.4;

QColor shown(std::uint32_t rgb, bool faded, QColor background) {
    const std::uint32_t c = background.lightness() > 127 ? paperColor(rgb) : screenColor(rgb);
    QColor color((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
    if (!faded) return color;
    // A locked layer's entities blend halfway into the background.
    return QColor((color.red() + background.red()) / 2, (color.green() + background.green()) / 2,
                  (color.blue() + background.blue()) / 2);
}

struct Deferred {
    const Piece* piece;
    QColor color;
};

// Draws one item's pieces: hair lines at once, fills and large texts queued for a painter.
class ItemDrawer {
public:
    ItemDrawer(const Scene& scene, PixelCanvas& canvas, const ViewTransform& view, QColor background,
               const std::vector<bool>* frozen = nullptr)
        : layers_(scene.layers()), frozen_(frozen), canvas_(canvas), view_(view), background_(background),
          linetypeScale_(scene.linetypeScale()), lineweights_(scene.lineweightsShown()),
          defaultLineweight_(scene.defaultLineweight()) {}

    std::vector<Deferred> fills, texts;

    void draw(const SceneItem& item, bool highlight) {
        const double s = view_.scale;
        const bool tiny = (item.box.x1 - item.box.x0) * s < 1 && (item.box.y1 - item.box.y0) * s < 1;
        across_ = std::max(item.box.x1 - item.box.x0, item.box.y1 - item.box.y0) * s;
        for (const Piece& p : item.pieces) {
            const SceneLayer& layer = layers_[p.layer];
            const bool frozenHere = frozen_ && static_cast<std::size_t>(p.layer) < frozen_->size() && (*frozen_)[p.layer];
            if (!layer.shown() || frozenHere) continue;
            const std::uint32_t rgb = p.color.byLayer ? layer.rgb : p.color.rgb;
            QColor color = shown(rgb, layer.locked, background_);
            canvas_.setWidth(lineweights_ ? pixelWidth(p.line.weight, layer) : 1);
            dashes_.clear();
            if (!highlight) usePattern(p, layer);
            if (highlight) {
                // A dot has no length to dash: it takes the colour.
                const bool outlined = p.kind == Piece::Kind::Fill || p.kind == Piece::Kind::Text;
                const bool dot = tiny || p.kind == Piece::Kind::Dot;
                canvas_.setColor(outlined || dot ? kHighlight : background_.rgba());
                canvas_.setDash(dot ? 0 : outlined ? kDash : kGap, kDash);
            } else {
                canvas_.setColor(color.rgba());
            }
            if (tiny) {
                canvas_.dot(view_.x(p.points.front().x), view_.y(p.points.front().y));
                return;
            }
            switch (p.kind) {
            case Piece::Kind::Dot:
                for (Vec2 v : p.points) canvas_.dot(view_.x(v.x), view_.y(v.y));
                break;
            case Piece::Kind::Fill:
                if (highlight) outline(p);
                else fills.push_back({&p, color});
                break;
            case Piece::Kind::Segments:
                for (std::size_t k = 0; k + 1 < p.points.size(); k += 2) {
                    canvas_.restartDash();
                    canvas_.line(view_.x(p.points[k].x), view_.y(p.points[k].y), view_.x(p.points[k + 1].x),
                                 view_.y(p.points[k + 1].y));
                }
                break;
            case Piece::Kind::Stroke:
                chain(p.points, p.closed);
                break;
            case Piece::Kind::Text:
                text(p, color, highlight);
                break;
            }
        }
    }

private:
    int pixelWidth(int weight, const SceneLayer& layer) const {
        if (weight == -1) weight = layer.lineweight;
        if (weight < 0) weight = defaultLineweight_;
        return std::max(1, static_cast<int>(std::lround(weight / 100.0 * kPixelsPerMillimetre)));
    }

    // The piece's dash pattern in pixels, or none when it is solid or too fine to show.
    void usePattern(const Piece& p, const SceneLayer& layer) {
        const std::vector<double>& pattern = p.line.dashesByLayer ? layer.dashes : p.line.dashes;
        if (pattern.empty()) return;
        const double scale = p.line.dashScale * linetypeScale_ * view_.scale;
        double period = 0;
        for (double e : pattern) period += std::fabs(e) * scale;
        if (!(period >= kSolidPeriod)) return;
        for (double e : pattern) dashes_.push_back(e * scale);
    }

    void restartPattern() {
        canvas_.restartDash();
        dash_ = 0;
        if (!dashes_.empty()) dashLeft_ = std::fabs(dashes_[0]);
    }

    // One line of a chain, cut into the pattern's dashes, gaps and dots; the pattern runs
    // on into the next line.
    void stroke(double x0, double y0, double x1, double y1) {
        if (dashes_.empty()) return canvas_.line(x0, y0, x1, y1);
        const double length = std::hypot(x1 - x0, y1 - y0);
        const double ux = length > 0 ? (x1 - x0) / length : 0, uy = length > 0 ? (y1 - y0) / length : 0;
        double at = 0;
        for (;;) {
            const double element = dashes_[dash_];
            const double step = std::min(dashLeft_, length - at);
            if (element > 0 && step > 0)
                canvas_.line(x0 + ux * at, y0 + uy * at, x0 + ux * (at + step), y0 + uy * (at + step));
            else if (element == 0)
                canvas_.dot(x0 + ux * at, y0 + uy * at);
            at += step;
            dashLeft_ -= step;
            if (dashLeft_ > 0) return;   // the line ends inside this element
            dash_ = (dash_ + 1) % dashes_.size();
            dashLeft_ = std::fabs(dashes_[dash_]);
        }
    }

    // Each loop of a fill.
    void outline(const Piece& p) {
        std::size_t begin = 0;
        for (std::size_t l = 0; l <= p.loops.size(); ++l) {
            const std::size_t end = l < p.loops.size() ? p.loops[l] : p.points.size();
            if (end > begin) chain(std::vector<Vec2>(p.points.begin() + begin, p.points.begin() + end), true);
            begin = end;
        }
    }

    // A chain of lines; points closer than a pixel to the last one drawn are passed over.
    void chain(const std::vector<Vec2>& points, bool closed) {
        restartPattern();
        double lx = view_.x(points.front().x), ly = view_.y(points.front().y);
        const double fx = lx, fy = ly;
        if (points.size() == 1) canvas_.dot(lx, ly);
        // A curve a few pixels across needs few of its points: about three per pixel across.
        const std::size_t enough = static_cast<std::size_t>(std::max(8.0, 3 * across_));
        const std::size_t stride = points.size() > enough ? points.size() / enough : 1;
        for (std::size_t i = stride; i < points.size() + stride - 1; i += stride) {
            if (i >= points.size()) i = points.size() - 1;   // the last point always
            const double x = view_.x(points[i].x), y = view_.y(points[i].y);
            if (i + 1 < points.size() && std::fabs(x - lx) < 1 && std::fabs(y - ly) < 1) continue;
            stroke(lx, ly, x, y);
            lx = x, ly = y;
        }
        if (closed && points.size() > 2) stroke(lx, ly, fx, fy);
    }

    void text(const Piece& p, QColor color, bool highlight) {
        const double pixels = p.height * view_.scale / kCapHeight;
        const double x = view_.x(p.points.front().x), y = view_.y(p.points.front().y);
        if (pixels >= kTextLinePixels && !highlight) {
            texts.push_back({&p, color});
            return;
        }
        const TextExtent extent = textExtent(p.text);
        const double width = kCharacterAdvance * p.height * static_cast<double>(extent.longest) * view_.scale;
        const double depth = kLineSpacing * p.height * view_.scale * static_cast<double>(extent.lines - 1);
        // Only a text that is small every way is a dot: a paragraph of small lines still
        // shows where its lines run.
        if (pixels < kTextDotPixels && width < kTextDotPixels && depth < kTextDotPixels) {
            canvas_.dot(x, y);
            return;
        }
        // Each line of the text as a stroke along its base line, as long as the text runs.
        const double c = std::cos(p.angle), s = std::sin(p.angle);
        const double rise = highlight ? p.height * view_.scale * 0.5 : 0;
        for (std::size_t i = 0; i < extent.lines; ++i) {
            const double down = kLineSpacing * p.height * view_.scale * static_cast<double>(i) - rise;
            // Down the text on screen: (sin, cos), as the screen's y grows downwards.
            const double x0 = x + down * s, y0 = y + down * c;
            canvas_.restartDash();
            canvas_.line(x0, y0, x0 + width * c, y0 - width * s);
        }
    }

    const std::vector<SceneLayer>& layers_;
    const std::vector<bool>* frozen_;   // a viewport's frozen layers, when drawn through one
    double across_ = 0;   // the item's size on screen, in pixels
    PixelCanvas& canvas_;
    const ViewTransform& view_;
    QColor background_;
    double linetypeScale_;
    bool lineweights_;
    int defaultLineweight_;
    std::vector<double> dashes_;   // the current piece's pattern in pixels; empty is solid
    std::size_t dash_ = 0;
    double dashLeft_ = 0;
};

void paintDeferred(QImage& image, QRect clip, const ViewTransform& view, const std::vector<Deferred>& fills,
                   const std::vector<Deferred>& texts) {
    if (fills.empty() && texts.empty()) return;
    QPainter painter(&image);
    painter.setClipRect(clip);
    painter.setPen(Qt::NoPen);
    QPolygonF polygon;
    for (const Deferred& d : fills) {
        const Piece& p = *d.piece;
        painter.setBrush(d.color);
        if (p.loops.empty()) {
            polygon.resize(static_cast<int>(p.points.size()));
            for (std::size_t i = 0; i < p.points.size(); ++i)
                polygon[static_cast<int>(i)] = QPointF(view.x(p.points[i].x), view.y(p.points[i].y));
            painter.drawPolygon(polygon);
            continue;
        }
        painter.drawPath(fillPath(p, view));
    }
    painter.setBrush(Qt::NoBrush);
    for (const Deferred& d : texts) paintText(painter, *d.piece, d.color, view);
}

}  // namespace

QPainterPath fillPath(const Piece& p, const ViewTransform& view) {
    // Several loops: those inside others are holes.
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    std::size_t begin = 0;
    for (std::size_t l = 0; l <= p.loops.size(); ++l) {
        const std::size_t end = l < p.loops.size() ? p.loops[l] : p.points.size();
        for (std::size_t i = begin; i < end; ++i) {
            const QPointF at(view.x(p.points[i].x), view.y(p.points[i].y));
            if (i == begin) path.moveTo(at);
            else path.lineTo(at);
        }
        path.closeSubpath();
        begin = end;
    }
    return path;
}

void paintText(QPainter& painter, const Piece& p, QColor color, const ViewTransform& view) {
    const double pixels = p.height * view.scale / kCapHeight;
    painter.save();
    painter.setPen(color);
    painter.translate(view.x(p.points.front().x), view.y(p.points.front().y));
    // A turned painter draws glyphs as paths; upright text keeps the glyph cache.
    if (p.angle != 0) painter.rotate(-p.angle * 180.0 / M_PI);
    QFont font("DejaVu Sans");
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    painter.setFont(font);
    const QStringList lines = QString::fromStdString(p.text).split('\n');
    for (int i = 0; i < lines.size(); ++i) painter.drawText(QPointF(0, i * kLineSpacing * p.height * view.scale), lines[i]);
    painter.restore();
}

std::uint32_t screenColor(std::uint32_t rgb) { return (rgb & 0xFFFFFF) == 0 ? 0xFFFFFF : rgb; }
std::uint32_t paperColor(std::uint32_t rgb) { return (rgb & 0xFFFFFF) == 0xFFFFFF ? 0 : rgb; }

Box2 ViewTransform::world(const QRect& r) const {
    Box2 box;
    box.add(Vec2{(r.left() - 1 - left) / scale, (top - (r.bottom() + 2)) / scale});
    box.add(Vec2{(r.right() + 2 - left) / scale, (top - (r.top() - 1)) / scale});
    return box;
}

void ScenePainter::paintDrawing(QImage& image, QRect clip, const ViewTransform& view) const {
    clip = clip.intersected(image.rect());
    if (clip.isEmpty()) return;
    {
        QPainter painter(&image);
        painter.fillRect(clip, background_);
    }
    paintEntities(image, clip, view);
}

void ScenePainter::paintEntities(QImage& image, QRect clip, const ViewTransform& view) const {
    clip = clip.intersected(image.rect());
    if (clip.isEmpty()) return;
    PixelCanvas canvas(image, clip);
    ItemDrawer drawer(scene_, canvas, view, background_, &frozen_);
    scene_.visit(view.world(clip), [&](const SceneItem& item, Look) { drawer.draw(item, false); });
    paintDeferred(image, clip, view, drawer.fills, drawer.texts);
}

void ScenePainter::paintHighlights(QImage& image, const ViewTransform& view,
                                   const std::unordered_set<Handle>& selected) const {
    PixelCanvas canvas(image, image.rect());
    ItemDrawer drawer(scene_, canvas, view, background_);
    const Box2 area = view.world(image.rect());
    scene_.visitHighlighted(area, [&](const SceneItem& item) { drawer.draw(item, true); });
    for (Handle h : selected)
        if (const SceneItem* item = scene_.item(h); item && item->box.intersects(area) && scene_.look(h) == Look::Normal)
            drawer.draw(*item, true);
}

}  // namespace cadhost::gui
