#pragma once
// One session of ardo-cad: open the drawing, load the module, run the start-up steps,
// then the prompt (terminal) or the standard input (script mode), and save at the end.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cadhost/console/ConsoleOptions.h"

namespace cadhost::console {

// The module to load: the one asked for, or ardo.arx beside ardo-cad when it is there.
std::optional<std::string> modulePath(const ConsoleOptions& options, const std::string& programFolder);

// The support folders: the program's own, where the module's files lie, then the drawings'.
std::vector<std::filesystem::path> supportPath(const ConsoleOptions& options, const std::string& programFolder);

// The process's exit code: 0, or 1 after a failure the user was told about.
int runConsole(const ConsoleOptions& options, const std::string& programFolder);

}  // namespace cadhost::console
