// Our rendering against LibreCAD's for a few drawings of the corpus (the script
// compare-with-librecad.sh runs them all), and the measure itself on known images.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPainter>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/librecad/LibreCadComparison.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

QGuiApplication& qt() {
    static int argc = 1;
    static char name[] = "librecad-tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    return *app;
}

QImage lines(QColor ink, QColor paper, int shift) {
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(paper);
    QPainter p(&image);
    p.setPen(QPen(ink, 1));
    p.drawLine(20 + shift, 20, 180 + shift, 20);
    p.drawLine(20 + shift, 20, 20 + shift, 80);
    return image;
}

TEST(InkMeasure, ForgivesAPixelOrTwoButNotAMovedOrMissingEntity) {
    qt();
    const QRgb black = qRgb(0, 0, 0);
    const QImage theirs = lines(Qt::black, Qt::white, 0);
    const auto same = compareInk(lines(Qt::white, Qt::black, 0), black, theirs, kInkRadius);
    EXPECT_DOUBLE_EQ(same.oursNearTheirs, 1);
    EXPECT_DOUBLE_EQ(same.theirsNearOurs, 1);
    EXPECT_TRUE(compareInk(lines(Qt::white, Qt::black, 2), black, theirs, kInkRadius).passes(kInkThreshold));
    // Moved by more than the widening: the vertical line no longer meets, the horizontal
    // one still mostly does.
    const auto moved = compareInk(lines(Qt::white, Qt::black, 12), black, theirs, kInkRadius);
    EXPECT_LT(moved.oursNearTheirs, 0.95);
    // Half their drawing missing from ours: their share near ours drops, ours stays whole.
    QImage half(200, 100, QImage::Format_RGB32);
    half.fill(Qt::black);
    {
        QPainter p(&half);
        p.setPen(QPen(Qt::white, 1));
        p.drawLine(20, 20, 180, 20);
    }
    const auto missing = compareInk(half, black, theirs, kInkRadius);
    EXPECT_DOUBLE_EQ(missing.oursNearTheirs, 1);
    EXPECT_LT(missing.theirsNearOurs, kInkThreshold);
    EXPECT_FALSE(missing.passes(kInkThreshold));
}

// Plain line work, where fonts and hatch patterns cannot differ.
class LibreCadSample : public ::testing::TestWithParam<const char*> {};

TEST_P(LibreCadSample, OurViewMatchesLibreCadsPrint) {
    qt();
    if (!hasLibreCad()) GTEST_SKIP() << "librecad is not installed";
    const auto dxf = corpusDir() / GetParam();
    const auto extents = ourExtents(dxf);
    ASSERT_TRUE(extents) << extents.error();
    const Page page = pageFor(*extents, 72);
    const ardo::test::TempFolder work;
    const auto theirs = libreCadImage(dxf, page, work.path());
    ASSERT_TRUE(theirs) << theirs.error();
    const auto ours = ourImage(dxf, page);
    ASSERT_TRUE(ours) << ours.error();
    ASSERT_EQ(ours->size(), theirs->size());
    const auto agreement = compareInk(*ours, qRgb(0, 0, 0), *theirs, kInkRadius);
    EXPECT_TRUE(agreement.passes(kInkThreshold))
        << "ours near theirs " << agreement.oursNearTheirs << ", theirs near ours " << agreement.theirsNearOurs;
}

INSTANTIATE_TEST_SUITE_P(Corpus, LibreCadSample,
                         ::testing::Values("examples_edgeminer_4_world.dxf", "examples_addons_optimize_forms.dxf"));

}  // namespace
}  // namespace cadhost::test
