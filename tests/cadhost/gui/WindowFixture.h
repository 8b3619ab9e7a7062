#pragma once
// The main window as the window tests drive it: one QApplication, a scratch folder for
// what the window writes, the real application with the example drawing open, and message
// boxes answered by a timer.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <memory>

#include "support/TempFolder.h"

#include "cadhost/app/Application.h"
#include "cadhost/gui/CadWindow.h"
#include "cadhost/gui/CommandDock.h"

namespace cadhost::gui::test {

namespace fs = std::filesystem;

// Removed at exit with everything the window wrote into it.
inline const fs::path& scratch() {
    static const ardo::test::TempFolder folder;
    return folder.path();
}

inline QApplication& qt() {
    static int argc = 1;
    static char name[] = "window-tests";
    static char* argv[] = {name, nullptr};
    // Recent files and history go to a folder of the test's own.
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((scratch() / "config").string()));
    // Never destroyed: Qt's own clean-up at exit must find it alive.
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

// Answers the next message box that opens with the given button, looking for it until it
// shows (a box may come after a reading off the GUI thread).
inline void answerNextBox(QMessageBox::StandardButton button, int tries = 200) {
    QTimer::singleShot(20, [button, tries] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(w); box && box->isVisible() && box->button(button)) {
                box->button(button)->click();
                return;
            }
        if (tries > 0) answerNextBox(button, tries - 1);
    });
}

class WindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        qt();
        window = std::make_unique<CadWindow>((scratch() / "history").string());
        app = std::make_unique<Application>(*window);
        window->attach(*app);
        window->resize(1000, 700);
        window->show();
        ASSERT_TRUE(window->openFiles({ARDO_SOURCE_DIR "/examples/drawings/office.dxf"}));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        view()->zoomExtents();
    }
    void TearDown() override {
        window->detach();
        app.reset();
        window.reset();
    }
    DrawingView* view() { return window->currentView(); }
    void type(const QString& text) {
        QLineEdit* input = window->commandDock()->input();
        QTest::keyClicks(input, text);
        QTest::keyClick(input, Qt::Key_Return);
    }
    void click(Vec2 world, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view(), Qt::LeftButton, modifiers, view()->toScreen(world).toPoint());
    }
    // Pixels of the view that are not the background.
    static int inked(const QImage& image) {
        const QRgb background = image.pixel(0, 0);
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) n += image.pixel(x, y) != background;
        return n;
    }

    std::unique_ptr<CadWindow> window;
    std::unique_ptr<Application> app;
};

}  // namespace cadhost::gui::test
