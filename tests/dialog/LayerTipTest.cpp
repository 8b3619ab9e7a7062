// The layer tip: its lines by the presence flags, its size and its place on the screen.
#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "dialog/GuiApplication.h"
#include "support/ScriptedHost.h"
#include "ui/cWndLayerTip.h"

namespace ardo {
namespace {

TEST(LayerTipTest, LinesFollowThePresenceFlags) {
    test::ScriptedHost host;
    EXPECT_EQ(layerTipLines(tipbit::kInDrawing, false),
              (QStringList{"nicht in zentraler Layersteuerdatei", "in der Zeichnung"}));
    EXPECT_EQ(layerTipLines(tipbit::kInDrawing, true),
              (QStringList{"nicht in zentraler Layersteuerdatei", "nicht in Objekt", "in der Zeichnung"}));
    EXPECT_EQ(layerTipLines(tipbit::kInCentralFile | tipbit::kInObjectFile, true),
              (QStringList{"in zentraler Layersteuerdatei", "in Objekt", "nicht in der Zeichnung"}));
    EXPECT_EQ(layerTipHeight(18, 2), 54);
    EXPECT_EQ(layerTipHeight(18, 3), 72);
}

TEST(LayerTipTest, TipsNearTheEdgesMoveBackOntoTheScreen) {
    const QRect screen(0, 0, 1920, 1080);
    EXPECT_EQ(keepOnScreen(QRect(1800, 100, 260, 60), screen), QRect(1660, 100, 260, 60));
    EXPECT_EQ(keepOnScreen(QRect(100, 1050, 260, 60), screen), QRect(100, 1020, 260, 60));
    EXPECT_EQ(keepOnScreen(QRect(1900, 1070, 260, 60), screen), QRect(1660, 1020, 260, 60));
    EXPECT_EQ(keepOnScreen(QRect(300, 10, 2500, 60), screen), QRect(0, 10, 1920, 60)) << "wider than the screen";
    EXPECT_EQ(keepOnScreen(QRect(10, 10, 260, 60), screen), QRect(10, 10, 260, 60));
    const QRect twoScreens(0, 0, 3840, 1080);
    EXPECT_EQ(keepOnScreen(QRect(1800, 100, 260, 60), twoScreens), QRect(1800, 100, 260, 60))
        << "the virtual screen counts";
}

TEST(LayerTipTest, TheTipShowsItsLines) {
    test::guiApplication();
    test::ScriptedHost host;
    cWndLayerTip tip;
    tip.showFor(tipbit::kInCentralFile | tipbit::kInDrawing, true, QPoint(40, 40), 260, 18);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tip));
    EXPECT_EQ(tip.height(), 72);
    EXPECT_EQ(tip.lines().size(), 3);
    std::filesystem::create_directories("grabs");
    const QImage image = tip.grab().toImage();
    EXPECT_TRUE(image.save("grabs/layer-tip.png"));
    // The first line's yes mark is green, the object line's no mark red.
    bool green = false, red = false;
    for (int y = 1; y < 17; ++y)
        for (int x = 2; x < 18; ++x) green |= QColor(image.pixel(x, y)).green() > 120 && QColor(image.pixel(x, y)).red() < 80;
    for (int y = 18; y < 34; ++y)
        for (int x = 2; x < 18; ++x) red |= QColor(image.pixel(x, y)).red() > 180 && QColor(image.pixel(x, y)).green() < 80;
    EXPECT_TRUE(green);
    EXPECT_TRUE(red);
}

}  // namespace
}  // namespace ardo
