#pragma once
// The docking pane manager lives with the module's windows; the module's start and stop set
// it up and release it through these, so the module's logic also runs without windows.
#include <functional>

namespace ardo {

struct DockingPaneHooks {
    std::function<void()> install;
    std::function<void()> release;
};

DockingPaneHooks& dockingPaneHooks();

}  // namespace ardo
