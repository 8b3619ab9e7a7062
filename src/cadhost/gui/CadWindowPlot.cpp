// The window's PLOT: the dialog on the current drawing, its messages on the command line.
#include "cadhost/app/Application.h"
#include "cadhost/gui/CadWindow.h"
#include "cadhost/gui/PlotDialog.h"

namespace cadhost::gui {

void CadWindow::plotDialog() {
    if (!app_ || !app_->hasDocument()) return;
    PlotDialog dialog(app_->current().drawing(), currentView(), this);
    dialog.setNote([this](const std::string& text) { print(text); });
    dialog.exec();
    updatePrompt();
}

}  // namespace cadhost::gui
