// A second module of the suite gets ardo's docking pane manager from ardo.arx and adds its
// pane to the window; the layout file then holds it. In the console the manager says why
// nothing is shown.
#include <gtest/gtest.h>

#include "e2e/E2eSupport.h"
#include "support/TempFolder.h"

namespace ardo::e2e {
namespace {

std::vector<std::string> showKeys(const Installation& install) {
    return {"-e", "(arxload \"" + install.file("module/layerkeys/layerkeys.arx").string() + "\")", "-e",
            "(princ (kemb_layerkeypane (Kemb_GetLayerFile \"T\")))"};
}

fs::path userFolder(const Installation& install) {
    for (const auto& entry : fs::directory_iterator(install.file("Benutzer")))
        if (entry.is_directory() && entry.path().filename() != "DefaultIni") return entry.path();
    return {};
}

TEST(Panes, ASecondModuleAddsItsPaneThroughArdosManagerAndTheLayoutKeepsIt) {
    const Installation install;
    std::vector<std::string> args{"--gui"};
    const std::vector<std::string> keys = showKeys(install);
    args.insert(args.end(), keys.begin(), keys.end());
    args.insert(args.end(), {"-e", "QUIT"});
    const RunResult r = install.run(args, "", {{"QT_QPA_PLATFORM", "offscreen"}});
    ASSERT_EQ(r.exitCode, 0) << r.output;
    const fs::path layout = userFolder(install) / "DockingPanelLayout.xml";
    ASSERT_TRUE(fs::exists(layout)) << r.output;
    const std::string xml = test::readBytes(layout.string());
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DockingPanelLayout version=\"1\">\n", 0), 0u) << xml;
    EXPECT_NE(xml.find("<Pane id=\"ardo.layerkeys\" area=\"left\" floating=\"0\" visible=\"1\""), std::string::npos)
        << xml;
}

TEST(Panes, TheConsoleHasNoMainWindowAndSaysSo) {
    const Installation install;
    const RunResult r = install.run(showKeys(install), "", {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}});
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_NE(r.output.find("Docking panes need the main window: start ardo-cad with --gui. The pane \"Layerschlüssel\" "
                            "is not shown."),
              std::string::npos)
        << r.output;
    EXPECT_NE(r.output.find("nil"), std::string::npos) << r.output;
    EXPECT_FALSE(fs::exists(userFolder(install) / "DockingPanelLayout.xml"));
}

}  // namespace
}  // namespace ardo::e2e
