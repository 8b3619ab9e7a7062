#pragma once
// The docking pane manager of the host's main window: the panes are QDockWidgets that dock
// on its four sides, float in their own frames and tab with each other. Their places are
// read from the layout file when the manager is set up and given to each pane as its module
// adds it; they are written back when the main window closes and when the module stops.
#include <QObject>
#include <QPointer>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "panes/DockingPaneManager.h"
#include "panes/FloatingPaneWatch.h"
#include "panes/PaneLayoutFile.h"

class QMainWindow;

namespace ardo {

class CKEMB_XTPDockingPaneManager final : public QObject, public DockingPaneManager {
public:
    // `mainWindow` may be null (the console); `layoutFile` may be empty (no per-user folder).
    CKEMB_XTPDockingPaneManager(QWidget* mainWindow, std::string layoutFile,
                                FloatingPaneWatch::CursorPosition cursor);
    ~CKEMB_XTPDockingPaneManager() override;

    bool hasMainWindow() const override { return !mainWindow_.isNull(); }
    QDockWidget* addPane(const QString& id, const QString& title, QWidget* content,
                         Qt::DockWidgetArea area) override;
    QDockWidget* pane(const QString& id) const override;
    void removePane(const QString& id) override;
    bool saveLayout() override;

    const std::string& layoutFile() const { return layoutFile_; }
    // The floating pane's watch, or null while the pane is docked.
    FloatingPaneWatch* watchOf(const QString& id) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void readLayout();
    std::vector<PanePlace> currentPlaces() const;
    void remember(const PanePlace& place);
    const PanePlace* savedPlace(const QString& id) const;
    void place(QDockWidget& pane, const PanePlace& saved);
    void floatingChanged(QDockWidget& pane, bool floating);

    QPointer<QMainWindow> mainWindow_;
    std::string layoutFile_;
    FloatingPaneWatch::CursorPosition cursor_;
    // The places read from the file and those of panes removed since: a pane that comes
    // later, or not at all this time, keeps its place.
    std::vector<PanePlace> saved_;
    std::vector<QPointer<QDockWidget>> panes_;
    std::map<QDockWidget*, std::unique_ptr<FloatingPaneWatch>> watches_;
    bool toldNoWindow_ = false;
};

}  // namespace ardo
