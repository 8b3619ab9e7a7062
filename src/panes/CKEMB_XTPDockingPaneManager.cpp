#include "panes/CKEMB_XTPDockingPaneManager.h"

#include <memory>

#include <QDockWidget>
#include <QEvent>
#include <QMainWindow>
#include <algorithm>
#include <set>

#include "base/FileReplace.h"
#include "base/TextFile.h"
#include "module/HostBinding.h"

namespace ardo {

CKEMB_XTPDockingPaneManager::CKEMB_XTPDockingPaneManager(QWidget* mainWindow, std::string layoutFile,
                                                         FloatingPaneWatch::CursorPosition cursor)
    : mainWindow_(qobject_cast<QMainWindow*>(mainWindow)), layoutFile_(std::move(layoutFile)),
      cursor_(std::move(cursor)) {
    if (!mainWindow_) return;
    mainWindow_->setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowTabbedDocks |
                                QMainWindow::AllowNestedDocks);
    // The layout is written while the window still shows its panes as the user left them.
    mainWindow_->installEventFilter(this);
    readLayout();
}

CKEMB_XTPDockingPaneManager::~CKEMB_XTPDockingPaneManager() {
    if (mainWindow_) {
        mainWindow_->removeEventFilter(this);
        saveLayout();
    }
    watches_.clear();
    // The panes go with the manager: their content may belong to modules that go next.
    for (const QPointer<QDockWidget>& pane : panes_) delete pane.data();
}

void CKEMB_XTPDockingPaneManager::readLayout() {
    if (layoutFile_.empty()) return;
    const std::optional<std::string> bytes = readFileBytes(layoutFile_);
    if (!bytes) return;
    if (auto places = parseLayoutXml(QByteArray::fromStdString(*bytes))) saved_ = std::move(*places);
    else host().print("The pane layout \"" + layoutFile_ + "\" is not readable; the panes start at their "
                      "default places and the file is written anew when ardo-cad closes.\n");
}

const PanePlace* CKEMB_XTPDockingPaneManager::savedPlace(const QString& id) const {
    const auto it = std::find_if(saved_.begin(), saved_.end(), [&](const PanePlace& p) { return p.id == id; });
    return it == saved_.end() ? nullptr : &*it;
}

void CKEMB_XTPDockingPaneManager::remember(const PanePlace& place) {
    auto it = std::find_if(saved_.begin(), saved_.end(), [&](const PanePlace& p) { return p.id == place.id; });
    if (it == saved_.end()) saved_.push_back(place);
    else *it = place;
}

QDockWidget* CKEMB_XTPDockingPaneManager::addPane(const QString& id, const QString& title, QWidget* content,
                                                  Qt::DockWidgetArea area) {
    // The content was given away with the call; a pane that is not made does not keep it.
    std::unique_ptr<QWidget> refused(content);
    if (!mainWindow_) {
        if (!toldNoWindow_)
            host().print("Docking panes need the main window: start ardo-cad with --gui. The pane \"" +
                         title.toStdString() + "\" is not shown.\n");
        toldNoWindow_ = true;
        return nullptr;
    }
    if (id.isEmpty() || pane(id)) return nullptr;
    refused.release();
    auto* dock = new QDockWidget(title, mainWindow_);
    dock->setObjectName(id);
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable |
                      QDockWidget::DockWidgetClosable);
    dock->setWidget(content);
    panes_.push_back(dock);
    connect(dock, &QDockWidget::topLevelChanged, this, [this, dock](bool floating) { floatingChanged(*dock, floating); });
    if (const PanePlace* saved = savedPlace(id)) {
        place(*dock, *saved);
    } else {
        mainWindow_->addDockWidget(area, dock);
        dock->show();
    }
    return dock;
}

