#include "cadhost/app/DocumentCommands.h"

#include "base/CaseFold.h"
#include "cadhost/app/Application.h"

namespace cadhost {

bool DocumentCommands::knows(std::string_view name) {
    return name == "DRAWINGS" || name == "SWITCH" || name == "OPEN" || name == "CLOSE";
}

void DocumentCommands::run(const std::string& name, std::string_view argument) {
    argument = ardo::trimWhite(argument);
    if (name == "DRAWINGS") return list();
    if (name == "CLOSE") return close(argument);
    if (!argument.empty()) {
        waiting_ = name;
        answer(argument);
        return;
    }
    if (name == "SWITCH") list();
    waiting_ = name;
}

std::string DocumentCommands::prompt() const {
    if (waiting_ == "SWITCH") return "Drawing to make current (number or name): ";
    if (waiting_ == "OPEN") return "Drawing to open: ";
    return {};
}

void DocumentCommands::answer(std::string_view line) {
    const std::string command = std::move(waiting_);
    waiting_.clear();
    line = ardo::trimWhite(line);
    // Enter leaves things as they are, as at the host's other prompts.
    if (line.empty()) return;
    if (command == "SWITCH") switchTo(line);
    if (command == "OPEN") open(line);
}

void DocumentCommands::list() {
    std::size_t number = 0;
    for (const auto& document : app_.documents()) {
        const bool current = document.get() == &app_.current();
        app_.printLine((current ? "* " : "  ") + std::to_string(++number) + "  " + document->name() + "  (" +
                       document->path() + ")");
    }
}

void DocumentCommands::switchTo(std::string_view which) {
    Document* document = app_.findDocument(which);
    if (!document) {
        app_.printLine("No open drawing \"" + std::string(which) + "\".  DRAWINGS lists the open ones.");
        return;
    }
    app_.activate(*document);
    app_.printLine("Current drawing: " + document->name());
}

void DocumentCommands::open(std::string_view file) {
    if (auto opened = app_.openDocument(std::string(file)); !opened)
        app_.printLine(opened.error());
    else
        app_.printLine("Current drawing: " + (*opened)->name());
}

void DocumentCommands::close(std::string_view which) {
    Document* document = which.empty() ? &app_.current() : app_.findDocument(which);
    if (!document) {
        app_.printLine("No open drawing \"" + std::string(which) + "\".  DRAWINGS lists the open ones.");
        return;
    }
    if (auto closed = app_.closeDocument(*document); !closed) {
        app_.printLine(closed.error());
        return;
    }
    app_.printLine("Current drawing: " + app_.current().name());
}

}  // namespace cadhost
