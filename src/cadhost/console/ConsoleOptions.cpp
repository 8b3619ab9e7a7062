#include "cadhost/console/ConsoleOptions.h"

#include "cadhost/app/MessageBoxes.h"

namespace cadhost::console {

const char* const kUsage =
    "usage: ardo-cad [drawing.dxf] [-e EXPR]... [-s script.lsp]... [-o out.dxf]\n"
    "                [--answer yes|no|ok|cancel]... [--no-module | --module PATH]\n"
    "  -e EXPR      evaluate a LISP expression after start-up (repeatable)\n"
    "  -s FILE      run a script of LISP expressions and command lines (repeatable)\n"
    "  -o FILE      save the drawing as DXF at the end\n"
    "  --answer A   answer the next message box in script mode (repeatable, in order)\n"
    "  --module P   load this module instead of ardo.arx beside ardo-cad\n"
    "  --no-module  load no module\n";

std::variant<ConsoleOptions, std::string> parseOptions(const std::vector<std::string>& args) {
    ConsoleOptions o;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&]() -> const std::string* { return i + 1 < args.size() ? &args[++i] : nullptr; };
        if (a == "-h" || a == "--help") {
            o.help = true;
        } else if (a == "--audit-layers") {
            auto parsed = audit::parseLayerAuditOptions({args.begin() + static_cast<std::ptrdiff_t>(i) + 1, args.end()});
            if (auto* error = std::get_if<std::string>(&parsed)) return *error;
            o.audit = std::move(std::get<audit::LayerAuditOptions>(parsed));
            break;
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
        } else if (o.drawing) {
            return "only one drawing can be opened; \"" + a + "\" is a second one";
        } else {
            o.drawing = a;
        }
    }
    if (o.noModule && o.module) return "--no-module and --module exclude each other";
    if (o.audit && (o.noModule || o.drawing || !o.steps.empty() || o.output))
        return "--audit-layers goes with --module only; the drawings follow it";
    return o;
}

}  // namespace cadhost::console
