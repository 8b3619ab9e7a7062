// The README's main job: the demo script on the sample drawing, its saved drawing read back by
// the host, ezdxf and LibreCAD.
#include <gtest/gtest.h>

#include <map>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

class Demo : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        install = new Installation;
        result = new RunResult(install->run({officeDrawing().string(), "-s",
                                             (fs::path(ARDO_SOURCE_DIR) / "examples/demo.lsp").string(), "-o",
                                             install->scratch("office-demo.dxf").string()}));
    }
    static void TearDownTestSuite() {
        delete result;
        delete install;
    }
    static fs::path saved() { return install->scratch("office-demo.dxf"); }
    static Installation* install;
    static RunResult* result;
};
Installation* Demo::install = nullptr;
RunResult* Demo::result = nullptr;

TEST_F(Demo, RunsCleanAndTheWallModuleIsReachedThroughTheCommandStub) {
    const std::string& out = result->output;
    EXPECT_EQ(result->exitCode, 0) << out;
    for (const char* bad : {"; error", "Unknown command", "Falsch", "nicht gefunden"})
        EXPECT_EQ(out.find(bad), std::string::npos) << bad << "\n" << out;
    EXPECT_NE(out.find("wand.lsp vorher geladen / loaded before: nein/no"), std::string::npos);
    EXPECT_NE(out.find("Command: WANDNEU\n\nWandlayer bereit: EG_A-Wand-nichttragend\n"
                       "Wandlayer bereit: EG_A-Wand-tragend\n"),
              std::string::npos) << out;
    EXPECT_NE(out.find("Layer A-Wand-Abbruch hat jetzt den Zustand 1."), std::string::npos);
    EXPECT_NE(out.find("Layer A-Wand-Bestand hat jetzt den Zustand 4."), std::string::npos);
    EXPECT_NE(out.find("kemb_getlayerkey \"A-Wand-Dämmung\" -> A_WAND_DAEMM"), std::string::npos);
    EXPECT_NE(out.find("=== Zusammenfassung / summary ==="), std::string::npos);
}

TEST_F(Demo, TheSavedDrawingHoldsTheSurveyAndTheLayersTheDemoMade) {
    const cadhost::Drawing d = openSaved(saved());
    EXPECT_EQ(d.getVar("CLAYER")->text, "OG1_A-Wand-tragend");
    for (const char* original : {"0", "Defpoints", "Bestand-alt", "Bestand-Öffnungen", "Raumtext", "Bemaßung-alt"})
        EXPECT_TRUE(d.findLayer(original)) << original;
    for (const char* made : {"EG_A-Wand-tragend", "EG_A-Wand-nichttragend", "OG1_A-Türen", "OG1_A-Fenster_NEU",
                             "G-Grundstücksgrenze"})
        EXPECT_TRUE(d.findLayer(made)) << made;
    EXPECT_TRUE(layerOf(d, "A-Wand-Abbruch").isOff);
    EXPECT_TRUE(layerOf(d, "A-Wand-Bestand").isLocked);
    EXPECT_TRUE(layerOf(d, "A-Achsen").isLocked);
    EXPECT_FALSE(layerOf(d, "T-Bewehrung").isFrozen) << "thawed again by kemb_setlayer";
    EXPECT_TRUE(d.hasLinetype("ARDO_GRENZE"));
    // The wall module drew each storey's walls with LINE: an outline of four lines on the
    // load-bearing layer and one partition on the other.
    EXPECT_EQ(d.entityCount(), openSaved(officeDrawing()).entityCount() + 10);
    std::map<std::string, int> walls;
    d.forEachEntity([&](const cadhost::EntityInfo& e) {
        if (e.type == "LINE" && (e.layer.rfind("EG_", 0) == 0 || e.layer.rfind("OG1_", 0) == 0)) ++walls[e.layer];
        return true;
    });
    EXPECT_EQ(walls, (std::map<std::string, int>{{"EG_A-Wand-nichttragend", 1}, {"EG_A-Wand-tragend", 4},
                                                  {"OG1_A-Wand-nichttragend", 1}, {"OG1_A-Wand-tragend", 4}}));
    if (auto read = ezdxfEval(saved(), "len(d.layers), len(d.audit().errors), d.header['$CLAYER']")) {
        EXPECT_EQ(*read, "25 0 OG1_A-Wand-tragend\n");
    }
}

// LibreCAD's PDF of the drawing, written beside it under its name; 0 when none came out.
std::uintmax_t printedSize(const fs::path& dxf) {
    const RunResult r = runProcess({"librecad", "dxf2pdf", dxf.string()}, {{"QT_QPA_PLATFORM", "offscreen"}}, "", 60);
    const fs::path pdf = fs::path(dxf).replace_extension(".pdf");
    EXPECT_EQ(r.exitCode, 0) << r.output;
    return fs::exists(pdf) ? fs::file_size(pdf) : 0;
}

TEST_F(Demo, LibreCadPrintsTheSavedDrawingWithItsContent) {
    if (!hasLibreCad()) GTEST_SKIP() << "librecad is not installed";
    const fs::path empty = install->scratch("empty.dxf");
    ASSERT_TRUE(cadhost::Drawing().save(empty.string()));
    const std::uintmax_t emptyPage = printedSize(empty);
    ASSERT_GT(emptyPage, 0u) << "LibreCAD prints an empty drawing";
    // The walls, doors, windows and texts make the page's drawing stream longer.
    EXPECT_GT(printedSize(saved()), emptyPage + 64);
}

}  // namespace
}  // namespace ardo::e2e
