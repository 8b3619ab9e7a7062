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

namespace cadhost::gui {
namespace {

void app() {
    static int argc = 1;
    static char name[] = "plot-dialog-tests";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* qt = new QApplication(argc, argv);
    (void)qt;
}

std::string pdfInfo(const std::string& file) {
    std::string out;
    if (FILE* pipe = popen(("pdfinfo '" + file + "' 2>&1").c_str(), "r")) {
        char buffer[256];
        while (std::fgets(buffer, sizeof buffer, pipe)) out += buffer;
        pclose(pipe);
    }
    return out;
}

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
    // ISO A2 portrait, 420 x 594 mm, in whole points.
    EXPECT_NE(pdfInfo(file).find("Page size:       1191 x 1684 pts (A2)"), std::string::npos) << pdfInfo(file);
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

}  // namespace
}  // namespace cadhost::gui
