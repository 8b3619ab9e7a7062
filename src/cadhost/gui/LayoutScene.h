#pragma once
// What a layout's tab shows: its sheet, its paper-space entities (a scene of their own)
// and its floating viewports, each a window onto model space that leaves out the layers
// frozen in it.
#include <QRect>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/gui/Scene.h"
#include "cadhost/gui/ScenePainter.h"

class QPainter;

namespace cadhost::gui {

struct ViewportView {
    Handle handle = 0;
    Box2 frame;                // on the sheet, in paper-space units
    Vec2 viewCentre;           // the model-space point at the frame's centre
    double scale = 1;          // paper-space units per model-space unit
    bool on = true;            // a viewport switched off shows nothing inside
    std::vector<std::string> frozenLayers;

    // A model-space point where the viewport shows it on the sheet, and back.
    Vec2 toPaper(Vec2 model) const;
    Vec2 toModel(Vec2 paper) const;
    // For each layer of the model scene, whether it is frozen in this viewport; empty when
    // none is.
    std::vector<bool> frozenMask(const Scene& model) const;
};

class LayoutScene {
public:
    LayoutScene(Drawing& drawing, Layout layout);

    const Layout& layout() const { return layout_; }
    Scene& paper() { return paper_; }
    const Scene& paper() const { return paper_; }
    // The floating viewports, read again whenever the drawing changed.
    const std::vector<ViewportView>& viewports() const;
    // The sheet and whatever lies beside it.
    Box2 extents() const;
    // Changes whenever what the layout shows may have changed.
    std::uint64_t revision(const Scene& model) const { return paper_.revision() + model.revision(); }

private:
    Drawing& drawing_;
    Layout layout_;
    Scene paper_;
    mutable std::vector<ViewportView> viewports_;
    mutable std::uint64_t viewportsRead_ = ~std::uint64_t{0};
};

// Model space seen through the viewport: its view centre at the frame's centre, for a
// transform that maps paper space.
ViewTransform throughViewport(const ViewTransform& paper, const ViewportView& viewport);

// Paints a layout into the target rectangle of a painter: the grey table, the sheet with
// its shadow and printable area, model space through each viewport, then the paper-space
// entities (viewport borders among them). `view` maps paper space to the painter's
// pixels, as a view shows it or as sheetTransform fits it for plotting.
void paintLayout(QPainter& painter, const QRect& target, const ViewTransform& view, const LayoutScene& layout,
                 const Scene& model);
// The transform that shows the whole sheet in the target, as large as it fits.
ViewTransform sheetTransform(const Layout& layout, const QRect& target);

}  // namespace cadhost::gui
