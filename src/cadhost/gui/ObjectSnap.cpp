#include "cadhost/gui/ObjectSnap.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace cadhost::gui {

using geometry::SnapKind;

namespace {

// The marker's half size in pixels, and its colour: the common hosts' snap yellow.
constexpr double kMarker = 6;
const QColor kMarkerColor(255, 210, 0);
const QColor kTipFill(255, 255, 225), kTipText(20, 20, 20);
// More entities than this near the cursor (a dense hatch) are not all measured: the nearest
// boxes are enough to snap to.
constexpr std::size_t kMostSources = 64;

double distance(const ardo::Point3& p, Vec2 q) { return std::hypot(p[0] - q.x, p[1] - q.y); }

// Whether `a` wins over `b` for the cursor: any snap over the nearest point on an object,
// then the closer.
bool better(const geometry::SnapPoint& a, const std::optional<geometry::SnapPoint>& b, Vec2 cursor) {
    if (!b) return true;
    const bool aNearest = a.kind == SnapKind::Nearest, bNearest = b->kind == SnapKind::Nearest;
    if (aNearest != bNearest) return bNearest;
    return distance(a.at, cursor) < distance(b->at, cursor);
}

bool anyPieceShown(const SceneItem& item, const std::vector<bool>& frozen) {
    if (frozen.empty()) return true;
    return std::any_of(item.pieces.begin(), item.pieces.end(), [&](const Piece& piece) {
        return piece.layer < 0 || static_cast<std::size_t>(piece.layer) >= frozen.size() || !frozen[piece.layer];
    });
}

bool inside(const Box2& frame, Vec2 p) { return p.x >= frame.x0 && p.x <= frame.x1 && p.y >= frame.y0 && p.y <= frame.y1; }

}  // namespace

bool ObjectSnap::takeOverride(const std::string& typed) {
    if (geometry::isNoSnapOverride(typed)) {
        override_ = 0;
        return true;
    }
    const auto kind = geometry::snapOverride(typed);
    if (!kind) return false;
    override_ = static_cast<int>(*kind);
    return true;
}

TrackedPoint ObjectSnap::track(const Scene& model, const LayoutScene* layout, const Drawing& drawing, Vec2 cursor,
                               double scale, const SnapSettings& settings,
                               const std::optional<ardo::Point3>& from) const {
    int kinds = override_ ? *override_ : settings.osmode;
    if (!override_ && (kinds & geometry::kSnapsOff)) kinds = 0;
    kinds &= ~geometry::kSnapsOff;
    if (kinds != 0 && scale > 0) {
        const double radius = settings.aperture / scale;
        if (const auto snap = layout ? findSnapOnSheet(*layout, model, drawing, cursor, radius, kinds, from)
                                     : findSnap(model, drawing, cursor, radius, kinds, from))
            return {{snap->at[0], snap->at[1]}, snap->kind};
    }
    if (settings.ortho && from) return {orthoPoint(*from, cursor), std::nullopt};
    return {cursor, std::nullopt};
}

std::optional<geometry::SnapPoint> findSnap(const Scene& scene, const Drawing& drawing, Vec2 cursor, double radius,
                                            int kinds, const std::optional<ardo::Point3>& from,
                                            const std::vector<bool>& frozen) {
    Box2 reach;
    reach.add(Vec2{cursor.x - radius, cursor.y - radius});
    reach.add(Vec2{cursor.x + radius, cursor.y + radius});
    std::vector<Handle> near;
    scene.visit(reach, [&](const SceneItem& item, Look) {
        if (anyPieceShown(item, frozen)) near.push_back(item.handle);
    });
    if (near.size() > kMostSources) {
        const auto gap = [&](Handle h) {
            const Box2& b = scene.item(h)->box;
            return std::hypot(std::max({b.x0 - cursor.x, 0.0, cursor.x - b.x1}), std::max({b.y0 - cursor.y, 0.0, cursor.y - b.y1}));
        };
        std::nth_element(near.begin(), near.begin() + kMostSources, near.end(),
                         [&](Handle a, Handle b) { return gap(a) < gap(b); });
        near.resize(kMostSources);
    }
    std::vector<geometry::SnapSource> sources;
    for (Handle h : near)
        if (auto source = geometry::snapSourceOf(drawing, h)) sources.push_back(std::move(*source));

    const ardo::Point3 at{cursor.x, cursor.y, 0};
    std::optional<geometry::SnapPoint> best, nearest;
    const auto consider = [&](const geometry::SnapPoint& p) {
        const double d = distance(p.at, cursor);
        if (d > radius) return;
        auto& slot = p.kind == SnapKind::Nearest ? nearest : best;
        if (!slot || d < distance(slot->at, cursor)) slot = p;
    };
    for (const auto& source : sources)
        for (const auto& p : geometry::snapPoints(source, kinds, at, from)) consider(p);
    if (kinds & static_cast<int>(SnapKind::Intersection))
        for (std::size_t i = 0; i < sources.size(); ++i)
            for (std::size_t j = i + 1; j < sources.size(); ++j)
                for (const auto& p : geometry::snapIntersections(sources[i], sources[j]))
                    consider({SnapKind::Intersection, p});
    return best ? best : nearest;
}

