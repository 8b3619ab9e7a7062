// What the view puts on the screen: hair lines inside their clip, layer colours, the cached
// picture kept across a pan exactly as a fresh paint would show it, and highlights laid
// over it and taken away again.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <filesystem>

#include "cadhost/gui/DrawingView.h"
#include "cadhost/gui/PixelCanvas.h"
#include "cadhost/gui/ScenePainter.h"

namespace cadhost::gui {
namespace {

QApplication& app() {
    static int argc = 1;
    static char name[] = "paint-tests";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* qt = new QApplication(argc, argv);
    return *qt;
}

int count(const QImage& image, QRgb color) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) n += (image.pixel(x, y) & 0xFFFFFF) == (color & 0xFFFFFF);
    return n;
}

int differing(const QImage& a, const QImage& b) {
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) n += a.pixel(x, y) != b.pixel(x, y);
    return n;
}

TEST(PixelCanvas, LinesStayInsideTheClipAndDashesAlternate) {
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::black);
    PixelCanvas canvas(image, QRect(5, 2, 10, 6));   // x 5..14, y 2..7
    canvas.setColor(0xFFFFFFFF);
    canvas.line(-100, 4, 100, 4);   // far beyond both sides
    canvas.line(7, -50, 7, 50);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x) {
            const bool inside = x >= 5 && x <= 14 && y >= 2 && y <= 7;
            const bool onLine = y == 4 || x == 7;
            EXPECT_EQ(image.pixel(x, y) == 0xFFFFFFFF, inside && onLine) << x << "," << y;
        }

    image.fill(Qt::black);
    PixelCanvas dashed(image, image.rect());
    dashed.setColor(0xFFFFFFFF);
    dashed.setDash(2, 3);
    dashed.line(0, 0, 19, 0);
    std::string row;
    for (int x = 0; x < 20; ++x) row += image.pixel(x, 0) == 0xFFFFFFFF ? '#' : '.';
    EXPECT_EQ(row, "##...##...##...##...");
    // A line that misses the image draws nothing and does not crash on huge coordinates.
    image.fill(Qt::black);
    dashed.line(-1e12, -5, 1e12, -5);
    dashed.line(1e300, 1e300, -1e300, 3);
    EXPECT_EQ(count(image, 0xFFFFFF), 0);
}

class Painting : public ::testing::Test {
protected:
    void SetUp() override {
        app();
        ardo::LayerRecord red;
        red.name = "Red";
        red.color = ardo::HostColor::fromIndex(1);
        ASSERT_EQ(drawing.addLayer(red), ardo::DbStatus::Ok);
        // A grid of lines and circles that fills the view, so a pan moves many of them.
        for (int i = 0; i < 40; ++i) {
            const std::string x = std::to_string(i * 2.5), y = std::to_string((i % 7) * 3.0);
            ASSERT_TRUE(drawing.makeEntity({{0, "LINE"}, {8, "Red"}, {10, x}, {20, "0"}, {11, x}, {21, "30"}}));
            ASSERT_TRUE(drawing.makeEntity({{0, "CIRCLE"}, {8, "0"}, {62, "3"}, {10, x}, {20, y}, {40, "1.7"}}));
        }
        ASSERT_TRUE(drawing.makeEntity({{0, "TEXT"}, {8, "0"}, {10, "3"}, {20, "25"}, {40, "2"}, {1, "Room 12"}}));
    }
    QImage frame(DrawingView& view) {
        QImage image(view.size(), QImage::Format_RGB32);
        view.render(&image);
        return image;
    }
    Drawing drawing;
};

TEST_F(Painting, LayerColoursShowAndLayersOffVanish) {
    DrawingView view(drawing, Space::Model);
    view.resize(400, 300);
    view.zoomExtents();
    const QImage before = frame(view);
    EXPECT_GT(count(before, 0xFF0000), 300);   // the red lines
    EXPECT_GT(count(before, 0x00FF00), 300);   // the green circles
    auto layer = *drawing.findLayer("Red");
    layer.isOff = true;
    ASSERT_EQ(drawing.updateLayer(layer), ardo::DbStatus::Ok);
    const QImage after = frame(view);
    EXPECT_EQ(count(after, 0xFF0000), 0);
    // The circles stay, and show where the lines crossed them before.
    EXPECT_GE(count(after, 0x00FF00), count(before, 0x00FF00));
}

TEST_F(Painting, PannedPictureIsWhatAFreshPaintShows) {
    DrawingView panned(drawing, Space::Model), fresh(drawing, Space::Model);
    for (DrawingView* v : {&panned, &fresh}) {
        v->resize(400, 300);
        v->zoomExtents();
        v->zoomAt(3, QPointF(200, 150));
    }
    frame(panned);
    // Several steps in both directions, each shifting the cached picture.
    for (QPointF step : {QPointF(25, 0), QPointF(-7, 13), QPointF(0, -40), QPointF(31, 5)}) {
        panned.panBy(step);
        frame(panned);
        fresh.panBy(step);
    }
    const QImage a = frame(panned);
    const QImage b = frame(fresh);   // never painted before: painted whole
    ASSERT_EQ(a.size(), b.size());
    EXPECT_GT(count(a, 0xFF0000), 100);
    // Text is antialiased by the painter and may round a pixel differently at the strip's edge.
    EXPECT_LE(differing(a, b), 20);
    a.save("pan-cached.png");
}

