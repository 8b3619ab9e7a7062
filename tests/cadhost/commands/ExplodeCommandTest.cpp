// EXPLODE: inserts become their block's entities where the insert shows them (equal and
// unequal scales, mirrored), polylines become lines and arcs; the pieces keep their own
// properties, and what cannot be taken apart is counted.
#include <gtest/gtest.h>

#include "BlockTestSupport.h"
#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

using ardo::RTNORM;

class ExplodeCommand : public ::testing::Test {
protected:
    CommandLine cl;
    void SetUp() override {
        addColouredLayer(cl.drawing, "Moebel", 3);
        cl.addLayer("Wand");
        cl.echo(0);
        // A line with colour BYBLOCK, a quarter arc, a circle and an attribute definition.
        ASSERT_EQ(cl.drawing.defineBlock(
                      "B", {0, 0, 0},
                      {{{0, "LINE"}, {100, "AcDbEntity"}, {8, "Moebel"}, {62, "0"}, {100, "AcDbLine"}, {10, "0"},
                        {20, "0"}, {30, "0"}, {11, "1"}, {21, "0"}, {31, "0"}},
                       {{0, "ARC"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbCircle"}, {10, "0"}, {20, "0"},
                        {30, "0"}, {40, "1"}, {100, "AcDbArc"}, {50, "0"}, {51, "90"}},
                       {{0, "CIRCLE"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbCircle"}, {10, "3"}, {20, "0"},
                        {30, "0"}, {40, "1"}},
                       {{0, "ATTDEF"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbText"}, {10, "0"}, {20, "2"},
                        {30, "0"}, {40, "0.5"}, {1, "?"}, {100, "AcDbAttributeDefinition"}, {3, "Nummer"},
                        {2, "NR"}, {70, "0"}}}),
                  ardo::DbStatus::Ok);
        ASSERT_EQ(cl.drawing.setVar("CLAYER", S("Wand")), ardo::DbStatus::Ok);
    }
    Handle insert(const std::string& x, const std::string& y, const std::string& rotation) {
        EXPECT_EQ(cl.feed({S("-INSERT"), S("B"), S("10,10"), S(x), S(y), S(rotation), S("42")}), RTNORM);
        return newestEntity(cl.drawing);
    }
    // Model space as "TYPE layer colour" and the groups given, in file order.
    std::vector<std::string> modelSpace(const std::vector<int>& codes) const {
        std::vector<std::string> out;
        cl.drawing.forEachEntity([&](const EntityInfo& e) {
            const auto tags = cl.drawing.entityTags(e.handle);
            std::string text = e.type + " " + e.layer + " " + tagOf(tags, 62);
            for (int code : codes)
                if (tagOf(tags, code) != "-") text += " " + std::to_string(code) + "=" + rounded(tagOf(tags, code));
            out.push_back(text);
            return true;
        });
        return out;
    }
    static std::string rounded(const std::string& value) {
        try {
            double v = std::round(std::stod(value) * 1e6) / 1e6;
            if (v == 0) v = 0;
            char text[40];
            std::snprintf(text, sizeof text, "%g", v);
            return text;
        } catch (...) {
            return value;
        }
    }
    static ardo::ResBuf named(Handle h) { return ardo::ResBuf::entityName(static_cast<std::int64_t>(h)); }
};

}  // namespace

TEST_F(ExplodeCommand, EqualScalesKeepCirclesAndArcsAndTheirProperties) {
    const Handle h = insert("2", "", "90");
    ASSERT_EQ(cl.feed({S("_.EXPLODE"), named(h), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "");
    EXPECT_EQ(modelSpace({10, 20, 11, 21, 40, 50, 51, 1}),
              (std::vector<std::string>{"LINE Moebel 0 10=10 20=10 11=10 21=12",
                                        "ARC 0 - 10=10 20=10 40=2 50=90 51=180",
                                        "CIRCLE 0 - 10=10 20=16 40=2",
                                        "ATTDEF 0 - 10=6 20=10 40=1 50=90 1=?"}));
    EXPECT_FALSE(cl.drawing.entity(h));
}

TEST_F(ExplodeCommand, UnequalScalesTurnCirclesIntoEllipsesAndMirroringTurnsArcs) {
    ASSERT_EQ(cl.feed({S("EXPLODE"), named(insert("2", "1", "0")), S("")}), RTNORM);
    EXPECT_EQ(modelSpace({10, 20, 11, 21, 40, 41, 42}),
              (std::vector<std::string>{"LINE Moebel 0 10=10 20=10 11=12 21=10",
                                        // the quarter arc: from (12,10) to (10,11), parameters 0 to pi/2
                                        "ELLIPSE 0 - 10=10 20=10 11=2 21=0 40=0.5 41=0 42=1.5708",
                                        "ELLIPSE 0 - 10=16 20=10 11=2 21=0 40=0.5 41=0 42=6.28318",
                                        "ATTDEF 0 - 10=10 20=12 40=0.5 41=2"}));
    cl.drawing.eraseEntities([&] {
        std::vector<Handle> all;
        cl.drawing.forEachEntity([&](const EntityInfo& e) { return all.push_back(e.handle), true; });
        return all;
    }());
    // Mirrored in x: the quarter arc lies in the second quadrant, running from 90 to 180 degrees.
    ASSERT_EQ(cl.feed({S("EXPLODE"), named(insert("-1", "1", "0")), S("")}), RTNORM);
    EXPECT_EQ(modelSpace({50, 51})[1], "ARC 0 - 50=90 51=180");
}

TEST_F(ExplodeCommand, PolylinesBecomeLinesAndArcsAndOthersAreCounted) {
    const Handle pline = *cl.drawing.makeEntity({{0, "LWPOLYLINE"}, {100, "AcDbEntity"}, {8, "Moebel"}, {62, "5"},
                                                 {100, "AcDbPolyline"}, {90, "3"}, {70, "1"}, {43, "0.5"},
                                                 {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}, {42, "1"},
                                                 {10, "10"}, {20, "10"}});
    const auto plineTags = cl.drawing.entityTags(pline);
    const Handle single = *cl.drawing.makeEntity({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "1"}});
    ASSERT_EQ(cl.feed({S("EXPLODE"), named(pline), named(single), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "Exploding this polyline has lost width information.\n1 was not able to be exploded.\n");
    const auto all = modelSpace({10, 20, 11, 21, 40, 50, 51});
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[1], "LINE Moebel 5 10=0 20=0 11=10 21=0");
    // The bulge 1 is a half circle counter-clockwise from (10,0) to (10,10).
    EXPECT_EQ(all[2], "ARC Moebel 5 10=10 20=5 40=5 50=270 51=90");
    EXPECT_EQ(all[3], "LINE Moebel 5 10=10 20=10 11=0 21=0");

    // An arc of a polyline cannot keep its shape under unequal scales; it is left out and counted.
    cl.printed.clear();
    ASSERT_EQ(cl.drawing.defineBlock("P", {0, 0, 0}, {plineTags}), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.feed({S("-INSERT"), S("P"), S("0,0"), S("2"), S("1"), S(""), S("EXPLODE"), S("_L"), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "1 object of the blocks could not be placed exactly and was left out.\n");
}

TEST_F(ExplodeCommand, SavedPiecesPassEzdxfAudit) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    ASSERT_EQ(cl.feed({S("EXPLODE"), named(insert("2", "1", "30")), S("")}), RTNORM);
    const ardo::test::TempFolder folder;
    ASSERT_TRUE(cl.drawing.save(folder.file("exploded.dxf")));
    const char* report = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
print('errors', len(doc.audit().errors))
for e in doc.modelspace():
    if e.dxftype() == 'ELLIPSE':
        print('ELLIPSE', '%.4f %.4f' % tuple(e.dxf.center)[:2], '%.4f' % e.dxf.ratio, '%.4f' % e.dxf.major_axis.magnitude)
    else:
        print(e.dxftype(), e.dxf.layer)
)";
    const auto r = ardo::test::runPython(*python, report, {folder.file("exploded.dxf")});
    // Turned by 30 degrees: the circle's centre (3,0) lands at 10 + 6 cos 30, 10 + 6 sin 30.
    EXPECT_EQ(r.output, "errors 0\nLINE Moebel\nELLIPSE 10.0000 10.0000 0.5000 2.0000\n"
                        "ELLIPSE 15.1962 13.0000 0.5000 2.0000\nATTDEF 0\n");
}

}  // namespace cadhost::test
