// DXF load and save of a large drawing (200,000 entities on 2,000 layers, and five times
// that for the growth) against a plain read of the file's bytes and against ezdxf reading
// and saving the same file. Prints MB/s, the ratios, and peak resident memory against the
// file size. Load and save are the best of a few runs (the machine may be busy); the save
// ends with the disk sync that keeps a drafter's file safe, which ezdxf does not make, so
// the save is also shown without it (the same bytes written to a file left unsynced).
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

#include "GeneratedDrawing.h"
#include "cadhost/drawing/Drawing.h"
#include "../tests/support/Ezdxf.h"
#include "../tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point since) { return std::chrono::duration<double>(Clock::now() - since).count(); }

// Processor time of this process: on a shared machine it counts the work, not the waiting.
double cpuSeconds() {
    timespec ts{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) / 1e9;
}

// A line of /proc/self/status in MB: VmRSS (resident now) or VmHWM (peak resident).
double statusMb(const std::string& field) {
    std::ifstream in("/proc/self/status");
    std::string line;
    while (std::getline(in, line))
        if (line.rfind(field, 0) == 0) return std::stod(line.substr(field.size())) / 1024.0;
    return 0;
}

// Peak memory of a load, measured in a fresh process: in this one the heap keeps blocks freed
// by earlier work, which a load reuses without growing the resident set.
double peakAboveMbOfLoad(const fs::path& file) {
    const std::string command = fs::read_symlink("/proc/self/exe").string() + " --load-peak '" + file.string() + "'";
    FILE* child = popen(command.c_str(), "r");
    double mb = -1;
    if (!child || std::fscanf(child, "%lf", &mb) != 1) mb = -1;
    if (child) pclose(child);
    return mb;
}

// The child's side: loads the file once and prints the peak resident MB above the start.
int printLoadPeak(const char* file) {
    const double before = statusMb("VmRSS:");
    const auto opened = cadhost::Drawing::open(file);
    if (!opened) return 1;
    std::printf("%.3f\n", statusMb("VmHWM:") - before);
    return 0;
}

// ezdxf times itself; prints "read <s> save <s> cpu <s> <s>" or nothing when it cannot run.
std::string runEzdxf(const fs::path& in, const fs::path& out) {
    const std::string script =
        "import sys, time, ezdxf\n"
        "t = time.perf_counter(); c = time.process_time(); doc = ezdxf.readfile(sys.argv[1])\n"
        "r = time.perf_counter() - t; rc = time.process_time() - c\n"
        "t = time.perf_counter(); c = time.process_time(); doc.saveas(sys.argv[2])\n"
        "s = time.perf_counter() - t; sc = time.process_time() - c\n"
        "print('read %.6f save %.6f cpu %.6f %.6f' % (r, s, rc, sc))\n";
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) return {};
    // A generous limit: only a reader that hangs is to be stopped.
    const auto r = ardo::test::runPython(*python, script, {in.string(), out.string()}, 3600);
    const auto timing = r.output.rfind("read ");
    if (r.exitCode == 0 && timing != std::string::npos) return r.output.substr(timing);
    return {};
}

constexpr int kRuns = 3;

struct Run {
    double mb = 0, plainRead = 0, load = 0, save = 0, loadCpu = 0, saveCpu = 0, peakAboveMb = 0;
    double unsynced = 0, unsyncedCpu = 0;
    std::size_t entities = 0;
};

