// Linetypes and lineweights on the screen: dashes where the pattern puts them, scaled by the
// entity and the drawing, solid when too fine to see, ByLayer and ByBlock followed, and
// lineweights as pen widths only while they are displayed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "cadhost/geometry/Linetypes.h"
#include "cadhost/gui/ScenePainter.h"

namespace cadhost::gui {
namespace {

QApplication& app() {
    static int argc = 1;
    static char name[] = "linetype-tests";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* qt = new QApplication(argc, argv);
    return *qt;
}

// A drawing read from DXF text: a linetype "DASH2" of a 1.0 dash and a 0.5 gap, a complex
// linetype whose text element adds 0.2 to its gap, $LTSCALE 2 and layers "Hidden" (drawn
// DASH2) and "Wide" (0.70 mm).
Drawing linetypeDrawing() {
    std::string dxf = Drawing().toDxf();
    const auto header = dxf.find("HEADER\n");
    EXPECT_NE(header, std::string::npos);
    dxf.insert(header + 7, "  9\n$LTSCALE\n 40\n2.0\n");
    const std::string records =
        "  0\nLTYPE\n  5\nF10\n100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n  2\nDASH2\n 70\n0\n"
        "  3\nDash __ __\n 72\n65\n 73\n2\n 40\n1.5\n 49\n1.0\n 74\n0\n 49\n-0.5\n 74\n0\n"
        "  0\nLTYPE\n  5\nF11\n100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n  2\nPIPE2\n 70\n0\n"
        "  3\nPipe --W--\n 72\n65\n 73\n2\n 40\n1.5\n 49\n1.0\n 74\n0\n 49\n-0.5\n 74\n2\n 75\n0\n"
        "340\n11\n 46\n0.1\n 50\n0.0\n 44\n0.0\n 45\n0.0\n  9\nW\n";
    const auto table = dxf.find("\nLTYPE\n");
    const auto end = dxf.find("  0\nENDTAB", table);
    EXPECT_NE(end, std::string::npos);
    dxf.insert(end, records);
    // Block "TICK": a line 14 long whose linetype and lineweight are ByBlock.
    const std::string block =
        "  0\nBLOCK\n  5\nF20\n  8\n0\n  2\nTICK\n 70\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  3\nTICK\n"
        "  0\nLINE\n  5\nF21\n  8\n0\n  6\nBYBLOCK\n370\n-2\n 10\n0.0\n 20\n0.0\n 30\n0.0\n"
        " 11\n14.0\n 21\n0.0\n 31\n0.0\n"
        "  0\nENDBLK\n  5\nF22\n  8\n0\n";
    const auto blocks = dxf.find("ENDSEC", dxf.find("BLOCKS"));
    EXPECT_NE(blocks, std::string::npos);
    dxf.insert(dxf.rfind("  0\n", blocks), block);
    auto read = Drawing::fromBytes(dxf);
    EXPECT_TRUE(read) << read.error();
    Drawing drawing = std::move(*read);
    ardo::LayerRecord hidden;
    hidden.name = "Hidden";
    hidden.linetype = "DASH2";
    EXPECT_EQ(drawing.addLayer(hidden), ardo::DbStatus::Ok);
    ardo::LayerRecord wide;
    wide.name = "Wide";
    wide.lineweight = 70;
    EXPECT_EQ(drawing.addLayer(wide), ardo::DbStatus::Ok);
    return drawing;
}

// A horizontal line at height y from x 1 to 15 with the given extra groups.
void addLine(Drawing& d, double y, std::vector<EntityTag> groups) {
    std::vector<EntityTag> tags{{0, "LINE"}, {10, "1"}, {20, std::to_string(y)}, {11, "15"}, {21, std::to_string(y)}};
    tags.insert(tags.end(), groups.begin(), groups.end());
    if (std::none_of(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 8; })) tags.push_back({8, "0"});
    ASSERT_TRUE(d.makeEntity(tags));
}

// The view at 10 pixels a unit: world (x, y) is pixel (10x, 200 - 10y).
QImage paint(const Scene& scene) {
    QImage image(200, 200, QImage::Format_RGB32);
    ScenePainter(scene, Qt::black).paintDrawing(image, image.rect(), ViewTransform{0, 200, 10});
    return image;
}

// Row 200 - 10y from x 10 to 150: '#' lit, '.' dark.
std::string row(const QImage& image, double y) {
    std::string out;
    const int py = 200 - static_cast<int>(std::lround(10 * y));
    for (int x = 10; x <= 150; ++x) out += (image.pixel(x, py) & 0xFFFFFF) ? '#' : '.';
    return out;
}

// ARDO_TEST_SHOTS names a folder to keep the pictures in, for a person to look at.
void keep(const QImage& image, const char* name) {
    if (const char* folder = std::getenv("ARDO_TEST_SHOTS")) image.save(QString(folder) + "/" + name);
}

int litInColumn(const QImage& image, int x) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y) n += (image.pixel(x, y) & 0xFFFFFF) != 0;
    return n;
}

