#include "module/paths/UserPaths.h"

#include "module/HostBinding.h"
#include "base/Printf.h"
#include "boundary/ResBuf.h"
#include "module/paths/CurrentDirectoryGuard.h"
#include "module/paths/PathJoin.h"
#include "module/paths/Platform.h"
#include "settings/ProfileString.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

// The user root is read into a buffer of this many characters.
constexpr size_t kPathBuffer = 260;

std::string withoutTrailingSeparators(std::string path) {
    while (path.size() > 1 && path.back() == kPathSeparator) path.pop_back();
    return path;
}

// The folder, plus the subfolder when one is given, with a trailing separator.
std::string folderWithSubfolder(const std::string& folder, const std::string& subfolder) {
    return withTrailingSeparator(subfolder.empty() ? folder : joinPath(folder, subfolder));
}

// An "LCINIT" text of the message file, or the built-in text when the file has none.
std::string lcinitTextOr(const char* key, const char* fallback) {
    std::string text;
    if (MessageFile::instance().loaded()) MessageFile::instance().text("LCINIT", key, text);
    return text.empty() ? fallback : text;
}

// Creates the user folder under the root and the subfolder in it, changing into each.
bool createUserFolder(const std::string& userRoot, const std::string& folderName, const std::string& subfolder) {
    if (!platform::changeDirectory(userRoot)) return false;
    platform::createFolder(folderName);
    if (!platform::changeDirectory(folderName)) return false;
    if (subfolder.empty()) return true;
    platform::createFolder(subfolder);
    return platform::changeDirectory(subfolder);
}

int userPathFailed(std::string& result, bool quiet) {
    result.clear();
    if (!quiet) host().alert(lcinitTextOr("CantCreateUserPath", "Cant create user ini path"));
    return RTERROR;
}

// A found default becomes the target's writable copy; a copy onto itself has nothing to do.
bool copyDown(const std::string& from, const std::string& to) {
    if (from == to) return true;
    return platform::copyFileNoOverwrite(from, to) && platform::makeReadWrite(to);
}

// The user file from the defaults: the user root's default folder, else the program
// folder's default folder by way of the user root's.
bool copyFromDefaults(const std::string& userFile, const std::string& fileName, const std::string& subfolder) {
    std::string defaultPath;
    if (getUserPath(defaultPath, subfolder, kDefaultMarker, true) != RTNORM) return false;
    const std::string defaultFile = defaultPath + fileName;
    if (!platform::fileExists(defaultFile)) {
        std::string sysDefaultPath;
        getUserPath(sysDefaultPath, subfolder, kSysDefaultMarker, true);
        const std::string sysDefaultFile = sysDefaultPath + fileName;
        if (!platform::fileExists(sysDefaultFile) || !copyDown(sysDefaultFile, defaultFile)) return false;
    }
    return copyDown(defaultFile, userFile);
}

}  // namespace

std::string systemConfigurationFile() {
    return joinPath(withoutTrailingSeparators(moduleFiles().programFolder), "Ardo_Sys.cfg");
}

int readUserRoot(std::string& result) {
    result = GetPrivateProfileStringW("ARDO_SYS_INI", "USER_ROOT", "", kPathBuffer, systemConfigurationFile()).text;
    if (result.empty()) return RTERROR;
    // A root in the home ("~/...") lets one read-only installation serve every user; the
    // folder is the user's own, so it is made on first use.
    if (result == "~" || result.starts_with("~/")) {
        result = joinPath(platform::homeFolder(), result.substr(std::min<size_t>(2, result.size())));
        platform::createFolders(result);
        return RTNORM;
    }
    // A relative root lies below the program folder, so an installation can carry its users.
    if (result.front() != kPathSeparator) result = joinPath(moduleFiles().programFolder, result);
    return RTNORM;
}

int getUserName(std::string& result) {
    result = platform::loginName();
    if (result.empty()) result = kDefaultUserName;
    return RTNORM;
}

int getComputerName(std::string& result) {
    result = platform::computerName();
    return result.empty() ? RTERROR : RTNORM;
}

int getUserPath(std::string& result, const std::string& subfolder, const std::string& userName, bool quiet) {
    const std::string& programFolder = moduleFiles().programFolder;
    std::string userRoot;
    if (readUserRoot(userRoot) != RTNORM) {
        result = folderWithSubfolder(programFolder, subfolder);
        return RTNORM;
    }
    if (userName == kSysDefaultMarker) {
        result = folderWithSubfolder(joinPath(programFolder, kDefaultFolderName), subfolder);
        return RTNORM;
    }
    std::string folderName = userName;
    if (userName == kDefaultMarker) folderName = kDefaultFolderName;
    else if (userName.empty()) getUserName(folderName);

    const std::string fullFolder = folderWithSubfolder(joinPath(userRoot, folderName), subfolder);
    CurrentDirectoryGuard keepDirectory;
    if (!platform::changeDirectory(fullFolder) && !createUserFolder(userRoot, folderName, subfolder))
        return userPathFailed(result, quiet);
    result = fullFolder;
    return RTNORM;
}

int provideUserFile(std::string& result, const std::string& fileName, const std::string& subfolder,
                    const std::string& userName, bool quiet) {
    std::string userPath;
    std::string userRoot;
    if (readUserRoot(userRoot) != RTNORM) {
        getUserPath(userPath, subfolder, userName, quiet);
        result = userPath + fileName;
        return RTNORM;
    }
    if (getUserPath(userPath, subfolder, userName, quiet) != RTNORM) {
        result.clear();
        return RTERROR;
    }
    result = userPath + fileName;
    if (platform::fileExists(result) || copyFromDefaults(result, fileName, subfolder)) return RTNORM;
    if (!quiet) host().alert(format(lcinitTextOr("CantCopyIniFile", "Cant copy ini file '%s'"), fileName));
    return RTERROR;
}

}  // namespace ardo
