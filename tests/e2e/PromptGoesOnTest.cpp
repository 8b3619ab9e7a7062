// Errors the user meets at the prompt: each is told, and the prompt takes the next input.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

// The last thing the session printed is a prompt that ran the input after the error.
void expectWentOn(const RunResult& r) {
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_NE(r.output.find("Command: (princ \"weiter\")\nweiter\"weiter\"\n"), std::string::npos) << r.output;
}

TEST(PromptGoesOn, ArgumentErrorsPrintTheirMessageAndReturnNil) {
    const Installation install;
    const RunResult r = install.run({officeDrawing().string()},
                                    "(kemb_newlayer \"T\")\n"
                                    "(kemb_newlayer 1 \"A_ACHSE\")\n"
                                    "(kemb_setlayer \"T\" \"A_ACHSE\" \"aus\")\n"
                                    "(princ \"weiter\")\n");
    EXPECT_NE(r.output.find("Command: (kemb_newlayer \"T\")\n\nFalsche Anzahl von Argumenten.nil\n"),
              std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Command: (kemb_newlayer 1 \"A_ACHSE\")\n\nFalscher Argumenttyp.nil\n"),
              std::string::npos) << r.output;
    EXPECT_NE(r.output.find("(kemb_setlayer \"T\" \"A_ACHSE\" \"aus\")\n\nFalscher Argumenttyp.nil\n"),
              std::string::npos) << r.output;
    expectWentOn(r);
}

TEST(PromptGoesOn, AMissingCentralFileShowsTheBoxAndKeysGiveNil) {
    const Installation install;
    fs::remove(install.file("DefaultIni/Ardo.ini"));
    const RunResult r = install.run({officeDrawing().string()},
                                    "(kemb_newlayer \"T\" \"A_ACHSE\")\n(princ \"weiter\")\n");
    const std::string expectedPath = install.file("Benutzer").string();
    const std::string box = "| Datei nicht gefunden: '" + expectedPath;
    EXPECT_NE(r.output.find(box), std::string::npos) << r.output;
    for (const char* line : {"| Bevor Sie mit ZV·TELVANO weiterarbeiten, rufen Sie bitte\n",
                             "| unbedingt den ZV·TELVANO-Layerdialog (Befehl Kemb_EditLayers) auf\n",
                             "| und verwenden Sie das Menü Datei/Öffnen, um eine vorhandene\n",
                             "| zentrale Layersteuerdatei (z.B. Ardo.ini) zu öffnen.\n"})
        EXPECT_NE(r.output.find(line), std::string::npos) << line;
    EXPECT_NE(r.output.find("Command: (kemb_newlayer \"T\" \"A_ACHSE\")\nnil\n"), std::string::npos) << r.output;
    expectWentOn(r);
}

// The module's start-up message ends without a line end; the prompt still starts a line.
TEST(PromptGoesOn, ThePromptStartsOnALineOfItsOwn) {
    const Installation install;
    fs::remove(install.file("ardo.msg"));
    const RunResult r = install.run({officeDrawing().string()}, "(princ \"weiter\")\n");
    EXPECT_NE(r.output.find("no ARDO.msg found.\nCommand: (princ \"weiter\")\n"), std::string::npos) << r.output;
    expectWentOn(r);
}

// A temporary folder nobody can write to. The mode bits do not hold back root, so a folder
// below a plain file stands in then: no one can create anything there.
std::string unwritableFolder(const Installation& install) {
    const fs::path folder = install.scratch("readonly");
    fs::create_directories(folder);
    chmod(folder.c_str(), 0555);
    if (access(folder.c_str(), W_OK) != 0) return folder.string();
    std::ofstream(install.scratch("plain-file")) << "not a folder";
    return (install.scratch("plain-file") / "tmp").string();
}

TEST(PromptGoesOn, AnUnwritableTempFolderIsReportedAndTheLayersStillWork) {
    const Installation install;
    const std::string temp = unwritableFolder(install);
    const RunResult r = install.run({officeDrawing().string()},
                                    "(kemb_getlayername \"T\" \"A_ACHSE\")\n(princ \"weiter\")\n", {{"TMPDIR", temp}});
    EXPECT_NE(r.output.find("Cant open file '" + temp + "/"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("_Cmd.lsp' for write\n"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Command: (kemb_getlayername \"T\" \"A_ACHSE\")\n\"A-Achsen\"\n"), std::string::npos)
        << r.output;
    expectWentOn(r);
    chmod(install.scratch("readonly").c_str(), 0755);
}

}  // namespace
}  // namespace ardo::e2e
