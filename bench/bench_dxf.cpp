// DXF load and save of a large drawing (about 200,000 entities on 2,000 layers) against a
// plain read of the file's bytes and against ezdxf reading and saving the same file.
// Prints MB/s, the ratios, and peak resident memory against the file size.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "cadhost/drawing/Drawing.h"
#include "host/TextFile.h"

extern char** environ;

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

std::string handle(unsigned long h) {
    char buf[20];
    std::snprintf(buf, sizeof buf, "%lX", h);
    return buf;
}

// One entity of four kinds in turn, owned by model space, on one of the layers.
void appendEntity(std::string& out, unsigned long h, int i) {
    const std::string layer = "Layer_" + std::to_string(i % 2000);
    const double x = (i % 1000) * 1.5, y = (i / 1000) * 2.25;
    char buf[512];
    const std::string head = "  0\n%s\n  5\n" + handle(h) + "\n330\n17\n100\nAcDbEntity\n  8\n" + layer + "\n";
    switch (i % 4) {
        case 0:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbLine\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 11\n%.6f\n 21\n%.6f\n 31\n0.0\n",
                          std::string("  0\nLINE" + head.substr(6)).c_str(), x, y, x + 10.0, y + 5.0);
            break;
        case 1:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbCircle\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n%.6f\n",
                          std::string("  0\nCIRCLE" + head.substr(6)).c_str(), x, y, 1.0 + i % 7);
            break;
        case 2:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbText\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n2.5\n  1\nText %d\n100\nAcDbText\n",
                          std::string("  0\nTEXT" + head.substr(6)).c_str(), x, y, i);
            break;
        default:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbPolyline\n 90\n3\n 70\n0\n 10\n%.6f\n 20\n%.6f\n 10\n%.6f\n 20\n%.6f\n 10\n%.6f\n 20\n%.6f\n",
                          std::string("  0\nLWPOLYLINE" + head.substr(6)).c_str(), x, y, x + 3, y, x + 3, y + 3);
    }
    out += buf;
}

std::string makeDrawing(int layers, int entities) {
    cadhost::Drawing d;
    for (int i = 0; i < layers; ++i) {
        ardo::LayerRecord r;
        r.name = "Layer_" + std::to_string(i);
        r.color = ardo::HostColor::fromIndex(1 + i % 255);
        d.addLayer(r);
    }
    unsigned long next = std::stoul(d.getVar("HANDSEED")->text, nullptr, 16);
    std::string body;
    body.reserve(static_cast<std::size_t>(entities) * 170);
    for (int i = 0; i < entities; ++i) appendEntity(body, next++, i);
    d.setVar("HANDSEED", ardo::ResBuf::str(handle(next)));
    std::string dxf = d.toDxf();
    const auto at = dxf.find("  0\nENDSEC", dxf.find("ENTITIES"));
    dxf.insert(at, body);
    return dxf;
}

// ezdxf times itself; prints "read <s> save <s>" or nothing when it cannot run.
std::string runEzdxf(const fs::path& in, const fs::path& out) {
    const std::string script =
        "import sys, time, ezdxf\n"
        "t = time.perf_counter(); doc = ezdxf.readfile(sys.argv[1]); r = time.perf_counter() - t\n"
        "t = time.perf_counter(); doc.saveas(sys.argv[2]); s = time.perf_counter() - t\n"
        "print('read %.6f save %.6f' % (r, s))\n";
    for (const char* python : {"python3", "/usr/bin/python3"}) {
        int fds[2];
        if (pipe(fds) != 0) return {};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, fds[1], 1);
        posix_spawn_file_actions_addclose(&actions, fds[0]);
        posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
        std::string a0 = python, a1 = "-c", a2 = script, a3 = in.string(), a4 = out.string();
        char* argv[] = {a0.data(), a1.data(), a2.data(), a3.data(), a4.data(), nullptr};
        pid_t pid = 0;
        const int rc = posix_spawnp(&pid, python, &actions, nullptr, argv, environ);
        posix_spawn_file_actions_destroy(&actions);
        close(fds[1]);
        std::string output;
        char buf[256];
        for (ssize_t n; rc == 0 && (n = read(fds[0], buf, sizeof buf)) > 0;) output.append(buf, static_cast<size_t>(n));
        close(fds[0]);
        int status = 0;
        if (rc == 0) waitpid(pid, &status, 0);
        if (rc == 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0 && output.rfind("read", 0) == 0) return output;
    }
    return {};
}

}  // namespace

int main() {
    const fs::path dir = fs::temp_directory_path() / ("bench_dxf_" + std::to_string(getpid()));
    fs::create_directories(dir);
    const fs::path file = dir / "large.dxf", saved = dir / "saved.dxf", ezdxfSaved = dir / "ezdxf.dxf";
    {
        std::ofstream(file, std::ios::binary) << makeDrawing(2000, 200000);
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
    if (auto* e = std::get_if<std::string>(&opened)) { std::fprintf(stderr, "%s\n", e->c_str()); return 1; }
    cadhost::Drawing& d = std::get<cadhost::Drawing>(opened);
    const double rssAfterLoad = peakRssMb();
    std::printf("entities read: %zu\n", d.entityCount());

    t = Clock::now();
    if (auto e = d.save(saved.string())) { std::fprintf(stderr, "%s\n", e->c_str()); return 1; }
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
    std::error_code ec;
    fs::remove_all(dir, ec);
    return 0;
}
