// Points and picks on a layout's sheet: running snaps take the paper-space entities and the
// model geometry a viewport shows where it shows it (not what lies at the same numbers in
// model space, not a layer frozen in that viewport); picks take
// paper-space entities only.
#include <gtest/gtest.h>


#include "cadhost/geometry/Shape.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

// Layout1 of the sample: viewport 37 shows model (50,25) at (110,150) twice as large, in
// the frame 20..200 x 90..210; viewport 38 the same at (310,150) in 220..400 x 90..210,
// with "Dach" frozen. Model space: a line (0,0)-(100,0) on "Wand", a circle of radius 10
// about (50,25) on "Mauer".
class PaperSpaceSnapTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        ASSERT_TRUE(window->openFiles({ARDO_TEST_DATA "/commands/layout_viewports.dxf"}));
        QApplication::processEvents();
        ASSERT_TRUE(view()->layout());
        ASSERT_EQ(view()->layout()->layout().name, "Layout1");
    }
    Drawing& drawing() { return app->current().drawing(); }
    QPoint beside(Vec2 world, QPoint off = {3, -2}) { return view()->toScreen(world).toPoint() + off; }
    // A click beside `world` lands on `expected`.
    void expectFirstPoint(Vec2 world, int osmode, Vec2 expected) {
        const auto at = firstPointNear(world, osmode);
        ASSERT_TRUE(at);
        EXPECT_NEAR(at->x, expected.x, 1e-9);
        EXPECT_NEAR(at->y, expected.y, 1e-9);
    }
    // Where the click itself is: no snap took it.
    Vec2 unsnapped(Vec2 world) { return view()->toWorld(QPointF(beside(world))); }
    // Where a click a few pixels beside `world` lands as the first point of a LINE.
    std::optional<Vec2> firstPointNear(Vec2 world, int osmode) {
        type(QString("(setvar \"OSMODE\" %1)").arg(osmode));
        type("_LINE");
        QTest::mouseMove(view(), beside(world));
        QTest::mouseClick(view(), Qt::LeftButton, {}, beside(world));
        type("@10,0");
        type("");
        Handle last = 0;
        drawing().forEachEntity([&](const EntityInfo& e) { return last = e.handle, true; });
        const auto shape = geometry::shapeOf(drawing(), last);
        if (!shape || shape->segments.empty() || drawing().entity(last)->space != Space::Paper) return std::nullopt;
        return Vec2{shape->segments.front().a[0], shape->segments.front().a[1]};
    }
};

TEST_F(PaperSpaceSnapTest, SnapsTakePaperEntitiesAndModelGeometryWhereAViewportShowsIt) {
    // A paper-space line on the sheet's margin; its end is found from a few pixels off.
    type("_LINE");
    type("300,40");
    type("380,40");
    type("");
    auto at = firstPointNear({300, 40}, 1);
    ASSERT_TRUE(at);
    EXPECT_DOUBLE_EQ(at->x, 300);
    EXPECT_DOUBLE_EQ(at->y, 40);

    // The model line's midpoint (50,0) lies at (110,100) in the left viewport.
    expectFirstPoint({110, 100}, 2, {110, 100});

    // Where model space has the circle's centre in its own numbers, the sheet is empty.
    expectFirstPoint({50, 25}, 4, unsnapped({50, 25}));
}

TEST_F(PaperSpaceSnapTest, ALayerFrozenInAViewportGivesNoSnapThere) {
    // A circle about (30,25) on "Dach": the left viewport shows it at (70,150), the right
    // one has the layer frozen where it would be at (270,150).
    ASSERT_TRUE(drawing().makeEntity({{0, "CIRCLE"}, {67, "0"}, {8, "Dach"}, {10, "30"}, {20, "25"}, {30, "0"}, {40, "5"}}));
    QApplication::processEvents();
    expectFirstPoint({70, 150}, 4, {70, 150});
    expectFirstPoint({270, 150}, 4, unsnapped({270, 150}));
}

TEST_F(PaperSpaceSnapTest, PicksTakePaperSpaceEntitiesNotTheModelSeenThroughAViewport) {
    type("_LINE");
    type("300,40");
    type("380,40");
    type("");
    Handle paperLine = 0;
    drawing().forEachEntity([&](const EntityInfo& e) { return paperLine = e.handle, true; });
    click({340, 40});
    ASSERT_EQ(view()->selection().size(), 1u);
    EXPECT_EQ(view()->selection().front(), paperLine);
    QTest::keyClick(view(), Qt::Key_Escape);
    // On the circle's edge inside the left viewport: nothing of paper space is there.
    click({130, 150});
    EXPECT_TRUE(view()->selection().empty());
}

}  // namespace
}  // namespace cadhost::gui
