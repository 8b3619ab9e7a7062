// The whole road of one layer call: LISP reader, interpreter, dispatch into ardo.arx, the
// handler and the drawing. kemb_newlayer for a layer that exists and for a new one (a fresh
// key each call, from a generated central file), against the same number of calls of a
// registered function that does nothing (ardo$loaded), all in one run; a tblnext walk over
// all layers at two sizes of the drawing. Then the start-up
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
#include <functional>
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
constexpr int kRounds = 20;
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

struct Walk {
    std::size_t records = 0;
    double seconds = 0;
};

// A whole walk of the layer table with tblnext, as LISP programs list the layers.
Walk timeWalk(cadhost::Application& host) {
    Walk walk;
    const auto start = Clock::now();
    const auto first = host.lisp().evaluate("(tblnext \"LAYER\" T)");
    if (first.ok && first.printed != "nil") ++walk.records;
    for (;;) {
        const auto r = host.lisp().evaluate("(tblnext \"LAYER\")");
        if (!r.ok || r.printed == "nil") break;
        ++walk.records;
    }
    walk.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return walk;
}

// Seconds from spawning ardo-cad until it has run the expressions and (quit) and ended.
double runSeconds(const fs::path& exe, const std::vector<std::string>& expressions) {
    const std::string program = exe.string();
    std::vector<std::string> args{program};
    for (const auto& e : expressions) args.insert(args.end(), {"-e", e});
    args.insert(args.end(), {"-e", "(quit)"});
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
        std::fprintf(stderr, "%s with %zu expressions failed with status %d\n", program.c_str(), expressions.size(),
                     status);
        std::exit(1);
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double startUpSeconds(const fs::path& exe) { return runSeconds(exe, {}); }

double fastestOf(int runs, const std::function<double()>& run) {
    double best = 1e30;
    for (int i = 0; i < runs; ++i) best = std::min(best, run());
    return best;
}

// Key lookups and writes in central files of growing size, each in an ardo-cad of its own:
// the first kemb_newlayer of the last key, kemb_getlayerkey of its layer, kemb_iniSchreiben
// of a new key. The time beyond a start-up that only reads the file must grow no faster than
// the file.
void largeCentralFiles(const fs::path& root) {
    std::printf("Central files of growing size (ardo-cad runs; time beyond start-up and reading the file):\n");
    double firstPerKey = 0;
    for (const int keys : {10000, 50000, 100000}) {
        const fs::path folder = copyInstallation(root / ("large-" + std::to_string(keys)));
        {
            std::ofstream ini(folder / "DefaultIni/Ardo.ini", std::ios::binary | std::ios::trunc);
            ini << "[LAYER]\r\n";
            for (int i = 0; i < keys; ++i)
                ini << "L_" << i << "=Large-" << i << "," << 1 + i % 250 << ",Continuous,,0,,,25,Normal,Bench,1\r\n";
        }
        const fs::path exe = folder / "ardo-cad";
        const std::string last = std::to_string(keys - 1);
        const std::vector<std::string> work{
            "(kemb_newlayer \"B\" \"L_" + last + "\")", "(kemb_getlayerkey \"B\" \"Large-" + last + "\")",
            "(kemb_iniSchreiben \"LAYER\" \"NEU_1\" \"Neu,1,Continuous,,0\")",
            "(kemb_iniSchreiben \"LAYER\" \"NEU_2\" \"Neu2,2,Continuous,,0\")"};
        startUpSeconds(exe);  // the user's copy of the central file is made at the first start
        const double base = fastestOf(3, [&] { return startUpSeconds(exe); });
        const double withWork = fastestOf(3, [&] { return runSeconds(exe, work); });
        const double extra = std::max(withWork - base, 1e-6);
        if (firstPerKey == 0) firstPerKey = extra / keys;
        std::printf("  %6d keys: start-up %8.1f ms, 4 lookups and writes %8.1f ms, per key %.2fx the 10,000-key run's\n",
                    keys, base * 1e3, extra * 1e3, (extra / keys) / firstPerKey);
    }
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
        // The two repeated calls alternate in rounds, and each keeps its fastest round: on a
        // shared machine the load changes while they run.
        double baseline = 1e30, existing = 1e30;
        for (int round = 0; round < kRounds; ++round) {
            const auto trivial = [](int) { return std::string("(ardo$loaded)"); };
            const auto again = [](int) { return std::string("(kemb_newlayer \"B\" \"B_00000\")"); };
            baseline = std::min(baseline, timeCalls(host, kCalls / kRounds, trivial, "T") * kRounds);
            existing = std::min(existing, timeCalls(host, kCalls / kRounds, again, "0") * kRounds);
        }
        // New layers in two halves, with a tblnext walk over all layers after each: the time
        // per record must not grow with the number of layers.
        const auto fresh = [](int offset) {
            return [offset](int i) { return "(kemb_newlayer \"B\" \"" + keyOf(offset + i) + "\")"; };
        };
        const double freshFirst = timeCalls(host, kCalls / 2, fresh(0), "0");
        const auto firstWalk = timeWalk(host);
        const double freshSecond = timeCalls(host, kCalls - kCalls / 2, fresh(kCalls / 2), "0");
        const auto secondWalk = timeWalk(host);
        report("(ardo$loaded)  baseline", baseline, baseline);
        report("kemb_newlayer, layer exists", existing, baseline);
        report("kemb_newlayer, new layer each call", freshFirst + freshSecond, baseline);
        const double perCall = baseline / kCalls;
        for (const auto& walk : {firstWalk, secondWalk})
            std::printf("  tblnext walk over %6zu layers       %8.1f ms  %6.2fx the baseline's time per record\n",
                        walk.records, walk.seconds * 1e3, walk.seconds / double(walk.records) / perCall);
        std::printf("  time per record, second walk against the first: %.2fx (linear: about 1)\n",
                    (secondWalk.seconds / double(secondWalk.records)) /
                        (firstWalk.seconds / double(firstWalk.records)));
    }

    largeCentralFiles(root);

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
