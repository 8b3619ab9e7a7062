#pragma once
// The LISP side of module loading, as the commercial host has it: (arxload "file"
// [onfailure]), (arxunload "app" [onfailure]) and (arx).
#include <string>

namespace cadhost {

namespace lisp {
class Interpreter;
}

// The application name of a file name or path: its file name, ".arx" added when it has
// no extension, as the host accepts "ardo", "ardo.arx" and a full path alike.
std::string appNameOf(const std::string& nameOrPath);

void defineModuleFunctions(lisp::Interpreter& in);

}  // namespace cadhost
