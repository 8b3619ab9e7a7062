#include "module/ModuleEntry.h"

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "boundary/AppMessages.h"
#include "module/CommandStubFile.h"
#include "module/DockingPaneHooks.h"
#include "module/LispFunctionTable.h"
#include "module/ModuleInit.h"
#include "module/ModuleState.h"
#include "module/UpdateCheck.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

std::string programVariable() {
    ResBuf program;
    return host().getVar("PROGRAM", program) == RTNORM ? upperCase(program.text) : std::string();
}

void startUp() {
    // The host can always unload this module and is aware of several documents, so the
    // dynamic linker's unlock and the MDI declaration have nothing to do here.
    moduleState().hostIsNotFull = programVariable().find("ACAD") == std::string::npos;
    registerFunctions(lispFunctionTable());
    moduleState().queryInitDone = false;
    initialiseModule();
    // OLE and the Windows docking toolkit's library have no counterpart: Qt brings its own.
    runUpdateCheck();
    if (dockingPaneHooks().install) dockingPaneHooks().install();
}

void releasePanes() {
    if (dockingPaneHooks().release) dockingPaneHooks().release();
}

void loadDocument() {
    const bool ltHost = programVariable().find("ACLT") != std::string::npos;
    const std::string stub = commandStubPath();
    writeCommandStubFile(stub, moduleFiles().definition.get(), ltHost);
    if (!ltHost) host().queueExpr(stubLoadExpression(stub));
    registerFunctions(lispFunctionTable());
}

void quit() {
    releasePanes();
    moduleFiles().release();
    MessageFile::instance().release();
}

}  // namespace

int moduleEntryPoint(int message, void* appId) {
    if (appId) bindHost(static_cast<Host*>(appId));
    if (!hasHost()) return kRetOK;
    switch (message) {
        case kInitAppMsg: startUp(); break;
        case kLoadDwgMsg: loadDocument(); break;
        case kInvkSubrMsg: dispatchFunction(lispFunctionTable()); break;
        case kUnloadAppMsg:
            releasePanes();
            unregisterFunctions(lispFunctionTable());
            break;
        case kQuitMsg: quit(); break;
        default: break;
    }
    return kRetOK;
}

}  // namespace ardo
