// Running object snaps, typed overrides, ortho and the status bar's buttons, driven with
// mouse and key events over a new drawing holding a few lines and a circle.
#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QToolButton>

#include "cadhost/geometry/Shape.h"
#include "cadhost/gui/StatusBar.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

class SnapTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        window->newDrawing();
        line({0, 0}, {100, 0});
        line({0, 50}, {100, 50});
        line({60, -10}, {60, 60});
        make({{0, "CIRCLE"}, {8, "0"}, {10, "30"}, {20, "25"}, {30, "0"}, {40, "10"}});
        view()->zoomExtents();
        QApplication::processEvents();
    }
    Drawing& drawing() { return app->current().drawing(); }
    Handle make(std::vector<EntityTag> tags) { return drawing().makeEntity(tags).value_or(0); }
    Handle line(Vec2 a, Vec2 b) {
        return make({{0, "LINE"}, {8, "0"}, {10, std::to_string(a.x)}, {20, std::to_string(a.y)}, {30, "0"},
                     {11, std::to_string(b.x)}, {21, std::to_string(b.y)}, {31, "0"}});
    }
    // The screen point a few pixels beside a world point, where a user's hand lands.
    QPoint beside(Vec2 world, QPoint off = {4, -3}) { return view()->toScreen(world).toPoint() + off; }
    void hover(QPoint at) { QTest::mouseMove(view(), at); }
    void pick(QPoint at) { QTest::mouseClick(view(), Qt::LeftButton, {}, at); }
    int osmode() { return static_cast<int>(drawing().getVar("OSMODE")->integer); }
    // The ends of the last line drawn.
    geometry::Segment lastLine() {
        Handle last = 0;
        drawing().forEachEntity([&](const EntityInfo& e) {
            last = e.handle;
            return true;
        });
        const auto shape = geometry::shapeOf(drawing(), last);
        EXPECT_TRUE(shape && shape->segments.size() == 1);
        return shape && !shape->segments.empty() ? shape->segments.front() : geometry::Segment{};
    }
    // Grabs to look at go where ARDO_GRAB_DIR says.
    static void keep(const QImage& image, const char* name) {
        if (const QByteArray dir = qgetenv("ARDO_GRAB_DIR"); !dir.isEmpty())
            image.save(QString::fromLocal8Bit(dir) + "/" + name + ".png");
    }
    // Pixels of the snap marker's yellow within `radius` of a screen point.
    int marker(const QImage& image, QPoint at, int radius = 9) {
        int n = 0;
        for (int y = at.y() - radius; y <= at.y() + radius; ++y)
            for (int x = at.x() - radius; x <= at.x() + radius; ++x) {
                if (!image.rect().contains(x, y)) continue;
                const QColor c = image.pixelColor(x, y);
                n += c.red() > 200 && c.green() > 150 && c.blue() < 80;
            }
        return n;
    }
};

TEST_F(SnapTest, TheCursorSnapsToTheNearestPointOfTheChosenKindsAndShowsItsMarker) {
    type("(setvar \"OSMODE\" 1)");
    EXPECT_TRUE(window->snapBar()->osnapButton()->isChecked());
    type("_.LINE");
    const QPoint end = view()->toScreen({100, 0}).toPoint();
    hover(beside({100, 0}));
    const QImage shown = view()->grab().toImage();
    keep(shown, "snap-endpoint");
    EXPECT_GT(marker(shown, end), 12);
    pick(beside({100, 0}));
    // Only endpoints are asked for: a line's middle has no marker.
    hover(beside({50, 50}));
    EXPECT_EQ(marker(view()->grab().toImage(), view()->toScreen({50, 50}).toPoint(), 30), 0);
    pick(beside({0, 50}, {5, 4}));
    type("");
    geometry::Segment drawn = lastLine();
    EXPECT_EQ(drawn.a[0], 100);
    EXPECT_EQ(drawn.a[1], 0);
    EXPECT_EQ(drawn.b[0], 0);
    EXPECT_EQ(drawn.b[1], 50);

    // Intersections and centres with their own markers; nothing marked far from everything.
    type("(setvar \"OSMODE\" 36)");
    type("_.LINE");
    hover(beside({60, 50}));
    EXPECT_GT(marker(view()->grab().toImage(), view()->toScreen({60, 50}).toPoint()), 12);
    pick(beside({60, 50}));
    pick(beside({30, 25}, {3, 3}));
    type("");
    drawn = lastLine();
    EXPECT_EQ(drawn.a[0], 60);
    EXPECT_EQ(drawn.a[1], 50);
    EXPECT_EQ(drawn.b[0], 30);
    EXPECT_EQ(drawn.b[1], 25);
    hover(view()->toScreen({85, 30}).toPoint());
    EXPECT_EQ(marker(view()->grab().toImage(), view()->toScreen({85, 30}).toPoint(), 30), 0);
}

