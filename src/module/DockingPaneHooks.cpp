#include "module/DockingPaneHooks.h"

namespace ardo {

DockingPaneHooks& dockingPaneHooks() {
    static DockingPaneHooks hooks;
    return hooks;
}

}  // namespace ardo
