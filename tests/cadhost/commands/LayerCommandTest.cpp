#include <gtest/gtest.h>

#include "CommandTestSupport.h"

namespace cadhost::test {

using ardo::HostColor;
using ardo::RTERROR;
using ardo::RTNORM;

class LayerCommand : public ::testing::Test {
protected:
    void SetUp() override {
        cl.echo(0);
        for (const char* name : {"Wand", "Wand-alt", "Dach", "Mauer"})
            cl.addLayer(name);
    }
    int layer(ardo::ResBufChain options) {
        options.insert(options.begin(), S("_.LAYER"));
        options.push_back(S(""));
        return cl.feed(options);
    }
    CommandLine cl;
};

TEST_F(LayerCommand, StatesByFullAndAbbreviatedKeywords) {
    EXPECT_EQ(layer({S("_FREEZE"), S("Wand"), S("_LOCK"), S("Dach"), S("_OFF"), S("Mauer")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").isFrozen);
    EXPECT_TRUE(cl.layer("Dach").isLocked);
    EXPECT_TRUE(cl.layer("Mauer").isOff);
    EXPECT_EQ(layer({S("T"), S("Wand"), S("u"), S("Dach"), S("on"), S("Mauer")}), RTNORM);
    EXPECT_FALSE(cl.layer("Wand").isFrozen);
    EXPECT_FALSE(cl.layer("Dach").isLocked);
    EXPECT_FALSE(cl.layer("Mauer").isOff);
    EXPECT_EQ(layer({S("F"), S("Wand"), S("LO"), S("Wand"), S("OFF"), S("Wand")}), RTNORM);
    const auto wand = cl.layer("Wand");
    EXPECT_TRUE(wand.isFrozen && wand.isLocked && wand.isOff);
    EXPECT_EQ(cl.printed, "");
}

TEST_F(LayerCommand, KeywordsShorterThanTheirCapitalsAreRefused) {
    // "O" could be ON or OFF; "LOC" is fine, "Lw" is LWeight, "L" alone is Ltype.
    EXPECT_EQ(layer({S("O"), S("Wand")}), RTERROR);
    EXPECT_EQ(cl.printed, "Invalid option keyword.\n");
    EXPECT_EQ(layer({S("loc"), S("Wand"), S("Lw"), S("0.3"), S("Wand"), S("L"), S(""), S("Wand")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").isLocked);
    EXPECT_EQ(cl.layer("Wand").lineweight, 30);
    EXPECT_EQ(layer({S("Freezer"), S("Wand")}), RTERROR);
}

TEST_F(LayerCommand, CommaListsAndWildcards) {
    EXPECT_EQ(layer({S("_FREEZE"), S("W*")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").isFrozen);
    EXPECT_TRUE(cl.layer("Wand-alt").isFrozen);
    EXPECT_FALSE(cl.layer("Dach").isFrozen);
    EXPECT_EQ(layer({S("_LOCK"), S("dach,MAUER")}), RTNORM);
    EXPECT_TRUE(cl.layer("Dach").isLocked);
    EXPECT_TRUE(cl.layer("Mauer").isLocked);
    EXPECT_EQ(layer({S("_THAW"), S("~Wand")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").isFrozen);
    EXPECT_FALSE(cl.layer("Wand-alt").isFrozen);
    EXPECT_EQ(layer({S("_OFF"), S("Wand-???,[BCD]a*")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand-alt").isOff);
    EXPECT_TRUE(cl.layer("Dach").isOff);
    EXPECT_FALSE(cl.layer("Mauer").isOff);
    cl.printed.clear();
    EXPECT_EQ(layer({S("_ON"), S("Nichts*")}), RTNORM);
    EXPECT_EQ(cl.printed, "No matching layer names found.\n");
}

TEST_F(LayerCommand, CurrentLayerCannotBeFrozenAndAsksBeforeGoingOff) {
    cl.drawing.setVar("CLAYER", S("Wand"));
    EXPECT_EQ(layer({S("_FREEZE"), S("W*")}), RTNORM);
    EXPECT_EQ(cl.printed, "Cannot freeze the current layer.\n");
    EXPECT_FALSE(cl.layer("Wand").isFrozen);
    EXPECT_TRUE(cl.layer("Wand-alt").isFrozen);

    // Enter answers No, then the command goes on with the next option.
    EXPECT_EQ(layer({S("_OFF"), S("wand"), S(""), S("_LOCK"), S("Wand")}), RTNORM);
    EXPECT_FALSE(cl.layer("Wand").isOff);
    EXPECT_TRUE(cl.layer("Wand").isLocked);
    cl.echo(1);
    EXPECT_EQ(layer({S("_OFF"), S("Wand"), S("_Y")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").isOff);
    EXPECT_NE(cl.printed.find("Really want layer Wand (the CURRENT layer) off? <N> _Y\n"), std::string::npos);
    EXPECT_EQ(layer({S("_OFF"), S("Wand"), S("maybe")}), RTERROR);
}

TEST_F(LayerCommand, MakeSetAndNew) {
    EXPECT_EQ(layer({S("_MAKE"), S("Neu")}), RTNORM);
    EXPECT_EQ(cl.clayer(), "Neu");
    EXPECT_EQ(cl.layer("Neu").color, HostColor::fromIndex(7));
    EXPECT_EQ(cl.layer("Neu").linetype, "Continuous");
    EXPECT_EQ(layer({S("_MAKE"), S("dach")}), RTNORM);
    EXPECT_EQ(cl.clayer(), "Dach");   // an existing layer keeps its own spelling
    EXPECT_EQ(layer({S("_NEW"), S("Eins, Zwei,Wand")}), RTNORM);
    EXPECT_TRUE(cl.drawing.findLayer("Eins"));
    EXPECT_TRUE(cl.drawing.findLayer("Zwei"));
    EXPECT_EQ(cl.printed, "Layer \"Wand\" already exists.\n");
    EXPECT_EQ(cl.clayer(), "Dach");
    cl.printed.clear();
    EXPECT_EQ(layer({S("_SET"), S("Nirgends"), S("_FREEZE"), S("Mauer"), S("_SET"), S("Mauer"), S("S"), S("Wand")}),
              RTNORM);
    EXPECT_EQ(cl.printed, "Cannot find layer \"Nirgends\".\n"
                          "Cannot make frozen layer \"Mauer\" current.  Thaw it first.\n");
    EXPECT_EQ(cl.clayer(), "Wand");
    EXPECT_EQ(layer({S("_NEW"), S("Bad*Name")}), RTERROR);
    EXPECT_FALSE(cl.drawing.findLayer("Bad*Name"));
}

TEST_F(LayerCommand, ColorsByIndexNameTrueColorAndBook) {
    EXPECT_EQ(layer({S("_COLOR"), S("red"), S("Wand"), S("c"), ardo::ResBuf::shortInt(140), S("Dach")}), RTNORM);
    EXPECT_EQ(cl.layer("Wand").color, HostColor::fromIndex(1));
    EXPECT_EQ(cl.layer("Dach").color, HostColor::fromIndex(140));
    EXPECT_EQ(layer({S("_COLOR"), S("t"), S("255,128,0"), S("Mauer")}), RTNORM);
    EXPECT_EQ(cl.layer("Mauer").color.method, HostColor::Method::TrueColor);
    EXPECT_EQ(cl.layer("Mauer").color.rgb(), 0xFF8000u);
    EXPECT_EQ(layer({S("_COLOR"), S("co"), S("RAL CLASSIC$RAL 1000"), S("Wand-alt")}), RTNORM);
    EXPECT_EQ(cl.layer("Wand-alt").color.method, HostColor::Method::ColorBook);
    EXPECT_EQ(cl.layer("Wand-alt").color.colorName, "RAL 1000");
    // The current layer is the default of the name list.
    EXPECT_EQ(layer({S("_COLOR"), S("5"), S("")}), RTNORM);
    EXPECT_EQ(cl.layer("0").color, HostColor::fromIndex(5));

    for (const char* bad : {"0", "256", "bylayer", "purple"}) {
        EXPECT_EQ(layer({S("_COLOR"), S(bad), S("Wand")}), RTERROR) << bad;
        EXPECT_EQ(cl.layer("Wand").color, HostColor::fromIndex(1)) << bad;
    }
    EXPECT_EQ(layer({S("_COLOR"), S("t"), S("300,0,0"), S("Wand")}), RTERROR);
    EXPECT_EQ(layer({S("_COLOR"), S("co"), S("NOBOOK$X"), S("Wand")}), RTERROR);
}

TEST_F(LayerCommand, LinetypeMustBeLoaded) {
    EXPECT_EQ(layer({S("_LTYPE"), S("DASHDOT_T"), S("Wand")}), RTERROR);
    EXPECT_EQ(cl.printed, "Linetype \"DASHDOT_T\" is not loaded.  Load it with the LINETYPE command first.\n");
    const std::string lin = std::string(ARDO_TEST_DATA) + "/dxf/test.lin";
    ASSERT_EQ(cl.drawing.loadLinetype("DASHDOT_T", lin), ardo::DbStatus::Ok) << lin;
    EXPECT_EQ(layer({S("_LTYPE"), S("dashdot_t"), S("Wand")}), RTNORM);
    EXPECT_EQ(foldName(cl.layer("Wand").linetype), "DASHDOT_T");
    EXPECT_EQ(layer({S("_LTYPE"), S(""), S("Wand")}), RTNORM);
    EXPECT_EQ(cl.layer("Wand").linetype, "Continuous");
}

TEST_F(LayerCommand, LineweightRoundsToTheNearestStandardValue) {
    EXPECT_EQ(layer({S("_LWEIGHT"), S("0.25"), S("Wand"), S("_LWEIGHT"), ardo::ResBuf::realNum(0.52), S("Dach"),
                     S("_LWEIGHT"), S("0"), S("Mauer")}),
              RTNORM);
    EXPECT_EQ(cl.layer("Wand").lineweight, 25);
    EXPECT_EQ(cl.layer("Dach").lineweight, 53);
    EXPECT_EQ(cl.layer("Mauer").lineweight, 0);
    for (const char* bad : {"2.5", "-1", "thin", ""}) EXPECT_EQ(layer({S("_LWEIGHT"), S(bad), S("Wand")}), RTERROR) << bad;
    EXPECT_EQ(cl.layer("Wand").lineweight, 25);
}

TEST_F(LayerCommand, PlotPreference) {
    EXPECT_EQ(layer({S("_PLOT"), S("_No plot"), S("Wand"), S("P"), S("n"), S("Dach")}), RTNORM);
    EXPECT_FALSE(cl.layer("Wand").isPlottable);
    EXPECT_FALSE(cl.layer("Dach").isPlottable);
    EXPECT_EQ(layer({S("_PLOT"), S(""), S("Wand"), S("_PLOT"), S("_Plot"), S("Dach")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").isPlottable);
    EXPECT_TRUE(cl.layer("Dach").isPlottable);
    EXPECT_EQ(layer({S("_PLOT"), S("Never"), S("Wand")}), RTERROR);
}

TEST_F(LayerCommand, ListShowsTheMatchingLayers) {
    cl.feed({S("_.LAYER"), S("_OFF"), S("Dach"), S("_PLOT"), S("N"), S("Dach"), S("?"), S("D*"), S("")});
    EXPECT_EQ(cl.printed, "Layer name        State                     Color       Linetype      Lineweight  Plot\n"
                          "\"Dach\"  Off Thawed Unlocked  7  Continuous  Default  No plot\n"
                          "Current layer: \"0\"\n");
}

}  // namespace cadhost::test
