#include "cadhost/console/Console.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

#include "cadhost/app/Application.h"
#include "cadhost/app/CommandLine.h"
#include "cadhost/app/RepairReport.h"
#include "cadhost/app/ConsoleInterface.h"
#include "cadhost/console/LineReader.h"

namespace cadhost::console {

namespace {

void fail(const std::string& message) { std::cerr << "ardo-cad: " << message << '\n'; }

// A damaged drawing read as far as it can be, each repair listed with its line.
bool openRecovered(const std::string& path, Application& app) {
    auto recovered = Drawing::recover(path);
    if (!recovered) {
        fail(recovered.error());
        return false;
    }
    std::cout << repairReport(recovered->repairs);
    app.addDocument(std::move(recovered->drawing), true);
    return true;
}

// The drawings given, each a document, the last one current; a new drawing when none is.
bool openDrawings(const ConsoleOptions& o, Application& app) {
    if (o.drawings.empty()) {
        app.addDocument(Drawing(), false);
        return true;
    }
    for (const std::string& path : o.drawings) {
        if (o.recover) {
            if (!openRecovered(path, app)) return false;
        } else if (auto opened = app.openDocument(path); !opened) {
            fail(opened.error());
            return false;
        }
    }
    return true;
}

// Feeds the lines to the command line as a script run does; false after (quit). The
// prompt starts on a line of its own, whatever was printed before it.
bool runLines(CommandLine& commandLine, ConsoleInterface& ui, LineReader& reader) {
    while (!commandLine.quitRequested()) {
        const std::string prompt = commandLine.prompt();
        if (!prompt.empty()) ui.startLine();
        const auto line = reader.read(prompt);
        if (!line) break;
        ui.inputEchoed();
        commandLine.enter(*line);
    }
    commandLine.finish();
    return !commandLine.quitRequested();
}

// A script's lines go through the command line as typed ones would; false when it cannot be read.
bool runScript(CommandLine& commandLine, ConsoleInterface& ui, const std::string& path) {
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        fail("cannot read script \"" + path + "\": it is a folder; give the script file in it");
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        fail("cannot read script \"" + path + "\": " + std::strerror(errno) +
             "; check the name and that the file may be read");
        return false;
    }
    StreamReader reader(in);
    runLines(commandLine, ui, reader);
    return true;
}

// Runs the -e and -s steps in order; false when one could not be read or failed.
bool runSteps(const ConsoleOptions& o, CommandLine& commandLine, ConsoleInterface& ui) {
    for (const Step& step : o.steps) {
        if (commandLine.quitRequested()) break;
        const std::size_t failuresBefore = commandLine.failures();
        if (step.kind == Step::Kind::Expression) {
            commandLine.enter(step.text);
            commandLine.finish();
        } else if (!runScript(commandLine, ui, step.text)) {
            return false;
        }
        if (commandLine.failures() != failuresBefore) {
            fail(std::string(step.kind == Step::Kind::Expression ? "the expression \"" : "the script \"") +
                 step.text + "\" failed; later steps and the prompt are skipped");
            return false;
        }
    }
    return true;
}

}  // namespace

// The support folders: the program's own, where the module's files lie, then the drawings'.
std::vector<std::filesystem::path> supportPath(const ConsoleOptions& o, const std::string& programFolder) {
    std::vector<std::filesystem::path> folders{programFolder};
    for (const std::string& drawing : o.drawings) {
        const std::filesystem::path folder = std::filesystem::absolute(drawing).parent_path();
        if (std::find(folders.begin(), folders.end(), folder) == folders.end()) folders.push_back(folder);
    }
    return folders;
}

std::optional<std::string> modulePath(const ConsoleOptions& o, const std::string& programFolder) {
    if (o.noModule) return std::nullopt;
    if (o.module) return o.module;
    const std::filesystem::path beside = std::filesystem::path(programFolder) / "ardo.arx";
    std::error_code ec;
    if (std::filesystem::is_regular_file(beside, ec)) return beside.string();
    return std::nullopt;
}

int runConsole(const ConsoleOptions& o, const std::string& programFolder) {
    const bool interactive = isatty(STDIN_FILENO) == 1;
    ConsoleInterface ui([interactive](std::string_view text) {
        std::cout << text;
        if (interactive) std::cout.flush();
    });
    Application app(ui);
    app.setSupportPath(supportPath(o, programFolder));
    if (!openDrawings(o, app)) return 1;
    for (ardo::MbAnswer a : o.answers) ui.boxes().addScriptAnswer(a);
    std::unique_ptr<TerminalReader> terminal;
    if (interactive) {
        terminal = std::make_unique<TerminalReader>();
        ui.setReader([&terminal](const std::string& prompt) { return terminal->ask(prompt); });
    }

    if (const std::optional<std::string> module = modulePath(o, programFolder)) {
        if (const ardo::Status loaded = app.modules().load(*module); !loaded) {
            fail(loaded.error());
            if (o.module) return 1;
        }
    }
    app.idle();

    CommandLine commandLine(app);
    const bool stepsRan = runSteps(o, commandLine, ui);
    if (stepsRan && !commandLine.quitRequested()) {
        StreamReader script(std::cin);
        runLines(commandLine, ui, terminal ? static_cast<LineReader&>(*terminal) : script);
    }
    int exitCode = stepsRan ? 0 : 1;
    if (o.output) {
        if (!stepsRan) {
            fail("nothing was saved to \"" + *o.output + "\", since the start-up steps did not run through");
        } else if (const ardo::Status saved = app.drawing().save(*o.output); !saved) {
            fail(saved.error());
            exitCode = 1;
        }
    }
    // Ended here, while the terminal the modules' message boxes may still ask is open.
    app.modules().quit();
    std::cout.flush();
    return exitCode;
}

}  // namespace cadhost::console
