#pragma once
// PLOT in the window: the plot's settings in one dialog (device, paper, orientation, area
// with a window picked in the view, scale, plot style table, lineweights, file), a preview
// of the sheet, and OK to write the PDF.
#include <QDialog>
#include <functional>
#include <string>
#include <string_view>

#include "cadhost/commands/PlotSettings.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace cadhost {
class Drawing;
}

namespace cadhost::gui {

class DrawingView;

class PlotDialog final : public QDialog {
public:
    // `view` shows the drawing: its display is the Display area, and a window is picked in it.
    PlotDialog(Drawing& drawing, DrawingView* view, QWidget* parent = nullptr);

    // True for a line that asks for the dialog: PLOT with its prefixes, not -PLOT.
    static bool asksForDialog(std::string_view line);

    // Where the plot's messages go (the command line).
    void setNote(std::function<void(const std::string&)> note) { note_ = std::move(note); }
    const commands::PlotSettings& settings() const { return settings_; }
    // Reads the controls; a message for the user when one holds what cannot be plotted.
    std::string takeControls();
    // Picks the plot window in the view: the dialog steps aside until two corners are given.
    void pickWindow();

    void accept() override;

private:
    void showSettings();
    void updatePreview();

    Drawing& drawing_;
    DrawingView* view_;
    commands::PlotSettings settings_;
    std::function<void(const std::string&)> note_;
    QComboBox *layout_, *device_, *paper_, *units_, *orientation_, *area_, *table_;
    QCheckBox *upsideDown_, *fit_, *center_, *plotStyles_, *lineweights_;
    QLineEdit *paperUnits_, *drawingUnits_, *offsetX_, *offsetY_, *file_;
    QLabel *window_, *preview_;
};

}  // namespace cadhost::gui