void CKEMB_XTPDockingPaneManager::place(QDockWidget& dock, const PanePlace& saved) {
    mainWindow_->addDockWidget(saved.area, &dock);
    if (!saved.tabGroup.isEmpty() && !saved.floating)
        for (const QPointer<QDockWidget>& other : panes_) {
            if (!other || other == &dock || other->isFloating()) continue;
            const PanePlace* its = savedPlace(other->objectName());
            if (its && its->tabGroup == saved.tabGroup && mainWindow_->dockWidgetArea(other) == saved.area) {
                mainWindow_->tabifyDockWidget(other, &dock);
                break;
            }
        }
    if (saved.floating) {
        dock.setFloating(true);
        dock.setGeometry(saved.geometry);
    } else {
        mainWindow_->resizeDocks({&dock}, {saved.area == Qt::LeftDockWidgetArea || saved.area == Qt::RightDockWidgetArea
                                               ? saved.geometry.width()
                                               : saved.geometry.height()},
                                 saved.area == Qt::LeftDockWidgetArea || saved.area == Qt::RightDockWidgetArea
                                     ? Qt::Horizontal
                                     : Qt::Vertical);
    }
    dock.setVisible(saved.visible);
    // A floating frame shown for the first time takes its own size: it gets its place again.
    if (saved.floating) dock.setGeometry(saved.geometry);
    // A pane that floated last time waits rolled up until the cursor rests on its caption.
    if (saved.floating && saved.visible)
        if (FloatingPaneWatch* watch = watchOf(saved.id)) watch->rollUp();
}

void CKEMB_XTPDockingPaneManager::floatingChanged(QDockWidget& dock, bool floating) {
    if (floating) {
        if (!watches_.count(&dock))
            watches_.emplace(&dock, std::make_unique<FloatingPaneWatch>(dock, *mainWindow_, cursor_));
    } else {
        watches_.erase(&dock);
    }
}

QDockWidget* CKEMB_XTPDockingPaneManager::pane(const QString& id) const {
    for (const QPointer<QDockWidget>& dock : panes_)
        if (dock && dock->objectName() == id) return dock;
    return nullptr;
}

FloatingPaneWatch* CKEMB_XTPDockingPaneManager::watchOf(const QString& id) const {
    const auto it = watches_.find(pane(id));
    return it == watches_.end() ? nullptr : it->second.get();
}

void CKEMB_XTPDockingPaneManager::removePane(const QString& id) {
    QDockWidget* dock = pane(id);
    if (!dock) return;
    // A closed window has hidden its panes; their places were written when it closed.
    if (mainWindow_->isVisible())
        for (const PanePlace& place : currentPlaces())
            if (place.id == id) remember(place);
    watches_.erase(dock);
    panes_.erase(std::remove(panes_.begin(), panes_.end(), dock), panes_.end());
    delete dock;
}

std::vector<PanePlace> CKEMB_XTPDockingPaneManager::currentPlaces() const {
    std::vector<PanePlace> places;
    if (!mainWindow_) return places;
    for (const QPointer<QDockWidget>& dock : panes_) {
        if (!dock) continue;
        PanePlace place;
        place.id = dock->objectName();
        place.floating = dock->isFloating();
        place.area = mainWindow_->dockWidgetArea(dock);
        if (place.area == Qt::NoDockWidgetArea) place.area = Qt::LeftDockWidgetArea;
        // Hidden only when the user closed it: a window that is closing hides its panes too.
        place.visible = !dock->isHidden();
        place.geometry = place.floating ? dock->geometry() : QRect(QPoint(0, 0), dock->size());
        if (place.floating) {
            if (const FloatingPaneWatch* watch = watchOf(place.id); watch && watch->isRolledUp())
                place.geometry.setHeight(watch->openHeight());
        } else {
            // The group is named by its first pane in id order, so it reads the same each time.
            QString group;
            for (QDockWidget* other : mainWindow_->tabifiedDockWidgets(dock))
                if (group.isEmpty() || other->objectName() < group) group = other->objectName();
            if (!group.isEmpty()) place.tabGroup = std::min(group, place.id);
        }
        places.push_back(place);
    }
    return places;
}

bool CKEMB_XTPDockingPaneManager::saveLayout() {
    if (!mainWindow_ || layoutFile_.empty()) return false;
    // Once the window has closed its panes look hidden: the layout written then stands.
    if (!mainWindow_->isVisible()) return true;
    std::vector<PanePlace> places = currentPlaces();
    std::set<QString> shown;
    for (const PanePlace& place : places) shown.insert(place.id);
    for (const PanePlace& place : saved_)
        if (!shown.count(place.id)) places.push_back(place);
    if (const Status written = replaceFile(layoutFile_, layoutXml(places).toStdString()); !written) {
        host().print("The pane layout could not be saved to \"" + layoutFile_ + "\": " + written.error() + "\n");
        return false;
    }
    return true;
}

bool CKEMB_XTPDockingPaneManager::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mainWindow_ && event->type() == QEvent::Close) saveLayout();
    return false;
}

}  // namespace ardo
