// The exports of ardo.arx: the entry point the host sends its application messages to.
#include <dlfcn.h>

#include "about/ProductDialogs.h"
#include "dialog/LayerDialogRun.h"
#include "highlight/HighlightCommand.h"
#include "help/Help.h"
#include "help/window/HelpWindow.h"
#include "module/DockingPaneHooks.h"
#include "module/ModuleEntry.h"
#include "panes/DockingPaneManager.h"
#include "panes/PaneHost.h"
#include "panes/CKEMB_XTPDockingPaneManager.h"
#include "standard/LayerStandardRun.h"
#include "settings/ModuleFiles.h"

namespace {

// The module's own file, as the process attach finds it: the module files lie beside it.
void rememberModulePath() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&rememberModulePath), &info) && info.dli_fname)
        ardo::moduleFiles().modulePath = info.dli_fname;
}

// The module's logic asks for its windows through these, so it also runs without them.
void installWindows() {
    ardo::setHelpViewer(ardo::showHelpAddress);
    ardo::setProductWindowOpener(ardo::openProductWindow);
    ardo::installLayerDialogHandlers();
    ardo::installHighlightHandlers();
    ardo::dockingPaneHooks() = {[] { ardo::dockingPaneManager(); }, ardo::releaseDockingPaneManager};
}

__attribute__((constructor)) void attachProcess() {
    rememberModulePath();
    installWindows();
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int acrxEntryPoint(int message, void* appId) {
    return ardo::moduleEntryPoint(message, appId);
}

// The host's API version this module was built against.
extern "C" __attribute__((visibility("default"))) int acrxGetApiVersion() { return 18; }

// The layer-standard run of ardo-cad --audit-layers.
extern "C" __attribute__((visibility("default"))) int ardoLayerStandard(ArdoStandardCall* call) {
    return call ? ardo::runLayerStandard(*call) : 2;
}

// The version the module was built as, for the host's --version.
extern "C" __attribute__((visibility("default"))) const char* ardoModuleVersion() { return ARDO_VERSION; }

// The suite's one docking pane manager, for every module that adds panes to the main window.
extern "C" __attribute__((visibility("default"))) ardo::DockingPaneManager* Kemb_GetAcadDockingPaneManager() {
    return ardo::dockingPaneManager();
}