TEST_F(Painting, HighlightsAreLaidOverAndTakenAwayAgain) {
    DrawingView view(drawing, Space::Model);
    view.resize(400, 300);
    view.zoomExtents();
    const QImage plain = frame(view);
    std::vector<Handle> circles;
    drawing.forEachEntity([&](const EntityInfo& e) {
        if (e.type == "CIRCLE") circles.push_back(e.handle);
        return true;
    });
    ASSERT_EQ(circles.size(), 40u);
    for (Handle h : circles) ASSERT_TRUE(view.scene().setLook(h, Look::Highlighted));
    const QImage lit = frame(view);
    const int changed = differing(plain, lit);
    EXPECT_GT(changed, 200);
    // Only the circles change: no red line pixel is touched away from them.
    EXPECT_GT(count(lit, 0xFF0000), count(plain, 0xFF0000) * 8 / 10);
    view.scene().clearLooks();
    EXPECT_EQ(differing(plain, frame(view)), 0);

    // A selection shows the same way and goes with it.
    view.setSelection({circles.front()});
    const int one = differing(plain, frame(view));
    EXPECT_GT(one, 3);
    EXPECT_LT(one, changed);
    view.clearSelection();
    EXPECT_EQ(differing(plain, frame(view)), 0);

    // Hiding an entity repaints the drawing without it.
    ASSERT_TRUE(view.scene().setLook(circles.front(), Look::Hidden));
    EXPECT_LT(count(frame(view), 0x00FF00), count(plain, 0x00FF00));
}

// Hatches written by other programs: every one is filled or patterned, and the picture shows it.
// A small turned paragraph shows as one stroke per line, each further along the text's own
// "down": for a text running up the screen, to the right of the one before.
TEST(SmallText, LinesOfATurnedParagraphStackAcrossItsDirection) {
    app();
    Drawing drawing;
    ASSERT_TRUE(drawing.makeEntity({{0, "LINE"}, {8, "0"}, {10, "-100"}, {20, "-100"}, {11, "100"}, {21, "100"}}));
    ASSERT_TRUE(drawing.makeEntity({{0, "MTEXT"}, {8, "0"}, {62, "3"}, {10, "0"}, {20, "0"}, {40, "3"},
                                    {11, "0"}, {21, "1"}, {1, "aaaaaaaa\\Pbbbbbbbb\\Pcccccccc"}}));
    DrawingView view(drawing, Space::Model);
    view.resize(400, 300);
    view.zoomExtents();
    QImage image(view.size(), QImage::Format_RGB32);
    view.render(&image);
    const double insertion = view.toScreen({0, 0}).x();
    const double thirdLine = view.toScreen({3 + 2 * 1.6 * 3, 0}).x();
    int left = 0, across = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFF) != 0x00FF00) continue;
            left += x < insertion - 2;
            across += std::abs(x - thirdLine) < 2;
        }
    EXPECT_EQ(left, 0) << "no line stands before the insertion point";
    EXPECT_GT(across, 10) << "the third line stands two line spacings across";
}

TEST(CorpusHatches, EveryHatchIsFilledOrPatterned) {
    app();
    const std::filesystem::path corpus = std::filesystem::path(ARDO_SOURCE_DIR) / ".." / "shared" / "dxf-corpus";
    std::filesystem::create_directories("grabs");
    for (const char* name : {"examples_dxf_hatches_1.dxf", "examples_dxf_hatches_2.dxf",
                             "examples_dxf_clockwise_arcs_hatch.dxf", "examples_dxf_hatch_text_box_in_hole.dxf"}) {
        auto drawing = Drawing::open((corpus / name).string());
        if (!drawing) GTEST_SKIP() << "no drawing corpus beside the sources";
        DrawingView view(*drawing, Space::Model);
        view.resize(800, 600);
        view.zoomExtents();
        int hatches = 0;
        drawing->forEachEntity([&](const EntityInfo& e) {
            if (e.type != "HATCH" || e.space != Space::Model) return true;
            ++hatches;
            const SceneItem* item = view.scene().item(e.handle);
            EXPECT_TRUE(item && !item->pieces.empty()) << name << " hatch " << std::hex << e.handle;
            for (const Piece& p : item ? item->pieces : std::vector<Piece>{}) {
                EXPECT_TRUE(p.kind == Piece::Kind::Fill || p.kind == Piece::Kind::Segments) << name;
            }
            return true;
        });
        EXPECT_GT(hatches, 0) << name;
        QImage image(view.size(), QImage::Format_RGB32);
        view.render(&image);
        image.save(QString("grabs/") + name + ".png");
        const int background = count(image, 0x212830);
        EXPECT_LT(background, image.width() * image.height() * 98 / 100) << name << ": hardly anything drawn";
    }
}

}  // namespace
}  // namespace cadhost::gui
