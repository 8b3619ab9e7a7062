#pragma once
// The host's command line: one line of input at a time, as the console's prompt and
// scripts give it. A LISP expression is evaluated and its value printed ("!name" shows a
// variable); lines of an expression whose parentheses are still open are collected
// first. A word naming a C: function runs it; a word naming a host command starts it,
// further words on that line and the following lines answering its prompts (a whole
// line is one answer, an empty line is Enter). "QUIT" and "EXIT" end the session;
// DRAWINGS, SWITCH, OPEN and CLOSE work on the open drawings (see DocumentCommands).
// Input goes to the current document.
#include <string>
#include <string_view>

#include "cadhost/app/DocumentCommands.h"

namespace cadhost {

class Application;

class CommandLine {
public:
    explicit CommandLine(Application& host) : host_(host), documents_(host) {}

    void enter(std::string_view line);
    // What the prompt shows before the next line: "Command: " when nothing is under way.
    std::string prompt() const;
    // Ends the input; an expression left open is reported as the host reports it.
    void finish();
    bool quitRequested() const;
    // True while a line would go to something under way (a command, an open expression,
    // a drawing command's question) rather than start something new.
    bool busy() const;
    // True when the command processor shows this line on the command line itself (a host
    // command's name or an answer to its prompt, with CMDECHO on); a window that echoes
    // typed lines echoes every other one, so each shows once.
    bool echoesItself(std::string_view line) const;
    // CMDECHO of the current drawing: whether commands echo their input and prompts.
    bool commandEcho() const;
    // How many lines failed so far: a LISP error, an unknown command, an expression left
    // open. A session's start-up steps must not fail.
    std::size_t failures() const { return failures_; }

private:
    enum class Route { MoreExpression, DocumentAnswer, CommandAnswer, Expression, Variable, Command, Nothing };
    enum class CommandKind { Quit, Documents, Lisp, Host, Unknown };
    // Where a line goes; entering it and echoing it follow the same rule.
    Route route(std::string_view line) const;
    CommandKind kindOf(const std::string& word) const;
    // One line of input; enter() adds the undo steps around it.
    void step(std::string_view line);
    // Every command and every expression typed is one undo step.
    void closeUndoStep(const std::string& label);
    void evaluate(std::string_view source);
    void answer(std::string_view line);
    void startCommand(std::string_view line);
    void feed(const std::string& token);

    Application& host_;
    DocumentCommands documents_;
    std::string openExpression_;
    std::string stepLabel_;
    bool quit_ = false;
    std::size_t failures_ = 0;
};

// True when every parenthesis opened outside strings and comments is closed.
bool expressionComplete(std::string_view source);

}  // namespace cadhost