// Loads and saves one generated drawing, with a plain read of its bytes beside it.
std::optional<Run> measure(const ardo::test::TempFolder& dir, int entities) {
    const fs::path file = dir / "large.dxf", saved = dir / "saved.dxf";
    {
        std::ofstream(file, std::ios::binary) << bench::makeDrawing(2000, entities);
    }
    Run run;
    run.mb = static_cast<double>(fs::file_size(file)) / 1e6;

    auto t = Clock::now();
    {
        std::ifstream in(file, std::ios::binary);
        std::string bytes(fs::file_size(file), '\0');
        in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        run.plainRead = seconds(t);
    }

    run.peakAboveMb = peakAboveMbOfLoad(file);
    std::optional<ardo::Result<cadhost::Drawing>> opened;
    run.load = run.loadCpu = 1e300;
    for (int i = 0; i < kRuns; ++i) {
        opened.reset();
        t = Clock::now();
        const double cpu = cpuSeconds();
        opened.emplace(cadhost::Drawing::open(file.string()));
        run.load = std::min(run.load, seconds(t));
        run.loadCpu = std::min(run.loadCpu, cpuSeconds() - cpu);
        if (!*opened) {
            std::fprintf(stderr, "%s\n", (*opened).error().c_str());
            return std::nullopt;
        }
    }
    cadhost::Drawing& d = **opened;
    run.entities = d.entityCount();

    run.save = run.saveCpu = run.unsynced = run.unsyncedCpu = 1e300;
    for (int i = 0; i < kRuns; ++i) {
        t = Clock::now();
        double cpu = cpuSeconds();
        if (const ardo::Status s = d.save(saved.string()); !s) {
            std::fprintf(stderr, "%s\n", s.error().c_str());
            return std::nullopt;
        }
        run.save = std::min(run.save, seconds(t));
        run.saveCpu = std::min(run.saveCpu, cpuSeconds() - cpu);

        t = Clock::now();
        cpu = cpuSeconds();
        {
            const std::string bytes = d.toDxf();
            std::ofstream(dir / "unsynced.dxf", std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        }
        run.unsynced = std::min(run.unsynced, seconds(t));
        run.unsyncedCpu = std::min(run.unsyncedCpu, cpuSeconds() - cpu);
    }
    std::printf("drawing: %zu entities read, 2000 layers, %.1f MB\n", run.entities, run.mb);
    std::printf("  plain read     %8.3f s %9.1f MB/s\n", run.plainRead, run.mb / run.plainRead);
    std::printf("  host load      %8.3f s %9.1f MB/s  (processor %.3f s)\n", run.load, run.mb / run.load, run.loadCpu);
    std::printf("  host save      %8.3f s %9.1f MB/s  (processor %.3f s)\n", run.save, run.mb / run.save, run.saveCpu);
    std::printf("    without sync %8.3f s %9.1f MB/s  (processor %.3f s)\n", run.unsynced, run.mb / run.unsynced,
                run.unsyncedCpu);
    std::printf("  peak resident memory while loading: %.1f MB above before, %.2f x file size (target at most 2)\n",
                run.peakAboveMb, run.peakAboveMb / run.mb);
    std::printf("  load / plain read: %.1f x slower\n", run.load / run.plainRead);
    return run;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string(argv[1]) == "--load-peak") return printLoadPeak(argv[2]);
    const ardo::test::TempFolder dir;
    const auto small = measure(dir, 200000);
    if (!small) return 1;

    // Growth: five times the drawing should take about five times as long.
    if (const auto large = measure(dir, 1000000)) {
        std::printf("growth from %.0f MB to %.0f MB: load time per MB x %.2f, load+save time per MB x %.2f (linear: 1)\n",
                    small->mb, large->mb, (large->load / large->mb) / (small->load / small->mb),
                    ((large->load + large->save) / large->mb) / ((small->load + small->save) / small->mb));
        // The machine's own cost per MB grows too (fresh pages, caches): the plain read shows it.
        std::printf("  the plain read of the file: time per MB x %.2f\n",
                    (large->plainRead / large->mb) / (small->plainRead / small->mb));
    }

    // ezdxf reads and saves the smaller drawing side by side.
    const fs::path file = dir / "ezdxf-in.dxf", ezdxfSaved = dir / "ezdxf.dxf";
    {
        std::ofstream(file, std::ios::binary) << bench::makeDrawing(2000, 200000);
    }
    const std::string ez = runEzdxf(file, ezdxfSaved);
    double ezRead = 0, ezSave = 0, ezReadCpu = 0, ezSaveCpu = 0;
    if (ez.empty() ||
        std::sscanf(ez.c_str(), "read %lf save %lf cpu %lf %lf", &ezRead, &ezSave, &ezReadCpu, &ezSaveCpu) != 4) {
        std::printf("ezdxf: not available, no ratio against it\n");
        return 0;
    }
    std::printf("ezdxf read     %8.3f s %9.1f MB/s\n", ezRead, small->mb / ezRead);
    std::printf("ezdxf save     %8.3f s %9.1f MB/s\n", ezSave, small->mb / ezSave);
    std::printf("ezdxf processor time: read %.3f s, save %.3f s\n", ezReadCpu, ezSaveCpu);
    std::printf("host load is %.1f x faster than ezdxf (target 100); by processor time %.1f x\n",
                ezRead / small->load, ezReadCpu / small->loadCpu);
    std::printf("host load+save is %.1f x faster than ezdxf read+save (target 100); by processor time %.1f x\n",
                (ezRead + ezSave) / (small->load + small->save),
                (ezReadCpu + ezSaveCpu) / (small->loadCpu + small->saveCpu));
    std::printf("  the same with the save left unsynced, as ezdxf's: %.1f x; by processor time %.1f x\n",
                (ezRead + ezSave) / (small->load + small->unsynced),
                (ezReadCpu + ezSaveCpu) / (small->loadCpu + small->unsyncedCpu));
    return 0;
}
