#include "module/ModuleEntry.h"

#include <filesystem>

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "boundary/AppMessages.h"
#include "module/CommandStubFile.h"
#include "module/LispFunctionTable.h"
#include "module/ModuleInit.h"
#include "module/ModuleState.h"
#include "module/ProgramStart.h"
#include "module/paths/CurrentDirectoryGuard.h"
#include "module/paths/UserPaths.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"
#include "settings/ProfileString.h"

namespace ardo {

namespace {

std::string programVariable() {
    ResBuf program;
    return host().getVar("PROGRAM", program) == RTNORM ? upperCase(program.text) : std::string();
}

// Starts the suite's updater with the argument 1 when "ArdoUpdate.ini" asks for it and the
// updater is installed.
void runUpdateCheck() {
    std::string updateIni;
    {
        CurrentDirectoryGuard keep;
        provideUserFile(updateIni, "ArdoUpdate.ini", "", "", true);
    }
    const auto check = GetPrivateProfileStringW("UPDATER", "CheckOnStartup", "0", 32, updateIni).text;
    if (check != "1") return;
    std::string folder = moduleFiles().programFolder;
    while (!folder.empty() && folder.back() == '/') folder.pop_back();
    const std::string updater = folder + "/ZV_Updater";
    std::error_code ec;
    if (std::filesystem::is_regular_file(updater, ec)) startProgram(updater, {"1"});
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
}

void loadDocument() {
    const bool ltHost = programVariable().find("ACLT") != std::string::npos;
    const std::string stub = commandStubPath();
    writeCommandStubFile(stub, moduleFiles().definition.get(), ltHost);
    if (!ltHost) host().queueExpr(stubLoadExpression(stub));
    registerFunctions(lispFunctionTable());
}

void quit() {
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
        case kUnloadAppMsg: unregisterFunctions(lispFunctionTable()); break;
        case kQuitMsg: quit(); break;
        default: break;
    }
    return kRetOK;
}

}  // namespace ardo
