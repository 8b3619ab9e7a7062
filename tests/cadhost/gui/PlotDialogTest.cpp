// The plot dialog, headless: its choices make the PDF, a window is picked in the view, and
// a bad scale keeps the dialog open.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/gui/DrawingView.h"
#include "cadhost/gui/PlotDialog.h"
#include "PlotCheck.h"

namespace cadhost::gui {
namespace {

using test::plot::app;

template <class T>
T& child(QWidget& parent, const char* name) {
    T* found = parent.findChild<T*>(name);
    if (!found) throw std::runtime_error(std::string("the dialog has no control ") + name);
    return *found;
}

// Answers the message box that the dialog opens, and tells what it said.
void answerMessageBoxes(QString& said) {
    QTimer::singleShot(50, [&said] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(w); box && box->isVisible()) {
                said = box->text();
                box->accept();
            }
    });
}

class PlotDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        app();
        folder = std::filesystem::temp_directory_path() / ("ardo-plot-dialog-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        for (int i = 0; i < 5; ++i)
            ASSERT_TRUE(drawing.makeEntity({{0, "LINE"}, {8, "0"}, {62, std::to_string(i + 1)}, {10, std::to_string(i * 20)},
                                            {20, "0"}, {11, std::to_string(i * 20 + 60)}, {21, "80"}}));
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    Drawing drawing;
    std::filesystem::path folder;
};

TEST_F(PlotDialogTest, ChoicesMakeTheSheetAndOkWritesIt) {
    PlotDialog dialog(drawing, nullptr);
    child<QComboBox>(dialog, "paper").setCurrentText("ISO A2 (420.00 x 594.00 MM)");
    child<QComboBox>(dialog, "orientation").setCurrentText("Portrait");
    const std::string file = (folder / "dialog.pdf").string();
    child<QLineEdit>(dialog, "file").setText(QString::fromStdString(file));
    dialog.show();
    QTest::qWait(20);
    dialog.grab().save(QString::fromStdString((std::filesystem::temp_directory_path() / "ardo-plot-dialog.png").string()));
    EXPECT_EQ(dialog.takeControls(), "");
    EXPECT_FALSE(dialog.settings().landscape);
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_PAGE(file, 420, 594);
}

TEST_F(PlotDialogTest, ABadScaleIsRefusedAndTheDialogStays) {
    PlotDialog dialog(drawing, nullptr);
    child<QCheckBox>(dialog, "fit").setChecked(false);
    child<QLineEdit>(dialog, "paperUnits").setText("1");
    child<QLineEdit>(dialog, "drawingUnits").setText("0");
    child<QLineEdit>(dialog, "file").setText(QString::fromStdString((folder / "never.pdf").string()));
    dialog.show();
    QString said;
    answerMessageBoxes(said);
    dialog.accept();
    EXPECT_TRUE(said.contains("plot scale")) << said.toStdString();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder / "never.pdf"));
}

TEST_F(PlotDialogTest, AWindowIsPickedInTheView) {
    DrawingView view(drawing, Space::Model);
    view.resize(400, 300);
    view.show();
    view.zoomExtents();
    QTest::qWait(20);
    PlotDialog dialog(drawing, &view);
    dialog.show();
    const QPointF a = view.toScreen({10, 10}), b = view.toScreen({50, 70});
    QTimer::singleShot(30, [&] {
        QTest::mouseClick(&view, Qt::LeftButton, {}, a.toPoint());
        QTest::mouseClick(&view, Qt::LeftButton, {}, b.toPoint());
    });
    dialog.pickWindow();
    EXPECT_TRUE(dialog.isVisible());
    const auto& s = dialog.settings();
    EXPECT_EQ(s.area, commands::PlotArea::Window);
    EXPECT_NEAR(s.windowFirst[0], 10, 0.5);
    EXPECT_NEAR(s.windowFirst[1], 10, 0.5);
    EXPECT_NEAR(s.windowSecond[0], 50, 0.5);
    EXPECT_NEAR(s.windowSecond[1], 70, 0.5);
    // The view answers its own prompts again afterwards.
    EXPECT_FALSE(view.input().point);
}

TEST(PlotDialogLayouts, OffersTheLayoutsFromTheOneShownAndPlotsItsSheet) {
    app();
    auto opened = Drawing::open(ARDO_TEST_DATA "/commands/layout_viewports.dxf");
    ASSERT_TRUE(opened) << opened.error();
    Drawing& drawing = *opened;
    ASSERT_EQ(drawing.setVar("CTAB", ardo::ResBuf::str("Layout2")), ardo::DbStatus::Ok);
    PlotDialog dialog(drawing, nullptr);
    auto& layouts = child<QComboBox>(dialog, "layout");
    ASSERT_EQ(layouts.count(), 3);
    EXPECT_EQ(layouts.itemText(0), "Model");
    EXPECT_EQ(layouts.itemText(1), "Layout1");
    EXPECT_EQ(layouts.currentText(), "Layout2");
    auto& area = child<QComboBox>(dialog, "area");
    EXPECT_EQ(area.currentText(), "Layout");
    EXPECT_EQ(dialog.settings().area, commands::PlotArea::Layout);

    // Model plots its extents, fitted, with Limits in place of Layout.
    layouts.setCurrentText("Model");
    EXPECT_EQ(dialog.settings().layout, "Model");
    EXPECT_EQ(area.itemText(2), "Limits");
    EXPECT_FALSE(dialog.settings().scale.has_value());

    layouts.setCurrentText("Layout1");
    EXPECT_EQ(area.currentText(), "Layout");
    EXPECT_TRUE(child<QCheckBox>(dialog, "center").isChecked());
    EXPECT_FALSE(child<QCheckBox>(dialog, "fit").isChecked());
    EXPECT_EQ(child<QComboBox>(dialog, "paper").currentText(), "ISO A3 (297.00 x 420.00 MM)");
    EXPECT_EQ(child<QComboBox>(dialog, "orientation").currentText(), "Landscape");
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / ("ardo-plot-layouts-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const std::string file = (folder / "layout1.pdf").string();
    child<QLineEdit>(dialog, "file").setText(QString::fromStdString(file));
    dialog.show();
    QTest::qWait(20);
    dialog.grab().save(QString::fromStdString((std::filesystem::temp_directory_path() / "ardo-plot-dialog-layout.png").string()));
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_PAGE(file, 420, 297);
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace cadhost::gui
