// Hatches as the file carries them: polyline and edge boundaries, holes, and the pattern
// lines cut to the hatched area with their dashes.
#include <gtest/gtest.h>

#include <cmath>

#include "cadhost/geometry/Hatch.h"

namespace cadhost::test {
namespace {

// A 10 by 10 square as a polyline loop with a 2 by 2 hole in its middle as four edges.
std::vector<EntityTag> squareWithHole(bool solid, std::vector<EntityTag> pattern) {
    std::vector<EntityTag> tags{{0, "HATCH"}, {8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {2, "USER"},
                                {70, solid ? "1" : "0"}, {71, "0"}, {91, "2"},
                                {92, "2"}, {72, "0"}, {73, "1"}, {93, "4"},
                                {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}, {10, "10"}, {20, "10"}, {10, "0"}, {20, "10"},
                                {97, "0"},
                                {92, "1"}, {93, "4"}};
    const double c[5][2] = {{4, 4}, {6, 4}, {6, 6}, {4, 6}, {4, 4}};
    for (int i = 0; i < 4; ++i)
        tags.insert(tags.end(), {{72, "1"}, {10, std::to_string(c[i][0])}, {20, std::to_string(c[i][1])},
                                 {11, std::to_string(c[i + 1][0])}, {21, std::to_string(c[i + 1][1])}});
    tags.insert(tags.end(), {{97, "0"}, {75, "0"}, {76, "0"}});
    tags.insert(tags.end(), pattern.begin(), pattern.end());
    tags.insert(tags.end(), {{98, "0"}, {1001, "ACAD"}, {1000, "not hatch data"}});
    return tags;
}

TEST(Hatch, SolidHatchKeepsEachLoopAndItsHole) {
    const auto hatch = geometry::hatchOf(squareWithHole(true, {}), 72);
    ASSERT_TRUE(hatch);
    EXPECT_TRUE(hatch->solid);
    ASSERT_EQ(hatch->loops.size(), 2u);
    EXPECT_EQ(hatch->loops[0].size(), 4u);
    EXPECT_EQ(hatch->loops[1].front(), (ardo::Point3{4, 4, 0}));
    EXPECT_FALSE(geometry::hatchOf({{0, "LINE"}}, 72));
}

TEST(Hatch, PatternLinesStopAtTheHoleAndKeepTheirDashes) {
    // Horizontal lines one unit apart through y = 0.5, 1.5, ...: dash 1, gap 1.
    const auto hatch = geometry::hatchOf(
        squareWithHole(false, {{52, "0"}, {41, "1"}, {77, "0"}, {78, "1"}, {53, "0"}, {43, "0"}, {44, "0.5"}, {45, "0"},
                               {46, "1"}, {79, "2"}, {49, "1"}, {49, "-1"}}),
        72);
    ASSERT_TRUE(hatch);
    ASSERT_EQ(hatch->pattern.size(), 1u);
    const auto segments = geometry::patternSegments(*hatch, 100000);
    // Ten lines; those through the hole (y 4.5 and 5.5) lose the dash that would cross it.
    EXPECT_EQ(segments.size(), 8u * 5 + 2u * 4);
    for (const auto& s : segments) {
        EXPECT_EQ(s.a[1], s.b[1]);
        EXPECT_NEAR(s.b[0] - s.a[0], 1, 1e-9);
        EXPECT_NEAR(std::fmod(s.a[0], 2), 0, 1e-9);   // dashes start at even x, as from the origin
        const double mid = (s.a[0] + s.b[0]) / 2;
        EXPECT_FALSE(mid > 4 && mid < 6 && s.a[1] > 4 && s.a[1] < 6) << "in the hole at " << mid << "," << s.a[1];
    }
    // The limit is kept.
    EXPECT_EQ(geometry::patternSegments(*hatch, 7).size(), 7u);
}

TEST(Hatch, ArcEdgesBoundTheirSide) {
    // A half disc: the diameter from (1,0) to (-1,0) and the upper arc back, counter-clockwise.
    const std::vector<EntityTag> tags{
        {0, "HATCH"}, {70, "0"}, {91, "1"}, {92, "1"}, {93, "2"},
        {72, "1"}, {10, "1"}, {20, "0"}, {11, "-1"}, {21, "0"},
        {72, "2"}, {10, "0"}, {20, "0"}, {40, "1"}, {50, "180"}, {51, "360"}, {73, "0"},
        {78, "1"}, {53, "0"}, {43, "0"}, {44, "0.5"}, {45, "0"}, {46, "10"}, {79, "0"}};
    const auto hatch = geometry::hatchOf(tags, 720);
    ASSERT_TRUE(hatch);
    ASSERT_EQ(hatch->loops.size(), 1u);
    // Clockwise from 180 to 360 measured clockwise: the upper half.
    double top = -1;
    for (const auto& p : hatch->loops[0]) top = std::max(top, p[1]);
    EXPECT_NEAR(top, 1, 1e-6);
    const auto segments = geometry::patternSegments(*hatch, 100);
    ASSERT_EQ(segments.size(), 1u);
    EXPECT_NEAR(segments[0].a[0], -std::sqrt(0.75), 1e-3);
    EXPECT_NEAR(segments[0].b[0], std::sqrt(0.75), 1e-3);
}

}  // namespace
}  // namespace cadhost::test
