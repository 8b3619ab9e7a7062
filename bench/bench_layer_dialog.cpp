// Opening the layer dialog with 10,000 central-file entries and 5,000 drawing layers (load,
// merge, sort, model, first paint), and refilling its list after a view switch, each printed
// beside the bare load of the same central file measured in the same run.
#include <QApplication>
#include <QPixmap>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "dialog/LayerDialogSession.h"
#include "dialog/LayerViews.h"
#include "dialog/cDlgLayer.h"
#include "dialog/cListControl.h"
#include "support/QuietHost.h"

namespace {

using namespace ardo;
using Clock = std::chrono::steady_clock;

constexpr int kEntries = 10000;
constexpr int kDrawingLayers = 5000;
constexpr int kRounds = 15;

// The quiet host with a real drawing to merge.
class BenchHost : public test::QuietHost {
public:
    explicit BenchHost(cadhost::Drawing& d) : drawing_(d) {}
    HostDrawing* workingDrawing() override { return &drawing_; }

private:
    cadhost::Drawing& drawing_;
};

std::string writeCentralFile(const std::filesystem::path& folder) {
    const std::string path = (folder / "Ardo.ini").string();
    std::ofstream ini(path, std::ios::binary | std::ios::trunc);
    ini << "[LAYER]\r\n";
    for (int i = 0; i < kEntries; ++i)
        ini << "K_" << i << "=Bench-" << (i * 7919) % kEntries << "," << 1 + i % 250
            << ",Continuous,,0,,,25,Normal,Bench,1\r\n";
    return path;
}

template <typename Work>
double medianMs(Work work) {
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "ardo-bench-dialog";
    std::filesystem::create_directories(folder);
    const std::string path = writeCentralFile(folder);

    cadhost::Drawing drawing;
    for (int i = 0; i < kDrawingLayers; ++i) {
        LayerRecord r;
        // Every other drawing layer is an entry of the file, the rest only in the drawing.
        r.name = i % 2 ? "Bench-" + std::to_string(i) : "Zeichnung-" + std::to_string(i);
        r.color = HostColor::fromIndex(1 + i % 200);
        drawing.addLayer(r);
    }
    BenchHost host(drawing);
    LayerDialogSettings settings;
    settings.ardoLayerFile = path;

    const double bareLoad = medianMs([&] {
        CentralLayerFile file;
        file.loadFileImage(path);
        file.loadEntries();
    });
    int rows = 0;
    const double opening = medianMs([&] {
        LayerDialogSession session(layermode::kEditor, settings);
        session.load();
        cDlgLayer dialog(session, LayerDialogCall{}, nullptr);
        dialog.resize(800, 500);
        const QPixmap firstPaint = dialog.grab();
        rows = dialog.model().rowCount();
    });

    LayerDialogSession session(layermode::kEditor, settings);
    session.load();
    cDlgLayer dialog(session, LayerDialogCall{}, nullptr);
    dialog.resize(800, 500);
    dialog.grab();
    int view = layerview::kCentral;
    const double refill = medianMs([&] {
        view = view == layerview::kCentral ? layerview::kDrawing : layerview::kCentral;
        dialog.run(view == layerview::kCentral ? LayerCommand::ViewCentral : LayerCommand::ViewDrawing);
        dialog.grab();
    });

    std::printf("layer dialog, %d entries, %d drawing layers, %d rows listed; median of %d runs\n", kEntries,
                kDrawingLayers, rows, kRounds);
    std::printf("%-44s %9s %9s %7s\n", "", "ms", "baseline", "ratio");
    std::printf("%-44s %9.2f %9.2f %7.2f   (target under 150 ms)\n", "open: load, merge, sort, model, first paint",
                opening, bareLoad, opening / bareLoad);
    std::printf("%-44s %9.2f %9.2f %7.2f   (target under 50 ms)\n", "refill after a view switch, repainted", refill,
                bareLoad, refill / bareLoad);
    std::printf("%-44s %9.2f\n", "baseline: bare central-file load", bareLoad);
    std::filesystem::remove_all(folder);
    return 0;
}
