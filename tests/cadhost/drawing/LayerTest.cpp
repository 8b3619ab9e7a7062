// Layer table: reading every property, adding, changing, plot style names.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

using ardo::DbStatus;
using ardo::HostColor;
using ardo::LayerRecord;

Drawing reload(Drawing& d) { return test::parseOrFail(d.toDxf()); }

TEST(Layers, ReadsEveryPropertyFromTheFile) {
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    const auto walls = d.findLayer("WÄNDE");   // umlauts fold too
    ASSERT_TRUE(walls);
    EXPECT_EQ(walls->name, "Wände");           // Windows-1252 in the file, UTF-8 here
    EXPECT_TRUE(walls->isOff);
    EXPECT_TRUE(walls->isFrozen);
    EXPECT_TRUE(walls->isLocked);
    EXPECT_FALSE(walls->frozenInNewViewports);
    EXPECT_EQ(walls->color.method, HostColor::Method::TrueColor);
    EXPECT_EQ(walls->color.rgb(), 0xFF00FFu);
    EXPECT_EQ(walls->color.index, 3);
    EXPECT_FALSE(walls->isPlottable);
    EXPECT_EQ(walls->lineweight, 25);
    std::vector<std::string> names;
    d.forEachLayer([&](const LayerRecord& r) { names.push_back(r.name); return true; });
    EXPECT_EQ(names, (std::vector<std::string>{"0", "Wände"}));
}

TEST(Layers, ADrawingWithoutALayerTableIsWalkedAsEmpty) {
    Drawing d = test::parseOrFail("  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n");
    int visited = 0;
    EXPECT_EQ(d.forEachLayer([&](const LayerRecord&) { return ++visited, true; }), DbStatus::Ok);
    EXPECT_EQ(visited, 0);
}

TEST(Layers, AddedLayerKeepsAllPropertiesThroughSaveAndLoad) {
    Drawing d;
    LayerRecord r;
    r.name = "Ardo Äußeres";
    r.color = HostColor::fromIndex(5);
    r.isOff = true;
    r.frozenInNewViewports = true;
    r.isLocked = true;
    r.lineweight = 35;
    r.isPlottable = false;
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    EXPECT_EQ(d.addLayer(r), DbStatus::DuplicateRecordName);
    r.name = "Book";
    r.isOff = false;
    r.color = HostColor::fromRgb(10, 20, 30);
    r.color.method = HostColor::Method::ColorBook;
    r.color.bookName = "RAL CLASSIC";
    r.color.colorName = "RAL 1000";
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);

    Drawing back = reload(d);
    const auto a = back.findLayer("ardo äußeres");
    ASSERT_TRUE(a);
    EXPECT_EQ(a->color, HostColor::fromIndex(5));
    EXPECT_TRUE(a->isOff && a->isLocked && a->frozenInNewViewports);
    EXPECT_FALSE(a->isFrozen);
    EXPECT_EQ(a->lineweight, 35);
    EXPECT_FALSE(a->isPlottable);
    EXPECT_EQ(a->linetype, "Continuous");
    EXPECT_EQ(a->plotStyleName, "Normal");
    const auto b = back.findLayer("Book");
    ASSERT_TRUE(b);
    EXPECT_EQ(b->color.method, HostColor::Method::ColorBook);
    EXPECT_EQ(b->color.bookName, "RAL CLASSIC");
    EXPECT_EQ(b->color.colorName, "RAL 1000");
    EXPECT_EQ(b->color.rgb(), 0x0A141Eu);
}

TEST(Layers, RefusesBadNamesAndUnknownLinetypes) {
    Drawing d;
    LayerRecord r;
    r.name = "a<b";
    EXPECT_EQ(d.addLayer(r), DbStatus::InvalidInput);
    r.name = "";
    EXPECT_EQ(d.addLayer(r), DbStatus::InvalidInput);
    r.name = "ok";
    r.linetype = "NOSUCH";
    EXPECT_EQ(d.addLayer(r), DbStatus::KeyNotFound);
    EXPECT_FALSE(d.findLayer("ok"));
}

TEST(Layers, UpdateChangesOnlyWhatDiffersAndKeepsExtendedData) {
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    LayerRecord walls = *d.findLayer("Wände");
    walls.isOff = false;
    walls.isFrozen = false;
    walls.color = HostColor::fromIndex(1);
    ASSERT_EQ(d.updateLayer(walls), DbStatus::Ok);
    const std::string out = d.toDxf();
    EXPECT_NE(out.find("OTHERAPP\n1000\nkept"), std::string::npos) << "extended data lost";
    EXPECT_EQ(out.find("16711935"), std::string::npos) << "true colour kept after switching to an index colour";
    const auto back = reload(d).findLayer("Wände");
    ASSERT_TRUE(back);
    EXPECT_EQ(back->color, HostColor::fromIndex(1));
    EXPECT_FALSE(back->isOff || back->isFrozen);
    EXPECT_TRUE(back->isLocked);
    EXPECT_EQ(back->lineweight, 25);
}

