#pragma once
// The process's one docking pane manager behind Kemb_GetAcadDockingPaneManager: made and set
// up at the first request (the module asks at start-up), released when the module stops.
namespace ardo {

class CKEMB_XTPDockingPaneManager;

// Null until the module has a host.
CKEMB_XTPDockingPaneManager* dockingPaneManager();
// Writes the layout and deletes the manager with its panes.
void releaseDockingPaneManager();

}  // namespace ardo
