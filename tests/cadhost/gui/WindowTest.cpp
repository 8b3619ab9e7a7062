// The main window driven as a user drives it: QTest key and mouse events on the real
// application, its documents and the example drawing; message boxes answered by a timer.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "cadhost/gui/LayerBar.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

TEST_F(WindowTest, OpensTheDrawingInATabAndPaintsIt) {
    EXPECT_EQ(app->documents().size(), 1u);
    EXPECT_EQ(window->windowTitle(), "office.dxf[*] - ardo-cad");
    const QImage image = view()->grab().toImage();
    image.save(QString::fromStdString((scratch() / "office.png").string()));
    // The office plan covers a good part of the view after zoom extents.
    EXPECT_GT(inked(image), image.width() * image.height() / 200);
    EXPECT_TRUE(window->recentFiles().first().endsWith("office.dxf"));
}

TEST_F(WindowTest, WheelZoomsAboutTheCursorAndMiddleButtonPans) {
    const QPoint cursor(300, 200);
    const Vec2 before = view()->toWorld(cursor);
    const double scale = view()->scale();
    QWheelEvent wheel(cursor, view()->mapToGlobal(cursor), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view(), &wheel);
    EXPECT_NEAR(view()->scale(), scale * 1.25, 1e-9);
    const Vec2 after = view()->toWorld(cursor);
    EXPECT_NEAR(after.x, before.x, 1e-9);
    EXPECT_NEAR(after.y, before.y, 1e-9);

    const Vec2 grabbed = view()->toWorld(QPointF(400, 300));
    QTest::mousePress(view(), Qt::MiddleButton, {}, QPoint(400, 300));
    QMouseEvent move(QEvent::MouseMove, QPointF(450, 280), view()->mapToGlobal(QPointF(450, 280)), Qt::NoButton,
                     Qt::MiddleButton, Qt::NoModifier);
    QApplication::sendEvent(view(), &move);
    QTest::mouseRelease(view(), Qt::MiddleButton, {}, QPoint(450, 280));
    // The point that was grabbed follows the cursor.
    const Vec2 under = view()->toWorld(QPointF(450, 280));
    EXPECT_NEAR(under.x, grabbed.x, 1e-9);
    EXPECT_NEAR(under.y, grabbed.y, 1e-9);
    EXPECT_TRUE(view()->zoomPrevious());
}

TEST_F(WindowTest, SelectCommandTakesPicksWindowsAndShiftRemoves) {
    type("_select");
    EXPECT_EQ(window->commandDock()->prompt(), "Select objects: ");
    // The vertical wall line at x = 5.9425 (handle 9E) and its twin at 6.0575 (9F).
    click({5.9425, 3});
    const Vec2 a = {5.0, 1.0}, b = {6.5, 4.0};
    // Left to right: a window, which takes only what lies inside; nothing lies fully inside here.
    click(a);
    click(b);
    // Right to left: a crossing, which takes both wall lines it meets.
    click({6.5, 2.0});
    click({5.5, 2.5});
    click({6.0575, 3}, Qt::ShiftModifier);
    type("");
    const auto& previous = app->commands().previousSelection();
    EXPECT_NE(std::find(previous.begin(), previous.end(), 0x9E), previous.end());
    EXPECT_EQ(std::find(previous.begin(), previous.end(), 0x9F), previous.end());
    EXPECT_EQ(window->commandDock()->prompt(), "Command: ");
}

TEST_F(WindowTest, LispPromptsTakeTypedTextAndPicks) {
    std::optional<PromptAnswer> answer;
    commands::InputRequest point;
    point.kind = commands::InputRequest::Kind::Point;
    point.from = ardo::Point3{0, 0, 0};
    QTimer::singleShot(0, [&] { click({3, 4}); });
    answer = window->ask("Next point: ", point);
    ASSERT_TRUE(answer && answer->point);
    EXPECT_NEAR((*answer->point)[0], 3, 2 / view()->scale());
    EXPECT_NEAR((*answer->point)[1], 4, 2 / view()->scale());

    QTimer::singleShot(0, [&] { type("hello"); });
    EXPECT_EQ(window->prompt("Name: "), "hello");
    // The question stands once in the text window, with the answer after it.
    EXPECT_EQ(window->commandDock()->text().count("Name: "), 1);
    EXPECT_TRUE(window->commandDock()->text().contains("Name: hello\n"));
    EXPECT_TRUE(window->commandDock()->text().contains("Next point: "));

    QTimer::singleShot(0, [&] { QTest::keyClick(window->commandDock()->input(), Qt::Key_Escape); });
    EXPECT_FALSE(window->prompt("Name: "));

    std::int64_t entity = 0;
    ardo::Point3 at{};
    QTimer::singleShot(0, [&] { click({5.9425, 6}); });
    EXPECT_EQ(window->pickEntity("Select object: ", entity, at), ardo::RTNORM);
    EXPECT_EQ(entity, 0x9E);
    QTimer::singleShot(0, [&] { click({-50, -50}); });
    EXPECT_EQ(window->pickEntity("Select object: ", entity, at), ardo::RTERROR);
}

