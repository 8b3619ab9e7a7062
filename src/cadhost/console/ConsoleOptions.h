#pragma once
// The command line of ardo-cad:
//   ardo-cad [drawing.dxf] [-e EXPR]... [-s script.lsp]... [-o out.dxf]
//            [--answer yes|no|ok|cancel]... [--no-module | --module PATH]
//   ardo-cad [--module PATH] --audit-layers ... (see LayerAuditOptions.h)
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "boundary/Host.h"
#include "cadhost/audit/LayerAuditOptions.h"

namespace cadhost::console {

// One start-up step, in the order given: an expression (-e) or a script file (-s).
struct Step {
    enum class Kind { Expression, Script } kind;
    std::string text;
};

struct ConsoleOptions {
    std::optional<std::string> drawing;
    std::vector<Step> steps;
    std::optional<std::string> output;
    std::vector<ardo::MbAnswer> answers;
    bool noModule = false;
    std::optional<std::string> module;
    bool help = false;
    // Set by --audit-layers, which takes every argument after it.
    std::optional<audit::LayerAuditOptions> audit;
};

// The options, or a message saying what is wrong.
std::variant<ConsoleOptions, std::string> parseOptions(const std::vector<std::string>& args);
extern const char* const kUsage;

}  // namespace cadhost::console