TEST(Linetypes, TheDrawingGivesPatternsByNameFromItsTable) {
    app();
    const Drawing d = linetypeDrawing();
    EXPECT_EQ(geometry::linetypePattern(d, "dash2"), (std::vector<double>{1.0, -0.5}));
    EXPECT_EQ(geometry::linetypePattern(d, "PIPE2"), (std::vector<double>{1.0, -0.5}));
    EXPECT_EQ(geometry::linetypePattern(d, "Continuous"), std::vector<double>{});
    EXPECT_FALSE(geometry::linetypePattern(d, "NoSuchType"));
}

TEST(Linetypes, DashesAndGapsLieWhereThePatternAndBothScalesPutThem) {
    app();
    Drawing d = linetypeDrawing();
    addLine(d, 2, {{6, "DASH2"}});              // $LTSCALE 2: dashes of 20 pixels, gaps of 10
    addLine(d, 4, {{6, "DASH2"}, {48, "0.5"}}); // half that
    addLine(d, 6, {{6, "DASH2"}, {48, "0.02"}}); // a period of 0.6 pixels: solid
    addLine(d, 8, {{6, "PIPE2"}});              // complex: its dashes only
    addLine(d, 10, {});                         // layer 0 is Continuous
    Scene scene(d, Space::Model);
    const QImage image = paint(scene);
    keep(image, "linetypes.png");
    const std::string dashed = row(image, 2);
    // The pattern starts with a dash at the line's start (pixel 10).
    EXPECT_EQ(dashed.substr(0, 41), std::string(21, '#') + std::string(9, '.') + std::string(11, '#')) << dashed;
    EXPECT_EQ(row(image, 4).substr(0, 31), std::string(11, '#') + std::string(4, '.') + std::string(11, '#') +
                                              std::string(4, '.') + "#")
        << row(image, 4);
    EXPECT_EQ(row(image, 6), std::string(141, '#'));
    EXPECT_EQ(row(image, 8), dashed);
    EXPECT_EQ(row(image, 10), std::string(141, '#'));
}

TEST(Linetypes, ByLayerFollowsTheLayerAndByBlockTheReference) {
    app();
    Drawing d = linetypeDrawing();
    addLine(d, 2, {{8, "Hidden"}});
    addLine(d, 4, {{8, "Hidden"}, {6, "Continuous"}});
    addLine(d, 6, {{8, "Hidden"}, {6, "ByBlock"}});   // outside a block: solid
    ASSERT_TRUE(d.makeEntity({{0, "INSERT"}, {8, "0"}, {6, "DASH2"}, {2, "TICK"}, {10, "1"}, {20, "12"}}));
    ASSERT_TRUE(d.makeEntity({{0, "INSERT"}, {8, "Hidden"}, {2, "TICK"}, {10, "1"}, {20, "14"}}));
    Scene scene(d, Space::Model);
    QImage image = paint(scene);
    EXPECT_EQ(row(image, 2).substr(0, 41), std::string(21, '#') + std::string(9, '.') + std::string(11, '#'));
    EXPECT_EQ(row(image, 4), std::string(141, '#'));
    EXPECT_EQ(row(image, 6), std::string(141, '#'));
    EXPECT_EQ(row(image, 12), row(image, 2)) << "ByBlock: the reference's own linetype";
    EXPECT_EQ(row(image, 14), row(image, 2)) << "ByBlock: the reference's layer's linetype";

    // The layer's linetype changes: the line follows without being read again.
    auto layer = d.findLayer("Hidden");
    ASSERT_TRUE(layer);
    layer->linetype = "Continuous";
    ASSERT_EQ(d.updateLayer(*layer), ardo::DbStatus::Ok);
    image = paint(scene);
    EXPECT_EQ(row(image, 2), std::string(141, '#'));
}

TEST(Lineweights, ShowAsPixelWidthsOnlyWhileDisplayed) {
    app();
    Drawing d = linetypeDrawing();
    addLine(d, 2, {{370, "70"}});
    addLine(d, 6, {{8, "Wide"}});                   // ByLayer: 0.70 mm
    addLine(d, 10, {{370, "25"}});
    addLine(d, 14, {{370, "-3"}});                  // the default, 0.25 mm
    Scene scene(d, Space::Model);
    QImage image = paint(scene);
    EXPECT_EQ(litInColumn(image, 80), 4) << "every line one pixel while lineweights are not shown";

    ASSERT_EQ(d.setVar("LWDISPLAY", ardo::ResBuf::shortInt(1)), ardo::DbStatus::Ok);
    image = paint(scene);
    keep(image, "lineweights.png");
    auto thickness = [&](double y) {
        int n = 0;
        const int py = 200 - static_cast<int>(std::lround(10 * y));
        for (int k = -5; k <= 5; ++k) n += (image.pixel(80, py + k) & 0xFFFFFF) != 0;
        return n;
    };
    EXPECT_EQ(thickness(2), 3);
    EXPECT_EQ(thickness(6), 3);
    EXPECT_EQ(thickness(10), 1);
    EXPECT_EQ(thickness(14), 1);
}

}  // namespace
}  // namespace cadhost::gui
