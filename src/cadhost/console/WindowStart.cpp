#include "cadhost/console/WindowStart.h"

#include <QApplication>
#include <QStringList>
#include <fstream>
#include <iostream>

#include "cadhost/app/Application.h"
#include "cadhost/console/Console.h"
#include "cadhost/console/LineReader.h"
#include "cadhost/gui/CadWindow.h"

namespace cadhost::console {

namespace {

// The -e and -s steps go through the command line as typed lines would.
void runSteps(const ConsoleOptions& o, gui::CadWindow& window) {
    for (const Step& step : o.steps) {
        if (step.kind == Step::Kind::Expression) {
            window.enterLine(step.text);
            continue;
        }
        std::ifstream in(step.text, std::ios::binary);
        if (!in) {
            window.print("Cannot read script \"" + step.text + "\"; check the name and that the file may be read.\n");
            continue;
        }
        for (std::string line; std::getline(in, line);) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            window.enterLine(line);
        }
    }
}

}  // namespace

int runWindow(const ConsoleOptions& o, const std::string& programFolder, int& argc, char** argv) {
    QApplication qt(argc, argv);
    QApplication::setApplicationName("ardo-cad");
    QApplication::setOrganizationName("ardo");
    QApplication::setDesktopFileName("ardo-cad");
    gui::CadWindow window(historyFile());
    Application app(window);
    app.setSupportPath(supportPath(o, programFolder));
    window.attach(app);
    window.show();
    // As in the console: the drawings first, then the module, which meets them loaded.
    QStringList paths;
    for (const std::string& path : o.drawings) paths.push_back(QString::fromStdString(path));
    window.openFiles(paths);
    if (!app.hasDocument()) window.newDrawing();
    if (const std::optional<std::string> module = modulePath(o, programFolder)) {
        if (const ardo::Status loaded = app.modules().load(*module); !loaded) {
            std::cerr << "ardo-cad: " << loaded.error() << '\n';
            window.print(loaded.error() + "\n");
        }
    }
    app.idle();
    window.refresh();
    window.offerRecovery();
    runSteps(o, window);
    const int code = QApplication::exec();
    app.modules().quit();
    window.detach();
    return code;
}

}  // namespace cadhost::console
