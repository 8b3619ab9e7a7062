// The host's colour dialog clicked and typed into as a user does, alone and as the
// boundary's colour dialog opened by the application.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>

#include "cadhost/colors/AciPalette.h"
#include "cadhost/gui/ColorDialog.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;
using Method = ardo::HostColor::Method;

template <class T>
T* part(const ColorDialog& dialog, const char* name) {
    T* found = dialog.findChild<T*>(name);
    EXPECT_TRUE(found) << name;
    return found;
}

void typeColor(ColorDialog& dialog, const QString& text) {
    QLineEdit* field = part<QLineEdit>(dialog, "colorText");
    field->clear();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

class ColorDialogTest : public ::testing::Test {
protected:
    void SetUp() override { qt(); }
};

TEST_F(ColorDialogTest, EveryIndexColourHasItsOwnCellAndAClickChoosesIt) {
    ColorDialog dialog(ardo::HostColor::fromIndex(1), true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    for (int index = 1; index <= 255; ++index) {
        const auto cell = dialog.indexCell(index);
        ASSERT_TRUE(cell) << index;
        ASSERT_TRUE(dialog.indexGrid()->rect().contains(*cell)) << index;
        QTest::mouseClick(dialog.indexGrid(), Qt::LeftButton, {}, *cell);
        ASSERT_EQ(dialog.color(), ardo::HostColor::fromIndex(index)) << index;
    }
    EXPECT_FALSE(dialog.indexCell(0));
    EXPECT_FALSE(dialog.indexCell(256));
    // The usual grid: shades of one hue in one column, the even ones above the odd ones.
    EXPECT_EQ(dialog.indexCell(10)->x(), dialog.indexCell(19)->x());
    EXPECT_LT(dialog.indexCell(18)->y(), dialog.indexCell(11)->y());
    EXPECT_LT(dialog.indexCell(10)->x(), dialog.indexCell(20)->x());
    QTest::mouseClick(dialog.indexGrid(), Qt::LeftButton, {}, *dialog.indexCell(30));
    const std::uint32_t rgb = aciRgb(30);
    EXPECT_EQ(part<QLabel>(dialog, "indexInfo")->text(),
              QString("Index color: 30    Red, Green, Blue: %1,%2,%3").arg(rgb >> 16).arg((rgb >> 8) & 0xFF).arg(rgb & 0xFF));
    EXPECT_EQ(part<QLineEdit>(dialog, "colorText")->text(), "30");
    // The true colour page shows the index colour's RGB as the place to start from.
    EXPECT_EQ(part<QSpinBox>(dialog, "red")->value(), int(rgb >> 16));
    dialog.grab().save(QString::fromStdString((scratch() / "color-index.png").string()));
}

TEST_F(ColorDialogTest, ByLayerAndByBlockOnlyWhereTheCallerAllowsThem) {
    ColorDialog allowed(ardo::HostColor::fromIndex(3), true);
    part<QPushButton>(allowed, "byBlock")->click();
    EXPECT_EQ(allowed.color(), ardo::HostColor::byBlock());
    EXPECT_EQ(part<QLineEdit>(allowed, "colorText")->text(), "BYBLOCK");
    part<QPushButton>(allowed, "byLayer")->click();
    EXPECT_EQ(allowed.color(), ardo::HostColor::byLayer());

    ColorDialog refused(ardo::HostColor::byLayer(), false);
    EXPECT_FALSE(part<QPushButton>(refused, "byLayer")->isEnabled());
    EXPECT_FALSE(part<QPushButton>(refused, "byBlock")->isEnabled());
    // Asked to start at by layer, it starts at a real colour instead.
    EXPECT_EQ(refused.color().method, Method::Index);
    const ardo::HostColor before = refused.color();
    typeColor(refused, "bylayer");
    EXPECT_EQ(refused.color(), before);
    EXPECT_EQ(part<QLineEdit>(refused, "colorText")->text(), colorText(before));
}

TEST_F(ColorDialogTest, TrueColourByRgbAndHslStayInStep) {
    ColorDialog dialog(ardo::HostColor::fromRgb(10, 20, 30), true);
    EXPECT_EQ(part<QTabWidget>(dialog, "colorTabs")->currentIndex(), 1);
    part<QSpinBox>(dialog, "hue")->setValue(0);
    part<QSpinBox>(dialog, "saturation")->setValue(100);
    part<QSpinBox>(dialog, "luminance")->setValue(50);
    EXPECT_EQ(dialog.color(), ardo::HostColor::fromRgb(255, 0, 0));
    EXPECT_EQ(part<QSpinBox>(dialog, "red")->value(), 255);
    EXPECT_EQ(part<QSpinBox>(dialog, "blue")->value(), 0);

    part<QSpinBox>(dialog, "red")->setValue(0);
    part<QSpinBox>(dialog, "blue")->setValue(255);
    EXPECT_EQ(dialog.color(), ardo::HostColor::fromRgb(0, 0, 255));
    EXPECT_EQ(part<QSpinBox>(dialog, "hue")->value(), 240);
    EXPECT_EQ(part<QSpinBox>(dialog, "luminance")->value(), 50);
    EXPECT_EQ(part<QLineEdit>(dialog, "colorText")->text(), "0,0,255");
    dialog.grab().save(QString::fromStdString((scratch() / "color-true.png").string()));
}

TEST_F(ColorDialogTest, BookColoursCarryBookAndColourName) {
    ardo::HostColor signal;
    signal.method = Method::ColorBook;
    signal.bookName = "RAL CLASSIC";
    signal.colorName = "RAL 3020";
    ColorDialog dialog(signal, true);
    EXPECT_EQ(part<QTabWidget>(dialog, "colorTabs")->currentIndex(), 2);
    QListWidget* list = part<QListWidget>(dialog, "bookColors");
    ASSERT_TRUE(list->currentItem());
    EXPECT_EQ(list->currentItem()->text(), "RAL 3020");

    const auto rows = list->findItems("RAL 5015", Qt::MatchExactly);
    ASSERT_EQ(rows.size(), 1);
    list->setCurrentItem(rows.front());
    const ardo::HostColor chosen = dialog.color();
    EXPECT_EQ(chosen.method, Method::ColorBook);
    EXPECT_EQ(chosen.bookName, "RAL CLASSIC");
    EXPECT_EQ(chosen.colorName, "RAL 5015");
    EXPECT_NE(chosen.rgb(), 0u);
    EXPECT_EQ(part<QSpinBox>(dialog, "blue")->value(), chosen.blue);

    // Typed names: an index colour by name, an RGB triple, a book colour.
    typeColor(dialog, "red");
    EXPECT_EQ(dialog.color(), ardo::HostColor::fromIndex(1));
    EXPECT_EQ(list->currentRow(), -1);
    typeColor(dialog, "255, 128,0");
    EXPECT_EQ(dialog.color(), ardo::HostColor::fromRgb(255, 128, 0));
    typeColor(dialog, "ral 5015");
    EXPECT_EQ(dialog.color(), chosen);
    EXPECT_EQ(list->currentItem()->text(), "RAL 5015");
    typeColor(dialog, "no colour");
    EXPECT_EQ(dialog.color(), chosen);
    dialog.grab().save(QString::fromStdString((scratch() / "color-book.png").string()));
}

// The application's colour dialog, as the module's colour functions reach it.
TEST_F(WindowTest, ColourDialogAnswersTheBoundarysColourQuestion) {
    const auto openDialog = [] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* d = dynamic_cast<ColorDialog*>(w); d && d->isVisible()) return d;
        return static_cast<ColorDialog*>(nullptr);
    };
    ardo::HostColor color = ardo::HostColor::fromIndex(2);
    QTimer::singleShot(50, [&] {
        ColorDialog* dialog = openDialog();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->color(), ardo::HostColor::fromIndex(2));
        QTest::mouseClick(dialog->indexGrid(), Qt::LeftButton, {}, *dialog->indexCell(150));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(app->colorDialog(color, true), ardo::RTNORM);
    EXPECT_EQ(color, ardo::HostColor::fromIndex(150));

    QTimer::singleShot(50, [&] {
        ColorDialog* dialog = openDialog();
        ASSERT_TRUE(dialog);
        QTest::mouseClick(dialog->indexGrid(), Qt::LeftButton, {}, *dialog->indexCell(3));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(app->colorDialog(color, false), ardo::RTCAN);
    EXPECT_EQ(color, ardo::HostColor::fromIndex(150));
}

}  // namespace
}  // namespace cadhost::gui