TEST_F(SnapTest, ATypedOverrideSnapsTheNextPickAloneAndNonTurnsSnappingOffForIt) {
    type("(setvar \"OSMODE\" 1)");
    type("_.LINE");
    type("_mid");
    EXPECT_EQ(window->commandDock()->prompt(), "Specify first point: ");
    pick(beside({50, 0}));
    // The override is used up: the next pick takes running endpoint snaps again.
    type("non");
    pick(beside({100, 50}));
    type("");
    const geometry::Segment drawn = lastLine();
    EXPECT_EQ(drawn.a[0], 50);
    EXPECT_EQ(drawn.a[1], 0);
    EXPECT_NE(drawn.b[0], 100);
    EXPECT_NEAR(drawn.b[0], 100, 8 / view()->scale());

    // Perpendicular from the prompt's base point: the foot on the vertical line.
    std::optional<PromptAnswer> answer;
    commands::InputRequest point;
    point.kind = commands::InputRequest::Kind::Point;
    point.from = ardo::Point3{10, 30, 0};
    QTimer::singleShot(0, [&] {
        type("PER");
        pick(beside({60, 30}));
    });
    answer = window->ask("Next point: ", point);
    ASSERT_TRUE(answer && answer->point);
    EXPECT_EQ((*answer->point)[0], 60);
    EXPECT_EQ((*answer->point)[1], 30);
}

TEST_F(SnapTest, StatusBarKeysAndMenuWriteTheModesAndFollowSetvar) {
    StatusBar* bar = window->snapBar();
    type("(setvar \"OSMODE\" 37)");
    QTest::keyClick(window->commandDock()->input(), Qt::Key_F3);
    EXPECT_EQ(osmode(), 37 + 16384);
    EXPECT_FALSE(bar->osnapButton()->isChecked());
    EXPECT_TRUE(window->commandDock()->text().contains("<Osnap off>"));
    // With snaps off the pick stays where it was made.
    type("_.LINE");
    pick(beside({100, 0}));
    QTest::keyClick(window->commandDock()->input(), Qt::Key_F3);
    EXPECT_EQ(osmode(), 37);
    EXPECT_TRUE(bar->osnapButton()->isChecked());

    // Ortho: the second point lies on the horizontal through the first.
    QTest::keyClick(view(), Qt::Key_F8);
    EXPECT_EQ(drawing().getVar("ORTHOMODE")->integer, 1);
    EXPECT_TRUE(bar->orthoButton()->isChecked());
    pick(view()->toScreen({70, 8}).toPoint());
    type("");
    const geometry::Segment drawn = lastLine();
    EXPECT_NE(drawn.a[0], 100);
    EXPECT_EQ(drawn.b[1], drawn.a[1]);
    EXPECT_NEAR(drawn.b[0], 70, 2 / view()->scale());

    // The menu's kinds are OSMODE's bits.
    QAction* midpoint = nullptr;
    for (QAction* a : bar->snapMenu()->actions())
        if (a->text() == "Midpoint") midpoint = a;
    ASSERT_TRUE(midpoint);
    EXPECT_FALSE(midpoint->isChecked());
    midpoint->trigger();
    EXPECT_EQ(osmode(), 39);
    // SETVAR from the command line moves the buttons and the menu.
    type("(setvar \"OSMODE\" 16386)");
    EXPECT_FALSE(bar->osnapButton()->isChecked());
    EXPECT_TRUE(midpoint->isChecked());
    type("(setvar \"ORTHOMODE\" 0)");
    EXPECT_FALSE(bar->orthoButton()->isChecked());
    keep(window->grab().toImage(), "snap-window");
}

}  // namespace
}  // namespace cadhost::gui
