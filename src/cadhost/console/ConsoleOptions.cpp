#include "cadhost/console/ConsoleOptions.h"

#include <utility>

#include "cadhost/app/MessageBoxes.h"

namespace cadhost::console {

namespace {

constexpr std::size_t kTextColumn = 20;

// A new option is one row here and one branch in parseOptions.
constexpr OptionRow kOptions[] = {
    {"--gui", "", false, "open the drawings in the main window instead of the console"},
    {"-e", "EXPR", true, "evaluate a LISP expression after start-up"},
    {"-s", "FILE", true, "run a script of LISP expressions and command lines"},
    {"-o", "FILE", false, "save the current drawing as DXF at the end, unless an -e or -s step failed"},
    {"--answer", "yes|no|ok|cancel", true, "answer the next message box in script mode, in the order given"},
    {"--module", "PATH", false, "load this module instead of ardo.arx beside ardo-cad"},
    {"--no-module", "", false, "load no module"},
    {"--recover", "", false, "open a damaged drawing as far as it can be read and list the repairs"},
    {"--version", "", false, "print the program, module and DXF versions and exit"},
    {"--audit-layers", "", false,
     "audit the drawings and folders given against the central layer file (exit status 1: deviations)"},
    {"--central", "FILE", false, "with --audit-layers: the central layer file instead of the configured one"},
    {"--apply", "", false, "with --audit-layers: bring the named layers in line and save the drawings"},
    {"--rename", "MAPFILE", false, "with --audit-layers: move layers by a file of old name patterns and keys"},
    {"--dry-run", "", false, "with --apply or --rename: tell what would change and save nothing"},
    {"--report", "FILE", true, "with --audit-layers: write an .html or a .csv report"},
    {"--jobs", "N", false, "with --audit-layers: drawings audited at once (default: the number of cores)"},
    {"-h, --help", "", false, "print this help and exit"},
};

std::string synopsisItem(const OptionRow& row) {
    std::string item = "[" + synopsisName(row);
    if (*row.value) item += std::string(" ") + row.value;
    return item + (row.repeatable ? "]..." : "]");
}

}  // namespace

std::span<const OptionRow> optionTable() { return kOptions; }

std::string synopsisName(const OptionRow& row) {
    const std::string names = row.names;
    const auto comma = names.rfind(", ");
    return comma == std::string::npos ? names : names.substr(comma + 2);
}

const char* const kOperands = "[drawing.dxf]...";

// What --help says of several drawings after the options.
const char* const kDrawingsHelp =
    "Several drawings are opened in the order given; the last one is current. At the Command:\n"
    "prompt DRAWINGS lists them, SWITCH n (or SWITCH name) makes one current, OPEN file.dxf\n"
    "opens one more and CLOSE closes the current one; in LISP (drawings), (switchdrawing x),\n"
    "(opendrawing \"file.dxf\") and (closedrawing [x]). Each drawing keeps its own LISP\n"
    "variables and functions.\n";

std::string usageText() {
    std::string text = std::string("usage: ardo-cad ") + kOperands;
    std::size_t column = text.size();
    for (const OptionRow& row : kOptions) {
        const std::string item = synopsisItem(row);
        if (column + 1 + item.size() > 78) {
            text += "\n               ";
            column = 15;
        }
        text += " " + item;
        column += 1 + item.size();
    }
    text += "\n";
    for (const OptionRow& row : kOptions) {
        std::string left = std::string("  ") + row.names;
        if (*row.value) left += std::string(" ") + row.value;
        // A long option and value get the text on a line of its own.
        left = left.size() + 2 > kTextColumn ? left + "\n" + std::string(kTextColumn, ' ')
                                              : left + std::string(kTextColumn - left.size(), ' ');
        text += left + row.text + (row.repeatable ? " (repeatable)" : "") + "\n";
    }
    return text + kDrawingsHelp;
}

std::variant<ConsoleOptions, std::string> parseOptions(const std::vector<std::string>& args) {
    ConsoleOptions o;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&]() -> const std::string* { return i + 1 < args.size() ? &args[++i] : nullptr; };
        if (a == "-h" || a == "--help") {
            o.help = true;
        } else if (a == "--version") {
            o.version = true;
        } else if (a == "--audit-layers") {
            o.auditLayers = true;
        } else if (a == "--apply" || a == "--dry-run") {
            (a == "--apply" ? o.audit.apply : o.audit.dryRun) = true;
        } else if (a == "--central" || a == "--rename" || a == "--report" || a == "--jobs") {
            const std::string* v = value();
            if (!v) return "option " + a + " needs a value";
            audit::setLayerAuditValue(o.audit, a, *v);
        } else if (a == "--no-module") {
            o.noModule = true;
        } else if (a == "--recover") {
            o.recover = true;
        } else if (a == "--gui") {
            o.gui = true;
        } else if (a == "-e" || a == "-s" || a == "-o" || a == "--answer" || a == "--module") {
            const std::string* v = value();
            if (!v) return "option " + a + " needs a value";
            if (a == "-e") o.steps.push_back({Step::Kind::Expression, *v});
            if (a == "-s") o.steps.push_back({Step::Kind::Script, *v});
            if (a == "-o") o.output = *v;
            if (a == "--module") o.module = *v;
            if (a == "--answer") {
                const auto answer = parseAnswer(*v);
                if (!answer) return "--answer takes yes, no, ok or cancel, not \"" + *v + "\"";
                o.answers.push_back(*answer);
            }
        } else if (a.starts_with('-') && a.size() > 1) {
            return "unknown option " + a;
        } else {
            o.drawings.push_back(a);
        }
    }
    // With --audit-layers the operands are the drawings and folders to audit.
    if (o.auditLayers) o.audit.inputs = std::exchange(o.drawings, {});
    if (o.auditLayers && (o.noModule || !o.steps.empty() || o.output))
        return "--audit-layers works with the module and without -e, -s and -o";
    if (o.gui && (o.auditLayers || o.output || !o.answers.empty() || o.recover))
        return "--gui works without --audit-layers, -o, --answer and --recover; the window saves and asks itself";
    if (o.noModule && o.module) return "--no-module and --module exclude each other";
    return o;
}

}  // namespace cadhost::console
