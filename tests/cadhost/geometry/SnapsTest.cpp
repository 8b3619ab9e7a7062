// Object snap points of real entities: each kind's rule, intersections between entities,
// the base-point snaps, and the words typed to override the running snaps.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Snaps.h"

namespace cadhost::test {
namespace {

using geometry::SnapKind;
using geometry::SnapPoint;

class Snaps : public ::testing::Test {
protected:
    Drawing drawing;

    geometry::SnapSource make(std::vector<EntityTag> tags) {
        const auto h = drawing.makeEntity(tags);
        EXPECT_TRUE(h);
        auto source = geometry::snapSourceOf(drawing, h.value_or(0));
        EXPECT_TRUE(source);
        return source.value_or(geometry::SnapSource{});
    }
    geometry::SnapSource line(double x0, double y0, double x1, double y1) {
        return make({{0, "LINE"}, {8, "0"}, {10, std::to_string(x0)}, {20, std::to_string(y0)}, {30, "0"},
                     {11, std::to_string(x1)}, {21, std::to_string(y1)}, {31, "0"}});
    }
    geometry::SnapSource circle(double x, double y, double r) {
        return make({{0, "CIRCLE"}, {8, "0"}, {10, std::to_string(x)}, {20, std::to_string(y)}, {30, "0"},
                     {40, std::to_string(r)}});
    }
    static std::vector<SnapPoint> of(const std::vector<SnapPoint>& all, SnapKind kind) {
        std::vector<SnapPoint> out;
        std::copy_if(all.begin(), all.end(), std::back_inserter(out), [&](const SnapPoint& p) { return p.kind == kind; });
        return out;
    }
    static bool has(const std::vector<SnapPoint>& all, SnapKind kind, double x, double y) {
        return std::any_of(all.begin(), all.end(), [&](const SnapPoint& p) {
            return p.kind == kind && std::hypot(p.at[0] - x, p.at[1] - y) < 1e-9;
        });
    }
};

constexpr int kAll = 1023;

TEST_F(Snaps, LinesAndArcsOfferTheirEndsMiddlesCentresAndQuadrants) {
    const auto l = geometry::snapPoints(line(0, 0, 10, 4), kAll, {3, 3, 0}, std::nullopt);
    EXPECT_TRUE(has(l, SnapKind::Endpoint, 0, 0));
    EXPECT_TRUE(has(l, SnapKind::Endpoint, 10, 4));
    EXPECT_TRUE(has(l, SnapKind::Midpoint, 5, 2));
    EXPECT_TRUE(of(l, SnapKind::Center).empty());

    // An arc from 0 to 90 degrees: ends, middle at 45, quadrants only where it runs.
    const auto arc = make({{0, "ARC"}, {8, "0"}, {10, "1"}, {20, "1"}, {30, "0"}, {40, "2"}, {50, "0"}, {51, "90"}});
    const auto a = geometry::snapPoints(arc, kAll, {0, 0, 0}, std::nullopt);
    EXPECT_TRUE(has(a, SnapKind::Endpoint, 3, 1));
    EXPECT_TRUE(has(a, SnapKind::Endpoint, 1, 3));
    EXPECT_TRUE(has(a, SnapKind::Midpoint, 1 + std::sqrt(2.0), 1 + std::sqrt(2.0)));
    EXPECT_TRUE(has(a, SnapKind::Center, 1, 1));
    EXPECT_EQ(of(a, SnapKind::Quadrant).size(), 2u);

    // A full circle has no ends or middle, and all four quadrants.
    const auto c = geometry::snapPoints(circle(0, 0, 5), kAll, {0, 0, 0}, std::nullopt);
    EXPECT_TRUE(of(c, SnapKind::Endpoint).empty());
    EXPECT_TRUE(of(c, SnapKind::Midpoint).empty());
    EXPECT_TRUE(has(c, SnapKind::Quadrant, 0, -5));
    EXPECT_TRUE(has(c, SnapKind::Quadrant, -5, 0));

    // Only the kinds asked for.
    const auto ends = geometry::snapPoints(line(0, 0, 10, 4), static_cast<int>(SnapKind::Endpoint), {3, 3, 0}, std::nullopt);
    EXPECT_EQ(ends.size(), 2u);
}

TEST_F(Snaps, PolylineVerticesAndBulgesAndPointNodes) {
    // A closed square whose top edge bulges out as a half circle.
    const auto pl = make({{0, "LWPOLYLINE"}, {8, "0"}, {90, "4"}, {70, "1"}, {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"},
                          {10, "10"}, {20, "10"}, {42, "1"}, {10, "0"}, {20, "10"}});
    const auto p = geometry::snapPoints(pl, kAll, {0, 0, 0}, std::nullopt);
    EXPECT_TRUE(has(p, SnapKind::Endpoint, 10, 10));
    EXPECT_TRUE(has(p, SnapKind::Midpoint, 10, 5));
    // The bulge's middle lies on top of its half circle, its centre halfway along the edge.
    EXPECT_TRUE(has(p, SnapKind::Midpoint, 5, 15));
    EXPECT_TRUE(has(p, SnapKind::Center, 5, 10));

    const auto node = make({{0, "POINT"}, {8, "0"}, {10, "7"}, {20, "8"}, {30, "0"}});
    EXPECT_TRUE(has(geometry::snapPoints(node, kAll, {0, 0, 0}, std::nullopt), SnapKind::Node, 7, 8));
}

TEST_F(Snaps, TextsAndBlocksOfferTheirInsertionPointButNotTheCornersOfTheirBox) {
    const auto text = make({{0, "TEXT"}, {8, "0"}, {10, "2"}, {20, "3"}, {30, "0"}, {40, "2.5"}, {1, "Raum 1"}});
    const auto t = geometry::snapPoints(text, kAll, {2, 3, 0}, std::nullopt);
    ASSERT_EQ(t.size(), 1u);
    EXPECT_TRUE(has(t, SnapKind::Insertion, 2, 3));
}

TEST_F(Snaps, IntersectionsOfLinesAndCirclesAndOfTwoCircles) {
    const auto a = line(-10, 0, 10, 0);
    const auto b = line(3, -5, 3, 5);
    const auto c = circle(0, 0, 5);
    const auto ab = geometry::snapIntersections(a, b);
    ASSERT_EQ(ab.size(), 1u);
    EXPECT_NEAR(ab[0][0], 3, 1e-9);
    EXPECT_EQ(geometry::snapIntersections(a, c).size(), 2u);
    EXPECT_EQ(geometry::snapIntersections(c, a).size(), 2u);

    const auto crossing = geometry::snapIntersections(c, circle(8, 0, 5));
    ASSERT_EQ(crossing.size(), 2u);
    for (const auto& p : crossing) {
        EXPECT_NEAR(p[0], 4, 1e-9);
        EXPECT_NEAR(std::abs(p[1]), 3, 1e-9);
    }
    // Touching circles meet once; concentric and apart ones never.
    EXPECT_EQ(geometry::snapIntersections(c, circle(10, 0, 5)).size(), 1u);
    EXPECT_TRUE(geometry::snapIntersections(c, circle(0, 0, 3)).empty());
    EXPECT_TRUE(geometry::snapIntersections(c, circle(20, 0, 5)).empty());
    // An arc meets a circle only on its own sweep: the upper half of the crossing above.
    const auto upper = make({{0, "ARC"}, {8, "0"}, {10, "8"}, {20, "0"}, {30, "0"}, {40, "5"}, {50, "0"}, {51, "180"}});
    const auto half = geometry::snapIntersections(c, upper);
    ASSERT_EQ(half.size(), 1u);
    EXPECT_NEAR(half[0][1], 3, 1e-9);
}

TEST_F(Snaps, PerpendicularAndTangentNeedTheBasePoint) {
    const int kinds = static_cast<int>(SnapKind::Perpendicular) | static_cast<int>(SnapKind::Tangent);
    const auto l = line(0, 0, 10, 0);
    EXPECT_TRUE(geometry::snapPoints(l, kinds, {4, 0, 0}, std::nullopt).empty());
    EXPECT_TRUE(has(geometry::snapPoints(l, kinds, {4, 0, 0}, ardo::Point3{4, 7, 0}), SnapKind::Perpendicular, 4, 0));
    // The foot beyond the segment's end is no point of it.
    EXPECT_TRUE(geometry::snapPoints(l, kinds, {4, 0, 0}, ardo::Point3{14, 7, 0}).empty());

    const auto c = circle(0, 0, 5);
    const auto fromOutside = geometry::snapPoints(c, kinds, {0, 0, 0}, ardo::Point3{10, 0, 0});
    ASSERT_EQ(of(fromOutside, SnapKind::Tangent).size(), 2u);
    for (const auto& t : of(fromOutside, SnapKind::Tangent)) {
        // The radius to a tangent point stands at right angles to the line from the base.
        const double dot = t.at[0] * (10 - t.at[0]) + t.at[1] * (0 - t.at[1]);
        EXPECT_NEAR(dot, 0, 1e-9);
    }
    EXPECT_TRUE(has(fromOutside, SnapKind::Perpendicular, 5, 0));
    EXPECT_TRUE(has(fromOutside, SnapKind::Perpendicular, -5, 0));
    EXPECT_TRUE(of(geometry::snapPoints(c, kinds, {0, 0, 0}, ardo::Point3{1, 1, 0}), SnapKind::Tangent).empty());
}

TEST_F(Snaps, NearestIsThePointOnTheObjectClosestToTheCursor) {
    const auto near = geometry::snapPoints(circle(0, 0, 5), static_cast<int>(SnapKind::Nearest), {6, 6, 0}, std::nullopt);
    ASSERT_EQ(near.size(), 1u);
    EXPECT_NEAR(near[0].at[0], 5 / std::sqrt(2.0), 1e-9);
    EXPECT_NEAR(near[0].at[1], 5 / std::sqrt(2.0), 1e-9);
}

TEST_F(Snaps, TypedOverridesTakeThreeLettersOrMoreWithOrWithoutUnderscore) {
    EXPECT_EQ(geometry::snapOverride("END"), SnapKind::Endpoint);
    EXPECT_EQ(geometry::snapOverride("_endp"), SnapKind::Endpoint);
    EXPECT_EQ(geometry::snapOverride("mid"), SnapKind::Midpoint);
    EXPECT_EQ(geometry::snapOverride("CEN"), SnapKind::Center);
    EXPECT_EQ(geometry::snapOverride("nod"), SnapKind::Node);
    EXPECT_EQ(geometry::snapOverride("_QUA"), SnapKind::Quadrant);
    EXPECT_EQ(geometry::snapOverride("INT"), SnapKind::Intersection);
    EXPECT_EQ(geometry::snapOverride("ins"), SnapKind::Insertion);
    EXPECT_EQ(geometry::snapOverride("PER"), SnapKind::Perpendicular);
    EXPECT_EQ(geometry::snapOverride("NEA"), SnapKind::Nearest);
    EXPECT_FALSE(geometry::snapOverride("en"));
    EXPECT_FALSE(geometry::snapOverride("NON"));
    EXPECT_FALSE(geometry::snapOverride("10,5"));
    EXPECT_FALSE(geometry::snapOverride("Endlos"));
    EXPECT_TRUE(geometry::isNoSnapOverride("_non"));
    EXPECT_TRUE(geometry::isNoSnapOverride("NONE"));
    EXPECT_FALSE(geometry::isNoSnapOverride("NOD"));
}

}  // namespace
}  // namespace cadhost::test
