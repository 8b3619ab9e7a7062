#include "module/ModuleFunctions.h"

#include "module/ModuleFixture.h"
#include "module/paths/Platform.h"

namespace ardo {
namespace {

using namespace handlers;

class ModuleFunctionsTest : public test::ModuleFixture {
protected:
    void SetUp() override {
        ModuleFixture::SetUp();
        moduleEntryPoint(kInitAppMsg, &host);
        host.clearOutput();
        userFolder = programFolder + "users/" + platform::loginName() + "/";
    }
    // Calls a handler with string arguments.
    const ResBufChain& call(LispHandler handler, std::initializer_list<std::string> args) {
        ResBufChain chain;
        for (const auto& a : args) chain.push_back(ResBuf::str(a));
        host.call(handler, chain);
        return host.result;
    }
    std::string userFolder;
};

TEST_F(ModuleFunctionsTest, ModuleFoldersAndPathsComeFromTheConfiguration) {
    EXPECT_EQ(stringOf(call(kemb_modulverz, {"WAND"})), programFolder + "module/wand/");
    EXPECT_EQ(stringOf(call(kemb_modulverz, {"wand", "ignored"})), programFolder + "module/wand/");
    EXPECT_EQ(stringOf(call(kemb_modulverz, {"LEER"})), programFolder);
    EXPECT_EQ(stringOf(call(kemb_modulverz, {"FEHLT"})), programFolder);

    EXPECT_EQ(stringOf(call(kemb_pathInfo, {"Objektarten"})), programFolder + "Objektarten");
    EXPECT_EQ(stringOf(call(kemb_pathInfo, {"Menu"})), programFolder + "menu/ardo.mnu");
    EXPECT_EQ(stringOf(call(kemb_pathInfo, {"Fehlt"})), programFolder);
    EXPECT_TRUE(host.printed.empty()) << host.printed;
}

TEST_F(ModuleFunctionsTest, FindFileLooksAsGivenThenProgramThenUserThenSupportFolders) {
    const std::string inUser = userFolder + "liste.txt";
    folder.write("prog/users/" + platform::loginName() + "/liste.txt", "u");
    EXPECT_EQ(stringOf(call(kemb_findfile, {"liste.txt"})), inUser);
    folder.write("prog/liste.txt", "p");
    EXPECT_EQ(stringOf(call(kemb_findfile, {"liste.txt"})), programFolder + "liste.txt");
    const std::string elsewhere = folder.write("liste.txt", "a");
    EXPECT_EQ(stringOf(call(kemb_findfile, {elsewhere})), elsewhere);

    host.supportFiles["stift.ctb"] = "/support/stift.ctb";
    EXPECT_EQ(stringOf(call(kemb_findfile, {"stift.ctb"})), "/support/stift.ctb");
    EXPECT_TRUE(isNil(call(kemb_findfile, {"nirgends.txt"})));
    EXPECT_TRUE(isNil(call(kemb_findfile, {""})));

    // The folder of a found file, with its separator; a name with a folder keeps it.
    EXPECT_EQ(stringOf(call(kemb_dateiverz, {"liste.txt"})), programFolder);
    EXPECT_EQ(stringOf(call(kemb_dateiverz, {"unter/nirgends.txt"})), "unter/");
    EXPECT_TRUE(isNil(call(kemb_dateiverz, {"nirgends.txt"})));
}

TEST_F(ModuleFunctionsTest, DelFileDeletesFilesOnly) {
    const std::string file = folder.write("weg.txt", "x");
    EXPECT_TRUE(isT(call(kemb_delfile, {file})));
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_TRUE(isNil(call(kemb_delfile, {file})));
    EXPECT_TRUE(isNil(call(kemb_delfile, {programFolder + "DefaultIni"})));
    EXPECT_TRUE(std::filesystem::exists(programFolder + "DefaultIni"));
}

TEST_F(ModuleFunctionsTest, XloadedTellsLoadedFoundOrMissingAndXloadLoads) {
    folder.write("prog/kabel.arx", "");
    host.loadedApplications.insert("STRASSE");
    ResBufChain zero = {ResBuf::longInt(0)}, one = {ResBuf::longInt(1)};
    EXPECT_EQ(call(kemb_xloaded, {"strasse"}), zero);
    EXPECT_EQ(call(kemb_xloaded, {"kabel"}), one);
    EXPECT_EQ(call(kemb_xloaded, {"kabel.arx"}), one);
    EXPECT_EQ(call(kemb_xloaded, {"fehlt"}), ResBufChain{ResBuf::longInt(-1)});

    EXPECT_TRUE(isT(call(kemb_xload, {"kabel"})));
    EXPECT_TRUE(host.loadedApplications.contains("KABEL"));
    EXPECT_EQ(call(kemb_xloaded, {"kabel"}), zero);

    EXPECT_TRUE(isNil(call(kemb_xload, {"fehlt"})));
    EXPECT_EQ(host.printed, "\nApplikation fehlt.arx fehlt");

    // By program name: the application lies in the program's folder of section MODULE.
    std::filesystem::create_directories(programFolder + "module/wand");
    folder.write("prog/module/wand/wand.arx", "");
    EXPECT_TRUE(isT(call(kemb_xloadProg, {"wand"})));
    EXPECT_TRUE(host.loadedApplications.contains("WAND"));
}

TEST_F(ModuleFunctionsTest, ExecuteProgramStartsWithoutWaitingAndReportsAMissingProgram) {
    EXPECT_TRUE(isT(call(kemb_ExecuteProgram, {"true"})));
    EXPECT_TRUE(isT(call(kemb_ExecuteProgram, {"true", "eins \"zwei drei\""})));
    EXPECT_TRUE(host.printed.empty()) << host.printed;
    EXPECT_TRUE(isNil(call(kemb_ExecuteProgram, {"ardo-kein-programm"})));
    EXPECT_EQ(host.printed, "\nProgramm ardo-kein-programm nicht gestartet");

    host.clearOutput();
    EXPECT_TRUE(isNil(call(Kemb_LaunchFile, {folder / "fehlt.pdf"})));
    EXPECT_EQ(host.printed, "\nDatei " + (folder / "fehlt.pdf") + " fehlt");
}

TEST_F(ModuleFunctionsTest, MenuEntriesAreGreyedOrEnabledAndTheMenuGroupIsLoaded) {
    host.menuItems["ARDO|Layer"] = false;
    EXPECT_TRUE(isT(call(kemb_greyMenu, {"ardo", "Layer"})));
    EXPECT_TRUE(host.menuItems["ARDO|Layer"]);
    host.call(kemb_menucmdgrey, {ResBuf::str("ARDO"), ResBuf::str("Layer"), ResBuf::shortInt(0)});
    EXPECT_TRUE(isT(host.result));
    EXPECT_FALSE(host.menuItems["ARDO|Layer"]);
    host.call(kemb_greyMenu, {ResBuf::str("ARDO"), ResBuf::str("Layer"), ResBuf::shortInt(2)});
    EXPECT_TRUE(host.menuItems["ARDO|Layer"]);
    EXPECT_TRUE(isNil(call(kemb_greyMenu, {"ARDO", "Fehlt"})));

    host.variables["FILEDIA"] = ResBuf::shortInt(1);
    host.call(c_kemb_lmnu, {});
    EXPECT_TRUE(isVoid(host.result));
    host.call(c_kemb_xmnu, {});
    ASSERT_EQ(host.commands.size(), 2u);
    EXPECT_EQ(host.commands[0], (ResBufChain{ResBuf::str("_.MENULOAD"), ResBuf::str(programFolder + "menu/ardo.mnu")}));
    EXPECT_EQ(host.commands[1], (ResBufChain{ResBuf::str("_.MENUUNLOAD"), ResBuf::str("ARDO")}));
    // FILEDIA and CMDECHO are back as they were.
    EXPECT_EQ(host.variables["CMDECHO"].integer, 1);
    EXPECT_EQ(host.variables["FILEDIA"].integer, 1);
}

TEST_F(ModuleFunctionsTest, ProductTextsComeFromTheConfiguration) {
    EXPECT_EQ(stringOf(call(Kemb_getProductName, {})), "Testprodukt");
    EXPECT_EQ(stringOf(call(Kemb_getCompanyName, {})), "Testfirma");
    EXPECT_EQ(stringOf(call(Kemb_getProductText, {"ProductText"})), "Layer fuer Tests");
    EXPECT_TRUE(isNil(call(Kemb_getProductText, {"Fehlt"})));
    EXPECT_EQ(stringOf(call(Kemb_getProductIcon, {})), programFolder + "ardo.ico");

    // Without a window, the version and about commands print the information, labelled
    // with the catalog's texts, and the module's files with a mark on those missing.
    host.call(C_Kemb_VersionInfo, {});
    EXPECT_TRUE(isVoid(host.result));
    EXPECT_TRUE(host.printed.starts_with(
        "\nTestprodukt\nLayer fuer Tests\nVersion: 2.5.1\nBuild-Nr: 77\nFirma: Testfirma\nModul " ARDO_VERSION "\n"))
        << host.printed;
    EXPECT_NE(host.printed.find("\nKonfiguration: " + programFolder + "ardo.cfg\n"), std::string::npos);
    EXPECT_NE(host.printed.find("\nModul: " + programFolder + "ardo.arx (fehlt)\n"), std::string::npos);
    EXPECT_NE(host.printed.find("\nHilfethemen: " + programFolder + "ArdoArx.top (fehlt)\n"), std::string::npos);
    const std::string versionText = host.printed;
    host.clearOutput();
    host.call(Kemb_showAboutDialogue, {});
    EXPECT_TRUE(isNil(host.result));
    EXPECT_EQ(host.printed, versionText);

    // Without a configuration there is no text to give.
    moduleFiles().configuration.reset();
    EXPECT_TRUE(isNil(call(Kemb_getProductName, {})));
    EXPECT_TRUE(isNil(call(Kemb_getProductIcon, {})));

}

}  // namespace
}  // namespace ardo
