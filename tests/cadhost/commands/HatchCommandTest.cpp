// HATCH: boundaries by Select objects or by a point inside, pattern, scale and angle; the
// entity read back by the view's hatch reader and by ezdxf with a clean audit.
#include <gtest/gtest.h>

#include <cmath>

#include "BlockTestSupport.h"
#include "CommandTestSupport.h"
#include "cadhost/geometry/Hatch.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

using ardo::RTNORM;

class HatchCommand : public ::testing::Test {
protected:
    CommandLine cl;
    Handle square = 0, ring = 0, line = 0;
    void SetUp() override {
        cl.addLayer("Schraffur");
        cl.echo(0);
        // A square of 10 with its right side bulged outward, a circle inside it, a line.
        square = *cl.drawing.makeEntity({{0, "LWPOLYLINE"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbPolyline"}, {90, "4"}, {70, "1"}, {10, "0"}, {20, "0"},
                                         {10, "10"}, {20, "0"}, {42, "0.5"}, {10, "10"}, {20, "10"}, {10, "0"},
                                         {20, "10"}});
        ring = *cl.drawing.makeEntity({{0, "CIRCLE"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbCircle"}, {10, "5"}, {20, "5"}, {30, "0"}, {40, "2"}});
        line = *cl.drawing.makeEntity({{0, "LINE"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbLine"}, {10, "20"}, {20, "0"}, {11, "30"}, {21, "0"}});
        ASSERT_EQ(cl.drawing.setVar("CLAYER", S("Schraffur")), ardo::DbStatus::Ok);
    }
    static ardo::ResBuf named(Handle h) { return ardo::ResBuf::entityName(static_cast<std::int64_t>(h)); }
    std::vector<EntityTag> hatch() const { return cl.drawing.entityTags(newestEntity(cl.drawing)); }
    static std::string values(const std::vector<EntityTag>& tags, int code) {
        std::string out;
        for (const EntityTag& t : tags)
            if (t.code == code) {
                char text[40];
                std::snprintf(text, sizeof text, "%.6f", std::stod(t.value));
                out += (out.empty() ? "" : " ") + std::string(text);
            }
        return out;
    }
};

}  // namespace

TEST_F(HatchCommand, SelectedBoundaryWithPatternScaleAndAngle) {
    ASSERT_EQ(cl.feed({S("-HATCH"), S("_P"), S("FOO"), S("ansi37"), S("0"), S("2"), S("30"), S("_S"), named(square),
                       named(line), S(""), S("")}),
              RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "Pattern \"FOO\" is not defined. Enter ? for the list.\n"
                          "Value must be positive and nonzero.\n"
                          "1 object is no closed boundary and was left out.\n");
    const auto tags = hatch();
    EXPECT_EQ(tagOf(tags, 0) + " " + tagOf(tags, 8) + " " + tagOf(tags, 2) + " " + tagOf(tags, 70) + " " +
                  tagOf(tags, 91) + " " + tagOf(tags, 78),
              "HATCH Schraffur ANSI37 0 1 2");
    EXPECT_EQ(values(tags, 52) + " " + values(tags, 41), "30.000000 2.000000");
    // Lines at 75 and 165 degrees, 0.25 apart: the offset is across the line, turned with it.
    EXPECT_EQ(values(tags, 53), "75.000000 165.000000");
    EXPECT_EQ(values(tags, 45), "-0.241481 -0.064705");
    EXPECT_EQ(values(tags, 46), "0.064705 -0.241481");
    EXPECT_EQ(values(tags, 42), "0.000000 0.500000 0.000000 0.000000");   // the bulges went into the path

    // The view reads it: one loop, two line families, strokes inside.
    const auto read = geometry::hatchOf(tags, 64);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->loops.size(), 1u);
    EXPECT_EQ(read->pattern.size(), 2u);
    EXPECT_FALSE(geometry::patternSegments(*read, 100000).empty());
}

TEST_F(HatchCommand, InternalPointFindsTheBoundaryAndItsIslands) {
    ASSERT_EQ(cl.feed({S("-HATCH"), S("_P"), S("_S"), S("50,50"), S("1,1"), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "Valid hatch boundary not found.\n");
    auto tags = hatch();
    EXPECT_EQ(tagOf(tags, 2) + " " + tagOf(tags, 70) + " " + tagOf(tags, 91) + " " + tagOf(tags, 78), "SOLID 1 2 -");
    // Inside the circle the circle alone is the boundary.
    ASSERT_EQ(cl.feed({S("_.-HATCH"), S("5,5"), S("")}), RTNORM);
    tags = hatch();
    EXPECT_EQ(tagOf(tags, 2) + " " + tagOf(tags, 91) + " " + tagOf(tags, 72), "ANSI31 1 2");
    EXPECT_EQ(values(tags, 40), "2.000000");
    // Enter with no boundary draws nothing.
    const std::size_t count = cl.drawing.entityCount();
    ASSERT_EQ(cl.feed({S("-HATCH"), S("")}), RTNORM);
    EXPECT_EQ(cl.drawing.entityCount(), count);
}

TEST_F(HatchCommand, SavedHatchesPassEzdxfAudit) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    ASSERT_EQ(cl.feed({S("-HATCH"), S("_P"), S("ANSI31"), S("1"), S("0"), S("1,1"), S("")}), RTNORM);
    ASSERT_EQ(cl.feed({S("-HATCH"), S("_P"), S("SOLID"), S("_S"), named(ring), S(""), S("")}), RTNORM);
    const ardo::test::TempFolder folder;
    ASSERT_TRUE(cl.drawing.save(folder.file("hatched.dxf")));
    const char* report = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
print('errors', len(doc.audit().errors))
for h in doc.modelspace().query('HATCH'):
    lines = h.pattern.lines if h.pattern else []
    print(h.dxf.pattern_name, h.dxf.layer, h.dxf.solid_fill, len(h.paths), len(lines),
          ['%.3f' % l.angle for l in lines])
)";
    const auto r = ardo::test::runPython(*python, report, {folder.file("hatched.dxf")});
    EXPECT_EQ(r.output, "errors 0\nANSI31 Schraffur 0 2 1 ['45.000']\nSOLID Schraffur 1 1 0 []\n");
}

}  // namespace cadhost::test
