#pragma once
// The commands the host knows by their global names, and how a typed name finds one.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cadhost/commands/Command.h"

namespace cadhost::commands {

struct CommandEntry {
    std::string_view name;
    CommandFactory make;
};

// The name without its "_" (global name) and "." (built-in) prefixes, in capitals;
// "-" before a name asks for the command-line form, which is the only form here.
std::string commandKey(std::string_view typed);
std::optional<CommandEntry> findCommand(std::string_view typed);
// Every command's global name, for completion at a command line.
std::vector<std::string_view> commandNames();

}  // namespace cadhost::commands