TEST_F(WindowTest, RedrawModesHideAndHighlightEntities) {
    const QImage plain = view()->grab().toImage();
    EXPECT_EQ(app->redraw(0x9C, 2), ardo::RTNORM);   // the outer wall
    app->updateDisplay();
    const QImage hidden = view()->grab().toImage();
    EXPECT_LT(inked(hidden), inked(plain));
    EXPECT_EQ(app->redraw(0x9C, 1), ardo::RTNORM);
    EXPECT_EQ(app->redraw(0x9C, 3), ardo::RTNORM);
    const QImage highlighted = view()->grab().toImage();
    highlighted.save(QString::fromStdString((scratch() / "highlighted.png").string()));
    // Dashed: fewer inked pixels than drawn solid, more than hidden.
    EXPECT_LT(inked(highlighted), inked(plain));
    EXPECT_GT(inked(highlighted), inked(hidden));
    EXPECT_EQ(view()->scene().look(0x9C), Look::Highlighted);
    window->redraw();
    EXPECT_EQ(view()->scene().look(0x9C), Look::Normal);
}

TEST_F(WindowTest, ChangesMarkTheTitleAndSavingClearsIt) {
    type("_.LAYER _New Mauer");
    type("");
    EXPECT_TRUE(window->isModified(app->current()));
    EXPECT_TRUE(window->isWindowModified());
    const std::string saved = (scratch() / "saved.dxf").string();
    ASSERT_TRUE(window->saveCurrent(saved));
    EXPECT_FALSE(window->isWindowModified());
    auto reread = Drawing::open(saved);
    ASSERT_TRUE(reread) << reread.error();
    EXPECT_EQ(reread->entityCount(), app->drawing().entityCount());
    EXPECT_TRUE(reread->findLayer("Mauer"));
}

TEST_F(WindowTest, TypedInputStandsOnceInTheTextWindow) {
    const auto text = [&] { return window->commandDock()->text(); };
    // A host command and its answers: the command echoes them (CMDECHO 1).
    type("_LINE");
    type("1,1");
    type("4,1");
    type("");
    EXPECT_EQ(text().count("Command: _LINE\n"), 1);
    EXPECT_EQ(text().count("Specify first point: 1,1\n"), 1);
    EXPECT_EQ(text().count("4,1\n"), 1);
    // Lines the command processor does not see: a LISP expression and a LISP command.
    type("(+ 20 22)");
    EXPECT_EQ(text().count("Command: (+ 20 22)\n"), 1);
    // With CMDECHO 0 the window echoes a command itself, once.
    type("(setvar \"CMDECHO\" 0)");
    type("_LINE");
    type("2,2");
    EXPECT_EQ(text().count("Command: _LINE\n"), 2);
    EXPECT_EQ(text().count("Specify first point: 2,2\n"), 1);
    QTest::keyClick(window->commandDock()->input(), Qt::Key_Escape);
    EXPECT_FALSE(app->commands().active());
    EXPECT_TRUE(text().endsWith("Specify next point or [Undo]: *Cancel*\n")) << text().right(80).toStdString();
}

TEST_F(WindowTest, EscapeOverTheViewCancelsTheRunningCommand) {
    type("_LINE");
    click({1, 1});
    ASSERT_TRUE(app->commands().active());
    // The picked point is echoed once, by the command.
    EXPECT_EQ(window->commandDock()->text().count("Specify first point: "), 1);
    view()->setFocus();
    QTest::keyClick(view(), Qt::Key_Escape);
    EXPECT_FALSE(app->commands().active());
    EXPECT_EQ(window->commandDock()->prompt(), "Command: ");
    EXPECT_EQ(window->commandDock()->text().count("*Cancel*"), 1);
    // Escape over the view answers a question from LISP as well.
    QTimer::singleShot(0, [&] {
        view()->setFocus();
        QTest::keyClick(view(), Qt::Key_Escape);
    });
    EXPECT_FALSE(window->prompt("Name: "));
}

