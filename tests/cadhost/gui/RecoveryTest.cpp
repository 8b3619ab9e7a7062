// The automatic save and recovery after a crash: a window process that is killed after
// its automatic save, and the next window that finds its drawing; recovery files that a
// normal save, close or end remove.
#include <QDir>
#include <QTabWidget>
#include <csignal>

#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

const char* const kFolderVariable = "ARDO_TEST_RECOVERY_FOLDER";

QStringList recoveryFiles(const QString& folder) { return QDir(folder).entryList({"*.dxf"}, QDir::Files); }

// What the killed process does: opens a copy of the office plan, makes a layer and draws a
// line, lets the automatic save run, and dies without a word.
[[noreturn]] void changeSaveAndDie(const QString& folder, const std::string& drawing) {
    qt();
    CadWindow window((scratch() / "history").string(), folder);
    Application app(window);
    window.attach(app);
    window.openFiles({QString::fromStdString(drawing)});
    window.enterLine("_.LAYER _New Gerettet");
    window.enterLine("");
    window.enterLine("_LINE 100,100 200,150");
    window.enterLine("");
    window.autoSaveNow();
    std::raise(SIGKILL);
    std::abort();
}

TEST(RecoveryTest, ChangesSavedAutomaticallySurviveAKilledProcess) {
    qt();
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // The killed process runs this test again from the start: it takes the folders made here.
    if (qEnvironmentVariableIsEmpty(kFolderVariable))
        qputenv(kFolderVariable, QByteArray::fromStdString((scratch() / "recovery").string()));
    const QString folder = qEnvironmentVariable(kFolderVariable);
    const std::string drawing = folder.toStdString() + "-plan.dxf";
    fs::copy_file(ARDO_SOURCE_DIR "/examples/drawings/office.dxf", drawing, fs::copy_options::overwrite_existing);
    const std::size_t entities = Drawing::open(drawing)->entityCount();

    EXPECT_EXIT(changeSaveAndDie(folder, drawing), ::testing::KilledBySignal(SIGKILL), "");
    ASSERT_EQ(recoveryFiles(folder).size(), 1);

    // The next start offers the drawing as it was when saved automatically.
    CadWindow window((scratch() / "history").string(), folder);
    Application app(window);
    window.attach(app);
    answerNextBox(QMessageBox::Yes);
    window.offerRecovery();
    ASSERT_EQ(app.documents().size(), 1u) << window.commandDock()->text().toStdString();
    const Drawing& restored = app.drawing();
    EXPECT_TRUE(restored.findLayer("Gerettet"));
    EXPECT_EQ(restored.entityCount(), entities + 1);
    EXPECT_EQ(app.current().path(), drawing);
    EXPECT_TRUE(window.isModified(app.current()));
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(recoveryFiles(folder).isEmpty());
    // The drawing's own file is as it was before the crash.
    EXPECT_FALSE(Drawing::open(drawing)->findLayer("Gerettet"));
    // Saved where it came from, it is the drawing the killed process had.
    ASSERT_TRUE(window.saveCurrent());
    EXPECT_TRUE(Drawing::open(drawing)->findLayer("Gerettet"));
    EXPECT_FALSE(window.isWindowModified());
    window.detach();
}

TEST_F(WindowTest, RecoveryFilesGoWithASaveACloseAndTheEndOfTheSession) {
    const QString folder = QString::fromStdString((scratch() / "own-recovery").string());
    window->detach();
    app.reset();
    window = std::make_unique<CadWindow>((scratch() / "history").string(), folder);
    app = std::make_unique<Application>(*window);
    window->attach(*app);
    window->newDrawing();
    window->newDrawing();

    // Nothing changed, nothing written.
    window->autoSaveNow();
    EXPECT_TRUE(recoveryFiles(folder).isEmpty());
    type("_LINE 0,0 1,1");
    type("");
    window->autoSaveNow();
    ASSERT_EQ(recoveryFiles(folder).size(), 1);
    const QString file = folder + "/" + recoveryFiles(folder).front();
    auto written = Drawing::open(file.toStdString());
    ASSERT_TRUE(written) << written.error();
    EXPECT_EQ(written->entityCount(), 1u);
    // A drawing of this session is not offered as left behind.
    EXPECT_TRUE(AutoSave(folder).leftBehind().empty());

    // A second drawing changed: a file of its own. A save by typed command removes it.
    window->newDrawing();
    type("_LINE 0,0 2,2");
    type("");
    window->autoSaveNow();
    EXPECT_EQ(recoveryFiles(folder).size(), 2);
    type("_.SAVEAS");
    type("");
    type(QString::fromStdString((scratch() / "second.dxf").string()));
    EXPECT_EQ(recoveryFiles(folder).size(), 1);
    // Closing the first changed drawing removes its file.
    ASSERT_TRUE(app->closeDocument(*app->documents()[1]));
    window->refresh();
    EXPECT_TRUE(recoveryFiles(folder).isEmpty());

    // SAVETIME takes minutes from 0 (off) to 600.
    type("(setvar \"SAVETIME\" 601)");
    type("(getvar \"SAVETIME\")");
    EXPECT_TRUE(window->commandDock()->text().contains("Command: (getvar \"SAVETIME\")\n10"));

    type("_LINE 0,0 3,3");
    type("");
    window->autoSaveNow();
    EXPECT_EQ(recoveryFiles(folder).size(), 1);
    // The end of a session removes what is left.
    window->detach();
    app.reset();
    window.reset();
    EXPECT_TRUE(recoveryFiles(folder).isEmpty());
    window = std::make_unique<CadWindow>((scratch() / "history").string());
    app = std::make_unique<Application>(*window);
    window->attach(*app);
}

}  // namespace
}  // namespace cadhost::gui
