// The space tabs under a drawing and what a layout shows: its sheet, model space through
// each viewport without the layers frozen there, the viewport borders; switching tabs sets
// the drawing's current space; ZOOM and PAN from LISP move the view as typed ones do;
// LEADER and IMAGE in the scene.
#include <QTabBar>
#include <filesystem>

#include "cadhost/gui/LayoutTabs.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

constexpr QRgb kRed = 0xFF0000, kGreen = 0x00FF00;
// Viewport 37 (ID 3) on the left of Layout1, 38 (ID 4, "Dach" frozen) on the right.
const Box2 kLeft{20, 90, 200, 210}, kRight{220, 90, 400, 210};

class LayoutViewTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        ASSERT_TRUE(window->openFiles({ARDO_TEST_DATA "/commands/layout_viewports.dxf"}));
        QApplication::processEvents();
    }
    Drawing& drawing() { return app->current().drawing(); }
    QTabBar* tabs() { return static_cast<LayoutTabs*>(view()->parentWidget())->tabBar(); }
    QImage grab(const char* name) {
        QApplication::processEvents();
        const QImage image = view()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        std::filesystem::create_directories("grabs");
        image.save(QString("grabs/") + name + ".png");
        return image;
    }
    // Pixels of exactly that colour inside the area of the space shown, a little within its edges.
    int count(const QImage& image, const Box2& area, QRgb color) {
        const QPointF a = view()->toScreen({area.x0, area.y1}), b = view()->toScreen({area.x1, area.y0});
        const QRect r = QRectF(a, b).toAlignedRect().adjusted(3, 3, -3, -3).intersected(image.rect());
        int n = 0;
        for (int y = r.top(); y <= r.bottom(); ++y)
            for (int x = r.left(); x <= r.right(); ++x) n += (image.pixel(x, y) & 0xFFFFFF) == color;
        return n;
    }
};

TEST_F(LayoutViewTest, TabsListModelAndTheLayoutsAndFollowTheCurrentSpace) {
    ASSERT_EQ(tabs()->count(), 3);
    EXPECT_EQ(tabs()->tabText(0), "Model");
    EXPECT_EQ(tabs()->tabText(1), "Layout1");
    EXPECT_EQ(tabs()->tabText(2), "Layout2");
    // The file was saved on Layout1.
    EXPECT_EQ(tabs()->currentIndex(), 1);
    ASSERT_TRUE(view()->layout());
    EXPECT_EQ(view()->layout()->layout().name, "Layout1");

    // A click on a tab makes that space current; commands then draw there.
    QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(0).center());
    EXPECT_EQ(drawing().getVar("CTAB")->text, "Model");
    EXPECT_EQ(drawing().getVar("TILEMODE")->integer, 1);
    EXPECT_FALSE(view()->layout());
    type("_LINE");
    type("0,0");
    type("3,3");
    type("");
    Handle last = 0;
    drawing().forEachEntity([&](const EntityInfo& e) { return last = e.handle, true; });
    EXPECT_EQ(drawing().entity(last)->space, Space::Model);

    QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(2).center());
    EXPECT_EQ(drawing().getVar("CTAB")->text, "Layout2");
    ASSERT_TRUE(view()->layout());
    EXPECT_EQ(view()->layout()->layout().block, "*Paper_Space0");
    // CTAB set from LISP switches the tab.
    type("(setvar \"CTAB\" \"Layout1\")");
    EXPECT_EQ(tabs()->currentIndex(), 1);
    EXPECT_EQ(view()->layout()->layout().name, "Layout1");
    type("(setvar \"TILEMODE\" 1)");
    EXPECT_EQ(tabs()->currentIndex(), 0);
}