TEST_F(WindowTest, SavingByTypedCommandOrLispClearsTheUnsavedMark) {
    auto* tabs = window->findChild<QTabWidget*>();
    const auto marked = [&] { return window->isWindowModified() || tabs->tabText(tabs->currentIndex()).endsWith("*"); };
    type("_.LAYER _New Mauer");
    type("");
    QTest::qWait(1);
    ASSERT_TRUE(marked());
    const std::string copy = (scratch() / "typed-save.dxf").string();
    type("_.SAVEAS");
    type("");
    type(QString::fromStdString(copy));
    ASSERT_TRUE(Drawing::open(copy));
    EXPECT_FALSE(marked());
    // A change from LISP marks it again (once the loop is back), QSAVE from LISP clears it.
    type("(command \"_.LAYER\" \"_New\" \"Holz\" \"\")");
    QTest::qWait(1);
    EXPECT_TRUE(marked());
    type("(command \"_.QSAVE\")");
    EXPECT_FALSE(marked());
    EXPECT_TRUE(Drawing::open(copy)->findLayer("Holz"));
}

TEST_F(WindowTest, ClosingAChangedDrawingAsksAndCancelKeepsIt) {
    type("_.LAYER _New Mauer");
    type("");
    answerNextBox(QMessageBox::Cancel);
    window->close();
    EXPECT_TRUE(window->isVisible());
    answerNextBox(QMessageBox::No);
    EXPECT_TRUE(window->close());
}

TEST_F(WindowTest, DocumentsOpenedAndClosedAtTheCommandLineGetAndLoseTabs) {
    window->newDrawing();
    auto* tabs = window->findChild<QTabWidget*>();
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(window->windowTitle(), "Drawing1.dxf[*] - ardo-cad");
    type("CLOSE");
    EXPECT_EQ(tabs->count(), 1);
    EXPECT_EQ(window->windowTitle(), "office.dxf[*] - ardo-cad");
    // A file that cannot be read leaves the open drawing alone.
    answerNextBox(QMessageBox::Ok);
    EXPECT_FALSE(window->openFiles({QString::fromStdString((scratch() / "missing.dxf").string())}));
    EXPECT_EQ(tabs->count(), 1);
}

TEST_F(WindowTest, TypingInTheViewGoesToTheCommandLine) {
    view()->setFocus();
    QTest::keyClicks(view(), "(* 6 7)");
    QTest::keyClick(view(), Qt::Key_Return);
    EXPECT_TRUE(window->commandDock()->text().contains("Command: (* 6 7)\n42"));
    EXPECT_TRUE(window->commandDock()->input()->hasFocus());
}

TEST_F(WindowTest, HistoryWalksBackAndIsKeptBetweenRuns) {
    type("(+ 1 2)");
    type("(+ 3 4)");
    QLineEdit* input = window->commandDock()->input();
    QTest::keyClick(input, Qt::Key_Up);
    EXPECT_EQ(input->text(), "(+ 3 4)");
    QTest::keyClick(input, Qt::Key_Up);
    EXPECT_EQ(input->text(), "(+ 1 2)");
    QTest::keyClick(input, Qt::Key_Down);
    EXPECT_EQ(input->text(), "(+ 3 4)");
    EXPECT_TRUE(window->commandDock()->text().contains("7"));
    // Tab completes a LISP function defined at the command line and a host command.
    type("(defun c:zeichnen () (princ))");
    type("(defun meinefunktion () 1)");
    input->setText("zeich");
    QTest::keyClick(input, Qt::Key_Tab);
    EXPECT_EQ(input->text(), "ZEICHNEN");
    input->setText("(meinef");
    QTest::keyClick(input, Qt::Key_Tab);
    EXPECT_EQ(input->text(), "(meinefunktion");
    input->setText("vpla");
    QTest::keyClick(input, Qt::Key_Tab);
    EXPECT_EQ(input->text(), "VPLAYER");
    input->clear();
    window->detach();
    app.reset();
    window.reset();   // leaves the history file
    CommandDock again((scratch() / "history").string());
    ASSERT_GE(again.history().size(), 4);
    EXPECT_EQ(again.history().back(), "(defun meinefunktion () 1)");
    EXPECT_EQ(again.history()[again.history().size() - 3], "(+ 3 4)");
    // TearDown ends a window and an application of its own.
    window = std::make_unique<CadWindow>((scratch() / "history").string());
    app = std::make_unique<Application>(*window);
    window->attach(*app);
}

