// MAPEXPORT writes closed areas as a polygon shapefile; pyshp, an independent shapefile
// reader, reads it back.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "CommandTestSupport.h"
#include "cadhost/geometry/AreaOutline.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

using ardo::ResBuf;
namespace fs = std::filesystem;

constexpr const char* kNoPyshp = "python3 with pyshp (Debian python3-pyshp) is not installed";

// Prints, per shape: type, point count, whether the ring is closed and clockwise, and the
// attributes; then the shapefile's bounding box.
constexpr const char* kReadBack = R"PY(
import sys, shapefile
sys.stdout.reconfigure(encoding="utf-8")
r = shapefile.Reader(sys.argv[1])
print(r.shapeType, len(r), [f[0] for f in r.fields[1:]])
for sr in r.iterShapeRecords():
    pts = sr.shape.points
    twice = sum(pts[i][0]*pts[i+1][1] - pts[i+1][0]*pts[i][1] for i in range(len(pts)-1))
    print(sr.shape.shapeType, len(sr.shape.parts), pts[0] == pts[-1], twice < 0, sr.record[0], sr.record[1], '%.4f' % sr.record[2])
print(' '.join('%.3f' % v for v in r.bbox))
)PY";

class MapExport : public ::testing::Test {
protected:
    CommandLine line;
    ardo::test::TempFolder folder;
    std::optional<std::string> python = ardo::test::pythonWith("shapefile");

    std::int64_t make(std::vector<EntityTag> tags) {
        const auto handle = line.drawing.makeEntity(tags);
        EXPECT_TRUE(handle);
        return static_cast<std::int64_t>(handle.value_or(0));
    }
    // A square of side 10 at the origin, counter-clockwise, with its top side bulged outward
    // into a half circle when `bulged`.
    std::int64_t square(const std::string& layer, bool closed = true, bool bulged = false) {
        return make({{0, "LWPOLYLINE"}, {8, layer}, {90, "4"}, {70, closed ? "1" : "0"},
                     {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}, {10, "10"}, {20, "10"}, {42, bulged ? "1" : "0"},
                     {10, "0"}, {20, "10"}});
    }
    std::string readBack(const std::string& shp) const {
        const auto r = ardo::test::runPython(*python, kReadBack, {shp});
        EXPECT_EQ(r.exitCode, 0) << r.output;
        return r.output;
    }
    static std::string hex(std::int64_t h) {
        char text[32];
        std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(h));
        return text;
    }
};

TEST_F(MapExport, ClosedAreasBecomeClockwisePolygonsWithLayerHandleAndExactArea) {
    if (!python) GTEST_SKIP() << kNoPyshp;
    line.addLayer("Räume");
    const std::int64_t room = square("Räume", true, true);
    const std::int64_t circle = make({{0, "CIRCLE"}, {8, "0"}, {10, "30"}, {20, "5"}, {30, "0"}, {40, "2"}});
    const std::int64_t open = square("0", false);
    const std::int64_t stroke = make({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "5"}, {21, "5"}});
    const std::string shp = folder / "rooms";
    line.selectionSets[7] = {room, open, stroke};
    EXPECT_EQ(line.feed({S("_.-MAPEXPORT"), S("_SHP"), S(shp), ResBuf::selectionSet(7), ResBuf::entityName(circle), S("")}),
              ardo::RTNORM);
    EXPECT_NE(line.printed.find("2 objects were not a closed area"), std::string::npos) << line.printed;
    EXPECT_NE(line.printed.find("2 areas exported to \"" + shp + ".shp\""), std::string::npos) << line.printed;
    for (const char* extension : {".shp", ".shx", ".dbf", ".cpg"})
        EXPECT_TRUE(fs::exists(shp + extension)) << extension;

    const double roomArea = 100 + M_PI * 25 / 2, circleArea = M_PI * 4;
    char expected[512];
    std::snprintf(expected, sizeof expected,
                  "5 2 ['LAYER', 'HANDLE', 'AREA']\n"
                  "5 1 True True Räume %s %.4f\n"
                  "5 1 True True 0 %s %.4f\n"
                  "0.000 0.000 32.000 15.000\n",
                  hex(room).c_str(), roomArea, hex(circle).c_str(), circleArea);
    EXPECT_EQ(readBack(shp + ".shp"), expected);
}

TEST_F(MapExport, RefusesWhatItCannotWriteAndKeepsTheOldFiles) {
    if (!python) GTEST_SKIP() << kNoPyshp;
    const std::int64_t room = square("0");
    const std::string shp = folder / "plan.shp";
    ASSERT_EQ(line.feed({S("-MAPEXPORT"), S(""), S(shp), ResBuf::entityName(room), S("")}), ardo::RTNORM);
    const std::string before = readBack(shp);

    line.printed.clear();
    EXPECT_EQ(line.feed({S("-MAPEXPORT"), S("DXF")}), ardo::RTERROR);
    EXPECT_NE(line.printed.find("exports ESRI shapefiles only"), std::string::npos) << line.printed;
    EXPECT_EQ(line.feed({S("-MAPEXPORT"), S("SHP"), S(folder / "plan.dwg")}), ardo::RTERROR);
    EXPECT_NE(line.printed.find("ends in \".shp\""), std::string::npos) << line.printed;
    // Nothing that is an area: the old files stay.
    const std::int64_t open = square("0", false);
    EXPECT_EQ(line.feed({S("-MAPEXPORT"), S("SHP"), S(shp), ResBuf::entityName(open), S("")}), ardo::RTERROR);
    EXPECT_NE(line.printed.find("No closed areas selected"), std::string::npos) << line.printed;
    EXPECT_EQ(readBack(shp), before);
    // A folder that is not there.
    line.printed.clear();
    EXPECT_EQ(line.feed({S("-MAPEXPORT"), S("SHP"), S(folder / "missing/plan.shp"), ResBuf::entityName(room), S("")}),
              ardo::RTERROR);
    EXPECT_NE(line.printed.find("Cannot write the shapefile"), std::string::npos) << line.printed;
    EXPECT_EQ(folder.names().size(), 4u) << "no temporary files are left behind";
}

TEST(AreaOutline, PointsInALineEncloseNothingAndATriangleItsArea) {
    Drawing drawing;
    auto make = [&](std::vector<EntityTag> tags) { return drawing.makeEntity(tags).value_or(0); };
    const Handle thin = make({{0, "LWPOLYLINE"}, {8, "0"}, {90, "3"}, {70, "1"}, {10, "0"}, {20, "0"}, {10, "5"},
                              {20, "5"}, {10, "10"}, {20, "10"}});
    EXPECT_FALSE(geometry::areaOutlineOf(drawing, thin)) << "points in a line enclose nothing";
    const Handle tri = make({{0, "LWPOLYLINE"}, {8, "0"}, {90, "3"}, {70, "1"}, {10, "0"}, {20, "0"}, {10, "0"},
                             {20, "4"}, {10, "3"}, {20, "0"}});
    const auto triangle = geometry::areaOutlineOf(drawing, tri);
    ASSERT_TRUE(triangle);
    EXPECT_DOUBLE_EQ(triangle->area, 6.0);
    EXPECT_EQ(triangle->ring.size(), 4u);
}

}  // namespace
}  // namespace cadhost::test
