#include "panes/PaneHost.h"

#include <QCursor>
#include <memory>

#include "module/HostBinding.h"
#include "module/paths/UserPaths.h"
#include "panes/CKEMB_XTPDockingPaneManager.h"

namespace ardo {

namespace {

constexpr auto kLayoutFileName = "DockingPanelLayout.xml";

std::unique_ptr<CKEMB_XTPDockingPaneManager>& manager() {
    static std::unique_ptr<CKEMB_XTPDockingPaneManager> instance;
    return instance;
}

std::string layoutFilePath() {
    std::string folder;
    if (getUserPath(folder, "", "", true) != RTNORM || folder.empty()) return {};
    if (folder.back() != '/') folder += '/';
    return folder + kLayoutFileName;
}

}  // namespace

CKEMB_XTPDockingPaneManager* dockingPaneManager() {
    if (!manager() && hasHost())
        manager() = std::make_unique<CKEMB_XTPDockingPaneManager>(host().mainWindow(), layoutFilePath(),
                                                                  [] { return QCursor::pos(); });
    return manager().get();
}

void releaseDockingPaneManager() { manager().reset(); }

}  // namespace ardo
