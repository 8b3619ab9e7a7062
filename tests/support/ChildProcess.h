#pragma once
// Runs a program as a child process and collects what it printed, for the tests and the
// benchmarks that compare the host with independent programs (ezdxf, LibreCAD).
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "TempFolder.h"

extern char** environ;

namespace ardo::test {

struct ProcessResult {
    int exitCode = -1;    // -1 when the program could not be started or did not exit
    std::string output;   // stdout and stderr together
};

// What the child gets besides its arguments: variables added to the environment, and its
// standard input (empty: an empty file, so it never waits for a terminal).
struct ProcessInput {
    std::map<std::string, std::string> environment;
    std::string standardInput;
};

// The program is looked up along PATH. timeout(1) ends it after the given seconds, as
// some readers wait for input on damaged files.
inline ProcessResult runProcess(const std::vector<std::string>& argv, int timeoutSeconds = 120,
                                const ProcessInput& input = {}) {
    ProcessResult result;
    TempFolder io;
    const std::string inputFile = io.write("stdin.txt", input.standardInput);
    int pipeFds[2];
    if (pipe(pipeFds) != 0) return result;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, inputFile.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], 1);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], 2);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
    std::vector<std::string> full{"timeout", std::to_string(timeoutSeconds), "env"};
    for (const auto& [name, value] : input.environment) full.push_back(name + "=" + value);
    full.insert(full.end(), argv.begin(), argv.end());
    std::vector<char*> args;
    for (auto& a : full) args.push_back(a.data());
    args.push_back(nullptr);
    pid_t pid = 0;
    const int rc = posix_spawnp(&pid, "timeout", &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeFds[1]);
    if (rc != 0) {
        close(pipeFds[0]);
        return result;
    }
    char buf[4096];
    for (ssize_t n; (n = read(pipeFds[0], buf, sizeof buf)) > 0;) result.output.append(buf, static_cast<size_t>(n));
    close(pipeFds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

}  // namespace ardo::test
