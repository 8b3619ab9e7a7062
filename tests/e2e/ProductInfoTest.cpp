// The product information in a console without a display: on the command line, with the
// installation's versions and files.
#include <gtest/gtest.h>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {

TEST(ProductInfo, WithoutADisplayTheVersionCommandPrintsVersionsAndFiles) {
    const Installation install;
    const std::map<std::string, std::string> noDisplay{{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}};
    const RunResult r = install.run({"-e", "(c:Kemb_VersionInfo)"}, "", noDisplay);
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_NE(r.output.find("Zentrale Layersteuerung\nVersion: 1.0.0\nBuild-Nr: 1\n"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Modul: " + install.file("ardo.arx").string() + "\n"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Hilfe: " + install.file("help/ArdoArx.chm").string() + "\n"), std::string::npos)
        << r.output;
    EXPECT_EQ(r.output.find("nicht verfügbar"), std::string::npos) << r.output;
}

}  // namespace ardo::e2e
