#pragma once
// The main window of ardo-cad: one tab per open drawing with its view, the docked command
// line, the File menu with recent files, and the status bar. It is the application's user
// interface: printing goes to the command line, prompts asked from LISP wait for a typed
// line or a pick in the view, message boxes are dialogs.
#include <QMainWindow>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cadhost/app/CommandLine.h"
#include "cadhost/app/UserInterface.h"
#include "cadhost/gui/AutoSave.h"
#include "cadhost/gui/DrawingView.h"

class QEventLoop;
class QMenu;
class QTabWidget;

namespace cadhost {
class Application;
class Document;
}

namespace cadhost::gui {

class CommandDock;
class LayerBar;
class StatusBar;
class TextWindow;
class ViewCommand;

class CadWindow final : public QMainWindow, public UserInterface, public MainWindow {
public:
    // Recovery files of the automatic save go to `recoveryFolder`.
    explicit CadWindow(std::string historyFile, const QString& recoveryFolder = AutoSave::defaultFolder());
    ~CadWindow() override;

    // Shows the application's documents and takes its command line; called once the
    // application exists.
    void attach(Application& app);
    // Lets go of the application's documents before the application ends; the window
    // shows nothing afterwards.
    void detach();

    // The current document's view; null before attach().
    DrawingView* currentView() const;
    CommandDock* commandDock() const { return dock_; }
    LayerBar* layerBar() const { return layerBar_; }
    StatusBar* snapBar() const { return statusBar_; }
    // Enters a line as if typed at the command line.
    void enterLine(const std::string& line);
    // Opens drawings as File > Open does; false when one could not be read (the user was told).
    bool openFiles(const QStringList& paths);
    // Saves the current drawing (to `path` when given, else where it came from or asked for);
    // false when it was not saved.
    bool saveCurrent(std::optional<std::string> path = std::nullopt);
    bool isModified(const Document& document) const;
    // Writes the recovery files of the changed drawings now, as every SAVETIME minutes.
    void autoSaveNow();
    // Offers the drawings a session that did not end left in recovery files; called once
    // at start, after attach().
    void offerRecovery();
    // A new drawing from the built-in template, as File > New.
    void newDrawing();
    // Tabs, title and prompt follow the application again after input or a document change.
    void refresh();
    QStringList recentFiles() const;
    // The text window (F2) with the command line's text of the session.
    void showTextWindow();
    TextWindow* textWindow() const { return textWindow_; }

    // --- UserInterface ------------------------------------------------------------------
    void print(std::string_view text) override;
    std::optional<std::string> prompt(const std::string& question) override;
    std::optional<PromptAnswer> ask(const std::string& question, const commands::InputRequest& request) override;
    ardo::MbAnswer messageBox(const std::string& text, const std::string& caption, ardo::MbButtons buttons,
                              ardo::MbIcon icon) override;
    void alert(const std::string& text) override;
    void redraw() override;
    MainWindow* mainWindow() override { return this; }
    void redrawEntity(std::int64_t entity, int mode) override;
    void updateDisplay() override;
    std::optional<int> chooseColor(ardo::HostColor& color, bool allowMetaColors) override;
    std::optional<int> pickEntity(const std::string& prompt, std::int64_t& entity, ardo::Point3& point) override;
    void expressionQueued() override;

    // --- MainWindow ---------------------------------------------------------------------
    QWidget* widget() override { return this; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void handPickfirst(const std::string& line);
    struct Page;
    void buildMenus();
    void syncDocuments();
    Page* pageOf(const Document& document) const;
    void showCurrent();
    void updatePrompt();
    void showMarks();
    // SAVETIME: 0 when automatic saves are off.
    int minutesBetweenSaves() const;
    void showMarksSoon();
    // Escape: cancels the question waiting from LISP or the running command.
    void cancel();
    // True when the line started or answered ZOOM or PAN.
    bool runViewCommand(const std::string& line);
    void updateCompletions();
    void openDialog();
    bool openFile(const std::string& path);
    bool saveAsDialog();
    // PLOT: the plot dialog on the current drawing.
    void plotDialog();
    // Asks whether to save a changed drawing; false when the user cancelled.
    bool mayClose(Page& page);
    void closeTab(int index);
    void remember(const std::string& path);
    void fillRecentMenu();
    DrawingView::Input viewInput();
    // What the prompt takes now: a point, objects or text.
    commands::InputRequest currentRequest() const;
    // A snap override typed at a point prompt; false when the line is none.
    bool takeSnapOverride(const std::string& line);
    TrackedPoint track(Vec2 cursor, double scale) const;
    void connectStatusBar();
    void pointPicked(Vec2 at);
    void objectsPicked(const std::vector<Handle>& found, Vec2 at, bool remove);
    void answerPrompt(std::optional<PromptAnswer> answer);
    std::optional<PromptAnswer> wait(const std::string& question, const commands::InputRequest& request,
                                     bool singlePick);

    Application* app_ = nullptr;
    std::unique_ptr<CommandLine> commandLine_;
    QTabWidget* tabs_;
    CommandDock* dock_;
    LayerBar* layerBar_;
    StatusBar* statusBar_;
    ObjectSnap snap_;
    TextWindow* textWindow_ = nullptr;
    std::unique_ptr<ViewCommand> viewCommand_;
    bool viewTransparent_ = false;
    QMenu* recentMenu_ = nullptr;
    std::vector<std::unique_ptr<Page>> pages_;
    AutoSave autoSave_;
    int minutesWaited_ = 0;   // since the last automatic save
    bool syncing_ = false;
    bool displayPending_ = false;
    bool marksPending_ = false;
    // A prompt asked from LISP code while the event loop waits for its answer.
    struct Waiting {
        std::string question;
        commands::InputRequest request;
        bool singlePick = false;
        QEventLoop* loop = nullptr;
        std::optional<PromptAnswer> answer;
    };
    std::optional<Waiting> waiting_;
};

}  // namespace cadhost::gui
