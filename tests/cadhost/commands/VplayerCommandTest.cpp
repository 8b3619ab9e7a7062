#include <gtest/gtest.h>

#include "CommandTestSupport.h"

namespace cadhost::test {

using ardo::RTERROR;
using ardo::RTNORM;

namespace {

// layout_viewports.dxf: Layout1 is active (TILEMODE 0) with its paper-space view (ID 1)
// and two floating viewports, 37 (ID 3) and 38 (ID 4, "Dach" frozen); Layout2 has one
// floating viewport, 3D.
constexpr Handle kFirst = 0x37, kSecond = 0x38, kOtherLayout = 0x3D;

}  // namespace

class Vplayer : public ::testing::Test {
protected:
    void SetUp() override { cl.echo(0); }
    std::vector<std::string> frozen(Handle viewport) const { return cl.drawing.viewportFrozenLayers(viewport); }
    CommandLine cl{openFixture("layout_viewports.dxf")};
};

TEST(VplayerModelSpace, IsRefused) {
    CommandLine cl;
    cl.echo(0);
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_VPVISDFLT"), S("0"), S("_FROZEN"), S("")}), RTERROR);
    EXPECT_EQ(cl.printed, "** Command not allowed in Model Tab **\n");
    EXPECT_FALSE(cl.processor.active());
    EXPECT_FALSE(cl.layer("0").frozenInNewViewports);
}

TEST_F(Vplayer, FixtureIsTheLayoutTheTestsExpect) {
    EXPECT_EQ(frozen(kSecond), (std::vector<std::string>{"Dach"}));
    EXPECT_TRUE(frozen(kFirst).empty());
    EXPECT_EQ(cl.drawing.entity(kOtherLayout)->space, Space::Block);
}

TEST_F(Vplayer, FreezeAndThawInTheCurrentViewport) {
    // As the layer core sends it: names, then Enter for the current viewport.
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_VPVISDFLT"), S("Wand"), S("_THAWED"), S("_FREEZE"), S("Wand"), S(""), S("")}),
              RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Wand"}));
    EXPECT_EQ(frozen(kSecond), (std::vector<std::string>{"Dach"}));
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_FREEZE"), S("wand,Mauer"), S("_Current"), S("")}), RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Wand", "Mauer"}));
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_THAW"), S("Wand"), S(""), S("")}), RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Mauer"}));
    EXPECT_EQ(cl.printed, "");
}

TEST_F(Vplayer, AllAndExceptCurrentStayInTheActiveLayout) {
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_FREEZE"), S("Wand"), S("_ALL"), S("")}), RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Wand"}));
    EXPECT_EQ(frozen(kSecond), (std::vector<std::string>{"Dach", "Wand"}));
    EXPECT_TRUE(frozen(kOtherLayout).empty());
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("T"), S("*"), S("E"), S("")}), RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Wand"}));
    EXPECT_TRUE(frozen(kSecond).empty());
}

TEST_F(Vplayer, WithoutCvportTheFirstFloatingViewportIsCurrent) {
    EXPECT_FALSE(cl.drawing.getVar("CVPORT"));
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_FREEZE"), S("Mauer"), S(""), S("")}), RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Mauer"}));
}

TEST_F(Vplayer, DefaultForNewViewportsIsTheLayersVpdfltBit) {
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_VPVISDFLT"), S("W*"), S("_FROZEN"), S("")}), RTNORM);
    EXPECT_TRUE(cl.layer("Wand").frozenInNewViewports);
    EXPECT_TRUE(cl.layer("Wand-alt").frozenInNewViewports);
    EXPECT_FALSE(cl.layer("Wand").isFrozen);
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("V"), S("Wand-alt"), S(""), S("")}), RTNORM);
    EXPECT_FALSE(cl.layer("Wand-alt").frozenInNewViewports);
    // Reset puts the viewports back to that default.
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_RESET"), S("Wand,Dach"), S("_ALL"), S("")}), RTNORM);
    EXPECT_EQ(frozen(kFirst), (std::vector<std::string>{"Wand"}));
    EXPECT_EQ(frozen(kSecond), (std::vector<std::string>{"Wand"}));
}

TEST_F(Vplayer, NewLayersFrozenInEveryViewport) {
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_NEWFRZ"), S("Plan,Detail"), S("")}), RTNORM);
    EXPECT_TRUE(cl.layer("Plan").frozenInNewViewports);
    for (Handle vp : {kFirst, kOtherLayout})
        EXPECT_EQ(frozen(vp), (std::vector<std::string>{"Plan", "Detail"})) << vp;
}

TEST_F(Vplayer, RefusalsAndUnknownNames) {
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_FREEZE"), S("Wand"), S("_Somewhere")}), RTERROR);
    EXPECT_EQ(cl.printed, "Invalid option keyword.\n");
    EXPECT_TRUE(frozen(kFirst).empty());
    cl.printed.clear();
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_FREEZE"), S("Nichts"), S(""), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "No matching layer names found.\n");
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_VPVISDFLT"), S("Wand"), S("_Half")}), RTERROR);
}

}  // namespace cadhost::test
