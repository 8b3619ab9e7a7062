// ZOOM and PAN typed, picked and used transparently in the middle of LINE, and the text
// window (F2) with the session's command-line text.
#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>

#include "cadhost/gui/TextWindow.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

class ViewInputTest : public WindowTest {
protected:
    // The world area the view shows, to compare with what was asked for.
    Box2 shown() { return view()->visibleArea(); }
};

TEST_F(ViewInputTest, ZoomWindowShowsTheCornersTypedOrPicked) {
    type("ZOOM");
    EXPECT_EQ(window->commandDock()->prompt().rfind("Specify corner of window", 0), 0u);
    type("W");
    EXPECT_EQ(window->commandDock()->prompt(), "Specify first corner: ");
    type("2,1");
    type("6,3");
    EXPECT_EQ(window->commandDock()->prompt(), "Command: ");
    // The window fits the longer side exactly and is centred.
    const Box2 a = shown();
    EXPECT_NEAR((a.x0 + a.x1) / 2, 4, 1e-9);
    EXPECT_NEAR((a.y0 + a.y1) / 2, 2, 1e-9);
    EXPECT_TRUE(std::abs((a.x1 - a.x0) - 4) < 1e-6 || std::abs((a.y1 - a.y0) - 2) < 1e-6);
    EXPECT_GE(a.x1 - a.x0, 4 - 1e-6);
    EXPECT_GE(a.y1 - a.y0, 2 - 1e-6);

    // Picked corners: a point at the first prompt starts the window at once.
    type("_zoom");
    click({3, 2});
    EXPECT_EQ(window->commandDock()->prompt(), "Specify opposite corner: ");
    click({3.5, 2.5});
    const Box2 b = shown();
    EXPECT_NEAR((b.x0 + b.x1) / 2, 3.25, 0.05);
    EXPECT_NEAR((b.y0 + b.y1) / 2, 2.25, 0.05);
    EXPECT_LT(b.x1 - b.x0, a.x1 - a.x0);

    // Previous goes back step by step; 2X halves what is shown.
    type("ZOOM P");
    type("zoom 2x");
    const Box2 c = shown();
    EXPECT_NEAR(c.x1 - c.x0, (a.x1 - a.x0) / 2, 1e-6);
    type("ZOOM");
    type("0x");
    EXPECT_TRUE(window->commandDock()->text().contains("Requires a positive scale factor."));
    type("nonsense");
    EXPECT_TRUE(window->commandDock()->text().contains("Point or option keyword required."));
    QTest::keyClick(window->commandDock()->input(), Qt::Key_Escape);
    EXPECT_EQ(window->commandDock()->prompt(), "Command: ");
}

TEST_F(ViewInputTest, TransparentZoomAndPanLeaveTheRunningCommandWhereItWas) {
    type("_LINE");
    type("1,1");
    const std::string linePrompt = window->commandDock()->prompt();
    type("'ZOOM");
    EXPECT_EQ(window->commandDock()->prompt().rfind(">>Specify corner", 0), 0u);
    type("W");
    type("0,0");
    type("8,8");
    EXPECT_EQ(window->commandDock()->prompt(), linePrompt);
    EXPECT_TRUE(app->commands().active());

    const Vec2 before = view()->toWorld(QPointF(100, 100));
    type("'PAN");
    type("0,0");
    type("2,1");
    // The drawing moved 2 right and 1 up under the screen point.
    const Vec2 after = view()->toWorld(QPointF(100, 100));
    EXPECT_NEAR(before.x - after.x, 2, 1e-9);
    EXPECT_NEAR(before.y - after.y, 1, 1e-9);
    // Escape ends a transparent zoom only.
    type("'Z");
    QTest::keyClick(window->commandDock()->input(), Qt::Key_Escape);
    EXPECT_TRUE(app->commands().active());
    EXPECT_EQ(window->commandDock()->prompt(), linePrompt);

    // LINE goes on from its first point.
    const auto lines = app->drawing().entityCount();
    type("5,5");
    type("");
    EXPECT_EQ(app->drawing().entityCount(), lines + 1);

    // A LISP prompt takes a transparent zoom the same way.
    QTimer::singleShot(0, [&] {
        type("'_zoom");
        type("_e");
        type("7,7");
    });
    commands::InputRequest point;
    point.kind = commands::InputRequest::Kind::Point;
    const auto answer = window->ask("Point: ", point);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->text, "7,7");
}

TEST_F(ViewInputTest, F2ShowsTheWholeTextThatCanBeCopied) {
    type("(strcat \"erste\" \"zeile\")");
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window->commandDock()->input(), Qt::Key_F2);
    TextWindow* text = window->textWindow();
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->isVisible());
    EXPECT_EQ(text->text(), window->commandDock()->text());
    EXPECT_TRUE(text->text().contains("\"erstezeile\""));
    // It follows what is printed while it is open.
    type("(+ 40 2)");
    EXPECT_TRUE(text->text().endsWith(window->commandDock()->text().right(30)));
    EXPECT_TRUE(text->text().contains("42"));
    text->findChild<QPlainTextEdit*>()->selectAll();
    text->copy();
    EXPECT_EQ(QApplication::clipboard()->text(), window->commandDock()->text());
    auto cursor = text->findChild<QPlainTextEdit*>()->textCursor();
    cursor.clearSelection();
    text->findChild<QPlainTextEdit*>()->setTextCursor(cursor);
    QApplication::clipboard()->clear();
    text->copy();
    EXPECT_EQ(QApplication::clipboard()->text(), window->commandDock()->text());
    text->grab().save(QString::fromStdString((scratch() / "text-window.png").string()));
}

}  // namespace
}  // namespace cadhost::gui
