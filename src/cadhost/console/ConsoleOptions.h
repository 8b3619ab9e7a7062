#pragma once
// The command line of ardo-cad. The option table below is the one description of the options:
// the parser's help text and the man page are both made from it.
#include <optional>
#include <span>
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
    // Opened in order; the last one is current.
    std::vector<std::string> drawings;
    std::vector<Step> steps;
    std::optional<std::string> output;
    std::vector<ardo::MbAnswer> answers;
    bool noModule = false;
    std::optional<std::string> module;
    bool help = false;
    bool version = false;
    bool recover = false;   // open a damaged drawing, listing the repairs
    bool gui = false;       // the main window instead of the prompt
    // --audit-layers: the drawings and folders given are audited (checkLayerAudit says
    // whether the run can be made).
    bool auditLayers = false;
    audit::LayerAuditOptions audit;
};

// One row of the option table: its spellings ("-h, --help"), the name of its value (empty
// for a switch), whether it may be given more than once, and what it does.
struct OptionRow {
    const char* names;
    const char* value;
    bool repeatable;
    const char* text;
};

std::span<const OptionRow> optionTable();
// The spelling the synopsis shows: the last one, "--help" for "-h, --help".
std::string synopsisName(const OptionRow& row);
// The operands after the options, as the synopsis shows them.
extern const char* const kOperands;
// "usage: ..." and one line per option, as --help prints it.
std::string usageText();

// The options, or a message saying what is wrong.
std::variant<ConsoleOptions, std::string> parseOptions(const std::vector<std::string>& args);

}  // namespace cadhost::console
