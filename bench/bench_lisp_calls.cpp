// The whole road of one layer call: LISP reader, interpreter, dispatch into ardo.arx, the
// handler and the drawing. kemb_newlayer for a layer that exists and for a new one (a fresh
// key each call, from a generated central file), against the same number of calls of a
// registered function that does nothing (ardo$loaded), all in one run. Then the start-up
// time of ardo-cad to its first prompt, spawned with -e "(quit)".
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "cadhost/app/ModuleLoader.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kCalls = 20000;
constexpr int kStarts = 15;

std::string keyOf(int i) {
    char key[16];
    std::snprintf(key, sizeof key, "B_%05d", i);
    return key;
}

// A copy of the build's installation for a new user: settings folders that runs of the
// build's own ardo-cad left behind are dropped.
fs::path copyInstallation(const fs::path& folder) {
    fs::copy(ARDO_BUILD_ARDO_DIR, folder, fs::copy_options::recursive);
    for (const auto& entry : fs::directory_iterator(folder / "Benutzer"))
        if (entry.is_directory()) fs::remove_all(entry.path());
    return folder;
}

// A copy of the installation whose default central file has one key per call.
fs::path makeInstallation(const fs::path& root) {
    const fs::path folder = copyInstallation(root / "ardo");
    std::ofstream ini(folder / "DefaultIni/Ardo.ini", std::ios::binary | std::ios::trunc);
    ini << "[LAYER]\r\n";
    for (int i = 0; i <= kCalls; ++i)
        ini << keyOf(i) << "=Bench-" << i << "," << 1 + i % 250 << ",Continuous,,0,,,25,Normal,Bench,1\r\n";
    return folder;
}

// Seconds for `calls` evaluations of the expressions that make(i) gives; stops at the first
// failure, which it reports.
template <typename Make>
double timeCalls(cadhost::Application& host, int calls, Make make, const char* expect) {
    const auto start = Clock::now();
    for (int i = 1; i <= calls; ++i) {
        const auto r = host.lisp().evaluate(make(i));
        if (!r.ok || r.printed != expect) {
            std::fprintf(stderr, "call %d of %s gave %s\n", i, make(i).c_str(), r.ok ? r.printed.c_str() : r.error.c_str());
            std::exit(1);
        }
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Seconds from spawning ardo-cad until it has run (quit) at its first prompt and ended.
double startUpSeconds(const fs::path& exe) {
    const std::string program = exe.string();
    std::vector<std::string> args{program, "-e", "(quit)"};
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", 0, 0);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1, 0);
    const auto start = Clock::now();
    pid_t pid = 0;
    if (posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ) != 0) {
        std::fprintf(stderr, "cannot start %s\n", program.c_str());
        std::exit(1);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s -e (quit) failed with status %d\n", program.c_str(), status);
        std::exit(1);
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void report(const char* what, double seconds, double baseline) {
    std::printf("  %-34s %8.1f ms  %10.0f calls/s  %6.2fx the baseline's time\n", what, seconds * 1e3,
                kCalls / seconds, seconds / baseline);
}

}  // namespace

int main() {
    std::string pattern = (fs::temp_directory_path() / "bench-lisp-XXXXXX").string();
    if (!mkdtemp(pattern.data())) return 1;
    const fs::path root = pattern;
    const fs::path folder = makeInstallation(root);
    fs::create_directories(root / "tmp");
    setenv("TMPDIR", (root / "tmp").c_str(), 1);

    {
        cadhost::ConsoleInterface ui([](std::string_view) {});
        cadhost::Application host(ui);
        host.addDocument(cadhost::Drawing(), false);
        if (const ardo::Status loaded = host.modules().load((folder / "ardo.arx").string()); !loaded) {
            std::fprintf(stderr, "%s\n", loaded.error().c_str());
            return 1;
        }
        host.idle();
        host.lisp().evaluate("(kemb_newlayer \"B\" \"B_00000\")");

        std::printf("%d calls each, one run (reader, interpreter, dispatch into ardo.arx, handler, drawing):\n",
                    kCalls);
        const double baseline = timeCalls(host, kCalls, [](int) { return std::string("(ardo$loaded)"); }, "T");
        const double existing = timeCalls(
            host, kCalls, [](int) { return std::string("(kemb_newlayer \"B\" \"B_00000\")"); }, "0");
        const double fresh = timeCalls(
            host, kCalls, [](int i) { return "(kemb_newlayer \"B\" \"" + keyOf(i) + "\")"; }, "0");
        report("(ardo$loaded)  baseline", baseline, baseline);
        report("kemb_newlayer, layer exists", existing, baseline);
        report("kemb_newlayer, new layer each call", fresh, baseline);
        std::size_t layers = 0;
        host.drawing().forEachLayer([&](const ardo::LayerRecord&) { return ++layers, true; });
        std::printf("  layers in the drawing afterwards: %zu\n", layers);
    }

    // Start-up with the example installation's own central file.
    const fs::path plain = copyInstallation(root / "plain");
    std::vector<double> starts;
    for (int i = 0; i < kStarts; ++i) starts.push_back(startUpSeconds(plain / "ardo-cad"));
    std::sort(starts.begin(), starts.end());
    std::printf("ardo-cad start-up to its first prompt and (quit), %d runs: median %.1f ms (min %.1f, max %.1f)\n",
                kStarts, starts[kStarts / 2] * 1e3, starts.front() * 1e3, starts.back() * 1e3);
    fs::remove_all(root);
    return 0;
}