std::optional<geometry::SnapPoint> findSnapOnSheet(const LayoutScene& layout, const Scene& model,
                                                   const Drawing& drawing, Vec2 cursor, double radius, int kinds,
                                                   const std::optional<ardo::Point3>& from) {
    auto found = findSnap(layout.paper(), drawing, cursor, radius, kinds, from);
    for (const ViewportView& v : layout.viewports()) {
        if (!v.on || v.scale <= 0 || !inside(v.frame, cursor)) continue;
        std::optional<ardo::Point3> base;
        if (from) {
            const Vec2 m = v.toModel({(*from)[0], (*from)[1]});
            base = ardo::Point3{m.x, m.y, (*from)[2]};
        }
        const auto through = findSnap(model, drawing, v.toModel(cursor), radius / v.scale, kinds, base, v.frozenMask(model));
        if (!through) continue;
        const Vec2 onSheet = v.toPaper({through->at[0], through->at[1]});
        // What lies beyond the viewport's border is not seen there.
        if (!inside(v.frame, onSheet)) continue;
        const geometry::SnapPoint mapped{through->kind, {onSheet.x, onSheet.y, 0}};
        if (better(mapped, found, cursor)) found = mapped;
    }
    return found;
}

Vec2 orthoPoint(const ardo::Point3& from, Vec2 at) {
    if (std::fabs(at.x - from[0]) >= std::fabs(at.y - from[1])) return {at.x, from[1]};
    return {from[0], at.y};
}

void paintSnapMarker(QPainter& painter, QPointF at, SnapKind kind) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(kMarkerColor, 2));
    painter.setBrush(Qt::NoBrush);
    const double m = kMarker;
    const QRectF box(at.x() - m, at.y() - m, 2 * m, 2 * m);
    switch (kind) {
    case SnapKind::Endpoint: painter.drawRect(box); break;
    case SnapKind::Midpoint:
        painter.drawPolygon(QPolygonF({QPointF(at.x(), at.y() - m), QPointF(at.x() + m, at.y() + m), QPointF(at.x() - m, at.y() + m)}));
        break;
    case SnapKind::Center: painter.drawEllipse(box); break;
    case SnapKind::Node:
        painter.drawEllipse(box);
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    case SnapKind::Quadrant:
        painter.drawPolygon(QPolygonF({QPointF(at.x(), at.y() - m), QPointF(at.x() + m, at.y()), QPointF(at.x(), at.y() + m), QPointF(at.x() - m, at.y())}));
        break;
    case SnapKind::Intersection:
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    case SnapKind::Insertion:
        painter.drawPolygon(QPolygonF({QPointF(at.x() - m, at.y() - m), QPointF(at.x(), at.y() - m), QPointF(at.x(), at.y()),
                                       QPointF(at.x() + m, at.y()), QPointF(at.x() + m, at.y() + m), QPointF(at.x() - m, at.y() + m)}));
        break;
    case SnapKind::Perpendicular:
        painter.drawPolyline(QPolygonF({QPointF(at.x() - m, at.y() - m), QPointF(at.x() - m, at.y() + m), QPointF(at.x() + m, at.y() + m)}));
        painter.drawPolyline(QPolygonF({QPointF(at.x() - m, at.y()), QPointF(at.x(), at.y()), QPointF(at.x(), at.y() + m)}));
        break;
    case SnapKind::Tangent:
        painter.drawEllipse(box);
        painter.drawLine(QPointF(at.x() - m, at.y() - m), QPointF(at.x() + m, at.y() - m));
        break;
    case SnapKind::Nearest:
        painter.drawPolygon(QPolygonF({box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}));
        break;
    }
    // The name in a tooltip's box, below and right of the cursor as a tooltip stands.
    const QString name = QString::fromUtf8(geometry::snapName(kind).data(), static_cast<int>(geometry::snapName(kind).size()));
    const QFontMetrics metrics(painter.font());
    QRectF tip(at + QPointF(m + 8, m + 8), QSizeF(metrics.horizontalAdvance(name) + 8, metrics.height() + 4));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(kTipText, 1));
    painter.setBrush(kTipFill);
    painter.drawRect(tip);
    painter.drawText(tip, Qt::AlignCenter, name);
    painter.restore();
}

}  // namespace cadhost::gui
