#include <algorithm>

#include "standard/LayerApply.h"
#include "standard/LayerAudit.h"
#include "standard/RenameMap.h"
#include "StandardFixture.h"

namespace ardo::test {

namespace {

std::vector<std::string> describe(const std::vector<LayerDeviation>& deviations) {
    std::vector<std::string> out;
    for (const LayerDeviation& d : deviations)
        out.push_back(d.key + " " + d.layer + " " + propertyName(d.property) + ": " + d.fileValue + " / " +
                      d.drawingValue);
    return out;
}

size_t entitiesOn(const cadhost::Drawing& drawing, const std::string& layer) {
    size_t n = 0;
    drawing.forEachEntity([&](const cadhost::EntityInfo& e) { return n += e.layer == layer ? 1 : 0, true; });
    return n;
}

}  // namespace

TEST_F(StandardTest, OfficeDrawingHasOnlyItsSurveyorsLayers) {
    const CentralLayerFile list = merged();
    const DrawingAudit audit = auditLayers(list, drawing.usesNamedPlotStyles());
    EXPECT_TRUE(audit.deviations.empty());
    // "0" and "Defpoints" belong to the host; the surveyor's layers get the most similar key.
    ASSERT_EQ(audit.unnamed.size(), 4u);
    EXPECT_EQ(audit.unnamed[0], (UnnamedLayer{"Bestand-alt", "A_WAND_BESTAND", "A-Wand-Bestand"}));
    EXPECT_EQ(audit.unnamed[2], (UnnamedLayer{"Raumtext", "A_TEXT", "A-Text"}));
    EXPECT_EQ(audit.unnamed[3], (UnnamedLayer{"Bemaßung-alt", "A_BEM", "A-Bemaßung"}));
    EXPECT_EQ(audit.missing.size(), 65u);
    EXPECT_FALSE(audit.meetsStandard());
}

TEST_F(StandardTest, EachDifferingPropertyIsOneDeviationWithBothValues) {
    addStandardLayers();
    const DrawingAudit audit = auditLayers(merged(), drawing.usesNamedPlotStyles());
    EXPECT_EQ(describe(audit.deviations),
              (std::vector<std::string>{
                  "A_ACHSE A-Achsen linetype: ARDO_STRICHPUNKT / CONTINUOUS",
                  "A_WAND_TRAG A-Wand-tragend colour: 7 / 1",
                  "A_WAND_TRAG A-Wand-tragend lineweight: 0.50 mm / 0.25 mm",
                  "A_WAND_DAEMM A-Wand-Dämmung colour: RAL CLASSIC$RAL 7035 / 8",
                  "A_WAND_DAEMM A-Wand-Dämmung linetype: ARDO_DAEMMUNG / CONTINUOUS",
                  "A_HILFSLINIE A-Hilfslinien linetype: ARDO_FEIN / CONTINUOUS",
                  "A_HILFSLINIE A-Hilfslinien plottable: no / yes",
              }));
    // Swatches: index colours through the host's palette, book colours by their own RGB.
    EXPECT_EQ(audit.deviations[1].fileRgb, "#ffffff");
    EXPECT_EQ(audit.deviations[1].drawingRgb, "#ff0000");
    EXPECT_EQ(audit.deviations[3].fileRgb, "#cfd3cd");
    EXPECT_EQ(audit.missing.size(), 59u);
}

TEST_F(StandardTest, ApplyingTheStandardLeavesNothingToReport) {
    addStandardLayers();
    DrawingAudit audit = auditLayers(merged(), drawing.usesNamedPlotStyles());
    const size_t deviations = audit.deviations.size();
    EXPECT_EQ(applyStandard(merged(), drawing, audit, false), 4);
    ASSERT_EQ(audit.changes.size(), deviations);
    for (const LayerChange& c : audit.changes) EXPECT_EQ(c.failure, "") << c.layer << " " << c.what;

    EXPECT_EQ(describe(auditLayers(merged(), drawing.usesNamedPlotStyles()).deviations), std::vector<std::string>{});
    EXPECT_TRUE(drawing.hasLinetype("ARDO_STRICHPUNKT"));   // loaded from its file for the axes
    const auto insulation = drawing.findLayer("A-Wand-Dämmung");
    EXPECT_EQ(insulation->color.method, HostColor::Method::ColorBook);
    EXPECT_EQ(insulation->color.colorName, "RAL 7035");
    EXPECT_FALSE(drawing.findLayer("A-Hilfslinien")->isPlottable);
    EXPECT_EQ(drawing.findLayer("A-Wand-tragend")->lineweight, 50);
}

TEST_F(StandardTest, DryRunTellsTheChangesAndLeavesTheDrawing) {
    addStandardLayers();
    const std::string before = drawing.toDxf();
    DrawingAudit audit = auditLayers(merged(), drawing.usesNamedPlotStyles());
    EXPECT_EQ(applyStandard(merged(), drawing, audit, true), 4);
    EXPECT_EQ(audit.changes.size(), audit.deviations.size());
    // Layers are named as the standard spells them; the drawing's "a-achsen" is the same layer.
    EXPECT_EQ(audit.changes[0], (LayerChange{"A-Achsen", "linetype", "CONTINUOUS", "ARDO_STRICHPUNKT", ""}));
    EXPECT_EQ(drawing.toDxf(), before);
}

TEST_F(StandardTest, LinetypeMissingFromItsFileIsAFailedChangeAndTheRestIsApplied) {
    const std::string central = writeFile("Ardo.ini", "[LAYER]\nK1=Wand,3,NOSUCH,ardo.lin,0,,,50,Normal,,1\n");
    addLayer("Wand", HostColor::fromIndex(1), "Continuous", 25);
    DrawingAudit audit = auditLayers(merged(central), false);
    ASSERT_EQ(audit.deviations.size(), 3u);
    EXPECT_EQ(applyStandard(merged(central), drawing, audit, false), 1);
    EXPECT_EQ(audit.changes[1].what, "linetype");
    EXPECT_NE(audit.changes[1].failure.find("NOSUCH"), std::string::npos);
    EXPECT_EQ(drawing.findLayer("Wand")->color, HostColor::fromIndex(3));
    EXPECT_EQ(describe(auditLayers(merged(central), false).deviations),
              std::vector<std::string>{"K1 Wand linetype: NOSUCH / CONTINUOUS"});
}

TEST_F(StandardTest, PlotStylesCountOnlyWhereTheDrawingNamesThem) {
    const std::string central = writeFile("Ardo.ini", "[LAYER]\nK1=Wand,3,Continuous,,0,,,-3,Stil-A,,1\n");
    addLayer("Wand", HostColor::fromIndex(3), "Continuous", -3);
    EXPECT_TRUE(auditLayers(merged(central), drawing.usesNamedPlotStyles()).deviations.empty());

    ASSERT_EQ(drawing.setVar("PSTYLEMODE", ResBuf::shortInt(0)), DbStatus::Ok);
    ASSERT_TRUE(drawing.usesNamedPlotStyles());
    DrawingAudit audit = auditLayers(merged(central), true);
    EXPECT_EQ(describe(audit.deviations), std::vector<std::string>{"K1 Wand plot style: Stil-A / Normal"});
    EXPECT_EQ(applyStandard(merged(central), drawing, audit, false), 1);
    EXPECT_EQ(drawing.findLayer("Wand")->plotStyleName, "Stil-A");
    EXPECT_TRUE(auditLayers(merged(central), true).deviations.empty());
}

TEST_F(StandardTest, RenameMovesLayersIntoTheirKeysLayers) {
    addLayer("A-Raumstempel", HostColor::fromIndex(7), "Continuous", 18);
    const size_t textEntities = entitiesOn(drawing, "Raumtext");
    const size_t oldWalls = entitiesOn(drawing, "Bestand-alt") + entitiesOn(drawing, "Bestand-Öffnungen");
    ASSERT_GT(textEntities, 0u);
    ASSERT_GT(oldWalls, 0u);
    const auto map = parseRenameMap("# surveyor's layers\nbestand-*\tA_WAND_BESTAND\nRaumtext;A_RAUMSTEMPEL\n"
                                    "Bemaßung-alt,NO_SUCH_KEY\n", "map.txt");
    ASSERT_TRUE(std::holds_alternative<RenameMap>(map));
    std::vector<LayerChange> changes;
    EXPECT_EQ(renameLayers(std::get<RenameMap>(map), merged(), drawing, changes, false), 3);
    EXPECT_EQ(changes, (std::vector<LayerChange>{
                           {"Bestand-alt", kRenamedTo, "", "A-Wand-Bestand", ""},
                           {"Bestand-Öffnungen", kMergedInto, "", "A-Wand-Bestand", ""},
                           {"Raumtext", kMergedInto, "", "A-Raumstempel", ""},
                           {"Bemaßung-alt", kRenamedTo, "", "NO_SUCH_KEY", "the central layer file has no key NO_SUCH_KEY"},
                       }));
    EXPECT_FALSE(drawing.findLayer("Bestand-alt"));
    EXPECT_FALSE(drawing.findLayer("Raumtext"));
    EXPECT_TRUE(drawing.findLayer("Bemaßung-alt"));
    EXPECT_EQ(entitiesOn(drawing, "A-Raumstempel"), textEntities);
    EXPECT_EQ(entitiesOn(drawing, "A-Wand-Bestand"), oldWalls);
    // The new layer was made from its key, so it meets the standard.
    const DrawingAudit after = auditLayers(merged(), false);
    EXPECT_TRUE(std::none_of(after.deviations.begin(), after.deviations.end(),
                             [](const LayerDeviation& d) { return d.layer == "A-Wand-Bestand"; }));
    EXPECT_EQ(after.unnamed.size(), 1u);
}

TEST_F(StandardTest, RenameDryRunChangesNothing) {
    const std::string before = drawing.toDxf();
    std::vector<LayerChange> changes;
    EXPECT_EQ(renameLayers({{"*", "A_TEXT"}}, merged(), drawing, changes, true), 4);
    EXPECT_EQ(changes.size(), 4u);
    EXPECT_EQ(drawing.toDxf(), before);
}

}  // namespace ardo::test
