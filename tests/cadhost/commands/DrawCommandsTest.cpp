// LINE and CIRCLE at the command line: every construction, bad input answered with a
// message and the same prompt, and the saved drawing read back by our reader and ezdxf.
#include <gtest/gtest.h>

#include <cmath>
#include <algorithm>
#include <iomanip>
#include <sstream>

#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {

using ardo::RTNORM;

namespace {

// Each entity as "TYPE layer colour numbers...", numbers rounded to 1e-6.
const char* kEzdxfEntities = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
auditor = doc.audit()
print('errors', len(auditor.errors))
def n(v): return '%.10g' % round(v, 6)
for e in doc.modelspace():
    t = e.dxftype()
    if t == 'LINE': geo = [*e.dxf.start, *e.dxf.end]
    elif t == 'CIRCLE': geo = [*e.dxf.center, e.dxf.radius]
    elif t == 'LWPOLYLINE': geo = [c for x, y in e.get_points('xy') for c in (x, y)]
    elif t == 'POINT': geo = [*e.dxf.location]
    else: geo = []
    print(t, e.dxf.layer, e.dxf.get('color', 256), e.dxf.get('linetype', 'BYLAYER'), e.dxf.get('lineweight', -1),
          ' '.join(n(v) for v in geo))
)";

std::string number(const std::string& text) {
    std::ostringstream out;
    out << std::setprecision(10) << std::round(std::stod(text) * 1e6) / 1e6;
    return out.str();
}

// The same report from our own reader.
std::string ourReport(const Drawing& drawing) {
    std::string out;
    drawing.forEachEntity([&](const EntityInfo& e) {
        if (e.space != Space::Model) return true;
        std::string color = "256", linetype = "BYLAYER", weight = "-1", geo;
        for (const EntityTag& t : drawing.entityTags(e.handle)) {
            if (t.code == 62) color = t.value;
            else if (t.code == 6) linetype = t.value;
            else if (t.code == 370) weight = t.value;
            else if ((t.code >= 10 && t.code <= 31) || t.code == 40) geo += (geo.empty() ? "" : " ") + number(t.value);
        }
        out += e.type + " " + e.layer + " " + color + " " + linetype + " " + weight + " " + geo + "\n";
        return true;
    });
    return out;
}

class DrawCommands : public ::testing::Test {
protected:
    CommandLine cl;
    void SetUp() override {
        cl.addLayer("Wand");
        cl.echo(0);
    }
    std::string entities() { return ourReport(cl.drawing); }
};

}  // namespace

