#pragma once
// Running object snaps and ortho while the view is asked for a point: the cursor jumps to
// the nearest snap point of the entities within the aperture, and a word typed at the
// prompt (END, MID, ..., NON) chooses the snap of the next point alone.
#include <QPointF>
#include <optional>
#include <string>

#include "cadhost/geometry/Snaps.h"
#include "cadhost/gui/LayoutScene.h"
#include "cadhost/gui/Scene.h"

class QPainter;

namespace cadhost::gui {

// The settings the status bar switches and the drawing keeps.
struct SnapSettings {
    int osmode = 37;        // OSMODE bits
    bool ortho = false;     // ORTHOMODE
    int aperture = 10;      // APERTURE, pixels
};

// Where a point given in the view lands, and the snap that put it there.
struct TrackedPoint {
    Vec2 at;
    std::optional<geometry::SnapKind> snap;
};

class ObjectSnap {
public:
    // Takes a typed override for the next point; false when the word is none.
    bool takeOverride(const std::string& typed);
    bool overridden() const { return override_.has_value(); }
    // The next point was given: an override counts for one point only.
    void pointGiven() { override_.reset(); }

    // The point the cursor gives: snapped when a snap point lies within the aperture, else
    // on the base point's horizontal or vertical with ortho on, else where it is.
    // `scale`: pixels per drawing unit. With a layout shown the cursor is on its sheet.
    TrackedPoint track(const Scene& model, const LayoutScene* layout, const Drawing& drawing, Vec2 cursor,
                       double scale, const SnapSettings& settings, const std::optional<ardo::Point3>& from) const;

private:
    // OSMODE bits of the override; 0 for NON.
    std::optional<int> override_;
};

// The nearest snap point of the kinds within `radius` (world units) of the cursor, among
// the scene's entities shown there; the nearest point on an object counts only when
// nothing else is within reach. `frozen`: layers left out besides those off or frozen, by
// the scene's layer index (a viewport's frozen layers).
std::optional<geometry::SnapPoint> findSnap(const Scene& scene, const Drawing& drawing, Vec2 cursor, double radius,
                                            int kinds, const std::optional<ardo::Point3>& from,
                                            const std::vector<bool>& frozen = {});

// The snap point on a layout's sheet: on its paper-space entities, and, as the common hosts
// let dimensions on the sheet take model geometry, on model space where a viewport under
// the cursor shows it, without the layers frozen in that viewport. `cursor`, `radius` and
// `from` and the point found are in paper-space units.
std::optional<geometry::SnapPoint> findSnapOnSheet(const LayoutScene& layout, const Scene& model,
                                                   const Drawing& drawing, Vec2 cursor, double radius, int kinds,
                                                   const std::optional<ardo::Point3>& from);

// The point on the horizontal or vertical through `from` nearest to `at`.
Vec2 orthoPoint(const ardo::Point3& from, Vec2 at);

// The marker of a snap kind as the common hosts draw it (square for an endpoint, triangle
// for a midpoint, circle for a centre, ...) with its name beside it like a tooltip.
void paintSnapMarker(QPainter& painter, QPointF at, geometry::SnapKind kind);

}  // namespace cadhost::gui
