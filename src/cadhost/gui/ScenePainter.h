#pragma once
// Paints a scene into an image: the drawing as it stands (the part a view caches), and the
// highlighted and selected entities over it. Hair lines go to a pixel canvas, fills and
// texts to a painter; what is smaller than a pixel is a dot, small text a line.
#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRect>
#include <unordered_set>

#include "cadhost/gui/Scene.h"

class QPainter;

namespace cadhost::gui {

// Screen x = left + world x * scale, screen y = top - world y * scale.
struct ViewTransform {
    double left = 0, top = 0, scale = 1;
    double x(double wx) const { return left + wx * scale; }
    double y(double wy) const { return top - wy * scale; }
    // The world box shown by the pixels of `r`.
    Box2 world(const QRect& r) const;
};

class ScenePainter {
public:
    ScenePainter(const Scene& scene, QColor background) : scene_(scene), background_(background) {}

    // The background and every shown entity whose box meets the pixels of `clip`.
    void paintDrawing(QImage& image, QRect clip, const ViewTransform& view) const;
    // The same over what the image holds (a layout's entities over its sheet).
    void paintEntities(QImage& image, QRect clip, const ViewTransform& view) const;
    // Layers left out besides those off or frozen (a viewport's frozen layers), by the
    // scene's layer index.
    void setFrozenLayers(std::vector<bool> frozen) { frozen_ = std::move(frozen); }
    // Highlighted and selected entities drawn dashed over what `paintDrawing` left.
    void paintHighlights(QImage& image, const ViewTransform& view, const std::unordered_set<Handle>& selected) const;

private:
    const Scene& scene_;
    QColor background_;
    std::vector<bool> frozen_;
};

// A fill piece's loops as one path in view coordinates; loops inside others are holes.
QPainterPath fillPath(const Piece& piece, const ViewTransform& view);
// A text piece at its height in view coordinates, each of its lines below the last.
void paintText(QPainter& painter, const Piece& piece, QColor color, const ViewTransform& view);

// The colour an entity shows on the view's dark background: black turns white, as the
// index colour 7 does.
std::uint32_t screenColor(std::uint32_t rgb);
// The same on a light background (a layout's sheet): white turns black.
std::uint32_t paperColor(std::uint32_t rgb);

}  // namespace cadhost::gui
