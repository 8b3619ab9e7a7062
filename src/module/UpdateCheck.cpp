#include "module/UpdateCheck.h"

#include <filesystem>
#include <unistd.h>

#include "module/HostBinding.h"
#include "module/PathInfo.h"
#include "module/ProgramStart.h"
#include "module/paths/CurrentDirectoryGuard.h"
#include "module/paths/UserPaths.h"
#include "settings/ModuleFiles.h"
#include "settings/ProfileString.h"

namespace ardo {

namespace {

bool userAgreed() {
    std::string updateIni;
    {
        CurrentDirectoryGuard keep;
        provideUserFile(updateIni, "ArdoUpdate.ini", "", "", true);
    }
    return GetPrivateProfileStringW("UPDATER", "CheckOnStartup", "0", 32, updateIni).text == "1";
}

std::string updaterPath(const std::string& configured) {
    const std::filesystem::path program(configured);
    return program.is_absolute() ? configured : moduleFiles().programFolder + configured;
}

}  // namespace

UpdateCheck runUpdateCheck() {
    // The user's file is provided at every start, so the switch is there to be found.
    const bool agreed = userAgreed();
    const std::string configured = configurationValue("UPDATE", "Updater");
    if (configured.empty()) return UpdateCheck::NotOffered;
    if (!agreed) return UpdateCheck::NoConsent;
    const std::string updater = updaterPath(configured);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(updater, ec) || ::access(updater.c_str(), X_OK) != 0) {
        host().print("No update check: the updater \"" + updater +
                     "\" named in ardo.cfg ([UPDATE] Updater) is not there or cannot be run.\n");
        return UpdateCheck::UpdaterMissing;
    }
    if (!startProgram(updater, {"1"})) {
        host().print("No update check: the updater \"" + updater + "\" could not be started.\n");
        return UpdateCheck::StartFailed;
    }
    return UpdateCheck::Started;
}

}  // namespace ardo
