#include "cadhost/app/CommandLine.h"

#include <sstream>
#include <vector>

#include "cadhost/app/Application.h"
#include "cadhost/commands/CommandNames.h"
#include "cadhost/lisp/ResBufConvert.h"
#include "base/CaseFold.h"

namespace cadhost {

namespace {

std::vector<std::string> words(std::string_view line) {
    std::istringstream in{std::string(line)};
    std::vector<std::string> out;
    for (std::string w; in >> w;) out.push_back(w);
    return out;
}

}  // namespace

bool expressionComplete(std::string_view source) {
    int depth = 0;
    for (std::size_t i = 0; i < source.size(); ++i) {
        const char c = source[i];
        if (c == '"') {
            for (++i; i < source.size() && source[i] != '"'; ++i)
                if (source[i] == '\\') ++i;
            if (i >= source.size()) return false;   // a string still open
        } else if (c == ';') {
            if (i + 1 < source.size() && source[i + 1] == '|') {
                const std::size_t end = source.find("|;", i + 2);
                if (end == std::string_view::npos) return false;
                i = end + 1;
            } else {
                const std::size_t end = source.find('\n', i);
                if (end == std::string_view::npos) break;
                i = end;
            }
        } else if (c == '(') {
            ++depth;
        } else if (c == ')') {
            --depth;
        }
    }
    return depth <= 0;
}

bool CommandLine::busy() const {
    return !openExpression_.empty() || documents_.waiting() || (host_.hasDocument() && host_.commands().active());
}

void CommandLine::closeUndoStep(const std::string& label) {
    if (host_.hasDocument()) host_.current().undoHistory().closeStep(label);
}

CommandLine::Route CommandLine::route(std::string_view line) const {
    if (!openExpression_.empty()) return Route::MoreExpression;
    if (documents_.waiting()) return Route::DocumentAnswer;
    if (host_.commands().active()) return Route::CommandAnswer;
    const std::string_view text = ardo::trimWhite(line);
    if (text.starts_with('(')) return Route::Expression;
    if (text.starts_with('!')) return Route::Variable;
    return text.empty() ? Route::Nothing : Route::Command;
}

CommandLine::CommandKind CommandLine::kindOf(const std::string& word) const {
    const std::string name = ardo::upperCase(word);
    if (name == "QUIT" || name == "EXIT") return CommandKind::Quit;
    if (DocumentCommands::knows(name)) return CommandKind::Documents;
    if (host_.lisp().isCommand(word)) return CommandKind::Lisp;
    return host_.commands().knows(word) ? CommandKind::Host : CommandKind::Unknown;
}

bool CommandLine::commandEcho() const { return host_.commands().echoes(); }

bool CommandLine::echoesItself(std::string_view line) const {
    const std::string_view text = ardo::trimWhite(line);
    switch (route(line)) {
    case Route::CommandAnswer:
        // A LISP expression answers with its value, which is what the command echoes.
        return !text.starts_with('(') && commandEcho();
    case Route::Command:
        return kindOf(words(text).front()) == CommandKind::Host && commandEcho();
    default:
        return false;
    }
}

void CommandLine::enter(std::string_view line) {
    if (!busy()) {
        // Changes made meanwhile outside the command line (a dialog, a pane) are a step
        // of their own; this input starts the next.
        closeUndoStep("GROUP");
        const std::string_view text = ardo::trimWhite(line);
        stepLabel_ = text.starts_with('(') || text.starts_with('!') || text.empty()
                         ? std::string("GROUP")
                         : commands::commandKey(words(text).front());
    }
    step(line);
    host_.idle();
    if (!busy()) closeUndoStep(stepLabel_);
}

void CommandLine::step(std::string_view line) {
    const std::string_view text = ardo::trimWhite(line);
    switch (route(line)) {
    case Route::MoreExpression: {
        openExpression_ += '\n';
        openExpression_ += line;
        if (!expressionComplete(openExpression_)) return;
        const std::string source = std::move(openExpression_);
        openExpression_.clear();
        evaluate(source);
        break;
    }
    case Route::DocumentAnswer: documents_.answer(line); break;
    case Route::CommandAnswer: answer(line); break;
    case Route::Expression:
        if (!expressionComplete(text)) {
            openExpression_ = std::string(text);
            return;
        }
        evaluate(text);
        break;
    case Route::Variable: evaluate(text.substr(1)); break;
    case Route::Command: startCommand(text); break;
    case Route::Nothing: break;
    }
}

void CommandLine::evaluate(std::string_view source) {
    if (!host_.lisp().topLevel(source) && !quitRequested()) ++failures_;
}

// A LISP expression at a command's prompt answers it with its value.
void CommandLine::answer(std::string_view line) {
    const std::string_view text = ardo::trimWhite(line);
    if (!text.starts_with('(')) {
        feed(std::string(line));
        return;
    }
    const lisp::EvalResult result = host_.lisp().evaluate(text);
    if (!result.ok) {
        host_.commands().cancel();
        return;
    }
    ardo::ResBufChain tokens;
    lisp::appendArgument(tokens, result.value);
    host_.command(tokens);
}

void CommandLine::startCommand(std::string_view line) {
    const std::vector<std::string> parts = words(line);
    const std::string name = ardo::upperCase(parts.front());
    switch (kindOf(parts.front())) {
    case CommandKind::Quit: quit_ = true; return;
    case CommandKind::Documents:
        documents_.run(name, line.substr(parts.front().size()));   // the line comes trimmed
        return;
    case CommandKind::Lisp: host_.lisp().runCommand(parts.front()); return;
    case CommandKind::Unknown:
        ++failures_;
        host_.print("Unknown command \"" + name + "\".  Press F1 for help.\n");
        return;
    case CommandKind::Host: break;
    }
    for (const std::string& token : parts) {
        feed(token);
        if (!host_.commands().active()) break;
    }
}

void CommandLine::feed(const std::string& token) {
    try {
        host_.command({ardo::ResBuf::str(token)});
    } catch (const std::exception& e) {
        ++failures_;
        host_.commands().cancel();
        host_.print(std::string("; error: ") + e.what() + "\n");
    }
}

std::string CommandLine::prompt() const {
    if (documents_.waiting()) return documents_.prompt();
    return openExpression_.empty() && !host_.commands().active() ? "Command: " : "";
}

void CommandLine::finish() {
    if (openExpression_.empty()) return;
    openExpression_.clear();
    ++failures_;
    host_.print("; error: malformed list on input\n");
}

bool CommandLine::quitRequested() const { return quit_ || host_.quitRequested(); }

}  // namespace cadhost
