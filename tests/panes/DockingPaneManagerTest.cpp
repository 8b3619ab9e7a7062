#include "panes/CKEMB_XTPDockingPaneManager.h"

#include <gtest/gtest.h>

#include <QDockWidget>
#include <QHoverEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTest>

#include "base/TextFile.h"
#include "dialog/GuiApplication.h"
#include "ui/QtTestApplication.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

// A main window as the host has one, with a command line that has the keyboard.
struct HostWindow {
    QMainWindow window;
    QLineEdit* commandLine = new QLineEdit;
    HostWindow() {
        window.setCentralWidget(commandLine);
        window.setGeometry(100, 100, 900, 600);
        window.show();
        window.activateWindow();
        commandLine->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
};

class DockingPanes : public ::testing::Test {
protected:
    test::ScriptedHost host;
    test::TempFolder folder;
    std::string layout = folder / "DockingPanelLayout.xml";
    QPoint cursor{-1000, -1000};

    void SetUp() override { test::guiApplication(); }
    std::unique_ptr<CKEMB_XTPDockingPaneManager> manager(QWidget* window) {
        return std::make_unique<CKEMB_XTPDockingPaneManager>(window, layout, [this] { return cursor; });
    }
    std::string layoutBytes() const { return readFileBytes(layout).value_or("<none>"); }
};

QLabel* content(const char* text) { return new QLabel(text); }

TEST_F(DockingPanes, LayoutIsWrittenAsXmlAndRestoredWithTabsFloatsAndClosedPanes) {
    QRect docked;
    {
        HostWindow w;
        auto panes = manager(&w.window);
        QDockWidget* keys = panes->addPane("ardo.keys", "Layerschlüssel", content("keys"), Qt::LeftDockWidgetArea);
        QDockWidget* props = panes->addPane("ardo.props", "Eigenschaften", content("props"), Qt::LeftDockWidgetArea);
        QDockWidget* notes = panes->addPane("wand.notes", "Notizen", content("notes"), Qt::RightDockWidgetArea);
        QDockWidget* closed = panes->addPane("wand.closed", "Zu", content("closed"), Qt::BottomDockWidgetArea);
        ASSERT_TRUE(keys && props && notes && closed);
        EXPECT_FALSE(panes->addPane("ardo.keys", "again", content("x"), Qt::TopDockWidgetArea)) << "ids are unique";
        w.window.tabifyDockWidget(keys, props);
        notes->setFloating(true);
        notes->setGeometry(420, 260, 310, 220);
        closed->close();
        QTest::qWait(20);
        docked = QRect(QPoint(0, 0), keys->size());
        ASSERT_TRUE(panes->saveLayout());
        const QString expected = QString(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<DockingPanelLayout version=\"1\">\n"
            "  <Pane id=\"ardo.keys\" area=\"left\" floating=\"0\" visible=\"1\" x=\"0\" y=\"0\" width=\"%1\" height=\"%2\" tabGroup=\"ardo.keys\"/>\n"
            "  <Pane id=\"ardo.props\" area=\"left\" floating=\"0\" visible=\"1\" x=\"0\" y=\"0\" width=\"%3\" height=\"%4\" tabGroup=\"ardo.keys\"/>\n"
            "  <Pane id=\"wand.notes\" area=\"right\" floating=\"1\" visible=\"1\" x=\"420\" y=\"260\" width=\"310\" height=\"220\"/>\n"
            "  <Pane id=\"wand.closed\" area=\"bottom\" floating=\"0\" visible=\"0\" x=\"0\" y=\"0\" width=\"%5\" height=\"%6\"/>\n"
            "</DockingPanelLayout>\n")
            .arg(keys->width()).arg(keys->height()).arg(props->width()).arg(props->height())
            .arg(closed->width()).arg(closed->height());
        EXPECT_EQ(layoutBytes(), expected.toStdString());
        test::saveGrab(w.window, "panes-docked-and-tabbed");
    }
    // The next session: the panes come in another order and find their places.
    HostWindow w;
    auto panes = manager(&w.window);
    QDockWidget* notes = panes->addPane("wand.notes", "Notizen", content("notes"), Qt::LeftDockWidgetArea);
    QDockWidget* props = panes->addPane("ardo.props", "Eigenschaften", content("props"), Qt::RightDockWidgetArea);
    QDockWidget* keys = panes->addPane("ardo.keys", "Layerschlüssel", content("keys"), Qt::RightDockWidgetArea);
    QDockWidget* closed = panes->addPane("wand.closed", "Zu", content("closed"), Qt::TopDockWidgetArea);
    QTest::qWait(20);
    EXPECT_EQ(w.window.dockWidgetArea(keys), Qt::LeftDockWidgetArea);
    EXPECT_EQ(w.window.tabifiedDockWidgets(keys), QList<QDockWidget*>{props});
    EXPECT_TRUE(notes->isFloating());
    EXPECT_EQ(notes->geometry().topLeft(), QPoint(420, 260));
    EXPECT_EQ(notes->width(), 310);
    ASSERT_TRUE(panes->watchOf("wand.notes"));
    EXPECT_TRUE(panes->watchOf("wand.notes")->isRolledUp()) << "a floating pane waits rolled up";
    EXPECT_TRUE(closed->isHidden());
    EXPECT_EQ(w.window.dockWidgetArea(closed), Qt::BottomDockWidgetArea);
    // Rolled up or not, the floating pane keeps its open height in the file.
    ASSERT_TRUE(panes->saveLayout());
    EXPECT_NE(layoutBytes().find("id=\"wand.notes\" area=\"right\" floating=\"1\" visible=\"1\" x=\"420\" y=\"260\" "
                                 "width=\"310\" height=\"220\""),
              std::string::npos)
        << layoutBytes();
}

TEST_F(DockingPanes, PanesNotAddedThisTimeKeepTheirPlaces) {
    {
        HostWindow w;
        auto panes = manager(&w.window);
        panes->addPane("wand.notes", "Notizen", content("notes"), Qt::RightDockWidgetArea);
        panes->addPane("ardo.keys", "Schlüssel", content("keys"), Qt::LeftDockWidgetArea);
        panes->removePane("ardo.keys");
        EXPECT_FALSE(panes->pane("ardo.keys"));
    }  // saved when the manager goes
    const std::string first = layoutBytes();
    EXPECT_NE(first.find("id=\"ardo.keys\" area=\"left\""), std::string::npos) << first;
    {
        HostWindow w;
        auto panes = manager(&w.window);
        panes->addPane("wand.notes", "Notizen", content("notes"), Qt::TopDockWidgetArea);
    }
    EXPECT_NE(layoutBytes().find("id=\"ardo.keys\" area=\"left\""), std::string::npos) << layoutBytes();
    EXPECT_NE(layoutBytes().find("id=\"wand.notes\" area=\"right\""), std::string::npos) << layoutBytes();
}

TEST_F(DockingPanes, ClosingTheMainWindowWritesTheLayout) {
    HostWindow w;
    auto panes = manager(&w.window);
    panes->addPane("ardo.keys", "Schlüssel", content("keys"), Qt::BottomDockWidgetArea);
    EXPECT_EQ(layoutBytes(), "<none>");
    w.window.close();
    EXPECT_NE(layoutBytes().find("id=\"ardo.keys\" area=\"bottom\" floating=\"0\" visible=\"1\""), std::string::npos)
        << layoutBytes();
}

TEST_F(DockingPanes, AnUnreadableLayoutIsReportedAndReplaced) {
    folder.write("DockingPanelLayout.xml", "<DockingPanelLayout><Pane id=");
    HostWindow w;
    auto panes = manager(&w.window);
    EXPECT_NE(host.printed.find("is not readable"), std::string::npos) << host.printed;
    QDockWidget* keys = panes->addPane("ardo.keys", "Schlüssel", content("keys"), Qt::RightDockWidgetArea);
    EXPECT_EQ(w.window.dockWidgetArea(keys), Qt::RightDockWidgetArea);
    ASSERT_TRUE(panes->saveLayout());
    EXPECT_TRUE(parseLayoutXml(QByteArray::fromStdString(layoutBytes())));
}

TEST_F(DockingPanes, WithoutAMainWindowTheManagerSaysSoOnceAndWritesNothing) {
    auto panes = manager(nullptr);
    EXPECT_FALSE(panes->hasMainWindow());
    // A refused pane's content goes with it (the sanitized run would see a leak).
    EXPECT_FALSE(panes->addPane("ardo.keys", "Layerschlüssel", content("a"), Qt::LeftDockWidgetArea));
    EXPECT_FALSE(panes->addPane("wand.notes", "Notizen", content("b"), Qt::LeftDockWidgetArea));
    EXPECT_EQ(host.printed,
              "Docking panes need the main window: start ardo-cad with --gui. The pane \"Layerschlüssel\" is not shown.\n");
    EXPECT_FALSE(panes->saveLayout());
    panes.reset();
    EXPECT_EQ(layoutBytes(), "<none>");
}

// --- floating panes: open after resting on the caption, give the keyboard back -------------

class FloatingPane : public DockingPanes {
protected:
    std::unique_ptr<HostWindow> w;
    std::unique_ptr<CKEMB_XTPDockingPaneManager> panes;
    QDockWidget* pane = nullptr;
    QPlainTextEdit* field = new QPlainTextEdit;