TEST_F(DrawCommands, LineWithUndoCloseAndBadInput) {
    ASSERT_EQ(cl.feed({S("_.LINE"), S("0,0"), S("@100,0"), S("@0,50"), S("junk"), S("_U"), S("@0,60"), S("c")}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "Point or option keyword required.\n");
    EXPECT_EQ(entities(), "LINE 0 256 BYLAYER -1 0 0 0 100 0 0\n"
                          "LINE 0 256 BYLAYER -1 100 0 0 100 60 0\n"
                          "LINE 0 256 BYLAYER -1 100 60 0 0 0 0\n");
    EXPECT_EQ(cl.drawing.getVar("LASTPOINT")->point, (ardo::Point3{0, 0, 0}));

    // Close needs two segments; Enter at the first point goes on from the last point.
    cl.printed.clear();
    ASSERT_EQ(cl.feed({S("LINE"), S("5,5"), S("6,5"), S("_Close")}), RTNORM);
    EXPECT_TRUE(cl.processor.active());
    EXPECT_EQ(cl.printed, "Point or option keyword required.\n");
    EXPECT_EQ(cl.processor.prompt(), "Specify next point or [Undo]: ");
    ASSERT_EQ(cl.feed({S("")}), RTNORM);
    ASSERT_EQ(cl.feed({S("LINE"), S(""), ardo::ResBuf::point3({6, 9, 0}), S("")}), RTNORM);
    const std::string all = entities();
    EXPECT_NE(all.find("LINE 0 256 BYLAYER -1 5 5 0 6 5 0\nLINE 0 256 BYLAYER -1 6 5 0 6 9 0\n"), std::string::npos)
        << all;
    // Undo back past the first segment asks for a first point again.
    ASSERT_EQ(cl.feed({S("LINE"), S("1,1"), S("2,2"), S("U"), S("U")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Specify first point: ");
    cl.processor.cancel();
    EXPECT_EQ(entities(), all);
}

TEST_F(DrawCommands, CircleByRadiusDiameterTwoAndThreePoints) {
    ASSERT_EQ(cl.feed({S("_circle"), S("10,10"), S("5")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_circle"), S("10,10"), S("_D"), S("-8"), S("8")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_circle"), S("0,0"), S("20,10")}), RTNORM);   // radius to a point
    ASSERT_EQ(cl.feed({S("_circle"), S("2p"), S("0,0"), S("10,0")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_circle"), S("_3P"), S("0,0"), S("10,0"), S("20,0"), S("5,5")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_circle"), S("x"), S("1,1"), S("r"), ardo::ResBuf::realNum(0.5)}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "Value must be positive and nonzero.\n"
                          "The three points lie on one line; specify another third point.\n"
                          "Point or option keyword required.\n"
                          "Requires numeric distance or second point.\n");
    EXPECT_EQ(entities(), "CIRCLE 0 256 BYLAYER -1 10 10 0 5\n"
                          "CIRCLE 0 256 BYLAYER -1 10 10 0 4\n"
                          "CIRCLE 0 256 BYLAYER -1 0 0 0 22.36068\n"
                          "CIRCLE 0 256 BYLAYER -1 5 0 0 5\n"
                          "CIRCLE 0 256 BYLAYER -1 5 0 0 5\n"
                          "CIRCLE 0 256 BYLAYER -1 1 1 0 0.5\n");
}

TEST_F(DrawCommands, RectangleAndPoint) {
    ASSERT_EQ(cl.feed({S("_RECTANG"), S("1,2"), S("1,9"), S("@4,3")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_.POINT"), S("?"), ardo::ResBuf::point3({7, 8, 9})}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "The corners lie on one line; specify another corner.\nInvalid point.\n");
    EXPECT_EQ(entities(), "LWPOLYLINE 0 256 BYLAYER -1 1 2 5 2 5 12 1 12\n"
                          "POINT 0 256 BYLAYER -1 7 8 9\n");
    const auto rectangle = cl.drawing.entityTags(*cl.drawing.firstEntity());
    EXPECT_NE(std::find(rectangle.begin(), rectangle.end(), EntityTag{70, "1"}), rectangle.end());
}

TEST_F(DrawCommands, NewEntitiesTakeTheCurrentPropertiesAndPassEzdxfsAudit) {
    ASSERT_EQ(cl.drawing.setVar("CLAYER", S("wand")), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.drawing.setVar("CECOLOR", ardo::ResBuf::shortInt(1)), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.drawing.setVar("CELTYPE", S("Continuous")), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.drawing.setVar("CELWEIGHT", ardo::ResBuf::shortInt(35)), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.feed({S("_.LINE"), S("0,0"), S("3.5,-2.25,1"), S("")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_.CIRCLE"), S("0,0"), S("2.5")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_.RECTANG"), S("0,0"), S("2,1")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_.POINT"), S("1,1")}), RTNORM);
    const std::string expected = "LINE Wand 1 Continuous 35 0 0 0 3.5 -2.25 1\n"
                                 "CIRCLE Wand 1 Continuous 35 0 0 0 2.5\n"
                                 "LWPOLYLINE Wand 1 Continuous 35 0 0 2 0 2 1 0 1\n"
                                 "POINT Wand 1 Continuous 35 1 1 0\n";
    EXPECT_EQ(entities(), expected);

    const ardo::test::TempFolder folder;
    const std::string saved = folder.file("drawn.dxf");
    ASSERT_TRUE(cl.drawing.save(saved));
    auto reopened = Drawing::open(saved);
    ASSERT_TRUE(reopened) << reopened.error();
    EXPECT_EQ(ourReport(*reopened), expected);

    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    const auto report = ardo::test::runPython(*python, kEzdxfEntities, {saved});
    EXPECT_EQ(report.output, "errors 0\n" + expected) << report.output;
}

TEST_F(DrawCommands, NewEntitiesTakeEveryKindOfCurrentColour) {
    const auto colourGroups = [this](const char* current) {
        EXPECT_EQ(cl.drawing.setVar("CECOLOR", S(current)), ardo::DbStatus::Ok) << current;
        EXPECT_EQ(cl.feed({S("_.POINT"), S("1,1")}), RTNORM);
        auto newest = cl.drawing.firstEntity();
        while (auto next = cl.drawing.nextEntity(*newest)) newest = next;
        std::vector<EntityTag> groups;
        for (const EntityTag& tag : cl.drawing.entityTags(*newest))
            if (tag.code == 62 || tag.code == 420 || tag.code == 430) groups.push_back(tag);
        return groups;
    };
    EXPECT_EQ(colourGroups("bylayer"), std::vector<EntityTag>{});
    EXPECT_EQ(colourGroups("BYBLOCK"), (std::vector<EntityTag>{{62, "0"}}));
    EXPECT_EQ(colourGroups("5"), (std::vector<EntityTag>{{62, "5"}}));
    EXPECT_EQ(colourGroups("255,128,0"), (std::vector<EntityTag>{{420, "16744448"}}));
    EXPECT_EQ(colourGroups("RAL CLASSIC$RAL 1000"), (std::vector<EntityTag>{{430, "RAL CLASSIC$RAL 1000"}}));
}

}  // namespace cadhost::test

namespace cadhost::test {

TEST_F(DrawCommands, EraseTakesAnySelectionAndLeavesLockedLayers) {
    ASSERT_EQ(cl.feed({S("LINE"), S("0,0"), S("10,0"), S("10,10"), S("")}), RTNORM);
    ASSERT_EQ(cl.drawing.setVar("CLAYER", S("Wand")), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.feed({S("CIRCLE"), S("5,5"), S("1")}), RTNORM);
    ASSERT_EQ(cl.feed({S("_.ERASE"), S("_W"), S("-1,-1"), S("11,1"), S("")}), RTNORM);
    EXPECT_EQ(entities(), "LINE 0 256 BYLAYER -1 10 0 0 10 10 0\nCIRCLE Wand 256 BYLAYER -1 5 5 0 1\n");
    ardo::LayerRecord wand = cl.layer("Wand");
    wand.isLocked = true;
    ASSERT_EQ(cl.drawing.updateLayer(wand), ardo::DbStatus::Ok);
    cl.printed.clear();
    ASSERT_EQ(cl.feed({S("_.ERASE"), S("ALL"), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "1 was on a locked layer.\n");
    EXPECT_EQ(entities(), "CIRCLE Wand 256 BYLAYER -1 5 5 0 1\n");
    // Bad input at the prompt is refused as SELECT refuses it.
    EXPECT_EQ(cl.feed({S("_.ERASE"), S("Wrong")}), ardo::RTERROR);
    EXPECT_FALSE(cl.processor.active());
}

}  // namespace cadhost::test
