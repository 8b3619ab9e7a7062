#include "module/ProductInfo.h"

#include <filesystem>

#include "help/Help.h"
#include "messages/MessageCatalog.h"
#include "messages/MessageFile.h"
#include "module/HostBinding.h"
#include "module/PathInfo.h"
#include "module/paths/PathJoin.h"
#include "module/paths/UserPaths.h"
#include "settings/ModuleFiles.h"
#include "settings/registry/RegistryFile.h"

namespace ardo {

namespace {

constexpr const char* kInfoTexts = "INFO";

ProductWindowOpener& opener() {
    static ProductWindowOpener o;
    return o;
}

std::string hostText(const char* variable) {
    ResBuf value;
    return host().getVar(variable, value) == RTNORM ? value.text : std::string();
}

// Labels of the information come from the message file, section INFO.
std::string label(const char* key) { return MessageFile::instance().text(kInfoTexts, key); }

ProductFile file(const char* roleKey, std::string path) {
    std::error_code ec;
    const bool present = !path.empty() && std::filesystem::exists(path, ec);
    return {label(roleKey), std::move(path), present};
}

}  // namespace

ProductInfo gatherProductInfo() {
    ProductInfo info;
    info.productName = configurationValue("PRODUCTINFO", "ProductName");
    info.productText = configurationValue("PRODUCTINFO", "ProductText");
    info.companyName = configurationValue("PRODUCTINFO", "CompanyName");
    info.rights = configurationValue("PRODUCTINFO", "Copyright");
    info.version = configurationValue("VERSION", "Version");
    info.build = configurationValue("VERSION", "Build");
    info.servicePack = configurationValue("VERSION", "ServicePack");
    info.moduleVersion = ARDO_VERSION;
    info.hostProgram = hostText("PROGRAM");
    info.hostVersion = hostText("ACADVER");

    const std::string& module = moduleFiles().modulePath;
    info.files.push_back(file("Modul", module));
    info.files.push_back(file("Konfiguration", withExtension(module, ".cfg")));
    info.files.push_back(file("Definitionen", withExtension(module, ".bfl")));
    info.files.push_back(file("Meldungen", withExtension(module, ".msg")));
    info.files.push_back(file("Dialogtexte", withExtension(module, ".dlg")));
    info.files.push_back(file("Layersteuerdatei", moduleFiles().centralLayerFilePath));
    std::string userFolder;
    if (getUserPath(userFolder, "", "", true) == RTNORM) info.files.push_back(file("Benutzerordner", userFolder));
    info.files.push_back(file("Hilfe", helpFilePath()));
    info.files.push_back(file("Hilfethemen", topicMapPath()));
    info.files.push_back(file("Registrierung", RegistryFile::userPath()));
    return info;
}

std::string productInfoText(const ProductInfo& info) {
    std::string text = "\n";
    auto line = [&text](const std::string& label, const std::string& value) {
        if (!value.empty()) text += (label.empty() ? "" : label + " ") + value + "\n";
    };
    line("", info.productName);
    line("", info.productText);
    line(catalogText(MsgKey::RsVersionText1), info.version);
    line(catalogText(MsgKey::RsVersionText2), info.build);
    line(catalogText(MsgKey::RsVersionInfoServicePack), info.servicePack);
    line(catalogText(MsgKey::RsVersionInfoCompany), info.companyName);
    line(catalogText(MsgKey::RsVersionText3), info.rights);
    line(label("ModulVersion"), info.moduleVersion);
    line(label("Programm"), info.hostProgram + (info.hostVersion.empty() ? "" : " " + info.hostVersion));
    for (const auto& f : info.files) line(f.role + ":", f.path + (f.present ? "" : " " + label("Fehlt")));
    return text;
}

void setProductWindowOpener(ProductWindowOpener o) { opener() = std::move(o); }

void showProductInfo(ProductWindow which) {
    const ProductInfo info = gatherProductInfo();
    if (opener() && opener()(which, info)) return;
    host().print(productInfoText(info));
}

}  // namespace ardo