TEST_F(LayoutViewTest, EachViewportLeavesOutTheLayersFrozenInIt) {
    // A green line on "Dach" in model space, in sight of both viewports; "Dach" is frozen in
    // the right one.
    type("(entmake '((0 . \"LINE\") (67 . 0) (8 . \"Dach\") (10 40 10) (11 60 40)))");
    view()->zoomExtents();
    QImage image = grab("layout-viewports");
    // The sheet is white, the table around it grey.
    EXPECT_EQ(image.pixel(view()->toScreen({200, 250}).toPoint()) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_NE(image.pixel(view()->toScreen({-30, 250}).toPoint()) & 0xFFFFFF, 0xFFFFFFu);
    // "Wand" (red) shows in both, "Dach" (green) in the left one only.
    EXPECT_GT(count(image, kLeft, kRed), 20);
    EXPECT_GT(count(image, kRight, kRed), 20);
    EXPECT_GT(count(image, kLeft, kGreen), 10);
    EXPECT_EQ(count(image, kRight, kGreen), 0);
    // Nothing of the model outside the viewports: the red line ends at their borders.
    EXPECT_EQ(count(image, Box2{-5, 0, 15, 85}, kRed), 0);

    // VPLAYER freezes "Wand" in the current (left) viewport only.
    type("(command \"_.VPLAYER\" \"_FREEZE\" \"Wand\" \"_Current\" \"\")");
    image = grab("layout-vplayer");
    EXPECT_EQ(count(image, kLeft, kRed), 0);
    EXPECT_GT(count(image, kRight, kRed), 20);
    EXPECT_GT(count(image, kLeft, kGreen), 10);

    // The border is drawn on the viewport's layer and goes when that layer is off.
    const int bordered = count(image, Box2{15, 85, 205, 215}, 0x000000);
    EXPECT_GT(bordered, 100);
    // (The file's viewports are on a layer its table lacks.)
    type("(command \"_.LAYER\" \"_NEW\" \"VIEWPORTS\" \"\")");
    ASSERT_TRUE(drawing().findLayer("VIEWPORTS"));
    type("(command \"_.LAYER\" \"_OFF\" \"VIEWPORTS\" \"\")");
    ASSERT_TRUE(drawing().findLayer("VIEWPORTS")->isOff);
    image = grab("layout-frames-off");
    EXPECT_LT(count(image, Box2{15, 85, 205, 215}, 0x000000), bordered / 4);
    // The model inside still shows.
    EXPECT_GT(count(image, kLeft, kGreen), 10);
}

TEST_F(LayoutViewTest, ZoomAndPanFromLispMoveTheViewAsTyped) {
    type("(command \"_.ZOOM\" \"_W\" '(100 100) '(200 150))");
    Box2 shown = view()->visibleArea();
    EXPECT_NEAR((shown.x0 + shown.x1) / 2, 150, 1e-6);
    EXPECT_NEAR((shown.y0 + shown.y1) / 2, 125, 1e-6);
    EXPECT_GE(shown.x1 - shown.x0, 100 - 1e-6);
    const double width = shown.x1 - shown.x0;

    type("(command \"_.ZOOM\" \"2X\")");
    shown = view()->visibleArea();
    EXPECT_NEAR(shown.x1 - shown.x0, width / 2, 1e-6);
    type("(command \"_.ZOOM\" \"_C\" '(10 20) 50)");
    shown = view()->visibleArea();
    EXPECT_NEAR((shown.x0 + shown.x1) / 2, 10, 1e-6);
    EXPECT_NEAR(shown.y1 - shown.y0, 50, 1e-6);
    type("(command \"_.PAN\" '(0 0) '(5 -2))");
    shown = view()->visibleArea();
    EXPECT_NEAR((shown.x0 + shown.x1) / 2, 5, 1e-6);
    EXPECT_NEAR((shown.y0 + shown.y1) / 2, 22, 1e-6);
    type("(command \"_.ZOOM\" \"_P\")");
    shown = view()->visibleArea();
    EXPECT_NEAR((shown.x0 + shown.x1) / 2, 10, 1e-6);
    // Extents of a layout: the whole sheet.
    type("(command \"_.ZOOM\" \"_E\")");
    shown = view()->visibleArea();
    EXPECT_LE(shown.x0, -10);
    EXPECT_GE(shown.x1, 410);
    EXPECT_LE(shown.y0, -10);
    EXPECT_GE(shown.y1, 287);
    EXPECT_EQ(drawing().getVar("CMDACTIVE")->integer, 0);
}

TEST_F(LayoutViewTest, LeaderAndImageAreInTheScene) {
    QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(0).center());
    // Without a dimension style of its own, a leader's arrow is DIMASZ x DIMSCALE of the header.
    ASSERT_EQ(drawing().setVar("DIMASZ", ardo::ResBuf::realNum(4)), ardo::DbStatus::Ok);
    ASSERT_EQ(drawing().setVar("DIMSCALE", ardo::ResBuf::realNum(1.5)), ardo::DbStatus::Ok);
    const double arrow = 6;
    const auto leader = drawing().makeEntity({{0, "LEADER"}, {100, "AcDbEntity"}, {8, "Wand"}, {100, "AcDbLeader"},
                                              {71, "1"}, {76, "3"}, {10, "0"}, {20, "0"}, {30, "0"}, {10, "20"},
                                              {20, "0"}, {30, "0"}, {10, "30"}, {20, "10"}, {30, "0"}});
    ASSERT_TRUE(leader);
    const SceneItem* item = view()->scene().item(*leader);
    ASSERT_TRUE(item);
    ASSERT_EQ(item->pieces.size(), 2u);
    EXPECT_EQ(item->pieces[0].kind, Piece::Kind::Stroke);
    EXPECT_EQ(item->pieces[0].points.size(), 3u);
    // The arrowhead: filled, its tip on the first vertex, as long as DIMASZ x DIMSCALE.
    const Piece& head = item->pieces[1];
    EXPECT_EQ(head.kind, Piece::Kind::Fill);
    ASSERT_EQ(head.points.size(), 3u);
    EXPECT_DOUBLE_EQ(head.points[0].x, 0);
    EXPECT_NEAR((head.points[1].x + head.points[2].x) / 2, arrow, 1e-9);
    EXPECT_NEAR(std::abs(head.points[1].y - head.points[2].y), arrow / 3, 1e-9);

    // An image: its frame from the insertion point and the pixel vectors, and the file name.
    const auto image = drawing().makeEntity({{0, "IMAGE"}, {100, "AcDbEntity"}, {8, "Wand"}, {100, "AcDbRasterImage"},
                                             {10, "100"}, {20, "50"}, {30, "0"}, {11, "0.5"}, {21, "0"}, {31, "0"},
                                             {12, "0"}, {22, "0.5"}, {32, "0"}, {13, "200"}, {23, "100"}, {340, "0"}});
    ASSERT_TRUE(image);
    item = view()->scene().item(*image);
    ASSERT_TRUE(item);
    ASSERT_FALSE(item->pieces.empty());
    EXPECT_TRUE(item->pieces[0].closed);
    EXPECT_DOUBLE_EQ(item->box.x0, 100);
    EXPECT_DOUBLE_EQ(item->box.y0, 50);
    EXPECT_DOUBLE_EQ(item->box.x1, 200);
    EXPECT_DOUBLE_EQ(item->box.y1, 100);
    view()->zoomExtents();
    grab("leader-image");
}

}  // namespace
}  // namespace cadhost::gui

