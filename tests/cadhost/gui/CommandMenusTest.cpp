// The Edit, Draw and Modify menus: every item names a command the host knows, and choosing
// one starts it afresh, ending a command that was running.
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "cadhost/commands/CommandNames.h"
#include "cadhost/gui/CommandMenus.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui::test {
namespace {

TEST(CommandMenus, EveryItemRunsAKnownCommand) {
    for (const MenuCommand& item : menuCommands())
        EXPECT_TRUE(commands::findCommand(item.command)) << item.text << ": " << item.command;
}

class CommandMenuTest : public WindowTest {
protected:
    QAction* item(const QString& menu, const QString& text) {
        for (QAction* top : window->menuBar()->actions())
            if (top->text() == menu)
                for (QAction* a : top->menu()->actions())
                    if (a->text() == text) return a;
        return nullptr;
    }
};

TEST_F(CommandMenuTest, MenusStandInTheUsualOrder) {
    QStringList titles;
    for (QAction* top : window->menuBar()->actions()) titles << top->text();
    EXPECT_EQ(titles, (QStringList{"&File", "&Edit", "&View", "&Draw", "&Modify"}));
}

TEST_F(CommandMenuTest, AnItemEndsTheRunningCommandAndStartsItsOwn) {
    type("_CIRCLE");
    ASSERT_TRUE(app->commands().active());
    QAction* line = item("&Draw", "&Line");
    ASSERT_TRUE(line);
    line->trigger();
    QTest::qWait(50);
    const QString text = window->commandDock()->text();
    EXPECT_TRUE(text.contains("*Cancel*")) << text.toStdString();
    EXPECT_TRUE(text.contains("Command: _LINE")) << text.toStdString();
    EXPECT_TRUE(window->commandDock()->prompt().starts_with("Specify first point"))
        << window->commandDock()->prompt();
    QTest::keyClick(window->commandDock()->input(), Qt::Key_Escape);
}

TEST_F(CommandMenuTest, UndoFromTheEditMenuTakesBackTheLastCommand) {
    const auto exists = [&] { return app->current().drawing().findLayer("Menuprobe").has_value(); };
    type("_.LAYER _New Menuprobe");
    type("");
    ASSERT_TRUE(exists());
    QAction* undo = item("&Edit", "&Undo");
    ASSERT_TRUE(undo);
    EXPECT_EQ(undo->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    undo->trigger();
    QTest::qWait(50);
    EXPECT_FALSE(exists());

    // Ctrl+Y at an empty command line redoes it in the drawing.
    window->activateWindow();
    QLineEdit* input = window->commandDock()->input();
    input->setFocus();
    QTest::keyClick(input, Qt::Key_Y, Qt::ControlModifier);
    QTest::qWait(50);
    EXPECT_TRUE(exists());
    // Ctrl+Z there undoes in the drawing; with text typed it undoes the typing only.
    QTest::keyClick(input, Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(50);
    EXPECT_FALSE(exists());
    QTest::keyClick(input, Qt::Key_Y, Qt::ControlModifier);
    QTest::qWait(50);
    QTest::keyClicks(input, "abc");
    QTest::keyClick(input, Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(50);
    EXPECT_TRUE(exists());
    EXPECT_NE(input->text(), "abc");
    input->clear();
}

}  // namespace
}  // namespace cadhost::gui::test
