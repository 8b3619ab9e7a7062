#pragma once
// One session of ardo-cad: open the drawing, load the module, run the start-up steps,
// then the prompt (terminal) or the standard input (script mode), and save at the end.
#include <optional>
#include <string>

#include "cadhost/console/ConsoleOptions.h"

namespace cadhost::console {

// The module to load: the one asked for, or ardo.arx beside ardo-cad when it is there.
std::optional<std::string> modulePath(const ConsoleOptions& options, const std::string& programFolder);

// The process's exit code: 0, or 1 after a failure the user was told about.
int runConsole(const ConsoleOptions& options, const std::string& programFolder);

}  // namespace cadhost::console
