#pragma once
// The suite's one docking pane manager. Every module of the suite adds its tool panes to the
// host's main window through it, so they dock, float and tab alike and come back where the
// user left them. A module gets it from ardo.arx by the exported function below (looked up
// with dlsym), so this header is all a module needs: the calls go through the virtual table.
#include <QString>
#include <Qt>

class QDockWidget;
class QWidget;

namespace ardo {

class DockingPaneManager {
public:
    // False in a host without a main window (the console): panes cannot be shown there.
    virtual bool hasMainWindow() const = 0;
    // Puts `content` into a new pane of the main window under the unique `id`, where the
    // saved layout had it, else docked in `area`. The pane owns the content from now on.
    // Null when there is no main window (the user is told once) or the id is taken; the
    // content is then deleted.
    virtual QDockWidget* addPane(const QString& id, const QString& title, QWidget* content,
                                 Qt::DockWidgetArea area) = 0;
    virtual QDockWidget* pane(const QString& id) const = 0;
    // Keeps the pane's place in the layout, then deletes the pane and its content; a module
    // does this before it is unloaded.
    virtual void removePane(const QString& id) = 0;
    // Writes the layout file now; false (and the reason on the command line) when it could
    // not be written.
    virtual bool saveLayout() = 0;

protected:
    ~DockingPaneManager() = default;
};

}  // namespace ardo

// The exported entry of ardo.arx: the one manager, created and set up on the first call.
// Null before the module has started in a host.
extern "C" ardo::DockingPaneManager* Kemb_GetAcadDockingPaneManager();
using KembGetAcadDockingPaneManager = ardo::DockingPaneManager* (*)();
