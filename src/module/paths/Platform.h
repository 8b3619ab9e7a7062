#pragma once
// The operating system services behind user and system paths. Everything platform-bound
// about users, the computer and folders lives here, so another platform replaces only this.
#include <string>

namespace ardo::platform {

// The login name of the process's user: the password database entry of the effective user,
// else the LOGNAME variable; empty when neither gives a name.
std::string loginName();
// The user's full name from the password database (the first field of the comment), or empty.
std::string fullUserName();
// The computer's name; empty when it cannot be read.
std::string computerName();
// The temporary folder (TMPDIR, else /tmp), always ending with the separator.
std::string tempFolder();

// The user's home folder: HOME, else the password database entry; empty when neither gives one.
std::string homeFolder();

bool folderExists(const std::string& path);
// Creates the folder and every missing folder above it; true when it exists afterwards.
bool createFolders(const std::string& path);
// Creates one folder; false when it cannot be created (also when it exists).
bool createFolder(const std::string& path);
bool changeDirectory(const std::string& path);
// The process's current directory, or empty when it cannot be read.
std::string currentDirectory();
// True for anything that exists under the path, a folder included.
bool fileExists(const std::string& path);
// Copies a file with its permissions; fails, leaving everything as it was, when the
// target exists or the copy cannot be completed.
bool copyFileNoOverwrite(const std::string& from, const std::string& to);
// Gives the owner read and write permission, as installed defaults may be read-only.
bool makeReadWrite(const std::string& path);

}  // namespace ardo::platform
