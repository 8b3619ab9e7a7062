#include "e2e/E2eSupport.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <fstream>
#include <variant>

extern char** environ;

namespace ardo::e2e {

namespace {

// Debian's python3-ezdxf installs into the system interpreter, which another python3 on
// PATH may not see.
const char* const kPython = "/usr/bin/python3";

}  // namespace

RunResult runProcess(const std::vector<std::string>& argv, const std::map<std::string, std::string>& env,
                     const std::string& input, int timeoutSeconds) {
    RunResult result;
    test::TempFolder io;
    const std::string inputFile = io.file("stdin.txt");
    std::ofstream(inputFile, std::ios::binary) << input;

    std::vector<std::string> full{"timeout", std::to_string(timeoutSeconds), "env"};
    for (const auto& [name, value] : env) full.push_back(name + "=" + value);
    full.insert(full.end(), argv.begin(), argv.end());
    std::vector<char*> args;
    for (std::string& a : full) args.push_back(a.data());
    args.push_back(nullptr);

    int pipeFds[2];
    if (pipe(pipeFds) != 0) return result;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, inputFile.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], 1);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], 2);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
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

Installation::Installation() : folder_(root_.path() / "ardo") {
    fs::copy(ARDO_BUILD_ARDO_DIR, folder_, fs::copy_options::recursive);
    // Settings folders that a run of the build's own ardo-cad left behind are not the
    // installation's: each test starts as a new user of it.
    for (const auto& entry : fs::directory_iterator(folder_ / "Benutzer"))
        if (entry.is_directory()) fs::remove_all(entry.path());
    fs::create_directories(root_.path() / "tmp");
}

void Installation::addCentralKeys(const std::vector<std::string>& lines) const {
    std::ofstream out(file("DefaultIni/Ardo.ini"), std::ios::binary | std::ios::app);
    for (const std::string& line : lines) out << line << "\r\n";
}

RunResult Installation::run(const std::vector<std::string>& args, const std::string& input,
                            std::map<std::string, std::string> env) const {
    env.try_emplace("TMPDIR", (root_.path() / "tmp").string());
    std::vector<std::string> argv{file("ardo-cad").string()};
    argv.insert(argv.end(), args.begin(), args.end());
    return runProcess(argv, env, input);
}

fs::path officeDrawing() { return fs::path(ARDO_SOURCE_DIR) / "examples/drawings/office.dxf"; }
fs::path corpusDrawing() { return fs::path(ARDO_TEST_DATA) / "e2e/colors_r2018.dxf"; }

cadhost::Drawing openSaved(const fs::path& dxf) {
    auto opened = cadhost::Drawing::open(dxf.string());
    if (auto* error = std::get_if<std::string>(&opened)) {
        ADD_FAILURE() << dxf << ": " << *error;
        return cadhost::Drawing();
    }
    return std::move(std::get<cadhost::Drawing>(opened));
}

LayerRecord layerOf(const cadhost::Drawing& drawing, const std::string& name) {
    const auto layer = drawing.findLayer(name);
    if (!layer) ADD_FAILURE() << "the saved drawing has no layer \"" << name << "\"";
    return layer.value_or(LayerRecord{});
}

bool hasEzdxf() { return runProcess({kPython, "-c", "import ezdxf"}, {}, "").exitCode == 0; }

bool hasLibreCad() { return runProcess({"sh", "-c", "command -v librecad"}, {}, "").exitCode == 0; }

std::optional<std::string> ezdxfEval(const fs::path& dxf, const std::string& expression) {
    if (!hasEzdxf()) return std::nullopt;
    const std::string script = "import sys, ezdxf\nd = ezdxf.readfile(sys.argv[1])\nprint(" + expression + ")\n";
    const RunResult r = runProcess({kPython, "-c", script, dxf.string()}, {}, "");
    if (r.exitCode != 0) return "ezdxf failed: " + r.output;
    return r.output;
}

}  // namespace ardo::e2e
