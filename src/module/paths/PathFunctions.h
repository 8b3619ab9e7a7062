#pragma once
// LISP functions that give the suite's LISP code the user and system paths. Every path
// ends with the separator when it names a folder; errors yield nil.
//
// A suite module's settings subfolder is the last folder name of the module's entry in the
// configuration's MODULE section (its folder under the program folder, written with either
// slash), so a module installed in "Kabel\" keeps its settings in the user's "Kabel"
// folder; a module without an entry uses its own name.

namespace ardo::handlers {

// (kemb_GetUserIniPath module [user]): the user's settings folder of the module, created
// when missing. An empty module name is a bad value; a third argument is refused.
int kemb_GetUserIniPath();

// (kemb_GetUserIniFile file [subfolder [user]]): the full name of the user's settings file,
// provided from the defaults on first use. An empty subfolder means none.
int kemb_GetUserIniFile();

// (kemb_GetUserIniFileByModule module file [user]): as kemb_GetUserIniFile, in the module's
// settings subfolder.
int kemb_GetUserIniFileByModule();

// (kemb_GetUserNames): the list (login-name full-name); the full name is the password
// database's and empty when it has none. No argument is accepted.
int kemb_GetUserNames();

// (kemb_GetCurrentUserName): the login name, "_Default" when it cannot be read.
int kemb_GetCurrentUserName();

// (kemb_GetComputerName): the computer's name, nil when it cannot be read.
int kemb_GetComputerName();

// (kemb_GetUserTempPath): the user's temporary folder (TMPDIR, else /tmp).
int kemb_GetUserTempPath();

}  // namespace ardo::handlers
