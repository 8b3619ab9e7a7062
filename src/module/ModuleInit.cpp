#include "module/ModuleInit.h"

#include "module/HostBinding.h"
#include "base/CaseFold.h"
#include "base/CodePage.h"
#include "base/Printf.h"
#include "boundary/ResBuf.h"
#include "module/paths/CurrentDirectoryGuard.h"
#include "module/paths/PathJoin.h"
#include "module/paths/UserPaths.h"
#include "messages/MessageCatalog.h"
#include "messages/MessageFile.h"
#include "settings/LayerDialogSettings.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

// Provides one of the module's settings files in the user's folder, keeping the current
// directory as it was.
std::string provideSettingsFile(const std::string& name) {
    CurrentDirectoryGuard keep;
    std::string path;
    provideUserFile(path, name, "", "", false);
    return path;
}

void showNoLayerFile(const std::string& path) {
    const std::string text = format("%s: '%s'\n\n%s\n%s\n%s\n%s", catalogText(MsgKey::EtNoLayerFile1), path,
                                    catalogText(MsgKey::EtNoLayerFile2), catalogText(MsgKey::EtNoLayerFile3),
                                    catalogText(MsgKey::EtNoLayerFile4), catalogText(MsgKey::EtNoLayerFile5));
    host().messageBox(text, catalogText(MsgKey::TiMsgBoxError), MbButtons::Ok, MbIcon::Error);
}

// [DATEIEN] Codepage= of the configuration: a Windows number or a name ("1252", "UTF-8");
// Windows-1252 when missing. True when the code page changed.
bool useConfiguredCodePage(SettingsStore& configuration, const std::string& cfgPath) {
    std::string wanted = "1252";
    const auto header = configuration.findSection("DATEIEN");
    const auto line = configuration.findKey(header, "Codepage");
    if (line != configuration.end() && !line->value.empty()) wanted = std::string(trimWhite(line->value));
    const std::string before = fileCodePage();
    if (!setFileCodePage(wanted)) {
        host().print(format("\nCodepage '%s' in '%s' ist unbekannt; es gilt %s.", wanted, cfgPath, before));
        return false;
    }
    return fileCodePage() != before;
}

}  // namespace

int initialiseModule() {
    ModuleFiles& files = moduleFiles();
    files.release();
    MessageFile::instance().release();

    const std::string& module = files.modulePath;
    files.programFolder = withTrailingSeparator(module.substr(0, module.find_last_of(kPathSeparator)));

    int status = RTNORM;
    const std::string cfgPath = withExtension(module, ".cfg");
    files.configuration = SettingsStore::load(cfgPath);
    // The code page is an installation's choice, so it applies before any other module file
    // is read; the configuration itself is read again in it.
    if (files.configuration && useConfiguredCodePage(*files.configuration, cfgPath))
        files.configuration = SettingsStore::load(cfgPath);
    MessageCatalog::instance().load(withExtension(module, ".dlg"));
    if (!files.configuration) {
        host().print(format("\nfile '%s' not found.", cfgPath));
        status = RTERROR;
    }
    MessageFile::instance().attach(SettingsStore::load(withExtension(module, ".msg")));
    if (!MessageFile::instance().loaded()) {
        host().print(format("\nno %s.msg found.", "ARDO"));
        status = RTERROR;
    }
    files.definition = SettingsStore::load(withExtension(module, ".bfl"));

    const std::string setupPath = provideSettingsFile("ArdoSetup.ini");
    const std::string highlightPath = provideSettingsFile("ArdoHighlight.ini");
    const std::string layerFilePath = provideSettingsFile("Ardo.ini");

    ModuleSettings& settings = moduleSettings();
    settings.setup.bind(setupPath, "", "ArdoSetup", "CONFIG", false, true);
    settings.highlight.bind(highlightPath, "", "ArdoHighlight", "HIGHLIGHT", false, true);
    settings.layerDialog.load(settings.setup);

    // The file named in the settings, else the user's "Ardo.ini".
    if (settings.layerDialog.ardoLayerFile.empty()) settings.layerDialog.ardoLayerFile = layerFilePath;
    files.centralLayerFilePath = settings.layerDialog.ardoLayerFile;
    files.centralLayerFile = SettingsStore::load(files.centralLayerFilePath);
    if (!files.centralLayerFile) {
        showNoLayerFile(files.centralLayerFilePath);
        status = RTERROR;
    }
    // The docking toolkit's resource library (PFADINFO ZVTK_ResDll) exists only for the
    // Windows toolkit; Qt needs none.
    return status;
}

namespace handlers {

int c_kemb_lcinit() {
    host().retVoid();
    initialiseModule();
    return RSRSLT;
}

}  // namespace handlers

}  // namespace ardo
