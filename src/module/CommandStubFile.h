#pragma once
// The per-computer command stub file: one LISP definition per command of the module
// definition file's [BEFEHLE] section, so that typing a command of a suite module that is
// not loaded yet loads the module and runs the command.
//
// A [BEFEHLE] line reads COMMAND=program file, the program file relative to the program
// folder or absolute. ObjectARX applications (".ARX", ".DBX") get a stub that loads them
// through kemb_xload when kemb_xloaded answers 1 (found, not loaded); LISP programs
// (".LSP", ".VLX", ".FAS") get a stub that loads the file and calls the command again;
// on an LT host every command is handed to kemb_ltload. VBA projects (".DVB") have no
// LISP loader here and are skipped with a message; any other name is refused.
#include <string>

#include "settings/SettingsStore.h"

namespace ardo {

// The stub file's path: temporary folder, computer name, "_Cmd.lsp".
std::string commandStubPath();

// Writes the stub file for the commands of the definition file (none: only the closing
// line). RTERROR when the file cannot be written, with "Cant open file '%s' for write\n".
int writeCommandStubFile(const std::string& path, const SettingsStore* definition, bool ltHost);

// The LISP expression that loads the stub file: (load "path") with every backslash doubled.
std::string stubLoadExpression(const std::string& path);

}  // namespace ardo
