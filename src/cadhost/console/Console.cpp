#include "cadhost/console/Console.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "cadhost/app/CadHost.h"
#include "cadhost/app/CommandLine.h"
#include "cadhost/console/LineReader.h"

namespace cadhost::console {

namespace {

void fail(const std::string& message) { std::cerr << "ardo-cad: " << message << '\n'; }

struct OpenedDrawing {
    Drawing drawing;
    bool titled = false;
};

std::optional<OpenedDrawing> openDrawing(const ConsoleOptions& o) {
    if (!o.drawing) return OpenedDrawing{Drawing(), false};
    auto opened = Drawing::open(*o.drawing);
    if (auto* error = std::get_if<std::string>(&opened)) {
        fail(*error);
        return std::nullopt;
    }
    return OpenedDrawing{std::move(std::get<Drawing>(opened)), true};
}

// Feeds the lines to the command line as a script run does; false after (quit).
bool runLines(CommandLine& commandLine, LineReader& reader) {
    while (!commandLine.quitRequested())
        if (const auto line = reader.read(commandLine.prompt()))
            commandLine.enter(*line);
        else
            break;
    commandLine.finish();
    return !commandLine.quitRequested();
}

// A script's lines go through the command line as typed ones would; false when it cannot be read.
bool runScript(CommandLine& commandLine, const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        fail("cannot read script \"" + path + "\": " + std::strerror(errno) +
             "; check the name and that the file may be read");
        return false;
    }
    StreamReader reader(in);
    runLines(commandLine, reader);
    return true;
}

}  // namespace

std::optional<std::string> modulePath(const ConsoleOptions& o, const std::string& programFolder) {
    if (o.noModule) return std::nullopt;
    if (o.module) return o.module;
    const std::filesystem::path beside = std::filesystem::path(programFolder) / "ardo.arx";
    std::error_code ec;
    if (std::filesystem::is_regular_file(beside, ec)) return beside.string();
    return std::nullopt;
}

int runConsole(const ConsoleOptions& o, const std::string& programFolder) {
    std::optional<OpenedDrawing> opened = openDrawing(o);
    if (!opened) return 1;
    const bool interactive = isatty(STDIN_FILENO) == 1;
    CadHost host(std::move(opened->drawing), opened->titled, [interactive](std::string_view text) {
        std::cout << text;
        if (interactive) std::cout.flush();
    });
    for (ardo::MbAnswer a : o.answers) host.boxes().addScriptAnswer(a);
    // The support folders: the program's own, where the module's files lie, then the drawing's.
    std::vector<std::filesystem::path> support{programFolder};
    if (o.drawing) support.push_back(std::filesystem::absolute(*o.drawing).parent_path());
    host.lisp().setSearchPath(std::move(support));
    std::unique_ptr<TerminalReader> terminal;
    if (interactive) {
        terminal = std::make_unique<TerminalReader>();
        host.boxes().setReader([&terminal](const std::string& prompt) { return terminal->ask(prompt); });
    }

    int exitCode = 0;
    if (const std::optional<std::string> module = modulePath(o, programFolder)) {
        if (const auto error = host.modules().load(*module)) {
            fail(*error);
            if (o.module) return 1;
        }
    }
    host.runQueuedExpressions();

    CommandLine commandLine(host);
    for (const Step& step : o.steps) {
        if (commandLine.quitRequested()) break;
        if (step.kind == Step::Kind::Expression) {
            commandLine.enter(step.text);
            commandLine.finish();
        } else if (!runScript(commandLine, step.text)) {
            exitCode = 1;
            break;
        }
    }
    if (exitCode == 0 && !commandLine.quitRequested()) {
        StreamReader script(std::cin);
        runLines(commandLine, terminal ? static_cast<LineReader&>(*terminal) : script);
    }
    if (o.output) {
        if (const auto error = host.drawing().save(*o.output)) {
            fail(*error);
            exitCode = 1;
        }
    }
    // Ended here, while the terminal the modules' message boxes may still ask is open.
    host.modules().quit();
    std::cout.flush();
    return exitCode;
}

}  // namespace cadhost::console
