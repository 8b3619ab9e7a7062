// Compares our rendering of each drawing given with LibreCAD's print of it and prints a
// table: the page scale, the ink of each side and the two shares of the measure
// (LibreCadComparison.h). Exit status 1 when a drawing failed.
#include <QGuiApplication>
#include <cstdio>
#include <filesystem>

#include "cadhost/librecad/LibreCadComparison.h"
#include "support/TempFolder.h"

using namespace cadhost::test;
namespace fs = std::filesystem;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    fs::path keep;   // --keep DIR: the images of both sides are left there to look at
    int failed = 0, passed = 0;
    std::printf("%-58s %9s %8s %8s %7s %7s  %s\n", "drawing", "mm/unit", "our ink", "LC ink", "ours~", "LC~", "result");
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--keep" && i + 1 < argc) {
            keep = argv[++i];
            fs::create_directories(keep);
            continue;
        }
        const fs::path dxf = arg;
        const std::string name = dxf.filename().string();
        const auto report = [&](const std::string& what) {
            std::printf("%-58s %9s %8s %8s %7s %7s  FAIL: %s\n", name.c_str(), "-", "-", "-", "-", "-", what.c_str());
            ++failed;
        };
        const auto extents = ourExtents(dxf);
        if (!extents) {
            report("ours: " + extents.error().substr(0, 80));
            continue;
        }
        const Page page = pageFor(*extents, 72);
        const ardo::test::TempFolder work;
        const auto theirs = libreCadImage(dxf, page, work.path());
        if (!theirs) {
            report("LibreCAD: " + theirs.error().substr(0, 80));
            continue;
        }
        const auto ours = ourImage(dxf, page);
        if (!ours) {
            report("ours: " + ours.error().substr(0, 80));
            continue;
        }
        if (!keep.empty()) {
            ours->save(QString::fromStdString((keep / (dxf.stem().string() + "-ours.png")).string()));
            theirs->save(QString::fromStdString((keep / (dxf.stem().string() + "-librecad.png")).string()));
        }
        const auto a = compareInk(*ours, qRgb(0, 0, 0), *theirs, kInkRadius);
        const bool ok = a.passes(kInkThreshold);
        (ok ? passed : failed) += 1;
        std::printf("%-58s %9.4g %8ld %8ld %7.3f %7.3f  %s\n", name.c_str(), page.scale, a.oursInk, a.theirsInk,
                    a.oursNearTheirs, a.theirsNearOurs, ok ? "pass" : "FAIL");
    }
    std::printf("%d passed, %d failed (ink widened by %d px at 72 dpi, threshold %.2f both ways)\n", passed, failed,
                kInkRadius, kInkThreshold);
    return failed ? 1 : 0;
}
