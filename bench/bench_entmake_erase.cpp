// entmake of 100,000 lines and (command "_.ERASE" (ssget "_X") "") over them, through the
// host's LISP in one document, against the same through ezdxf's API (add_line, then
// delete_entity for each entity of model space), side by side. Prints processor and wall
// times and the ratios; target: the host at least 10 times faster.
#include <time.h>

#include <chrono>
#include <cstdio>
#include <string>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "../tests/support/Ezdxf.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLines = 100000;

double cpuSeconds() {
    timespec ts{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) / 1e9;
}

struct Times {
    double wall = 0, cpu = 0;
};

template <typename Work>
Times timed(Work work) {
    const auto start = Clock::now();
    const double cpu = cpuSeconds();
    work();
    return {std::chrono::duration<double>(Clock::now() - start).count(), cpuSeconds() - cpu};
}

// ezdxf times itself: "make <wall> <cpu> erase <wall> <cpu> left <n>".
const char* kEzdxf = R"(
import sys, time, ezdxf
n = int(sys.argv[1])
doc = ezdxf.new('R2018'); msp = doc.modelspace()
t = time.perf_counter(); c = time.process_time()
for i in range(n):
    msp.add_line((i, 0, 0), (i, 1, 0), dxfattribs={'layer': '0'})
mw = time.perf_counter() - t; mc = time.process_time() - c
t = time.perf_counter(); c = time.process_time()
for e in list(msp):
    msp.delete_entity(e)
ew = time.perf_counter() - t; ec = time.process_time() - c
print('make %.6f %.6f erase %.6f %.6f left %d' % (mw, mc, ew, ec, len(msp)))
)";

}  // namespace

int main() {
    std::string output;
    cadhost::ConsoleInterface ui{[&output](std::string_view text) { output += text; }};
    cadhost::Application host{ui};
    host.addDocument(cadhost::Drawing(), false);
    auto run = [&](const std::string& source) {
        const auto r = host.lisp().evaluate(source);
        if (!r.ok) std::fprintf(stderr, "error: %s\n", r.error.c_str());
        return r.ok;
    };
    run("(setvar \"CMDECHO\" 0)");

    bool ok = true;
    const Times make = timed([&] {
        ok = run("(setq i 0) (repeat " + std::to_string(kLines) +
                 " (entmake (list '(0 . \"LINE\") '(8 . \"0\") (list 10 (float i) 0.0 0.0) (list 11 (float i) 1.0 0.0)))"
                 " (setq i (1+ i)))");
    });
    const std::size_t made = host.current().drawing().entityCount();
    const Times erase = timed([&] { ok = ok && run("(command \"_.ERASE\" (ssget \"_X\") \"\")"); });
    const std::size_t left = host.current().drawing().entityCount();
    if (!ok) return 1;
    std::printf("host  entmake %d lines: %8.3f s (processor %8.3f s), %zu entities\n", kLines, make.wall, make.cpu, made);
    std::printf("host  ERASE of all:       %8.3f s (processor %8.3f s), %zu entities left\n", erase.wall, erase.cpu, left);

    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) {
        std::printf("ezdxf: not available, no ratio against it\n");
        return 0;
    }
    const auto r = ardo::test::runPython(*python, kEzdxf, {std::to_string(kLines)}, 3600);
    Times ezMake, ezErase;
    int ezLeft = -1;
    const auto at = r.output.rfind("make ");
    if (r.exitCode != 0 || at == std::string::npos ||
        std::sscanf(r.output.c_str() + at, "make %lf %lf erase %lf %lf left %d", &ezMake.wall, &ezMake.cpu,
                    &ezErase.wall, &ezErase.cpu, &ezLeft) != 5) {
        std::printf("ezdxf: did not run (%s)\n", r.output.c_str());
        return 1;
    }
    std::printf("ezdxf add_line %d lines:  %8.3f s (processor %8.3f s)\n", kLines, ezMake.wall, ezMake.cpu);
    std::printf("ezdxf delete_entity all:  %8.3f s (processor %8.3f s), %d entities left\n", ezErase.wall, ezErase.cpu,
                ezLeft);
    std::printf("host is %.1f x faster making (processor time; wall %.1f x), %.1f x faster erasing (wall %.1f x), "
                "%.1f x in all (target 10)\n",
                ezMake.cpu / make.cpu, ezMake.wall / make.wall, ezErase.cpu / erase.cpu, ezErase.wall / erase.wall,
                (ezMake.cpu + ezErase.cpu) / (make.cpu + erase.cpu));
    return 0;
}
