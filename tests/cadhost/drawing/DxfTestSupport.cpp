#include "cadhost/drawing/DxfTestSupport.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

extern char** environ;

namespace cadhost::test {

namespace fs = std::filesystem;

std::string fixture(const std::string& name) { return std::string(ARDO_TEST_DATA) + "/dxf/" + name; }

fs::path corpusDir() { return fs::path(ARDO_SOURCE_DIR) / ".." / "shared" / "dxf-corpus"; }

std::vector<fs::path> corpusFiles() {
    std::vector<fs::path> files;
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(corpusDir(), ec))
        if (e.path().extension() == ".dxf") files.push_back(e.path());
    std::sort(files.begin(), files.end());
    return files;
}

Drawing openOrFail(const std::string& path) {
    auto r = Drawing::open(path);
    if (auto* e = std::get_if<std::string>(&r)) {
        ADD_FAILURE() << *e;
        return Drawing();
    }
    return std::move(std::get<Drawing>(r));
}

Drawing parseOrFail(const std::string& bytes) {
    auto r = Drawing::fromBytes(bytes);
    if (auto* e = std::get_if<std::string>(&r)) {
        ADD_FAILURE() << *e;
        return Drawing();
    }
    return std::move(std::get<Drawing>(r));
}

ProcessResult run(const std::vector<std::string>& argv, int timeoutSeconds) {
    ProcessResult result;
    int pipeFds[2];
    if (pipe(pipeFds) != 0) return result;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], 1);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], 2);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
    // LibreCAD waits for input on some damaged files; timeout(1) ends such runs.
    std::vector<std::string> full{"timeout", std::to_string(timeoutSeconds)};
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

std::optional<std::string> pythonWithEzdxf() {
    // The Debian package installs into the system interpreter, which a user's own python3
    // earlier on PATH may not see.
    for (const char* candidate : {"python3", "/usr/bin/python3"})
        if (run({candidate, "-c", "import ezdxf"}).exitCode == 0) return std::string(candidate);
    return std::nullopt;
}

bool hasLibreCad() { return run({"sh", "-c", "command -v librecad"}).exitCode == 0; }

std::string ezdxfAuditErrors(const std::string& python, const fs::path& dxf) {
    const char* script =
        "import sys, ezdxf\n"
        "doc = ezdxf.readfile(sys.argv[1])\n"
        "a = doc.audit()\n"
        "for e in a.errors: print('ERROR', e.code, e.message)\n"
        "for f in a.fixes: print('FIXED', f.code, f.message)\n"
        "sys.exit(1 if a.has_errors or a.has_fixes else 0)\n";
    const ProcessResult r = run({python, "-c", script, dxf.string()});
    return r.exitCode == 0 ? std::string() : "exit " + std::to_string(r.exitCode) + ": " + r.output;
}

bool libreCadRenders(const fs::path& dxf, std::string& log) {
    const fs::path pdf = fs::path(dxf).replace_extension(".pdf");
    std::error_code ec;
    fs::remove(pdf, ec);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const ProcessResult r = run({"librecad", "dxf2pdf", "-o", pdf.string(), dxf.string()}, 60);
    log = r.output;
    return r.exitCode == 0 && fs::exists(pdf) && fs::file_size(pdf) > 0;
}

}  // namespace cadhost::test
