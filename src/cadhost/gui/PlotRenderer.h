#pragma once
// Writes a plot as a one-page vector PDF: the scene's pieces painted on a QPdfWriter at
// the plot's scale, with layers that are off, frozen or not plottable left out, lineweights
// at their width on paper, and the colours the plot style table gives.
#include <functional>
#include <string>

#include "base/Result.h"
#include "cadhost/commands/PlotSettings.h"
#include "cadhost/gui/SceneTypes.h"

class QPainter;

namespace cadhost {
class Drawing;
}

namespace cadhost::gui {

class Scene;

// The part of the drawing a plot shows, in drawing units; empty when there is nothing
// to plot (an empty drawing's extents).
Box2 plotArea(const Drawing& drawing, const Scene& scene, const commands::PlotSettings& settings);

// Where the area lands on the sheet: millimetres per drawing unit, and the sheet position
// (millimetres from the lower left) of the area's lower left corner.
struct SheetPlacement {
    double millimetresPerUnit = 1;
    double left = 0, bottom = 0;
};
SheetPlacement placeOnSheet(const Box2& area, const commands::PlotSettings& settings);

// Paints the scene's plotted pieces inside `area` with `placement` onto a painter whose
// units are `dotsPerMillimetre` on a sheet `sheetHeight` millimetres high.
void paintPlot(QPainter& painter, const Scene& scene, const Box2& area, const SheetPlacement& placement,
               double dotsPerMillimetre, double sheetHeight, const commands::PlotSettings& settings);

ardo::Status writePlot(Drawing& drawing, const commands::PlotSettings& settings,
                       const std::function<void(const std::string&)>& note);

}  // namespace cadhost::gui
