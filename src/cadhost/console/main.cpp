// ardo-cad: the CAD host's console.
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <new>

#include "cadhost/audit/LayerAuditRun.h"
#include "cadhost/console/Console.h"
#include "cadhost/console/VersionText.h"
#include "cadhost/console/WindowStart.h"
#include "cadhost/gui/PlotRenderer.h"

namespace {

// The folder of the running executable, where the module and its files lie.
std::string programFolder(const char* argv0) {
    std::error_code ec;
    std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec) self = std::filesystem::absolute(argv0, ec);
    return self.parent_path().string();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace cadhost::console;
    const auto parsed = parseOptions(std::vector<std::string>(argv + 1, argv + argc));
    if (const auto* error = std::get_if<std::string>(&parsed)) {
        std::cerr << "ardo-cad: " << *error << '\n' << usageText();
        return 2;
    }
    ConsoleOptions options = std::get<ConsoleOptions>(parsed);
    if (options.help) {
        std::cout << usageText();
        return 0;
    }
    const std::string folder = programFolder(argv[0]);
    if (options.version) {
        std::cout << versionText(modulePath(options, folder));
        return 0;
    }
    if (const auto error = cadhost::audit::checkLayerAudit(options.auditLayers, options.audit)) {
        std::cerr << "ardo-cad: " << *error << '\n' << usageText();
        return 2;
    }
    // PLOT writes PDF through the window layer's painting, in the console too.
    cadhost::commands::setPlotWriter(cadhost::gui::writePlot);
    try {
        if (options.auditLayers) {
            const auto module = modulePath(options, folder);
            if (!module) {
                std::cerr << "ardo-cad: --audit-layers needs the module; put ardo.arx beside ardo-cad or name it with --module\n";
                return 2;
            }
            return cadhost::audit::runLayerAudit(options.audit, *module, folder);
        }
        if (options.gui) return runWindow(options, folder, argc, argv);
        return runConsole(options, folder);
    } catch (const std::bad_alloc&) {
        // Nothing was saved; say so instead of aborting.
        std::cerr << "ardo-cad: out of memory; the work was stopped and nothing was saved. Close other programs "
                     "or work on a smaller drawing.\n";
        return 3;
    }
}