TEST_F(WindowTest, LayersToolbarSwitchesLayersAndMakesOneCurrent) {
    QComboBox* list = window->layerBar()->list();
    const int row = list->findText("Bestand-alt");
    ASSERT_GE(row, 0);
    const int before = inked(view()->grab().toImage());
    // A click on the bulb of the row in the open list turns the layer off.
    list->showPopup();
    QAbstractItemView* rows = list->view();
    const QRect rect = rows->visualRect(rows->model()->index(row, 0));
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, QPoint(rect.left() + 4 + 8, rect.center().y()));
    EXPECT_TRUE(app->drawing().findLayer("Bestand-alt")->isOff);
    list->hidePopup();
    EXPECT_LT(inked(view()->grab().toImage()), before);
    // Off layers cannot be picked.
    EXPECT_FALSE(view()->scene().pick({5.9425, 3}, 0.05));

    std::string why;
    ASSERT_TRUE(window->layerBar()->flip("Bestand-alt", LayerBar::Switch::On, why));
    EXPECT_EQ(inked(view()->grab().toImage()), before);

    // A layer made current at the command line shows in the list at once.
    type("(setvar \"CLAYER\" \"Bestand-alt\")");
    EXPECT_EQ(list->currentText(), "Bestand-alt");
    EXPECT_FALSE(window->layerBar()->flip("Bestand-alt", LayerBar::Switch::Thawed, why));
    EXPECT_NE(why.find("current layer"), std::string::npos);

    window->layerBar()->choose("0");
    EXPECT_EQ(app->drawing().getVar("CLAYER")->text, "0");
    // A layer created from LISP appears in the list.
    type("(command \"_.LAYER\" \"_New\" \"Neu\" \"\")");
    EXPECT_GE(list->findText("Neu"), 0);
}

TEST_F(WindowTest, ChoosingALayerWithObjectsSelectedMovesThem) {
    // Picks without a command make the selection the toolbar works on.
    click({5.9425, 3});
    click({6.0575, 3});
    ASSERT_EQ(view()->selection().size(), 2u);
    window->layerBar()->choose("0");
    EXPECT_EQ(app->drawing().entity(0x9E)->layer, "0");
    EXPECT_EQ(app->drawing().entity(0x9F)->layer, "0");
    EXPECT_EQ(app->drawing().entity(0xA0)->layer, "Bestand-alt");
    EXPECT_TRUE(window->isModified(app->current()));
    // Shift takes a pick out of the selection again.
    click({6.0575, 3}, Qt::ShiftModifier);
    EXPECT_EQ(view()->selection(), std::vector<Handle>{0x9E});
}

}  // namespace
}  // namespace cadhost::gui

namespace cadhost::gui {
namespace {

// A pane's click queues LISP for the drawing; the window runs it once nothing is in progress.
TEST_F(WindowTest, QueuedExpressionsRunWhenTheWindowIsIdleAndWaitForACommandToEnd) {
    app->queueExpr("(princ \"queued ran\")\n");
    QTRY_VERIFY_WITH_TIMEOUT(window->commandDock()->text().contains("queued ran"), 2000);

    type("LINE");
    ASSERT_TRUE(app->commands().active());
    app->queueExpr("(princ \"after the line\")\n");
    QTest::qWait(100);
    EXPECT_FALSE(window->commandDock()->text().contains("after the line")) << "not in the middle of LINE";
    QTest::keyClick(window->commandDock()->input(), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!app->commands().active(), 2000);
    type("");
    QTRY_VERIFY_WITH_TIMEOUT(window->commandDock()->text().contains("after the line"), 2000);
}

}  // namespace
}  // namespace cadhost::gui

namespace cadhost::gui {
namespace {

using namespace test;

// Noun-verb: what is picked before a command is its objects when it opens with the plain
// object prompt; a command with other first questions, and LISP, leave the selection alone.
TEST_F(WindowTest, ObjectsPickedBeforeACommandAreItsObjects) {
    click({5.9425, 3});
    ASSERT_EQ(view()->selection(), std::vector<Handle>{0x9E});
    type("ERASE");
    EXPECT_EQ(app->lisp().evaluate("(entget (handent \"9E\"))").printed, "nil");
    EXPECT_NE(app->lisp().evaluate("(entget (handent \"9F\"))").printed, "nil");
    EXPECT_TRUE(view()->selection().empty());
    EXPECT_EQ(window->commandDock()->prompt(), "Command: ");

    click({6.0575, 3});
    type("(setq picked (ssget \"_X\"))");
    EXPECT_EQ(view()->selection(), std::vector<Handle>{0x9F});
    type("_.MOVE");
    EXPECT_EQ(window->commandDock()->prompt().rfind("Specify base point", 0), 0u)
        << window->commandDock()->prompt();
    type("0,0");
    type("1,0");
    EXPECT_EQ(app->lisp().evaluate("(rtos (cadr (assoc 10 (entget (handent \"9F\")))) 2 4)").printed, "\"7.0575\"");
}

}  // namespace
}  // namespace cadhost::gui
