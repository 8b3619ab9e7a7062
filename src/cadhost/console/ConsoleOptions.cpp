#include "cadhost/console/ConsoleOptions.h"

#include "cadhost/app/MessageBoxes.h"

namespace cadhost::console {

const char* const kUsage =
    "usage: ardo-cad [drawing.dxf]... [-e EXPR]... [-s script.lsp]... [-o out.dxf]\n"
    "                [--answer yes|no|ok|cancel]... [--no-module | --module PATH]\n"
    "  drawing.dxf  open this drawing; several are opened in order, the last one current\n"
    "  -e EXPR      evaluate a LISP expression after start-up (repeatable)\n"
    "  -s FILE      run a script of LISP expressions and command lines (repeatable)\n"
    "  -o FILE      save the current drawing as DXF at the end; nothing is saved when\n"
    "               an -e expression or -s script failed (exit status 1)\n"
    "  --answer A   answer the next message box in script mode (repeatable, in order)\n"
    "  --module P   load this module instead of ardo.arx beside ardo-cad\n"
    "  --no-module  load no module\n"
    "With several drawings open, at the Command: prompt DRAWINGS lists them, SWITCH n\n"
    "makes drawing n (or the one of that name) current, OPEN file.dxf opens one more and\n"
    "CLOSE closes the current one. In LISP: (drawings), (switchdrawing n-or-name),\n"
    "(opendrawing \"file.dxf\") and (closedrawing [n-or-name]); each drawing keeps its own\n"
    "LISP variables and functions.\n";

std::variant<ConsoleOptions, std::string> parseOptions(const std::vector<std::string>& args) {
    ConsoleOptions o;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&]() -> const std::string* { return i + 1 < args.size() ? &args[++i] : nullptr; };
        if (a == "-h" || a == "--help") {
            o.help = true;
        } else if (a == "--no-module") {
            o.noModule = true;
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
    if (o.noModule && o.module) return "--no-module and --module exclude each other";
    return o;
}

}  // namespace cadhost::console
