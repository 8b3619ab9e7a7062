#include "help/window/HelpWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QListWidget>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextDocument>
#include <QTest>
#include <QToolBar>

#include "ui/QtTestApplication.h"

namespace ardo {
namespace {

const std::string kBuiltHelp = ARDO_BUILD_HELP_DIR "/ArdoArx.chm";

QAction* toolAction(HelpWindow& w, int index) { return w.findChild<QToolBar*>()->actions().at(index); }

TEST(HelpWindowTest, ShowsTheTopicWithImageLinksHistoryAndIndex) {
    HelpWindow window(nullptr);
    ASSERT_TRUE(window.showTopic(kBuiltHelp, "/Hervorheben.htm"));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ChmBrowser* browser = window.browser();
    EXPECT_EQ(browser->documentTitle(), "Elemente hervorheben");
    EXPECT_TRUE(browser->toPlainText().contains("Permanentumrahmung"));
    EXPECT_TRUE(window.windowTitle().endsWith("Elemente hervorheben")) << window.windowTitle().toStdString();
    // The page's image came out of the help file.
    const QVariant image = browser->document()->resource(QTextDocument::ImageResource, QUrl("chm:/ardo.png"));
    EXPECT_FALSE(image.isNull());
    EXPECT_FALSE(browser->loadResource(QTextDocument::ImageResource, QUrl("chm:/ardo.png")).isNull());
    test::saveGrab(window, "help-window");

    // The index lists the entries of the file's index, sorted.
    ASSERT_GT(window.index()->count(), 10);
    EXPECT_LT(window.index()->item(0)->text(), window.index()->item(1)->text());

    // Following a link, then back and forward.
    QAction* back = toolAction(window, 0);
    QAction* forward = toolAction(window, 1);
    EXPECT_FALSE(back->isEnabled());
    browser->setSource(QUrl("chm:/HervorhebenOptionen.htm"));
    EXPECT_EQ(browser->documentTitle(), "Einstellungen für Hervorhebungen");
    EXPECT_TRUE(back->isEnabled());
    back->trigger();
    EXPECT_EQ(browser->documentTitle(), "Elemente hervorheben");
    EXPECT_TRUE(forward->isEnabled());
    forward->trigger();
    EXPECT_EQ(browser->documentTitle(), "Einstellungen für Hervorhebungen");

    // A click on a link of the page opens the page it names.
    QTextCursor link = browser->document()->find("Inhalt");
    ASSERT_FALSE(link.isNull());
    link.setPosition(link.selectionStart() + 1);
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, browser->cursorRect(link).center());
    EXPECT_EQ(browser->source().path().toStdString(), "/Inhalt.htm");
    back->trigger();

    // An index entry opens its page.
    const auto found = window.index()->findItems("Linientypen", Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    emit window.index()->itemClicked(found[0]);
    EXPECT_EQ(browser->documentTitle(), "Linientypen");

    // A topic with an anchor, and one the file lacks.
    EXPECT_TRUE(window.showTopic(kBuiltHelp, "/Layerdialog.htm#objekt"));
    EXPECT_EQ(browser->source().fragment(), "objekt");
    EXPECT_FALSE(window.showTopic(kBuiltHelp, "/Fehlt.htm"));
    EXPECT_FALSE(window.showTopic(ARDO_BUILD_HELP_DIR "/ArdoArx.top", "/Inhalt.htm"));
}

TEST(HelpWindowTest, TheViewerReusesOneWindowAndRefusesWhatIsNotThere) {
    ASSERT_TRUE(showHelpAddress(kBuiltHelp + "::/Konfiguration.htm"));
    HelpWindow* first = currentHelpWindow();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->browser()->documentTitle(), "Konfiguration der Layerliste");
    ASSERT_TRUE(showHelpAddress(kBuiltHelp + "::/Plotstile.htm"));
    EXPECT_EQ(currentHelpWindow(), first);
    EXPECT_EQ(first->browser()->documentTitle(), "Plotstile");
    EXPECT_FALSE(showHelpAddress(kBuiltHelp + "::/Fehlt.htm"));
    EXPECT_FALSE(showHelpAddress(std::string(ARDO_BUILD_HELP_DIR) + "/Fehlt.chm::/Inhalt.htm"));
    delete first;
}

// A modal dialog blocks every window that is not its own: help asked from one must belong to
// it, and a window manager's placement must not leave it half off the screen.
TEST(HelpWindowTest, HelpAskedInAModalDialogBelongsToItAndStaysOnTheScreen) {
    QDialog dialog;
    dialog.resize(300, 200);
    QPointer<HelpWindow> help;
    bool belongsToDialog = false;
    QRect frame, room;
    QTimer::singleShot(0, &dialog, [&] {
        if (showHelpAddress(kBuiltHelp + "::/Konfiguration.htm") && QTest::qWaitForWindowExposed(currentHelpWindow())) {
            help = currentHelpWindow();
            belongsToDialog = help->parentWidget() == &dialog;
            frame = help->frameGeometry();
            room = help->screen()->availableGeometry();
        }
        dialog.reject();
    });
    dialog.exec();
    EXPECT_TRUE(belongsToDialog);
    EXPECT_TRUE(room.contains(frame)) << "help at " << frame.x() << "," << frame.y() << " size " << frame.width()
                                      << "x" << frame.height();

    // Asked again from the main window's level, the same help moves out of the dialog.
    ASSERT_TRUE(showHelpAddress(kBuiltHelp + "::/Plotstile.htm"));
    EXPECT_EQ(currentHelpWindow(), help.data());
    EXPECT_EQ(currentHelpWindow()->parentWidget(), nullptr);
    delete currentHelpWindow();
}

}  // namespace
}  // namespace ardo
