// The icon menu's item geometry, painted into images and read back pixel by pixel.
#include "ui/cIconMenu.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include "ui/QtTestApplication.h"

namespace ardo {
namespace {

const QColor kGreen(0, 200, 0);

IconMenuColours colours() {
    IconMenuColours c;
    c.background = QColor(240, 240, 240);
    c.selectedBackground = QColor(0, 0, 160);
    c.text = Qt::black;
    c.selectedText = Qt::white;
    c.disabledText = QColor(128, 128, 128);
    c.frameTopLeft = Qt::white;
    c.frameBottomRight = QColor(255, 0, 255);
    c.dither = QColor(255, 255, 0);
    return c;
}

// 23 solid green icons, and as many solid red ones for the greyed items.
struct Icons {
    IconList normal, disabled;
    Icons() {
        for (int i = 0; i < 23; ++i) {
            QPixmap n(16, 16), d(16, 16);
            n.fill(kGreen);
            d.fill(Qt::red);
            normal.push_back(n);
            disabled.push_back(d);
        }
    }
};

QImage drawn(const IconMenuItemState& state, int id, const QString& text, int margin = 0) {
    static const Icons icons;
    QImage image(200, 24, QImage::Format_RGB32);
    image.fill(Qt::cyan);
    QPainter p(&image);
    drawIconMenuItem(p, QRect(0, 0, 200, 24), state, id, text, margin, &icons.normal, &icons.disabled, colours());
    return image;
}

bool anyPixel(const QImage& image, const QRect& area, const QColor& colour) {
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixelColor(x, y) == colour) return true;
    return false;
}

// The leftmost column that holds a pixel of the colour; -1 when none.
int leftmost(const QImage& image, const QColor& colour) {
    for (int x = 0; x < image.width(); ++x)
        if (anyPixel(image, QRect(x, 0, 1, image.height()), colour)) return x;
    return -1;
}

TEST(IconMenu, CommandIdsHaveTheirIcons) {
    EXPECT_EQ(iconMenuIconOf(40060), 0);
    EXPECT_EQ(iconMenuIconOf(40091), 22);
    EXPECT_EQ(iconMenuIconOf(130), 10);
    EXPECT_FALSE(iconMenuIconOf(40003));
}

TEST(IconMenu, MeasuresEightTenthsOfTheTextPlusTwenty) {
    QFont font;
    font.setPixelSize(13);
    const QFontMetrics metrics(font);
    const int w = metrics.horizontalAdvance("Eigenschaften ...");
    const std::optional<QSize> size = measureIconMenuItem("Eigenschaften ...", metrics, 3);
    ASSERT_TRUE(size);
    EXPECT_EQ(size->width(), static_cast<int>(0.8 * w) + 20);
    EXPECT_EQ(size->height(), metrics.height() + 6);
    EXPECT_FALSE(measureIconMenuItem("", metrics, 3)) << "an item without text is not measured";
}

TEST(IconMenu, CheckedItemsShowADitheredCellAndAShiftedIcon) {
    const IconMenuColours c = colours();
    const QImage plain = drawn({}, 40060, "");
    EXPECT_EQ(plain.pixelColor(4, 1), kGreen) << "icon at left + 4, top + margin + 1";
    EXPECT_EQ(plain.pixelColor(3, 1), c.background);
    EXPECT_EQ(plain.pixelColor(4, 0), c.background);

    const QImage checked = drawn({false, true, false}, 40003, "");
    // The cell from left + 3 to left + 21 and top + 3 to bottom - 3 alternates by x + y.
    EXPECT_EQ(checked.pixelColor(4, 4), c.dither);
    EXPECT_EQ(checked.pixelColor(5, 4), c.frameBottomRight);
    EXPECT_EQ(checked.pixelColor(20, 20), c.dither);
    EXPECT_EQ(checked.pixelColor(1, 1), c.frameTopLeft) << "the frame's top-left edge";
    EXPECT_EQ(checked.pixelColor(23, 10), c.frameBottomRight) << "the frame's right edge, left + 23 wide";
    EXPECT_EQ(checked.pixelColor(10, 23), c.frameBottomRight) << "the frame's bottom edge, bottom - top - 1 high";

    const QImage shifted = drawn({false, true, false}, 40060, "", 2);
    EXPECT_EQ(shifted.pixelColor(5, 4), kGreen) << "one right and one down from left + 4, top + 2 + 1";
    EXPECT_NE(shifted.pixelColor(4, 3), kGreen);
}

TEST(IconMenu, TextStartsAtThirtyWithOrWithoutIcon) {
    const QImage withIcon = drawn({}, 40071, "Farbe ...");
    const QImage without = drawn({}, 4711, "Farbe ...");
    EXPECT_FALSE(anyPixel(without, QRect(0, 0, 30, 24), kGreen)) << "an unknown id has no icon";
    EXPECT_EQ(leftmost(withIcon.copy(24, 0, 176, 24), Qt::black) + 24, leftmost(without, Qt::black))
        << "columns line up";
    EXPECT_GE(leftmost(without, Qt::black), 30);
    EXPECT_LE(leftmost(without, Qt::black), 32);
}

TEST(IconMenu, DisabledTextIsEmbossedUnlessSelected) {
    const IconMenuColours c = colours();
    const QImage greyed = drawn({false, false, true}, 40061, "Löschen ...");
    EXPECT_TRUE(anyPixel(greyed, QRect(30, 0, 170, 24), c.disabledText));
    EXPECT_TRUE(anyPixel(greyed, QRect(30, 0, 170, 24), c.frameBottomRight)) << "the emboss shadow";
    EXPECT_TRUE(anyPixel(greyed, QRect(4, 1, 16, 16), Qt::red)) << "the greyed icon list";

    const QImage selected = drawn({true, false, true}, 40061, "Löschen ...");
    EXPECT_EQ(selected.pixelColor(150, 12), c.selectedBackground);
    EXPECT_TRUE(anyPixel(selected, QRect(30, 0, 170, 24), c.disabledText));
    EXPECT_FALSE(anyPixel(selected, QRect(30, 0, 170, 24), c.frameBottomRight)) << "no shadow when selected";
}

TEST(IconMenu, TheMenuShowsEveryTextWhole) {
    const Icons icons;
    QWidget measuring;
    cIconMenu menu(&icons.normal, &icons.disabled, &measuring);
    QAction longest("Layer aus zentraler Layersteuerdatei übernehmen ...");
    QAction other("Farbe ...");
    other.setEnabled(false);
    menu.appendItem(&longest, 40016);
    menu.addSeparator();
    menu.appendItem(&other, 40071);
    EXPECT_EQ(menu.commandIdOf(&longest), 40016);
    const QAction stranger("x");
    EXPECT_EQ(menu.commandIdOf(&stranger), 0);
    menu.popup(QPoint(10, 10));
    QApplication::processEvents();
    const QRect item = menu.actionGeometry(&longest);
    EXPECT_GE(item.width(), 30 + menu.fontMetrics().horizontalAdvance(longest.text()));
    EXPECT_GE(menu.actionGeometry(&other).height(), menu.fontMetrics().height());
    test::saveGrab(menu, "icon-menu");
    menu.hide();
}

}  // namespace
}  // namespace ardo
