// DXF load and save of a large drawing (about 200,000 entities on 2,000 layers) against a
// plain read of the file's bytes and against ezdxf reading and saving the same file.
// Prints MB/s, the ratios, and peak resident memory against the file size.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "GeneratedDrawing.h"
#include "cadhost/drawing/Drawing.h"
#include "base/TextFile.h"
#include "../tests/support/Ezdxf.h"
#include "../tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point since) { return std::chrono::duration<double>(Clock::now() - since).count(); }

// Peak resident set size in MB since the last reset.
double peakRssMb() {
    std::ifstream in("/proc/self/status");
    std::string line;
    while (std::getline(in, line))
        if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) / 1024.0;
    return 0;
}

void resetPeakRss() { std::ofstream("/proc/self/clear_refs") << "5"; }

// ezdxf times itself; prints "read <s> save <s>" or nothing when it cannot run.
std::string runEzdxf(const fs::path& in, const fs::path& out) {
    const std::string script =
        "import sys, time, ezdxf\n"
        "t = time.perf_counter(); doc = ezdxf.readfile(sys.argv[1]); r = time.perf_counter() - t\n"
        "t = time.perf_counter(); doc.saveas(sys.argv[2]); s = time.perf_counter() - t\n"
        "print('read %.6f save %.6f' % (r, s))\n";
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) return {};
    // A generous limit: only a reader that hangs is to be stopped.
    const auto r = ardo::test::runPython(*python, script, {in.string(), out.string()}, 3600);
    const auto timing = r.output.rfind("read ");
    if (r.exitCode == 0 && timing != std::string::npos) return r.output.substr(timing);
    return {};
}

}  // namespace

int main() {
    const ardo::test::TempFolder dir;
    const fs::path file = dir / "large.dxf", saved = dir / "saved.dxf", ezdxfSaved = dir / "ezdxf.dxf";
    {
        std::ofstream(file, std::ios::binary) << bench::makeDrawing(2000, 200000);
    }
    const double mb = static_cast<double>(fs::file_size(file)) / 1e6;
    std::printf("drawing: 200000 entities, 2000 layers, %.1f MB\n", mb);

    auto t = Clock::now();
    const auto bytes = ardo::readFileBytes(file.string());
    const double plainRead = seconds(t);
    if (!bytes) return 1;

    resetPeakRss();
    const double rssBefore = peakRssMb();
    t = Clock::now();
    auto opened = cadhost::Drawing::open(file.string());
    const double load = seconds(t);
    if (!opened) { std::fprintf(stderr, "%s\n", opened.error().c_str()); return 1; }
    cadhost::Drawing& d = *opened;
    const double rssAfterLoad = peakRssMb();
    std::printf("entities read: %zu\n", d.entityCount());

    t = Clock::now();
    if (const ardo::Status s = d.save(saved.string()); !s) { std::fprintf(stderr, "%s\n", s.error().c_str()); return 1; }
    const double save = seconds(t);

    std::printf("plain read     %8.3f s %9.1f MB/s\n", plainRead, mb / plainRead);
    std::printf("host load      %8.3f s %9.1f MB/s\n", load, mb / load);
    std::printf("host save      %8.3f s %9.1f MB/s\n", save, mb / save);
    std::printf("peak resident memory while loading: %.1f MB above the %.1f MB before (%.2f x file size)\n",
                rssAfterLoad - rssBefore, rssBefore, (rssAfterLoad - rssBefore) / mb);
    std::printf("load / plain read: %.1f x slower\n", load / plainRead);

    const std::string ez = runEzdxf(file, ezdxfSaved);
    double ezRead = 0, ezSave = 0;
    if (ez.empty() || std::sscanf(ez.c_str(), "read %lf save %lf", &ezRead, &ezSave) != 2) {
        std::printf("ezdxf: not available, no ratio against it\n");
    } else {
        std::printf("ezdxf read     %8.3f s %9.1f MB/s\n", ezRead, mb / ezRead);
        std::printf("ezdxf save     %8.3f s %9.1f MB/s\n", ezSave, mb / ezSave);
        std::printf("host load is %.1f x faster than ezdxf (target 20)\n", ezRead / load);
        std::printf("host save is %.1f x faster than ezdxf (target 20)\n", ezSave / save);
    }
    return 0;
}
