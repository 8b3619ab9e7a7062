// One blink phase of kemb_Highlight over 100,000 entities, through the module's blink
// control and the real host: Application::redraw per entity into the window's view, one
// display update, and the repaint at 1920x1080 (offscreen). Each row stands beside a
// baseline run in the same process:
//   the host's floor   the same looks set straight on the view's scene, and the repaint
//   first phase        a phase that also opens every entity for the hatch test
//   redraw calls       the phase without its repaint, against the repaint alone
// A frame at 60 Hz lasts 16.7 ms; the phase is meant to fit in one.
#include <QApplication>
#include <QImage>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "BestOf.h"
#include "GeneratedDrawing.h"
#include "cadhost/app/Application.h"
#include "cadhost/gui/CadWindow.h"
#include "cadhost/gui/DrawingView.h"
#include "cadhost/lisp/SelectionSet.h"
#include "highlight/BlinkControl.h"
#include "highlight/cOptHighlight.h"
#include "module/HostBinding.h"

namespace {

namespace fs = std::filesystem;
using bench::best;

void row(const char* what, double ours, const char* baseline, double base) {
    std::printf("  %-34s %9.2f ms   %-30s %9.2f ms   ratio %6.2f\n", what, ours, baseline, base, ours / base);
}

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qt(argc, argv);
    constexpr int kGenerated = 90000, kHatches = 10000;
    const fs::path folder = fs::temp_directory_path() / ("ardo-bench-highlight-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const fs::path file = folder / "large.dxf";
    std::ofstream(file, std::ios::binary) << bench::makeDrawing(2000, kGenerated);

    cadhost::gui::CadWindow window((folder / "history").string());
    cadhost::Application app(window);
    window.attach(app);
    window.resize(1920, 1080);
    if (!window.openFiles({QString::fromStdString(file.string())})) return 1;
    // Hatches among the lines, so that leaving them out has something to leave.
    for (int i = 0; i < kHatches; ++i) {
        const std::string x = std::to_string(i % 1000 * 1.5), y = std::to_string(i / 1000 * 2.25);
        app.drawing().makeEntity({{0, "HATCH"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbHatch"}, {10, x}, {20, y},
                                  {30, "0"}, {2, "SOLID"}, {70, "1"}, {71, "0"}, {91, "0"}});
    }
    cadhost::gui::DrawingView* view = window.currentView();
    view->resize(1920, 1080);
    view->zoomExtents();
    ardo::bindHost(&app);
    app.lisp().evaluate("(setq ss (ssget \"X\"))");
    const std::int64_t set = app.lisp().variable("SS").asPickset().id;
    std::printf("drawing: %d entities (%d hatches) in the set, view 1920x1080\n", kGenerated + kHatches, kHatches);

    QImage frame(1920, 1080, QImage::Format_RGB32);
    std::vector<cadhost::Handle> handles;
    app.drawing().forEachEntity([&](const cadhost::EntityInfo& e) {
        handles.push_back(e.handle);
        return true;
    });
    bool on = false;
    const double floor = best(7, [&] {
        on = !on;
        for (cadhost::Handle h : handles)
            view->scene().setLook(h, on ? cadhost::gui::Look::Highlighted : cadhost::gui::Look::Normal);
        view->render(&frame);
    });

    const double repaint = best(7, [&] { view->render(&frame); });

    for (bool hatches : {false, true}) {
        ardo::cOptHighlight options;
        options.mode = 1;
        options.changeHatch = hatches;
        ardo::BlinkControl control;
        control.configure(options, set);
        const double first = best(1, [&] {
            control.redrawAll(3);
            view->render(&frame);
        });
        int mode = 3;
        const double phase = best(7, [&] {
            mode = mode == 3 ? 4 : 3;
            control.redrawAll(mode);
            view->render(&frame);
        });
        const double calls = best(7, [&] {
            mode = mode == 3 ? 4 : 3;
            control.redrawAll(mode);
        });
        row(hatches ? "phase, hatches highlighted" : "phase, hatches left out", phase, "looks set on the scene", floor);
        row("  of it the redraw calls", calls, "the repaint alone", repaint);
        row("  first phase (hatch test)", first, "later phase", phase);
        control.redrawAll(4);
    }
    ardo::bindHost(nullptr);
    window.detach();
    fs::remove_all(folder);
    return 0;
}
