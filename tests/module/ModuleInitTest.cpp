#include "module/ModuleInit.h"

#include "module/ModuleFixture.h"
#include "module/paths/Platform.h"
#include "base/CodePage.h"

namespace ardo {
namespace {

using ModuleInitTest = test::ModuleFixture;

constexpr int kLcInit = 0;
constexpr int kGetLayerFile = 7;

TEST_F(ModuleInitTest, AnswersVoidAndReloadsTheFiles) {
    callRow(kLcInit);  // not registered yet: the entry still dispatches by code
    EXPECT_TRUE(isVoid(host.result));
    EXPECT_TRUE(host.printed.empty()) << host.printed;
    ASSERT_NE(moduleFiles().configuration, nullptr);

    // A changed configuration is read by the next initialisation.
    folder.write("prog/ardo.cfg", "[PRODUCTINFO]\nProductName=Neu\n");
    callRow(kLcInit, {text("ignored")});
    EXPECT_TRUE(isVoid(host.result));
    callRow(48);
    EXPECT_EQ(stringOf(host.result), "Neu");
}

TEST_F(ModuleInitTest, MissingConfigurationAndMessageFilesAreNamed) {
    std::filesystem::remove(programFolder + "ardo.cfg");
    std::filesystem::remove(programFolder + "ardo.msg");
    callRow(kLcInit);
    EXPECT_TRUE(isVoid(host.result));
    EXPECT_EQ(host.printed, "\nfile '" + programFolder + "ardo.cfg' not found.\nno ARDO.msg found.");
    EXPECT_EQ(moduleFiles().configuration, nullptr);
    EXPECT_FALSE(MessageFile::instance().loaded());
    // The rest of the initialisation still ran.
    EXPECT_NE(moduleFiles().centralLayerFile, nullptr);
}

TEST_F(ModuleInitTest, AMissingCentralFileIsShownInAMessageBox) {
    const std::string missing = folder / "nirgends/Zentral.ini";
    folder.write("prog/DefaultIni/ArdoSetup.ini", "[CONFIG]\nArdoLayerFile=" + missing + "\n");
    EXPECT_EQ(initialiseModule(), RTERROR);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Keine Layerdatei: '" + missing + "'\n\nZeile zwei\nZeile drei\nZeile vier\nZeile fuenf");
    EXPECT_EQ(host.boxes[0].caption, "Testfehler");
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Error);
    EXPECT_EQ(moduleFiles().centralLayerFile, nullptr);
}

TEST_F(ModuleInitTest, UsesTheCentralFileNamedInTheSettingsElseTheUsersArdoIni) {
    callRow(kLcInit);
    callRow(kGetLayerFile, {text("TEST")});
    EXPECT_EQ(stringOf(host.result), programFolder + "users/" + platform::loginName() + "/Ardo.ini");

    const std::string central = folder.write("Zentral.ini", "[LAYER]\nMAUER=Mauer,1,CONTINUOUS,,0,,,-3,,,1\n");
    const std::string setup = programFolder + "users/" + platform::loginName() + "/ArdoSetup.ini";
    folder.write("prog/users/" + platform::loginName() + "/ArdoSetup.ini", "[CONFIG]\nArdoLayerFile=" + central + "\n");
    ASSERT_TRUE(std::filesystem::exists(setup));
    callRow(kLcInit);
    callRow(kGetLayerFile, {text("TEST")});
    EXPECT_EQ(stringOf(host.result), central);
    ASSERT_NE(moduleFiles().centralLayerFile, nullptr);
    const auto& store = *moduleFiles().centralLayerFile;
    EXPECT_NE(store.findKey(store.findSection("LAYER"), "MAUER"), store.end());
    EXPECT_TRUE(host.boxes.empty());
}

// An installation may keep its module files in UTF-8; the configuration says so, and the
// configuration itself is then read in it.
TEST_F(ModuleInitTest, TheConfigurationChoosesTheCodePageOfTheModuleFiles) {
    folder.write("prog/ardo.cfg", "[PRODUCTINFO]\nProductName=Gr\xC3\xBCn \xCE\xA9\n[DATEIEN]\nCodepage=UTF-8\n");
    callRow(kLcInit);
    EXPECT_EQ(fileCodePage(), "UTF-8");
    callRow(48);
    EXPECT_EQ(stringOf(host.result), "Grün Ω");

    // Without the key, Windows-1252 again.
    folder.write("prog/ardo.cfg", "[PRODUCTINFO]\nProductName=Gr\xFCn\n");
    callRow(kLcInit);
    EXPECT_EQ(fileCodePage(), "WINDOWS-1252");
    callRow(48);
    EXPECT_EQ(stringOf(host.result), "Grün");

    host.clearOutput();
    folder.write("prog/ardo.cfg", "[DATEIEN]\nCodepage=Klingonisch\n");
    callRow(kLcInit);
    EXPECT_EQ(fileCodePage(), "WINDOWS-1252");
    EXPECT_NE(host.printed.find("Codepage 'Klingonisch'"), std::string::npos) << host.printed;
}

}  // namespace
}  // namespace ardo
