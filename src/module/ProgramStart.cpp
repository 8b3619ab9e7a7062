#include "module/ProgramStart.h"

#include <spawn.h>
#include <sys/wait.h>

#include <csignal>

extern char** environ;

namespace ardo {

std::vector<std::string> splitArguments(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    bool quoted = false, inWord = false;
    for (char c : text) {
        if (c == '"') {
            quoted = !quoted;
            inWord = true;
        } else if ((c == ' ' || c == '\t') && !quoted) {
            if (inWord) words.push_back(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord) words.push_back(word);
    return words;
}

bool startProgram(const std::string& program, const std::vector<std::string>& arguments) {
    // Children the host never waits for are reaped by the system.
    std::signal(SIGCHLD, SIG_IGN);
    std::vector<std::string> args{program};
    args.insert(args.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    pid_t pid = 0;
    return posix_spawnp(&pid, program.c_str(), nullptr, nullptr, argv.data(), environ) == 0;
}

}  // namespace ardo