TEST(Layers, PlotStyleNamesNeedTheirPlaceHolder) {
    Drawing d;
    EXPECT_FALSE(d.usesNamedPlotStyles());
    ASSERT_TRUE(d.hasDictionary("ACAD_PLOTSTYLENAME"));
    EXPECT_TRUE(d.hasDictionaryEntry("ACAD_PLOTSTYLENAME", "normal"));
    EXPECT_EQ(d.setLayerPlotStyleName("0", "Dick"), DbStatus::KeyNotFound);
    ASSERT_EQ(d.addPlaceHolder("ACAD_PLOTSTYLENAME", "Dick"), DbStatus::Ok);
    ASSERT_EQ(d.addPlaceHolder("ACAD_PLOTSTYLENAME", "DICK"), DbStatus::Ok);   // kept, not doubled
    ASSERT_EQ(d.setLayerPlotStyleName("0", "Dick"), DbStatus::Ok);
    EXPECT_EQ(d.findLayer("0")->plotStyleName, "Dick");
    Drawing back = reload(d);
    EXPECT_EQ(back.findLayer("0")->plotStyleName, "Dick");
    const std::string out = back.toDxf();
    EXPECT_EQ(out.find("Dick"), out.rfind("Dick")) << "the place-holder was added twice";
}

TEST(Layers, DictionariesAreAddedToTheNamedObjectDictionary) {
    Drawing d;
    EXPECT_FALSE(d.hasDictionary("ARDO_DATA"));
    ASSERT_EQ(d.addDictionary("ARDO_DATA"), DbStatus::Ok);
    EXPECT_EQ(d.addDictionary("ardo_data"), DbStatus::DuplicateRecordName);
    ASSERT_EQ(d.addPlaceHolder("ARDO_DATA", "Entry"), DbStatus::Ok);
    EXPECT_EQ(d.addPlaceHolder("NO_SUCH", "Entry"), DbStatus::KeyNotFound);
    Drawing back = reload(d);
    EXPECT_TRUE(back.hasDictionaryEntry("ARDO_DATA", "entry"));
}

TEST(Layers, NewHandlesLieBelowTheSavedHandseed) {
    Drawing d;
    LayerRecord r;
    r.name = "H";
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    const auto seed = d.getVar("HANDSEED");
    ASSERT_TRUE(seed);
    Drawing back = reload(d);
    const auto seedBack = back.getVar("HANDSEED");
    ASSERT_TRUE(seedBack);
    EXPECT_EQ(seedBack->text, "31");   // template seed 30, one handle taken
}

TEST(Layers, Release12LayersGetNoNewerGroups) {
    Drawing d = test::openOrFail(test::fixture("r12_minimal.dxf"));
    LayerRecord r;
    r.name = "R12NEW";
    r.lineweight = 50;
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    const std::string out = d.toDxf();
    const auto at = out.find("R12NEW");
    const auto end = out.find("ENDTAB", at);
    EXPECT_EQ(out.substr(at, end - at).find("370"), std::string::npos);
    EXPECT_TRUE(reload(d).findLayer("R12NEW"));
}

}  // namespace
}  // namespace cadhost

namespace cadhost {
namespace {

// Damaged numbers in a layer record read as the audit repairs them, never as undefined
// behaviour or a wrong colour.
TEST(Layers, NumbersOutOfRangeReadAsDamage) {
    struct Case { const char* color; int index; bool off; };
    const Case cases[] = {{"nan", 7, false},   {"1e300", 7, false}, {"-9223372036854775808", 7, false},
                          {"0", 7, false},     {"256", 7, false},   {"-255", 255, true},
                          {"-3.0", 3, true},   {"x", 7, false},     {"9223372036854775807", 7, false}};
    for (const Case& c : cases) {
        const std::string bytes = std::string("  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLTYPE\n  0\nENDTAB\n") +
                                  "  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nL\n 70\n1e300\n 62\n" + c.color +
                                  "\n  6\nCONTINUOUS\n370\nnan\n  0\nENDTAB\n  0\nENDSEC\n  0\nEOF\n";
        const auto layer = test::parseOrFail(bytes).findLayer("L");
        ASSERT_TRUE(layer) << c.color;
        EXPECT_EQ(layer->color.index, c.index) << c.color;
        EXPECT_EQ(layer->isOff, c.off) << c.color;
        EXPECT_FALSE(layer->isFrozen) << c.color;
        EXPECT_EQ(layer->lineweight, -3) << c.color;
        // Recovery lists what it read differently, with the line.
        auto recovered = Drawing::recoverFromBytes(bytes);
        ASSERT_TRUE(recovered);
        std::string findings;
        for (const auto& f : recovered->repairs) findings += std::to_string(f.line) + ": " + f.what + "\n";
        EXPECT_NE(findings.find("19: Layer \"L\": \"1e300\" is no valid flags value"), std::string::npos) << findings;
        EXPECT_NE(findings.find("25: Layer \"L\": \"nan\" is no valid lineweight"), std::string::npos) << findings;
        EXPECT_EQ(findings.find("is no valid colour") != std::string::npos, c.index == 7 && !c.off) << findings;
    }
}

TEST(Layers, DrawingsWithoutTablesAreCompletedForANewLayer) {
    const std::string minimal = "  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n";
    Drawing d = test::parseOrFail(minimal);
    LayerRecord r;
    r.name = "HOLDOUT_NEU";
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    r.name = "ZWEI";
    r.linetype = "DASHED";
    EXPECT_EQ(d.addLayer(r), DbStatus::KeyNotFound);   // only Continuous is made on demand
    Drawing again = reload(d);
    EXPECT_TRUE(again.findLayer("HOLDOUT_NEU"));
    EXPECT_TRUE(again.hasLinetype("Continuous"));
    // Tables come before the entities, the linetype table before the layer table.
    const std::string out = d.toDxf();
    EXPECT_LT(out.find("TABLES"), out.find("ENTITIES"));
    EXPECT_LT(out.find("LTYPE"), out.find("\nLAYER"));
}

}  // namespace
}  // namespace cadhost
