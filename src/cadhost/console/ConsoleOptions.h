#pragma once
// The command line of ardo-cad:
//   ardo-cad [drawing.dxf]... [-e EXPR]... [-s script.lsp]... [-o out.dxf]
//            [--answer yes|no|ok|cancel]... [--no-module | --module PATH]
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "boundary/Host.h"

namespace cadhost::console {

// One start-up step, in the order given: an expression (-e) or a script file (-s).
struct Step {
    enum class Kind { Expression, Script } kind;
    std::string text;
};

struct ConsoleOptions {
    // Opened in order; the last one is current.
    std::vector<std::string> drawings;
    std::vector<Step> steps;
    std::optional<std::string> output;
    std::vector<ardo::MbAnswer> answers;
    bool noModule = false;
    std::optional<std::string> module;
    bool help = false;
};

// The options, or a message saying what is wrong.
std::variant<ConsoleOptions, std::string> parseOptions(const std::vector<std::string>& args);
extern const char* const kUsage;

}  // namespace cadhost::console
