// The point chains the view draws and the measures use for curves: bulge spans walked the
// right way, closed polylines, old-style polylines with widths, ellipses and splines.
#include <gtest/gtest.h>

#include <cmath>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Paths.h"
#include "cadhost/geometry/Queries.h"

namespace cadhost::test {
namespace {

using geometry::Path;

class Paths : public ::testing::Test {
protected:
    Drawing drawing;

    std::vector<Path> paths(std::vector<EntityTag> tags, int segments = 72) {
        const auto h = drawing.makeEntity(tags);
        EXPECT_TRUE(h);
        return h ? geometry::pathsOf(drawing, *h, drawing.entityTags(*h), segments) : std::vector<Path>{};
    }
};

TEST(Spans, BulgesTurnToTheirSideAndEndExactlyOnTheNextVertex) {
    // Positive: counter-clockwise, so from (0,0) to (2,0) the half circle runs below.
    std::vector<ardo::Point3> ccw{{0, 0, 0}};
    geometry::appendSpan(ccw, {0, 0, 0}, {2, 0, 0}, 1.0, 72);
    std::vector<ardo::Point3> cw{{0, 0, 0}};
    geometry::appendSpan(cw, {0, 0, 0}, {2, 0, 0}, -1.0, 72);
    ASSERT_GT(ccw.size(), 10u);
    ASSERT_EQ(ccw.size(), cw.size());
    for (std::size_t i = 0; i < ccw.size(); ++i) {
        EXPECT_NEAR(std::hypot(ccw[i][0] - 1, ccw[i][1]), 1.0, 1e-9);
        EXPECT_LE(ccw[i][1], 1e-9);
        EXPECT_GE(cw[i][1], -1e-9);
        // Walked from the start vertex onwards: x grows along both.
        if (i > 0) {
            EXPECT_GT(ccw[i][0], ccw[i - 1][0] - 1e-9);
        }
    }
    EXPECT_EQ(ccw.back(), (ardo::Point3{2, 0, 0}));
    EXPECT_EQ(cw.back(), (ardo::Point3{2, 0, 0}));

    std::vector<ardo::Point3> straight{{0, 0, 0}};
    geometry::appendSpan(straight, {0, 0, 0}, {5, 5, 0}, 0, 72);
    EXPECT_EQ(straight.size(), 2u);
}

TEST_F(Paths, ClosedPolylineDoesNotRepeatItsFirstPointAndKeepsItsWidths) {
    // Two half circles make a full circle of radius 1 about (1,0).
    const auto round = paths({{0, "LWPOLYLINE"}, {8, "0"}, {90, "2"}, {70, "1"}, {43, "0.5"},
                              {10, "0"}, {20, "0"}, {42, "1"}, {10, "2"}, {20, "0"}, {42, "1"}});
    ASSERT_EQ(round.size(), 1u);
    EXPECT_TRUE(round[0].closed);
    EXPECT_NE(round[0].points.back(), round[0].points.front());
    double top = 0, bottom = 0;
    for (const auto& p : round[0].points) {
        EXPECT_NEAR(std::hypot(p[0] - 1, p[1]), 1.0, 1e-9);
        top = std::max(top, p[1]);
        bottom = std::min(bottom, p[1]);
    }
    EXPECT_NEAR(top, 1, 1e-6);
    EXPECT_NEAR(bottom, -1, 1e-6);

    const Handle h = drawing.makeEntity({{0, "LWPOLYLINE"}, {8, "0"}, {90, "2"}, {43, "0.5"}, {10, "0"}, {20, "0"},
                                         {10, "4"}, {20, "0"}, {40, "1"}, {41, "2"}})
                         .value_or(0);
    const auto polyline = geometry::polylineOf(drawing, h, drawing.entityTags(h));
    ASSERT_TRUE(polyline);
    ASSERT_EQ(polyline->vertices.size(), 2u);
    EXPECT_EQ(polyline->vertices[0].startWidth, 0.5);
    EXPECT_EQ(polyline->vertices[1].startWidth, 1);
    EXPECT_EQ(polyline->vertices[1].endWidth, 2);
}

TEST_F(Paths, EllipsesAndSplinesFollowTheirCurves) {
    // Major axis 4 along x, ratio 0.5: x^2/16 + y^2/4 = 1.
    const auto ellipse = paths({{0, "ELLIPSE"}, {8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {11, "4"}, {21, "0"},
                                {31, "0"}, {40, "0.5"}, {41, "0"}, {42, "3.14159265358979"}});
    ASSERT_EQ(ellipse.size(), 1u);
    for (const auto& p : ellipse[0].points) {
        EXPECT_NEAR(p[0] * p[0] / 16 + p[1] * p[1] / 4, 1.0, 1e-9);
        EXPECT_GE(p[1], -1e-9);   // the upper half only
    }

    // A clamped quadratic spline: starts and ends on its end control points and stays
    // inside the control triangle.
    const auto spline = paths({{0, "SPLINE"}, {8, "0"}, {70, "8"}, {71, "2"}, {72, "6"}, {73, "3"},
                               {40, "0"}, {40, "0"}, {40, "0"}, {40, "1"}, {40, "1"}, {40, "1"},
                               {10, "0"}, {20, "0"}, {30, "0"}, {10, "5"}, {20, "10"}, {30, "0"},
                               {10, "10"}, {20, "0"}, {30, "0"}});
    ASSERT_EQ(spline.size(), 1u);
    const auto& s = spline[0].points;
    EXPECT_NEAR(s.front()[0], 0, 1e-9);
    EXPECT_NEAR(s.back()[0], 10, 1e-9);
    // The middle of a symmetric quadratic Bezier is half the control point's height.
    EXPECT_NEAR(s[s.size() / 2][1], 5, 1e-9);
}

TEST_F(Paths, OldStylePolylinesAreMeasuredByTheirSpansNotTheirBox) {
    // An old-style polyline read from a file: vertices follow it.
    const std::string dxf = drawing.toDxf();
    const std::string polyline =
        "  0\nPOLYLINE\n  5\nA0\n  8\n0\n 66\n1\n 10\n0.0\n 20\n0.0\n 30\n0.0\n 70\n0\n"
        "  0\nVERTEX\n  5\nA1\n  8\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0\n"
        "  0\nVERTEX\n  5\nA2\n  8\n0\n 10\n10.0\n 20\n0.0\n 30\n0.0\n 42\n1.0\n"
        "  0\nVERTEX\n  5\nA3\n  8\n0\n 10\n10.0\n 20\n10.0\n 30\n0.0\n"
        "  0\nSEQEND\n  5\nA4\n  8\n0\n";
    std::string text = dxf;
    const auto end = text.find("ENDSEC", text.find("ENTITIES"));
    ASSERT_NE(end, std::string::npos);
    text.insert(text.rfind("  0\n", end), polyline);
    auto read = Drawing::fromBytes(text);
    ASSERT_TRUE(read) << read.error();
    const auto shape = geometry::shapeOf(*read, 0xA0);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->segments.size(), 1u);
    ASSERT_EQ(shape->arcs.size(), 1u);
    // The corner of the box that the spans do not reach is no longer near the entity.
    EXPECT_GT(geometry::distanceTo(*shape, {0, 10, 0}), 4);
    EXPECT_NEAR(geometry::distanceTo(*shape, {15, 5, 0}), 0, 1e-9);
}

}  // namespace
}  // namespace cadhost::test
