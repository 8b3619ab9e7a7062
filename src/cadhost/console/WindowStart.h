#pragma once
// ardo-cad --gui: the same session as the console's (module, drawings, -e and -s steps),
// shown in the main window.
#include <string>

#include "cadhost/console/ConsoleOptions.h"

namespace cadhost::console {

// The exit code when the window is closed.
int runWindow(const ConsoleOptions& options, const std::string& programFolder, int& argc, char** argv);

}  // namespace cadhost::console
