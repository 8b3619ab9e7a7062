// Entity geometry from a real drawing: shapes, distances, picks, and the window, crossing,
// polygon and fence tests of object selection.
#include <gtest/gtest.h>

#include <cmath>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Picking.h"

namespace cadhost::test {
namespace {

using geometry::Region;

class Geometry : public ::testing::Test {
protected:
    Drawing drawing;

    Handle make(std::vector<EntityTag> tags) {
        const auto h = drawing.makeEntity(tags);
        EXPECT_TRUE(h);
        return h.value_or(0);
    }
    Handle line(double x0, double y0, double x1, double y1) {
        return make({{0, "LINE"}, {8, "0"}, {10, std::to_string(x0)}, {20, std::to_string(y0)}, {30, "0"},
                     {11, std::to_string(x1)}, {21, std::to_string(y1)}, {31, "0"}});
    }
    Handle circle(double x, double y, double r) {
        return make({{0, "CIRCLE"}, {8, "0"}, {10, std::to_string(x)}, {20, std::to_string(y)}, {30, "0"},
                     {40, std::to_string(r)}});
    }
    std::vector<Handle> window(ardo::Point3 a, ardo::Point3 b, Region region) {
        return geometry::selectByPolygon(drawing, geometry::rectangle(a, b), region);
    }
};

TEST_F(Geometry, ShapesOfLinesArcsAndPolylinesWithBulges) {
    const Handle arc = make({{0, "ARC"}, {8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {40, "10"}, {50, "350"}, {51, "10"}});
    const auto arcShape = geometry::shapeOf(drawing, arc);
    ASSERT_TRUE(arcShape);
    ASSERT_EQ(arcShape->arcs.size(), 1u);
    // The arc runs through 0 degrees, not the long way round.
    EXPECT_NEAR(geometry::distanceTo(*arcShape, {10, 0, 0}), 0, 1e-9);
    EXPECT_NEAR(geometry::distanceTo(*arcShape, {-10, 0, 0}), std::hypot(-10 - 10 * std::cos(10 * M_PI / 180),
                                                                           10 * std::sin(10 * M_PI / 180)), 1e-9);
    const Extents box = geometry::extentsOf(*arcShape);
    EXPECT_NEAR(box.max[0], 10, 1e-9);
    EXPECT_NEAR(box.min[0], 10 * std::cos(10 * M_PI / 180), 1e-9);

    // A closed square whose top edge bulges out as a half circle of radius 5.
    const Handle pline = make({{0, "LWPOLYLINE"}, {8, "0"}, {90, "4"}, {70, "1"}, {10, "0"}, {20, "0"}, {10, "10"},
                               {20, "0"}, {10, "10"}, {20, "10"}, {42, "1"}, {10, "0"}, {20, "10"}});
    const auto shape = geometry::shapeOf(drawing, pline);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->segments.size(), 3u);
    ASSERT_EQ(shape->arcs.size(), 1u);
    EXPECT_NEAR(shape->arcs[0].radius, 5, 1e-9);
    EXPECT_NEAR(shape->arcs[0].center[0], 5, 1e-9);
    EXPECT_NEAR(shape->arcs[0].center[1], 10, 1e-9);
    EXPECT_NEAR(geometry::extentsOf(*shape).max[1], 15, 1e-9);
    EXPECT_NEAR(geometry::distanceTo(*shape, {5, 16, 0}), 1, 1e-9);

    // A clockwise bulge gives the same circle on the other side of the chord.
    const auto cw = geometry::bulgeArc({10, 10, 0}, {0, 10, 0}, -1);
    ASSERT_TRUE(cw);
    EXPECT_NEAR(cw->pointAt((cw->start + cw->end) / 2)[1], 5, 1e-9);
    EXPECT_FALSE(geometry::bulgeArc({0, 0, 0}, {1, 0, 0}, 0));

    // Texts have no curves: they are measured by their box.
    const Handle text = make({{0, "TEXT"}, {8, "0"}, {10, "100"}, {20, "100"}, {30, "0"}, {40, "2"}, {1, "Wall"}});
    const auto textShape = geometry::shapeOf(drawing, text);
    ASSERT_TRUE(textShape);
    EXPECT_EQ(textShape->segments.size(), 4u);
    EXPECT_FALSE(geometry::shapeOf(drawing, 0xFFFFF));
}

TEST_F(Geometry, PickTakesTheNearestEntityWithinTheAperture) {
    const Handle a = line(0, 0, 100, 0);
    const Handle b = line(0, 1, 100, 1);
    const Handle c = circle(50, 50, 10);
    EXPECT_NEAR(geometry::pickAperture(drawing), std::hypot(100, 60) / 200, 1e-9);
    EXPECT_EQ(geometry::pickAt(drawing, {50, 0.2, 0}, 0.5), a);
    EXPECT_EQ(geometry::pickAt(drawing, {50, 0.8, 0}, 0.5), b);
    EXPECT_EQ(geometry::pickAt(drawing, {50, 40.3, 0}, 0.5), c);
    // Inside the circle but far from its curve is a miss.
    EXPECT_FALSE(geometry::pickAt(drawing, {50, 50, 0}, 0.5));
    EXPECT_FALSE(geometry::pickAt(drawing, {200, 0, 0}, 0.5));
}

TEST_F(Geometry, WindowNeedsAllOfItCrossingAnyOfIt) {
    const Handle a = line(0, 0, 10, 0);
    const Handle b = line(5, -5, 5, 5);
    const Handle c = circle(20, 0, 3);
    EXPECT_EQ(window({-1, -1, 0}, {11, 1, 0}, Region::Window), std::vector<Handle>{a});
    EXPECT_EQ(window({-1, -1, 0}, {11, 1, 0}, Region::Crossing), (std::vector<Handle>{a, b}));
    // Corners given in any order.
    EXPECT_EQ(window({11, 1, 0}, {-1, -1, 0}, Region::Window), std::vector<Handle>{a});
    EXPECT_EQ(window({16, -4, 0}, {24, 4, 0}, Region::Window), std::vector<Handle>{c});
    // A window inside the circle touches none of its curve.
    EXPECT_TRUE(window({19, -1, 0}, {21, 1, 0}, Region::Crossing).empty());
    EXPECT_EQ(window({22, -1, 0}, {24, 1, 0}, Region::Crossing), std::vector<Handle>{c});
    // An entity along the window's edge lies inside it.
    EXPECT_EQ(window({0, 0, 0}, {10, 3, 0}, Region::Window), std::vector<Handle>{a});
}

TEST_F(Geometry, PolygonsAndFences) {
    const Handle a = line(0, 0, 10, 0);
    const Handle b = line(0, 5, 10, 5);
    const Handle c = circle(5, 20, 2);
    // An L-shaped polygon that holds the first line but whose notch cuts the second.
    const geometry::Polygon ell{{-1, -1, 0}, {11, -1, 0}, {11, 6, 0}, {6, 6, 0}, {6, 2, 0}, {-1, 2, 0}};
    EXPECT_EQ(geometry::selectByPolygon(drawing, ell, Region::Window), std::vector<Handle>{a});
    EXPECT_EQ(geometry::selectByPolygon(drawing, ell, Region::Crossing), (std::vector<Handle>{a, b}));
    EXPECT_EQ(geometry::selectByFence(drawing, {{5, -1, 0}, {5, 3, 0}}), std::vector<Handle>{a});
    EXPECT_EQ(geometry::selectByFence(drawing, {{5, -1, 0}, {5, 3, 0}, {5, 30, 0}}), (std::vector<Handle>{a, b, c}));
    EXPECT_TRUE(geometry::selectByFence(drawing, {{20, -1, 0}, {20, 30, 0}}).empty());
}

TEST(Intersections, SegmentsMeetLinesAndArcs) {
    geometry::Shape shape;
    shape.segments.push_back({{0, 0, 0}, {10, 0, 0}});
    shape.arcs.push_back({{0, 0, 0}, 5, 0, M_PI / 2});
    const auto hits = geometry::intersections({{3, -1, 0}, {3, 10, 0}}, shape);
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_NEAR(hits[0][1], 0, 1e-12);
    EXPECT_NEAR(hits[1][1], 4, 1e-12);
    // Below the x axis the quarter arc is not there; a parallel segment meets nothing.
    EXPECT_EQ(geometry::intersections({{-3, -1, 0}, {-3, -10, 0}}, shape).size(), 0u);
    EXPECT_TRUE(geometry::intersections({{0, 1, 0}, {2, 1, 0}}, {{{{0, 0, 0}, {10, 0, 0}}}, {}, {}}).empty());
    // Collinear overlap touches.
    EXPECT_FALSE(geometry::intersections({{8, 0, 0}, {12, 0, 0}}, shape).empty());
}

}  // namespace
}  // namespace cadhost::test
