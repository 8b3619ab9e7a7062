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
    // The last drawing is not closed at all, so nothing need be asked about it.
    if (app_.documents().size() > 1 && !settleChanges(*document)) return;
    if (auto closed = app_.closeDocument(*document); !closed) {
        app_.printLine(closed.error());
        return;
    }
    app_.printLine("Current drawing: " + app_.current().name());
}

bool DocumentCommands::settleChanges(Document& document) {
    if (!document.drawing().hasUnsavedChanges()) return true;
    const ardo::MbAnswer answer = app_.ui().messageBox("Save changes to " + document.path() + "?", "ardo-cad",
                                                       ardo::MbButtons::YesNoCancel, ardo::MbIcon::Question);
    if (answer == ardo::MbAnswer::No) return true;
    if (answer != ardo::MbAnswer::Yes) {
        app_.printLine("\"" + document.name() + "\" stays open.");
        return false;
    }
    std::string path = document.path();
    if (document.drawing().getVar("DWGPREFIX")->text.empty()) {
        // Never saved: it needs a file name first, as SAVEAS asks for one.
        const auto given = app_.ui().prompt("Save drawing as <" + path + ">: ");
        if (!given) {
            app_.printLine("\"" + document.name() + "\" has no file name yet and stays open; save it with SAVEAS.");
            return false;
        }
        const std::string_view typed = ardo::trimWhite(*given);
        if (!typed.empty()) path = typed;
    }
    if (const ardo::Status saved = document.drawing().save(path); !saved) {
        app_.printLine(saved.error() + "  \"" + document.name() + "\" stays open.");
        return false;
    }
    return true;
}

}  // namespace cadhost
