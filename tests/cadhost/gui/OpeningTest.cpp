// Opening drawings in the window: a long reading that is cancelled, a damaged drawing
// offered in recover mode, a file that is no drawing at all. The drawings already open
// stay as they are in every case.
#include <QProgressDialog>
#include <QTabWidget>
#include <fstream>

#include "cadhost/gui/DrawingReading.h"
#include "cadhost/gui/WindowFixture.h"
#include "support/TempFolder.h"

namespace cadhost::gui {
namespace {

using namespace test;

void write(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

const char* const kOffice = ARDO_SOURCE_DIR "/examples/drawings/office.dxf";

// A drawing that takes the reader a good while: many lines in the entities section.
fs::path largeDrawing() {
    const fs::path path = scratch() / "large.dxf";
    if (fs::exists(path)) return path;
    std::string dxf = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < 400000; ++i)
        dxf += "0\nLINE\n8\n0\n10\n" + std::to_string(i) + "\n20\n0\n30\n0\n11\n" + std::to_string(i) + "\n21\n1\n31\n0\n";
    dxf += "0\nENDSEC\n0\nEOF\n";
    write(path, dxf);
    return path;
}

class OpeningTest : public WindowTest {
protected:
    QTabWidget* tabs() { return window->findChild<QTabWidget*>(); }
};

TEST_F(OpeningTest, ACancelledReadingOpensNothingAndLeavesTheOthersAlone) {
    const fs::path large = largeDrawing();
    // The dialog shows at once, so its Cancel comes before even a quick reader is done.
    struct ProgressAtOnce {
        ProgressAtOnce() { setProgressDelay(0); }
        ~ProgressAtOnce() { setProgressDelay(300); }
    } atOnce;
    bool sawProgress = false;
    std::function<void()> cancelWhenShown = [&] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* progress = qobject_cast<QProgressDialog*>(w); progress && progress->isVisible()) {
                sawProgress = true;
                progress->cancel();
                return;
            }
        QTimer::singleShot(20, cancelWhenShown);
    };
    QTimer::singleShot(20, cancelWhenShown);
    EXPECT_FALSE(window->openFiles({QString::fromStdString(large.string())}));
    EXPECT_TRUE(sawProgress);
    EXPECT_EQ(tabs()->count(), 1);
    EXPECT_EQ(app->documents().size(), 1u);
    EXPECT_EQ(app->current().name(), "office.dxf");
    EXPECT_TRUE(window->commandDock()->text().contains("was cancelled"));
    // The window still takes input at once.
    type("(+ 1 2)");
    EXPECT_TRUE(window->commandDock()->text().contains("Command: (+ 1 2)\n3"));
}

TEST_F(OpeningTest, ALargeDrawingOpensWhileTheWindowKeepsRunning) {
    int ticks = 0;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] { ++ticks; });
    tick.start(10);
    ASSERT_TRUE(window->openFiles({QString::fromStdString(largeDrawing().string())}));
    tick.stop();
    // The event loop ran while the reader worked off the GUI thread.
    EXPECT_GT(ticks, 0);
    EXPECT_EQ(tabs()->count(), 2);
    EXPECT_EQ(app->drawing().entityCount(), 400000u);
}

TEST_F(OpeningTest, ADamagedDrawingIsOfferedInRecoverModeWithItsRepairsListed) {
    const std::string whole = ardo::test::readBytes(kOffice);
    const fs::path damaged = scratch() / "damaged.dxf";
    // Cut off in the middle of its entities: the strict reader refuses it.
    write(damaged, whole.substr(0, whole.size() * 3 / 4));
    ASSERT_FALSE(Drawing::open(damaged.string()));

    answerNextBox(QMessageBox::No);
    EXPECT_FALSE(window->openFiles({QString::fromStdString(damaged.string())}));
    EXPECT_EQ(tabs()->count(), 1);

    answerNextBox(QMessageBox::Yes);
    ASSERT_TRUE(window->openFiles({QString::fromStdString(damaged.string())}));
    EXPECT_EQ(tabs()->count(), 2);
    EXPECT_EQ(app->current().name(), "damaged.dxf");
    const auto recovered = Drawing::recover(damaged.string());
    ASSERT_TRUE(recovered);
    EXPECT_EQ(app->drawing().entityCount(), recovered->drawing.entityCount());
    EXPECT_GT(app->drawing().entityCount(), 0u);
    const QString text = window->commandDock()->text();
    EXPECT_TRUE(text.contains("Recovered \"" + QString::fromStdString(damaged.string()) + "\":\nLine "));
    EXPECT_TRUE(text.contains(QString("%1 repair").arg(recovered->repairs.size())));
}

TEST_F(OpeningTest, AFileThatIsNoDrawingShowsTheReadersMessage) {
    const fs::path notes = scratch() / "notes.dxf";
    write(notes, "these are notes, not a drawing\n");
    const auto why = Drawing::open(notes.string());
    ASSERT_FALSE(why);
    QString shown;
    std::function<void()> readBox = [&] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(w); box && box->isVisible()) {
                shown = box->text();
                box->close();
                return;
            }
        QTimer::singleShot(20, readBox);
    };
    QTimer::singleShot(20, readBox);
    EXPECT_FALSE(window->openFiles({QString::fromStdString(notes.string())}));
    // The reader's message, whether or not the recover reading then offers to mend it.
    EXPECT_TRUE(shown.startsWith(QString::fromStdString(why.error()))) << shown.toStdString();
    EXPECT_EQ(tabs()->count(), 1);
}

}  // namespace
}  // namespace cadhost::gui
