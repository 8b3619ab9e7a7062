// ARC and PLINE at the command line: every construction checked on the entity's groups,
// bad input answered with a message and the same prompt.
#include <gtest/gtest.h>

#include <algorithm>

#include "CommandTestSupport.h"
#include "NewestEntity.h"

namespace cadhost::test {

using ardo::RTNORM;

namespace {

class CurveCommands : public ::testing::Test {
protected:
    CommandLine cl;
    void SetUp() override { cl.echo(0); }
    // Draws one arc and gives its centre, radius and angles.
    std::string arc(ardo::ResBufChain tokens) {
        EXPECT_EQ(cl.feed(std::move(tokens)), RTNORM);
        EXPECT_FALSE(cl.processor.active()) << cl.processor.prompt();
        return newestGroups(cl.drawing, {0, 10, 20, 40, 50, 51});
    }
    std::string polyline() { return newestGroups(cl.drawing, {0, 70, 43, 10, 20, 40, 41, 42}); }
};

}  // namespace

TEST_F(CurveCommands, ArcByEveryConstruction) {
    // Three points, clockwise through the second: stored counter-clockwise from the end.
    EXPECT_EQ(arc({S("_.ARC"), S("0,0"), S("5,5"), S("10,0")}), "0=ARC 10=5 20=0 40=5 50=0 51=180");
    EXPECT_EQ(arc({S("ARC"), S("0,0"), S("0,5"), S("-5,5")}), "0=ARC 10=-2.5 20=2.5 40=3.535534 50=315 51=135");
    // Start, centre and end, included angle or chord.
    EXPECT_EQ(arc({S("ARC"), S("10,0"), S("_C"), S("0,0"), S("0,10")}), "0=ARC 10=0 20=0 40=10 50=0 51=90");
    EXPECT_EQ(arc({S("ARC"), S("10,0"), S("c"), S("0,0"), S("_A"), S("-90")}), "0=ARC 10=0 20=0 40=10 50=270 51=0");
    EXPECT_EQ(arc({S("ARC"), S("10,0"), S("C"), S("0,0"), S("L"), S("10")}), "0=ARC 10=0 20=0 40=10 50=0 51=60");
    EXPECT_EQ(arc({S("ARC"), S("10,0"), S("C"), S("0,0"), S("L"), S("-10")}), "0=ARC 10=0 20=0 40=10 50=0 51=300");
    // Start, end and centre, included angle, direction or radius.
    EXPECT_EQ(arc({S("ARC"), S("10,0"), S("_E"), S("0,10"), S("0,0")}), "0=ARC 10=0 20=0 40=10 50=0 51=90");
    EXPECT_EQ(arc({S("ARC"), S("0,0"), S("E"), S("10,0"), S("A"), S("90")}),
              "0=ARC 10=5 20=5 40=7.071068 50=225 51=315");
    EXPECT_EQ(arc({S("ARC"), S("0,0"), S("E"), S("10,0"), S("_D"), S("90")}), "0=ARC 10=5 20=0 40=5 50=0 51=180");
    EXPECT_EQ(arc({S("ARC"), S("0,0"), S("E"), S("10,0"), S("R"), S("10")}),
              "0=ARC 10=5 20=8.660254 40=10 50=240 51=300");
    EXPECT_EQ(arc({S("ARC"), S("0,0"), S("E"), S("10,0"), S("R"), S("-10")}),
              "0=ARC 10=5 20=-8.660254 40=10 50=120 51=60");
    // Centre first, then start and end or angle.
    EXPECT_EQ(arc({S("ARC"), S("_CE"), S("0,0"), S("0,5"), S("5,0")}), "0=ARC 10=0 20=0 40=5 50=90 51=0");
    EXPECT_EQ(arc({S("ARC"), S("C"), S("0,0"), S("0,5"), S("a"), S("45")}), "0=ARC 10=0 20=0 40=5 50=90 51=135");
    EXPECT_EQ(cl.printed, "");
}

TEST_F(CurveCommands, ArcRefusesInputThatGivesNoArcAndAsksAgain) {
    ASSERT_EQ(cl.feed({S("ARC"), S("x"), S("0,0"), S("1,1"), S("2,2")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Specify end point of arc: ");
    ASSERT_EQ(cl.feed({S("2,0")}), RTNORM);
    EXPECT_EQ(newestGroups(cl.drawing, {10, 20, 40, 50, 51}), "10=1 20=0 40=1 50=0 51=180");
    ASSERT_EQ(cl.feed({S("ARC"), S("10,0"), S("C"), S("0,0"), S("L"), S("30"), S("q")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Specify length of chord: ");
    ASSERT_EQ(cl.feed({S("10,0"), S("10"), S("ARC"), S("0,0"), S("E"), S("10,0"), S("A"), S("zz"), S("0")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Specify included angle: ");
    ASSERT_EQ(cl.feed({S("_A")}), RTNORM);   // no keyword here
    cl.processor.cancel();
    EXPECT_EQ(cl.printed, "Point or option keyword required.\n"
                          "No arc fits that input; specify another value.\n"
                          "No arc fits that input; specify another value.\n"
                          "Requires numeric distance or second point.\n"
                          "No arc fits that input; specify another value.\n"   // chord 10 from (10,0) itself
                          "Requires valid numeric angle or second point.\n"
                          "No arc fits that input; specify another value.\n"
                          "Requires valid numeric angle or second point.\n");
    EXPECT_EQ(cl.drawing.entityCount(), 2u);
}

TEST_F(CurveCommands, PolylineWidthsUndoAndClose) {
    ASSERT_EQ(cl.feed({S("_.PLINE"), S("0,0"), S("_W"), S("1"), S("2"), S("10,0"), S("junk"), S("10,10"), S("U"),
                       S("10,5"), S("C")}),
              RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "Point or option keyword required.\n");
    EXPECT_EQ(polyline(), "0=LWPOLYLINE 70=1 10=0 20=0 40=1 41=2 10=10 20=0 40=2 41=2 10=10 20=5 40=2 41=2");

    // Half-widths: the starting one is the ending one's default; a uniform width is one group.
    cl.printed.clear();
    cl.echo(1);
    ASSERT_EQ(cl.feed({S("PLINE"), S("0,0"), S("H"), S("-1"), S("0.5")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Specify ending half-width <0.5000>: ");
    ASSERT_EQ(cl.feed({S(""), S("L"), S("4"), S("")}), RTNORM);
    EXPECT_NE(cl.printed.find("Current line-width is 2.0000\n"), std::string::npos) << cl.printed;
    EXPECT_NE(cl.printed.find("Value must be positive or zero.\n"), std::string::npos) << cl.printed;
    EXPECT_EQ(polyline(), "0=LWPOLYLINE 70=0 43=1 10=0 20=0 10=4 20=0");
    EXPECT_EQ(cl.drawing.getVar("PLINEWID")->real, 1.0);

    // Close needs two segments; undoing every segment asks for a start point again.
    cl.echo(0);
    cl.printed.clear();
    ASSERT_EQ(cl.feed({S("PLINE"), S("0,0"), S("W"), S("0"), S(""), S("1,0"), S("c"), S("u"), S("u")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Specify start point: ");
    EXPECT_EQ(cl.printed, "Point or option keyword required.\nAll segments already undone.\n");
    ASSERT_EQ(cl.feed({S("3,3"), S("")}), RTNORM);   // a start point alone draws nothing
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.drawing.entityCount(), 2u);
}

TEST_F(CurveCommands, PolylineArcSegments) {
    // Tangent arcs go on in the direction the polyline left off; Length follows the arc's end.
    ASSERT_EQ(cl.feed({S("PLINE"), S("0,0"), S("10,0"), S("_A"), S("10,10"), S("_L"), S("L"), S("5"), S("")}), RTNORM);
    EXPECT_EQ(polyline(), "0=LWPOLYLINE 70=0 43=0 10=0 20=0 10=10 20=0 42=1 10=10 20=10 10=5 20=10");
    // Included angle with an end point or a centre; centre with a chord.
    ASSERT_EQ(cl.feed({S("PLINE"), S("0,0"), S("A"), S("A"), S("90"), S("10,0"), S("A"), S("-90"), S("CE"), S("15,0"),
                       S("CE"), S("15,10"), S("L"), S("10"), S("")}),
              RTNORM);
    EXPECT_EQ(polyline(), "0=LWPOLYLINE 70=0 43=0 10=0 20=0 42=0.414214 10=10 20=0 42=-0.414214 10=15 20=5 42=1 "
                          "10=15 20=15");
    // Second point, radius and a start direction; a direction that gives no arc is refused.
    ASSERT_EQ(cl.feed({S("PLINE"), S("20,0"), S("A"), S("S"), S("25,5"), S("30,0"), S("R"), S("10"), S("30,10"),
                       S("D"), S("0"), S("40,10"), S("40,20"), S("")}),
              RTNORM);
    EXPECT_EQ(polyline(), "0=LWPOLYLINE 70=0 43=0 10=20 20=0 42=-1 10=30 20=0 42=0.267949 10=30 20=10 42=0.414214 "
                          "10=40 20=20");
    EXPECT_EQ(cl.printed, "No arc fits that input; specify another value.\n");
    // CLose with an arc: two half circles make a full one.
    ASSERT_EQ(cl.feed({S("PLINE"), S("0,0"), S("A"), S("CE"), S("5,0"), S("A"), S("180"), S("CL")}), RTNORM);
    EXPECT_EQ(polyline(), "0=LWPOLYLINE 70=1 43=0 10=0 20=0 42=1 10=10 20=0 42=1");
    EXPECT_FALSE(cl.processor.active());
}

}  // namespace cadhost::test
