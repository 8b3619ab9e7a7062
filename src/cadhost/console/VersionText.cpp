#include "cadhost/console/VersionText.h"

#include <memory>

#include "cadhost/app/LoadedModule.h"

namespace cadhost::console {

namespace {

// The module is only opened, never started: it is asked for its version and closed.
std::string moduleLine(const std::optional<std::string>& module) {
    if (!module) return "module: none loaded";
    auto opened = LoadedModule::open(*module);
    if (!opened) return "module: " + opened.error();
    const std::string version = (*opened)->version();
    return "module: " + *module + " " + (version.empty() ? "(no version exported)" : version);
}

}  // namespace

std::string versionText(const std::optional<std::string>& module) {
    return std::string("ardo-cad ") + ARDO_VERSION + "\n" + moduleLine(module) + "\n" +
           "DXF: reads ASCII and binary DXF up to AC1032 (AutoCAD 2018); "
           "saves ASCII DXF in the drawing's own version, new drawings as AC1032\n";
}

}  // namespace cadhost::console
