#include "cadhost/console/LineReader.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

// readline's header needs stdio first.
#include <readline/history.h>
#include <readline/readline.h>

namespace cadhost::console {

namespace {

std::string homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home) return home;
    if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir) return pw->pw_dir;
    return {};
}

std::optional<std::string> readlineOnce(const std::string& prompt) {
    std::fflush(stdout);
    char* raw = readline(prompt.c_str());
    if (!raw) return std::nullopt;
    std::string line(raw);
    std::free(raw);
    return line;
}

}  // namespace

std::string historyFile() {
    const std::string home = homeFolder();
    return home.empty() ? std::string() : home + "/.ardo-cad_history";
}

TerminalReader::TerminalReader() {
    using_history();
    stifle_history(1000);
    historyFile_ = historyFile();
    if (!historyFile_.empty()) read_history(historyFile_.c_str());
}

TerminalReader::~TerminalReader() {
    if (!historyFile_.empty()) write_history(historyFile_.c_str());
}

std::optional<std::string> TerminalReader::read(const std::string& prompt) {
    std::optional<std::string> line = readlineOnce(prompt);
    if (line && !line->empty()) add_history(line->c_str());
    return line;
}

std::optional<std::string> TerminalReader::ask(const std::string& prompt) { return readlineOnce(prompt); }

std::optional<std::string> StreamReader::read(const std::string& prompt) {
    std::string line;
    if (!std::getline(in_, line)) return std::nullopt;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::cout << prompt << line << '\n';
    return line;
}

}  // namespace cadhost::console
