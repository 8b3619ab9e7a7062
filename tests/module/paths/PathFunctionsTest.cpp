#include "module/paths/PathFunctions.h"

#include <cstdlib>

#include "module/paths/PathsFixture.h"
#include "module/paths/PathJoin.h"
#include "module/paths/Platform.h"
#include "support/EnvironmentOverride.h"

namespace ardo {
namespace {

using namespace handlers;
using PathFunctionsTest = test::PathsFixture;

const ResBufChain kNil{ResBuf::marker(RTNIL)};
const std::string kBadNum = "\nfalsche Anzahl Argumente";
const std::string kBadValue = "\nunbrauchbarer Argumentwert";

ResBuf str(const std::string& s) { return ResBuf::str(s); }

// The configuration's MODULE section as an installation writes it.
void configureModules() {
    auto configuration = std::make_unique<SettingsStore>();
    configuration->appendLine("[MODULE]");
    configuration->appendLine("ZVKABEL=Programme\\Kabel\\");
    configuration->appendLine("ZVSTRASSE=strasse/");
    moduleFiles().configuration = std::move(configuration);
}

TEST_F(PathFunctionsTest, UserIniPathTakesTheModulesFolderNameAsSubfolder) {
    configureUserRoot(userRoot);
    configureModules();
    host.call(kemb_GetUserIniPath, {str("zvkabel"), str("anna")});
    EXPECT_EQ(host.result, ResBufChain{str(userRoot + "/anna/Kabel/")});
    host.call(kemb_GetUserIniPath, {str("ZVSTRASSE"), str("anna")});
    EXPECT_EQ(host.result, ResBufChain{str(userRoot + "/anna/strasse/")});
    host.call(kemb_GetUserIniPath, {str("ZVNEU")});
    EXPECT_EQ(host.result, ResBufChain{str(userRoot + "/" + platform::loginName() + "/ZVNEU/")});
    EXPECT_TRUE(platform::folderExists(userRoot + "/anna/Kabel"));
}

TEST_F(PathFunctionsTest, UserIniPathRefusesAnEmptyModuleAndAThirdArgument) {
    host.call(kemb_GetUserIniPath, {str("")});
    EXPECT_EQ(host.printed, kBadValue);
    EXPECT_EQ(host.result, kNil);
    host.clearOutput();
    host.call(kemb_GetUserIniPath, {str("ZVKABEL"), str("anna"), str("mehr")});
    EXPECT_EQ(host.printed, kBadNum);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(PathFunctionsTest, UserIniPathIsNilWhenTheFolderCannotBeFormed) {
    configureUserRoot(folder / "missing", false);
    host.call(kemb_GetUserIniPath, {str("ZVKABEL")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(host.alerts.size(), 1u);
}

TEST_F(PathFunctionsTest, UserIniFileProvidesTheFileAndGivesItsFullName) {
    configureUserRoot(userRoot);
    writeFile(programFolder + "DefaultIni/Kabel/Kabel.ini", "[KABEL]\n");
    host.call(kemb_GetUserIniFile, {str("Kabel.ini"), str("Kabel"), str("anna")});
    EXPECT_EQ(host.result, ResBufChain{str(userRoot + "/anna/Kabel/Kabel.ini")});
    EXPECT_EQ(test::readBytes(userRoot + "/anna/Kabel/Kabel.ini"), "[KABEL]\n");

    writeFile(userRoot + "/DefaultIni/Ardo.ini", "[LAYER]\n");
    host.call(kemb_GetUserIniFile, {str("Ardo.ini"), str(""), str("anna")});
    EXPECT_EQ(host.result, ResBufChain{str(userRoot + "/anna/Ardo.ini")});
}

TEST_F(PathFunctionsTest, UserIniFileIsNilWithoutADefaultOrAName) {
    configureUserRoot(userRoot);
    host.call(kemb_GetUserIniFile, {str("Fehlt.ini")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(host.alerts, std::vector<std::string>{"Ini-Datei 'Fehlt.ini' kann nicht kopiert werden"});
    host.call(kemb_GetUserIniFile, {str("")});
    EXPECT_EQ(host.printed, kBadValue);
}

TEST_F(PathFunctionsTest, UserIniFileByModuleUsesTheModulesSubfolder) {
    configureUserRoot(userRoot);
    configureModules();
    writeFile(userRoot + "/DefaultIni/Kabel/Kabel.ini", "[KABEL]\n");
    host.call(kemb_GetUserIniFileByModule, {str("ZVKABEL"), str("Kabel.ini"), str("anna")});
    EXPECT_EQ(host.result, ResBufChain{str(userRoot + "/anna/Kabel/Kabel.ini")});
    host.call(kemb_GetUserIniFileByModule, {str("ZVKABEL"), str("")});
    EXPECT_EQ(host.printed, kBadValue);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(PathFunctionsTest, NameFunctionsTakeNoArgument) {
    for (LispHandler handler : {kemb_GetUserNames, kemb_GetCurrentUserName, kemb_GetComputerName}) {
        host.clearOutput();
        host.call(handler, {str("x")});
        EXPECT_EQ(host.printed, kBadNum);
        EXPECT_EQ(host.result, kNil);
    }
}

TEST_F(PathFunctionsTest, NameFunctionsGiveTheLoginAndComputerNames) {
    host.call(kemb_GetCurrentUserName, {});
    EXPECT_EQ(host.result, ResBufChain{str(platform::loginName())});
    host.call(kemb_GetUserNames, {});
    ASSERT_EQ(host.result.size(), 4u);
    EXPECT_EQ(host.result[1], str(platform::loginName()));
    EXPECT_EQ(host.result[2], str(platform::fullUserName()));
    host.call(kemb_GetComputerName, {});
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    EXPECT_EQ(host.result, ResBufChain{str(name)});
}

TEST_F(PathFunctionsTest, TempPathFollowsTmpdirAndEndsWithTheSeparator) {
    {
        const test::EnvironmentOverride tmp("TMPDIR", folder / "temp");
        host.call(kemb_GetUserTempPath, {str("ignored")});
        EXPECT_EQ(host.result, ResBufChain{str(folder / "temp/")});
    }
    const test::EnvironmentOverride none("TMPDIR", std::nullopt);
    host.call(kemb_GetUserTempPath, {});
    EXPECT_EQ(host.result, ResBufChain{str("/tmp/")});
}

TEST(PathJoin, OneSeparatorBetweenFolderAndName) {
    EXPECT_EQ(joinPath("/opt/ardo", "Ardo_Sys.cfg"), "/opt/ardo/Ardo_Sys.cfg");
    EXPECT_EQ(joinPath("/opt/ardo/", "Ardo_Sys.cfg"), "/opt/ardo/Ardo_Sys.cfg");
    EXPECT_EQ(joinPath("", "Ardo_Sys.cfg"), "Ardo_Sys.cfg");
    EXPECT_EQ(withTrailingSeparator("/opt/ardo"), "/opt/ardo/");
    EXPECT_EQ(withTrailingSeparator("/opt/ardo/"), "/opt/ardo/");
}

TEST_F(PathFunctionsTest, CopyingNeverReplacesAnExistingFile) {
    writeFile(folder / "a.ini", "new");
    writeFile(folder / "b.ini", "kept");
    EXPECT_FALSE(platform::copyFileNoOverwrite(folder / "a.ini", folder / "b.ini"));
    EXPECT_EQ(test::readBytes(folder / "b.ini"), "kept");
    EXPECT_FALSE(platform::copyFileNoOverwrite(folder / "none.ini", folder / "c.ini"));
    EXPECT_FALSE(exists(folder / "c.ini"));
}

}  // namespace
}  // namespace ardo
