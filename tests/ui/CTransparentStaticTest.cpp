#include "ui/CTransparentStatic.h"

#include <gtest/gtest.h>

#include <QPalette>

#include "ui/QtTestApplication.h"

namespace ardo {
namespace {

TEST(TransparentStaticFlags, StyleBitsTranslateOneByOne) {
    EXPECT_EQ(textDrawFlags(0), kDtWordBreak);
    // Right alignment does not stop the wrap; only the bits of 0xC20C do.
    EXPECT_EQ(textDrawFlags(kSsRight), kDtRight | kDtWordBreak);
    EXPECT_EQ(textDrawFlags(kSsCenter), kDtCenter | kDtWordBreak);
    EXPECT_EQ(textDrawFlags(kSsCenterImage), kDtVCenter | kDtSingleLine);
    EXPECT_EQ(textDrawFlags(kSsNoPrefix), kDtNoPrefix | kDtWordBreak);
    // Either ellipsis also brings the word ellipsis.
    EXPECT_EQ(textDrawFlags(kSsEndEllipsis), kDtWordEllipsis | kDtEndEllipsis);
    EXPECT_EQ(textDrawFlags(kSsPathEllipsis), kDtWordEllipsis | kDtPathEllipsis);
    EXPECT_EQ(textDrawFlags(kSsEllipsisMask), kDtWordEllipsis | kDtEndEllipsis | kDtPathEllipsis);
    EXPECT_EQ(textDrawFlags(0x2 | 0x80 | 0x200), 0x2u | 0x800 | 0x24);
    // 0x8 (a bit of the wrap blockers without flags of its own) stops the wrap and adds nothing.
    EXPECT_EQ(textDrawFlags(0x8), 0u);
    EXPECT_EQ(textDrawFlags(0x4), 0u);
}

// The label on a red panel: what it leaves red and which rows its text occupies.
struct Painted {
    QImage image;
    int firstTextRow = -1, lastTextRow = -1, textPixels = 0, otherPixels = 0;
};

Painted paint(const QString& text, std::uint32_t style, QSize size = {160, 80}) {
    QWidget panel;
    panel.setAutoFillBackground(true);
    QPalette p = panel.palette();
    p.setColor(QPalette::Window, Qt::red);
    panel.setPalette(p);
    panel.resize(size);
    CTransparentStatic label(text, &panel, style);
    label.setTextColor(0x00FF0000);  // blue as 0x00BBGGRR
    label.setGeometry(0, 0, size.width(), size.height());
    Painted out;
    out.image = panel.grab().toImage();
    for (int y = 0; y < out.image.height(); ++y) {
        for (int x = 0; x < out.image.width(); ++x) {
            const QColor c = out.image.pixelColor(x, y);
            if (c == Qt::red) continue;
            if (c.blue() > c.red()) {
                ++out.textPixels;
                if (out.firstTextRow < 0) out.firstTextRow = y;
                out.lastTextRow = y;
            } else {
                ++out.otherPixels;
            }
        }
    }
    return out;
}

TEST(TransparentStaticPaint, EmptyTextLeavesTheBackground) {
    const Painted p = paint("", 0);
    EXPECT_EQ(p.textPixels, 0);
    EXPECT_EQ(p.otherPixels, 0);
}

TEST(TransparentStaticPaint, DrawsOnlyTextInItsColourOverTheParent) {
    const Painted p = paint("Zentrale Layersteuerung", kSsNoPrefix);
    test::saveImage(p.image, "transparent-static");
    EXPECT_GT(p.textPixels, 30);
    // Nothing but text and its anti-aliased edge: no box was filled.
    const int area = p.image.width() * p.image.height();
    EXPECT_LT(p.textPixels + p.otherPixels, area / 4);
}

TEST(TransparentStaticPaint, PlainLabelsWrapAndCentredImageLabelsStayOnOneCentredLine) {
    const QString words = "Wort Wort Wort Wort Wort Wort Wort Wort Wort";
    const Painted wrapped = paint(words, 0);
    const Painted single = paint(words, kSsCenterImage);
    const int lineHeight = QFontMetrics(QApplication::font()).height();
    EXPECT_GT(wrapped.lastTextRow - wrapped.firstTextRow, lineHeight) << "the plain label did not wrap";
    EXPECT_LE(wrapped.firstTextRow, lineHeight / 2) << "a plain label starts at the top";
    EXPECT_LT(single.lastTextRow - single.firstTextRow, lineHeight);
    const int middle = (single.firstTextRow + single.lastTextRow) / 2;
    EXPECT_NEAR(middle, 40, lineHeight / 2) << "not centred vertically";
}

TEST(TransparentStaticPaint, RightAlignedTextEndsAtTheRightEdgeAndPrefixesVanish) {
    const Painted right = paint("OK", kSsRight);
    int leftmost = 1000;
    for (int y = 0; y < right.image.height(); ++y)
        for (int x = 0; x < right.image.width(); ++x)
            if (const QColor c = right.image.pixelColor(x, y); c != Qt::red && c.blue() > c.red()) leftmost = std::min(leftmost, x);
    EXPECT_GT(leftmost, 100);

    // "&&" is one ampersand with prefixes, two without: the second label draws more.
    EXPECT_LT(paint("A&&B", 0).textPixels, paint("A&&B", kSsNoPrefix).textPixels);
}

}  // namespace
}  // namespace ardo
