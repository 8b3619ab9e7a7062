#include "module/CommandStubFile.h"

#include "module/ModuleFixture.h"

namespace ardo {
namespace {

using CommandStubFileTest = test::ModuleFixture;
using test::readBytes;

TEST(StubLoadExpressionTest, DoublesEveryBackslash) {
    EXPECT_EQ(stubLoadExpression("C:\\Temp\\PC1_Cmd.lsp"), "(load \"C:\\\\Temp\\\\PC1_Cmd.lsp\")\n");
    EXPECT_EQ(stubLoadExpression("/tmp/PC1_Cmd.lsp"), "(load \"/tmp/PC1_Cmd.lsp\")\n");
}

TEST_F(CommandStubFileTest, EachKindOfProgramGetsItsStubAndTheFileClosesWithTheLoadedFlag) {
    moduleFiles().programFolder = programFolder;
    const std::string bfl = folder.write("ardo.bfl",
                                         "[BEFEHLE]\n"
                                         "WANDNEU=module/wand/wand.lsp\n"
                                         "KABEL=/opt/kabel/kabel.arx\n"
                                         "FORM=forms.dvb\n"
                                         "KAPUTT=readme.txt\n"
                                         "[ANDERES]\n"
                                         "NICHT=nicht.lsp\n");
    const auto definition = SettingsStore::load(bfl);
    ASSERT_NE(definition, nullptr);
    const std::string stub = tempFolder + "stub.lsp";
    ASSERT_EQ(writeCommandStubFile(stub, definition.get(), false), RTNORM);

    const std::string wand = programFolder + "module/wand/wand.lsp";
    EXPECT_EQ(readBytes(stub),
              "(defun C:WANDNEU()(load \"" + wand + "\")(C:WANDNEU))\n"
              "(if (not C:KABEL)(if(=(kemb_xloaded \"/opt/kabel/kabel.arx\")1)"
              "(defun C:KABEL()(kemb_xload \"/opt/kabel/kabel.arx\")(C:KABEL))))\n"
              "(setq kemb_cmd_lsp_loaded T)\n");
    EXPECT_EQ(host.printed,
              "skipped command line for 'FORM'\n"
              "\nArdo.arx: Error 'KAPUTT': invalid file name 'readme.txt'");

    // On an LT host every command goes through kemb_ltload.
    ASSERT_EQ(writeCommandStubFile(stub, definition.get(), true), RTNORM);
    const std::string lt = readBytes(stub);
    EXPECT_NE(lt.find("(defun C:WANDNEU()(kemb_ltload \"" + wand + "\" \"C:WANDNEU\"))\n"), std::string::npos);
    EXPECT_NE(lt.find("(defun C:KABEL()(kemb_ltload \"/opt/kabel/kabel.arx\" \"C:KABEL\"))\n"), std::string::npos);

    // Without a definition file only the closing line is written.
    ASSERT_EQ(writeCommandStubFile(stub, nullptr, false), RTNORM);
    EXPECT_EQ(readBytes(stub), "(setq kemb_cmd_lsp_loaded T)\n");
}

TEST_F(CommandStubFileTest, WindowsPathsInTheDefinitionAreDoubledForLisp) {
    const std::string bfl = folder.write("ardo.bfl", "[BEFEHLE]\nSTRASSE=C:\\Suite\\strasse.fas\n");
    const auto definition = SettingsStore::load(bfl);
    const std::string stub = tempFolder + "stub.lsp";
    ASSERT_EQ(writeCommandStubFile(stub, definition.get(), false), RTNORM);
    EXPECT_EQ(readBytes(stub),
              "(defun C:STRASSE()(load \"C:\\\\Suite\\\\strasse.fas\")(C:STRASSE))\n"
              "(setq kemb_cmd_lsp_loaded T)\n");
}

TEST_F(CommandStubFileTest, AnUnwritableTempFolderIsReportedAndDocumentLoadGoesOn) {
    // A TMPDIR below a plain file cannot hold the stub, whoever runs the test.
    const std::string blocked = folder.write("blocked", "") + "/";
    ::setenv("TMPDIR", blocked.c_str(), 1);
    moduleEntryPoint(kInitAppMsg, &host);
    host.clearOutput();
    moduleEntryPoint(kLoadDwgMsg, &host);
    const std::string stub = commandStubPath();
    EXPECT_EQ(stub.rfind(blocked, 0), 0u);
    EXPECT_EQ(host.printed, "Cant open file '" + stub + "' for write\n");
    EXPECT_EQ(host.queued.size(), 1u);
    EXPECT_EQ(host.defined.size(), 54u);
}

}  // namespace
}  // namespace ardo