namespace cadhost::gui {
namespace {

// Tags put into a section of a DXF text before its end.
std::string withTags(std::string dxf, const std::string& section, const std::string& tags) {
    const auto begin = dxf.find("\n" + section + "\n");
    const auto end = dxf.find("\nENDSEC", begin);
    const auto line = dxf.rfind('\n', end - 1);   // the group code 0 before ENDSEC
    return dxf.insert(line + 1, tags);
}

TEST(ImageFrames, NameTheirPictureFile) {
    std::string dxf = Drawing().toDxf();
    dxf = withTags(dxf, "ENTITIES",
                   "0\nIMAGE\n5\nFFF0\n100\nAcDbEntity\n8\n0\n100\nAcDbRasterImage\n10\n10\n20\n20\n30\n0\n"
                   "11\n0.1\n21\n0\n31\n0\n12\n0\n22\n0.1\n32\n0\n13\n640\n23\n480\n340\nFFF1\n");
    dxf = withTags(dxf, "OBJECTS", "0\nIMAGEDEF\n5\nFFF1\n100\nAcDbRasterImageDef\n1\nC:\\plans\\site plan.png\n");
    auto read = Drawing::fromBytes(dxf);
    ASSERT_TRUE(read) << read.error();
    Drawing drawing = std::move(read).value();
    const Scene scene(drawing, Space::Model);
    const SceneItem* image = scene.item(0xFFF0);
    ASSERT_TRUE(image);
    ASSERT_EQ(image->pieces.size(), 2u);
    EXPECT_EQ(image->pieces[0].points.size(), 4u);
    EXPECT_NEAR(image->box.x1, 10 + 64, 1e-9);
    EXPECT_NEAR(image->box.y1, 20 + 48, 1e-9);
    const Piece& name = image->pieces[1];
    EXPECT_EQ(name.kind, Piece::Kind::Text);
    EXPECT_EQ(name.text, "site plan.png");
    // Inside the frame.
    EXPECT_GT(name.points[0].x, 10);
    EXPECT_GT(name.points[0].y, 20);
    EXPECT_LT(name.points[0].x + 0.7 * name.height * 13, 74);
}

TEST(LeaderArrows, AreSizedByTheirDimensionStyle) {
    std::string dxf = Drawing().toDxf();
    // The style "Standard" with an arrow size of 3 at a scale of 2.
    const auto record = dxf.find("AcDbDimStyleTableRecord");
    const auto name = dxf.find("Standard\n", record);
    ASSERT_NE(name, std::string::npos);
    dxf.insert(name + 9, "41\n3.0\n40\n2.0\n");
    dxf = withTags(dxf, "ENTITIES",
                   "0\nLEADER\n5\nFFF0\n100\nAcDbEntity\n8\n0\n100\nAcDbLeader\n3\nStandard\n71\n1\n76\n2\n"
                   "10\n0\n20\n0\n30\n0\n10\n0\n20\n50\n30\n0\n");
    auto read = Drawing::fromBytes(dxf);
    ASSERT_TRUE(read) << read.error();
    Drawing drawing = std::move(read).value();
    const Scene scene(drawing, Space::Model);
    const SceneItem* leader = scene.item(0xFFF0);
    ASSERT_TRUE(leader);
    ASSERT_EQ(leader->pieces.size(), 2u);
    // Pointing down at the first vertex, 6 long.
    const Piece& head = leader->pieces[1];
    EXPECT_EQ(head.kind, Piece::Kind::Fill);
    EXPECT_NEAR(head.points[0].y, 0, 1e-9);
    EXPECT_NEAR(head.points[1].y, 6, 1e-9);
    EXPECT_NEAR(head.points[2].y, 6, 1e-9);
    EXPECT_NEAR(std::abs(head.points[1].x - head.points[2].x), 2, 1e-9);
}

}  // namespace
}  // namespace cadhost::gui
