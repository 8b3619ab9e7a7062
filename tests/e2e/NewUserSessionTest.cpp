// What a new user does after reading the README, in the window with the real module: opens
// the office drawing, runs the wall module's WANDNEU, draws one more wall with snapped
// clicks, switches layers on the layers toolbar, picks and window-selects, zooms and pans,
// and saves; the saved file is read back with the host's reader.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QWheelEvent>

#include "cadhost/geometry/Shape.h"
#include "cadhost/gui/LayerBar.h"
#include "cadhost/gui/WindowFixture.h"
#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

using cadhost::gui::Vec2;

class NewUserSession : public cadhost::gui::test::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        app->setSupportPath({install.folder()});
        ASSERT_TRUE(app->modules().load(install.file("ardo.arx").string()));
        app->idle();
    }
    // A click on the bulb of the layer's row in the open drop-down, as in the toolbar.
    void clickBulb(const QString& layer) {
        QComboBox* list = window->layerBar()->list();
        const int row = list->findText(layer);
        ASSERT_GE(row, 0) << layer.toStdString();
        list->showPopup();
        QAbstractItemView* rows = list->view();
        const QRect rect = rows->visualRect(rows->model()->index(row, 0));
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, QPoint(rect.left() + 12, rect.center().y()));
        list->hidePopup();
    }
    QPoint screen(Vec2 world, QPoint off = {}) { return view()->toScreen(world).toPoint() + off; }
    std::map<std::string, std::vector<cadhost::geometry::Segment>> linesByLayer(const cadhost::Drawing& d) {
        std::map<std::string, std::vector<cadhost::geometry::Segment>> out;
        d.forEachEntity([&](const cadhost::EntityInfo& e) {
            if (e.type == "LINE")
                if (const auto shape = cadhost::geometry::shapeOf(d, e.handle)) out[e.layer].push_back(shape->segments.front());
            return true;
        });
        return out;
    }

    Installation install;
    TemporaryFolderOf temporary{install};
};

bool joins(const cadhost::geometry::Segment& s, ardo::Point3 a, ardo::Point3 b) {
    const auto same = [](ardo::Point3 p, ardo::Point3 q) { return p[0] == q[0] && p[1] == q[1]; };
    return (same(s.a, a) && same(s.b, b)) || (same(s.a, b) && same(s.b, a));
}

TEST_F(NewUserSession, WallsLayersSelectionViewAndSaving) {
    const std::size_t surveyed = app->drawing().entityCount();
    type("WANDNEU");
    QString text = window->commandDock()->text();
    EXPECT_TRUE(text.contains("Wandlayer bereit: EG_A-Wand-tragend")) << text.toStdString();
    EXPECT_EQ(app->drawing().entityCount(), surveyed + 5);
    EXPECT_EQ(window->layerBar()->list()->currentText(), "EG_A-Wand-tragend");
    view()->zoomExtents();

    // One more wall on the current layer, from the outline's corner to the middle of its
    // bottom wall, picked a few pixels off with the endpoint snap and a typed MID.
    type("(setvar \"OSMODE\" 1)");
    type("_.LINE");
    QTest::mouseMove(view(), screen({0, 6}, {3, -2}));
    QTest::mouseClick(view(), Qt::LeftButton, {}, screen({0, 6}, {3, -2}));
    type("MID");
    QTest::mouseClick(view(), Qt::LeftButton, {}, screen({5, 0}, {-4, 3}));
    type("");
    EXPECT_EQ(app->drawing().entityCount(), surveyed + 6);

    // The layers toolbar: the partition's layer off and on again, the room texts off.
    const int before = inked(view()->grab().toImage());
    clickBulb("EG_A-Wand-nichttragend");
    EXPECT_TRUE(app->drawing().findLayer("EG_A-Wand-nichttragend")->isOff);
    EXPECT_LT(inked(view()->grab().toImage()), before);
    clickBulb("EG_A-Wand-nichttragend");
    EXPECT_FALSE(app->drawing().findLayer("EG_A-Wand-nichttragend")->isOff);
    clickBulb("Raumtext");
    EXPECT_TRUE(app->drawing().findLayer("Raumtext")->isOff);

    // A pick on the partition, then a window around the whole outline adds the walls.
    click({4, 3});
    ASSERT_EQ(view()->selection().size(), 1u);
    EXPECT_EQ(app->drawing().entity(view()->selection().front())->layer, "EG_A-Wand-nichttragend");
    click({-0.5, -0.5});
    click({10.5, 6.5});
    EXPECT_GE(view()->selection().size(), 6u);
    QTest::keyClick(view(), Qt::Key_Escape);
    EXPECT_TRUE(view()->selection().empty());

    // The wheel zooms in about the cursor, the middle button drags the drawing along.
    const double scale = view()->scale();
    const QPoint at = screen({5, 3});
    QWheelEvent wheel(at, view()->mapToGlobal(at), {}, QPoint(0, 240), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view(), &wheel);
    EXPECT_GT(view()->scale(), scale);
    const Vec2 held = view()->toWorld(QPointF(at));
    QTest::mousePress(view(), Qt::MiddleButton, {}, at);
    QMouseEvent drag(QEvent::MouseMove, QPointF(at + QPoint(60, 40)), view()->mapToGlobal(QPointF(at + QPoint(60, 40))),
                     Qt::NoButton, Qt::MiddleButton, Qt::NoModifier);
    QApplication::sendEvent(view(), &drag);
    QTest::mouseRelease(view(), Qt::MiddleButton, {}, at + QPoint(60, 40));
    EXPECT_NEAR(view()->toWorld(QPointF(at + QPoint(60, 40))).x, held.x, 1e-9);
    window->grab().save(QString::fromStdString(install.scratch("new-user.png").string()));

    const fs::path saved = install.scratch("office-walls.dxf");
    ASSERT_TRUE(window->saveCurrent(saved.string()));
    text = window->commandDock()->text();
    for (const char* bad : {"; error", "Unknown command"}) EXPECT_FALSE(text.contains(bad)) << text.toStdString();

    const cadhost::Drawing d = openSaved(saved);
    auto walls = linesByLayer(d);
    // The central file's names with the storey prefix: the outline on the load-bearing
    // layer with the wall drawn by hand, the partition on the other.
    ASSERT_EQ(walls["EG_A-Wand-tragend"].size(), 5u);
    ASSERT_EQ(walls["EG_A-Wand-nichttragend"].size(), 1u);
    EXPECT_TRUE(joins(walls["EG_A-Wand-nichttragend"][0], {4, 0, 0}, {4, 6, 0}));
    EXPECT_TRUE(joins(walls["EG_A-Wand-tragend"].back(), {0, 6, 0}, {5, 0, 0}));
    EXPECT_FALSE(layerOf(d, "EG_A-Wand-nichttragend").isOff);
    EXPECT_TRUE(layerOf(d, "Raumtext").isOff);
    EXPECT_EQ(d.getVar("OSMODE")->integer, 1);
}

}  // namespace
}  // namespace ardo::e2e
