#pragma once
// Each user of the suite has a settings folder under a common user root, configured by key
// USER_ROOT of section ARDO_SYS_INI in "Ardo_Sys.cfg" of the program folder. Without a user
// root every setting lives in the program folder. A user's settings file is provided on first
// use by copying a default down the chain: the user root's "DefaultIni" folder, then the
// program folder's "DefaultIni" folder. Nothing here ever overwrites an existing file.
//
// Work functions report RTNORM or RTERROR; results are folders with a trailing separator.
#include <string>

namespace ardo {

inline constexpr const char* kDefaultUserName = "_Default";
inline constexpr const char* kDefaultFolderName = "DefaultIni";
inline constexpr const char* kDefaultMarker = "<DEFAULT>";
inline constexpr const char* kSysDefaultMarker = "<SYS_DEFAULT>";

// The system configuration file in the program folder.
std::string systemConfigurationFile();

// RTNORM with the configured user root (a relative one taken below the program folder);
// RTERROR when none is configured.
int readUserRoot(std::string& result);

// The login name, or "_Default" when it cannot be read or is empty; always RTNORM.
int getUserName(std::string& result);

// RTERROR with an empty result when the computer's name cannot be read or is empty.
int getComputerName(std::string& result);

// The user's settings folder (plus subfolder), created when missing. userName may be empty
// (the login name), "<DEFAULT>" (the user root's default folder) or "<SYS_DEFAULT>" (the
// program folder's default folder, never created). Without a user root it is the program
// folder. On failure an alert "CantCreateUserPath" unless quiet, and an empty result.
// The current directory is kept as the caller had it.
int getUserPath(std::string& result, const std::string& subfolder, const std::string& userName, bool quiet);

// The user's settings file, copied from the nearest default when the user has none yet and
// made writable. Without a user root the file of the program folder (plus subfolder), as it
// is. When no default is found or a copy fails: an alert "CantCopyIniFile" unless quiet,
// RTERROR, and the result names the user file that could not be provided.
int provideUserFile(std::string& result, const std::string& fileName, const std::string& subfolder,
                    const std::string& userName, bool quiet);

}  // namespace ardo