    void SetUp() override {
        DockingPanes::SetUp();
        w = std::make_unique<HostWindow>();
        panes = manager(&w->window);
        pane = panes->addPane("ardo.keys", "Layerschlüssel", field, Qt::LeftDockWidgetArea);
        pane->setFloating(true);
        pane->setGeometry(300, 200, 260, 300);
        QTest::qWait(20);
        ASSERT_TRUE(watch());
        watch()->rollUp();
    }
    FloatingPaneWatch* watch() { return panes->watchOf("ardo.keys"); }
    // The cursor moves to a point of the pane's frame (x from the left, y from the top).
    void moveTo(int x, int y) {
        cursor = pane->frameGeometry().topLeft() + QPoint(x, y);
        QHoverEvent move(QEvent::HoverMove, pane->mapFromGlobal(QPointF(cursor)), QPointF(cursor), QPointF(0, 0));
        QApplication::sendEvent(pane, &move);
    }
    void leave() {
        cursor = QPoint(5, 5);
        QEvent left(QEvent::Leave);
        QApplication::sendEvent(pane, &left);
    }
};

TEST_F(FloatingPane, OpensOnlyAfterTheCursorRestedOnTheCaption) {
    moveTo(20, 5);
    QTest::qWait(FloatingPaneWatch::kOpenDelayMs - 150);
    EXPECT_TRUE(watch()->isRolledUp()) << "not before 350 ms";
    QTest::qWait(300);
    EXPECT_FALSE(watch()->isRolledUp());
    EXPECT_TRUE(field->isVisible());
    EXPECT_EQ(pane->height(), 300);
    test::saveGrab(*pane, "panes-floating-open");
}

TEST_F(FloatingPane, PassingOverTheCaptionOrItsButtonsDoesNotOpen) {
    moveTo(20, 5);
    QTest::qWait(100);
    cursor = QPoint(5, 5);  // gone again before the timer ran out
    QTest::qWait(FloatingPaneWatch::kOpenDelayMs + 100);
    EXPECT_TRUE(watch()->isRolledUp());
    // The caption's buttons at its right end do not count.
    moveTo(pane->width() - FloatingPaneWatch::kCaptionButtonsWidth + 5, 5);
    QTest::qWait(FloatingPaneWatch::kOpenDelayMs + 100);
    EXPECT_TRUE(watch()->isRolledUp());
}

TEST_F(FloatingPane, LeavingGivesTheKeyboardBackToTheMainWindow) {
    moveTo(20, 5);
    QTest::qWait(FloatingPaneWatch::kOpenDelayMs + 100);
    ASSERT_FALSE(watch()->isRolledUp());
    pane->activateWindow();
    field->setFocus();
    QTRY_VERIFY_WITH_TIMEOUT(field->hasFocus(), 1000);
    // Still over the pane: the leave check keeps it open.
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(pane, &left);
    QTest::qWait(3 * FloatingPaneWatch::kLeaveCheckMs);
    EXPECT_FALSE(watch()->isRolledUp());
    EXPECT_TRUE(field->hasFocus());
    // Off the pane: 100 ms later it rolls up and the command line has the keyboard again.
    leave();
    QTest::qWait(FloatingPaneWatch::kLeaveCheckMs / 2);
    EXPECT_FALSE(watch()->isRolledUp()) << "not before 100 ms";
    QTRY_VERIFY_WITH_TIMEOUT(watch()->isRolledUp(), 1000);
    QTRY_VERIFY_WITH_TIMEOUT(w->commandLine->hasFocus(), 1000);
    EXPECT_EQ(QApplication::activeWindow(), &w->window);
}

TEST_F(FloatingPane, DockingAgainShowsTheContent) {
    ASSERT_TRUE(watch()->isRolledUp());
    pane->setFloating(false);
    QTest::qWait(20);
    EXPECT_FALSE(watch());
    EXPECT_TRUE(field->isVisible());
}

}  // namespace
}  // namespace ardo
