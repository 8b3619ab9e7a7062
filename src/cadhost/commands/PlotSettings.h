#pragma once
// What a plot is asked for: the device, the sheet, the part of the drawing and its scale,
// the plot style table and the file. -PLOT and the plot dialog fill it in; a plot writer
// of the window layer turns it into a PDF file.
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "boundary/ResBuf.h"

namespace cadhost {

class Drawing;

namespace commands {

// A sheet as the PDF device lists it: "ISO A4 (210.00 x 297.00 MM)", portrait dimensions.
struct PaperSize {
    std::string_view name;
    double width = 0, height = 0;   // millimetres, the short side first
    bool inches = false;            // listed in inches, so that is its default unit
};

const std::vector<PaperSize>& paperSizes();
// The size a typed name means: the listed name, or its short form ("A3", "ISO A3",
// "ANSI B"), in any case.
const PaperSize* findPaperSize(std::string_view typed);

enum class PlotArea { Display, Extents, Limits, View, Window, Layout };

// The PDF devices this host has; another device name is refused.
bool isPdfDevice(std::string_view name);
inline constexpr std::string_view kPdfDevice = "DWG To PDF.pc3";

// The tables that are known without reading a file: monochrome plots everything black,
// acad keeps the object colours.
enum class StyleTable { None, Monochrome, ObjectColors, Unread };
StyleTable styleTableOf(std::string_view name);

struct PlotSettings {
    std::string layout = "Model";
    std::string device{kPdfDevice};
    const PaperSize* paper = nullptr;
    // A layout's own sheet in millimetres, as plotted (width, height); it stands for `paper`.
    std::optional<std::pair<double, double>> sheet;
    bool millimeters = true;
    bool landscape = true;
    bool upsideDown = false;
    PlotArea area = PlotArea::Extents;
    // The Window's corners; a View plot puts the named view's box here.
    ardo::Point3 windowFirst{0, 0, 0}, windowSecond{0, 0, 0};
    std::string view;
    // The display a window shows (lower left, upper right); without one, Display plots the
    // drawing's saved view centre and height.
    std::optional<std::pair<ardo::Point3, ardo::Point3>> display;
    // Paper units (millimetres or inches, as `millimeters` says) per drawing unit; none is Fit.
    std::optional<double> scale;
    // Where the plot's lower left corner lies on the sheet in paper units; none centres it.
    std::optional<ardo::Point3> offset;
    bool plotStyles = true;
    std::string styleTable;
    bool lineweights = true;
    std::string file;

    // The sheet in millimetres as plotted: turned for landscape.
    double sheetWidth() const;
    double sheetHeight() const;
    // True when a layout, not Model, is plotted.
    bool plotsLayout() const;
    // Millimetres on paper per drawing unit for a given scale (paper units per unit).
    double millimetresPerUnit(double paperUnitsPerUnit) const {
        return millimeters ? paperUnitsPerUnit : paperUnitsPerUnit * 25.4;
    }
};

// The box a named view of the drawing shows (lower left, upper right), by its name in any case.
std::optional<std::pair<ardo::Point3, ardo::Point3>> namedView(const Drawing& drawing, std::string_view name);
// The drawing's named views, in table order.
std::vector<std::string> viewNames(const Drawing& drawing);

// Plots Model as the drawing's page setup says, or a layout: its whole sheet at 1:1 of paper
// units, on its own paper where its plot settings give one for a PDF. False for a name the
// drawing has no layout of.
bool choosePlotLayout(const Drawing& drawing, std::string_view name, PlotSettings& settings);

// The settings a plot starts from for a drawing: the layout shown (CTAB), plotted as
// choosePlotLayout says; for Model its saved page setup where the drawing has one, else
// ISO A4 landscape, extents, fit, centred; the file named after the drawing.
PlotSettings defaultPlotSettings(const Drawing& drawing);

// Writes the plot; messages the writer wants the user to read (a table it did not read)
// go to `note`.
using PlotWriter = std::function<ardo::Status(Drawing&, const PlotSettings&, const std::function<void(const std::string&)>& note)>;
// The window layer installs the writer; without one, PLOT says it cannot write.
void setPlotWriter(PlotWriter writer);
const PlotWriter& plotWriter();

}  // namespace commands
}  // namespace cadhost
