#pragma once
// Writes a plot as a one-page vector PDF: the scene's pieces painted on a QPdfWriter at
// the plot's scale, with layers that are off, frozen or not plottable left out, lineweights
// at their width on paper, and the colours the plot style table gives.
#include <functional>
#include <optional>
#include <string>

#include "base/Result.h"
#include "cadhost/commands/PlotSettings.h"
#include "cadhost/gui/SceneTypes.h"

class QPainter;

namespace cadhost {
class Drawing;
struct Layout;
}

namespace cadhost::gui {

class Scene;
class LayoutScene;

// The part of the drawing a plot shows, in drawing units; empty when there is nothing
// to plot (an empty drawing's extents).
Box2 plotArea(const Drawing& drawing, const Scene& scene, const commands::PlotSettings& settings);

// Where the area lands on the sheet: millimetres per drawing unit, and the sheet position
// (millimetres from the lower left) of the area's lower left corner.
struct SheetPlacement {
    double millimetresPerUnit = 1;
    double left = 0, bottom = 0;
    double width = 0, height = 0;   // what the area takes of the sheet, in millimetres
};
SheetPlacement placeOnSheet(const Box2& area, const commands::PlotSettings& settings);

// Paints the scene's plotted pieces inside `area` with `placement` onto a painter whose
// units are `dotsPerMillimetre` on a sheet `sheetHeight` millimetres high.
void paintPlot(QPainter& painter, const Scene& scene, const Box2& area, const SheetPlacement& placement,
               double dotsPerMillimetre, double sheetHeight, const commands::PlotSettings& settings);

// A layout's plot area in paper-space units: its sheet for Layout (and Limits, Display).
Box2 plotArea(const LayoutScene& layout, const commands::PlotSettings& settings);
// Paints a layout's plot: model space through each viewport (leaving out the layers it
// freezes), then the paper-space entities, with `area` placed as for paintPlot.
void paintLayoutPlot(QPainter& painter, const LayoutScene& layout, const Scene& model, const Box2& area,
                     const SheetPlacement& placement, double dotsPerMillimetre, double sheetHeight,
                     const commands::PlotSettings& settings);
// The drawing's layout of that name, in any case.
std::optional<Layout> findLayout(const Drawing& drawing, std::string_view name);

// Paints what `settings` plot (model space or its layout) onto a sheet of their size,
// `dotsPerMillimetre` fine, turned when they say upside down; where the area lies on it,
// or why nothing can be plotted. The PDF and the dialog's preview are painted by it.
ardo::Result<SheetPlacement> paintSheet(QPainter& painter, Drawing& drawing, const Scene& model,
                                        const commands::PlotSettings& settings, double dotsPerMillimetre);

ardo::Status writePlot(Drawing& drawing, const commands::PlotSettings& settings,
                       const std::function<void(const std::string&)>& note);

}  // namespace cadhost::gui
