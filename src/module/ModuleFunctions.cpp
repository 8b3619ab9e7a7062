#include "module/ModuleFunctions.h"

#include <filesystem>

#include "module/HostBinding.h"
#include "base/FileLookup.h"
#include "base/Printf.h"
#include "module/SystemVariableOverride.h"
#include "module/lisp/CallFrame.h"
#include "module/ModuleState.h"
#include "module/PathInfo.h"
#include "module/ProductInfo.h"
#include "module/ProgramStart.h"
#include "module/paths/PathJoin.h"
#include "module/paths/Platform.h"
#include "module/paths/UserPaths.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"

namespace ardo::handlers {

namespace {

constexpr const char* kMenuGroup = "ARDO";

void printMessage(const char* key, const std::string& argument) {
    host().print(format(MessageFile::instance().text("LCINIT", key), argument));
}

bool isFile(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_regular_file(path, ec);
}

// As given, in the program folder, in the user's settings folder, then along the host's
// support folders. Names are matched as an installation from Windows spells them.
std::optional<std::string> findModuleFile(const std::string& name) {
    if (name.empty()) return std::nullopt;
    if (auto given = findOnDisk(name)) return std::filesystem::absolute(*given).string();
    if (auto inProgram = findOnDisk(joinPath(moduleFiles().programFolder, name))) return inProgram;
    std::string userFolder;
    if (getUserPath(userFolder, "", "", true) == RTNORM)
        if (auto inUserFolder = findOnDisk(joinPath(userFolder, name))) return inUserFolder;
    std::string found;
    if (host().findFile(name, found)) return found;
    return std::nullopt;
}

std::string withArxExtension(const std::string& name) {
    return std::filesystem::path(name).has_extension() ? name : name + ".arx";
}

std::string applicationName(const std::string& file) { return std::filesystem::path(file).stem().string(); }

int returnText(const std::string& text) {
    if (!text.empty()) host().retStr(text);
    return RSRSLT;
}

int loadApplication(const std::string& file) {
    if (host().arxLoaded(applicationName(file))) {
        host().retT();
        return RSRSLT;
    }
    auto path = findModuleFile(file);
    if (!path) {
        printMessage("ArxNotFound", file);
        return RSRSLT;
    }
    if (host().arxLoad(*path)) host().retT();
    return RSRSLT;
}

int greyMenu(bool flagRequired) {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String},
                      {ArgKind::Integer, flagRequired ? Presence::Required : Presence::Optional}}))
        return RSRSLT;
    const bool grey = !frame.has(2) || frame.integer(2) != 0;
    if (host().greyMenuItem(frame.text(0), frame.text(1), grey)) host().retT();
    return RSRSLT;
}

// Runs a host command with FILEDIA and CMDECHO off, restoring both.
void quietCommand(const ResBufChain& tokens) {
    SystemVariableOverride noDialogs("FILEDIA", ResBuf::shortInt(0));
    SystemVariableOverride noEcho("CMDECHO", ResBuf::shortInt(0));
    host().command(tokens);
}

std::string menuFile() {
    const std::string configured = configurationValue("PFADINFO", "Menu");
    return configured.empty() ? moduleFiles().programFolder + "ardo.mnu" : pathInfo("Menu");
}

}  // namespace

int kemb_queryInit() {
    host().retNil();
    if (!moduleState().queryInitDone) {
        moduleState().queryInitDone = true;
        host().retT();
    }
    return RSRSLT;
}

int ardo_loaded() {
    host().retT();
    return RSRSLT;
}

int kemb_modulverz() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::Any, Presence::Optional}})) return RSRSLT;
    host().retStr(moduleFolder(frame.text(0)));
    return RSRSLT;
}

int kemb_pathInfo() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    host().retStr(pathInfo(frame.text(0)));
    return RSRSLT;
}

int kemb_findfile() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    if (auto path = findModuleFile(frame.text(0))) host().retStr(*path);
    return RSRSLT;
}

int kemb_dateiverz() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    const std::string name = frame.text(0);
    const std::string path = findModuleFile(name).value_or(name);
    const size_t cut = path.find_last_of("/\\");
    if (cut == std::string::npos) return RSRSLT;
    host().retStr(path.substr(0, cut + 1));
    return RSRSLT;
}

int kemb_delfile() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    std::error_code ec;
    if (isFile(frame.text(0)) && std::filesystem::remove(frame.text(0), ec)) host().retT();
    return RSRSLT;
}

int kemb_xloaded() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    const std::string file = withArxExtension(frame.text(0));
    if (host().arxLoaded(applicationName(file))) host().retInt(0);
    else host().retInt(findModuleFile(file) ? 1 : -1);
    return RSRSLT;
}

int kemb_xload() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    return loadApplication(withArxExtension(frame.text(0)));
}

int kemb_xloadProg() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    const std::string program = frame.text(0);
    return loadApplication(joinPath(moduleFolder(program), withArxExtension(program)));
}

int kemb_ExecuteProgram() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String, Presence::Optional}})) return RSRSLT;
    const auto arguments = frame.has(1) ? splitArguments(frame.text(1)) : std::vector<std::string>{};
    if (startProgram(frame.text(0), arguments)) host().retT();
    else printMessage("ProgramNotStarted", frame.text(0));
    return RSRSLT;
}

int Kemb_LaunchFile() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    if (!isFile(frame.text(0))) {
        printMessage("FileNotFound", frame.text(0));
        return RSRSLT;
    }
    if (startProgram("xdg-open", {frame.text(0)})) host().retT();
    else printMessage("ProgramNotStarted", "xdg-open");
    return RSRSLT;
}

int kemb_menucmdgrey() { return greyMenu(true); }
int kemb_greyMenu() { return greyMenu(false); }

int c_kemb_lmnu() {
    host().retVoid();
    quietCommand({ResBuf::str("_.MENULOAD"), ResBuf::str(menuFile())});
    return RSRSLT;
}

int c_kemb_xmnu() {
    host().retVoid();
    quietCommand({ResBuf::str("_.MENUUNLOAD"), ResBuf::str(kMenuGroup)});
    return RSRSLT;
}

int Kemb_getProductText() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    return returnText(configurationValue("PRODUCTINFO", frame.text(0)));
}

int Kemb_getProductName() {
    host().retNil();
    return returnText(configurationValue("PRODUCTINFO", "ProductName"));
}

int Kemb_getCompanyName() {
    host().retNil();
    return returnText(configurationValue("PRODUCTINFO", "CompanyName"));
}

int Kemb_getProductIcon() {
    host().retNil();
    const std::string icon = configurationValue("PRODUCTINFO", "ProductIcon");
    if (!icon.empty()) host().retStr(joinPath(moduleFiles().programFolder, icon));
    return RSRSLT;
}

int C_Kemb_VersionInfo() {
    host().retVoid();
    showProductInfo(ProductWindow::Version);
    return RSRSLT;
}

int Kemb_showAboutDialogue() {
    host().retNil();
    showProductInfo(ProductWindow::About);
    return RSRSLT;
}

}  // namespace ardo::handlers
