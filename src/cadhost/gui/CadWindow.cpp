#include "cadhost/gui/CadWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

#include "cadhost/app/Application.h"
#include "cadhost/commands/CommandNames.h"
#include "cadhost/lisp/Interpreter.h"
#include "cadhost/app/RepairReport.h"
#include "cadhost/gui/ColorDialog.h"
#include "cadhost/gui/PlotDialog.h"
#include "cadhost/gui/DrawingReading.h"
#include "cadhost/gui/CommandDock.h"
#include "cadhost/gui/CommandMenus.h"
#include "cadhost/gui/LayerBar.h"
#include "cadhost/gui/LayoutTabs.h"
#include "cadhost/gui/PropertiesDialog.h"
#include "cadhost/gui/StatusBar.h"
#include "cadhost/gui/TextWindow.h"
#include "cadhost/gui/ViewCommand.h"

namespace cadhost::gui {

namespace {

constexpr int kRecentFiles = 8;
const char* const kRecentKey = "recentFiles";

// The per-user settings of the window (recent files), beside the user's other settings.
QSettings settings() { return QSettings("ardo", "ardo-cad"); }

QString title(const Document& document) { return QString::fromStdString(document.name()); }

}  // namespace

// A drawing's tab: its view and whether it changed since it was opened or saved.
struct CadWindow::Page final : DrawingListener {
    Page(Document& d, DrawingView* v) : document(&d), view(v) { d.drawing().addListener(*this); }
    ~Page() override {
        if (attached) document->drawing().removeListener(*this);
    }
    void layerChanged(Change, const std::string&) override {
        changed();
        if (layersChanged) layersChanged();
    }
    void linetypeChanged(Change, const std::string&) override { changed(); }
    void entityChanged(Change, std::uint64_t) override { changed(); }
    void variableChanged(const std::string& name) override {
        changed();
        if (name == "CLAYER" && layersChanged) layersChanged();
        if ((name == "OSMODE" || name == "ORTHOMODE") && snapsChanged) snapsChanged();
    }
    void changed() const {
        if (marksChanged) marksChanged();
    }
    // The drawing keeps the count of changes since it was read or saved, whoever saved it
    // (the menu, QSAVE typed or from LISP).
    bool modified() const { return document->drawing().hasUnsavedChanges(); }

    Document* document;
    DrawingView* view;
    LayoutTabs* spaces = nullptr;   // the view with its space tabs, as the document's tab shows it
    bool attached = true;
    std::function<void()> layersChanged;
    std::function<void()> marksChanged;
    std::function<void()> snapsChanged;
};

CadWindow::CadWindow(std::string historyFile, const QString& recoveryFolder) : autoSave_(recoveryFolder) {
    setObjectName("ardoCad");
    setWindowIcon(QIcon::fromTheme("ardo-cad"));
    tabs_ = new QTabWidget(this);
    tabs_->setDocumentMode(true);
    tabs_->setTabsClosable(true);
    tabs_->setMovable(false);
    setCentralWidget(tabs_);
    dock_ = new CommandDock(std::move(historyFile), this);
    addDockWidget(Qt::BottomDockWidgetArea, dock_);
    statusBar_ = new StatusBar(this);
    statusBar()->addPermanentWidget(statusBar_);
    connectStatusBar();
    layerBar_ = new LayerBar(this);
    layerBar_->setMessage([this](const std::string& text) { statusBar()->showMessage(QString::fromStdString(text), 5000); });
    addToolBar(Qt::TopToolBarArea, layerBar_);
    buildMenus();
    resize(1280, 860);

    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
        if (syncing_ || !app_ || index < 0 || index >= static_cast<int>(pages_.size())) return;
        viewCommand_.reset();   // it zooms the view it started on
        app_->activate(*pages_[static_cast<std::size_t>(index)]->document);
        showCurrent();
    });
    connect(tabs_, &QTabWidget::tabCloseRequested, this, &CadWindow::closeTab);
    dock_->setEntered([this](const std::string& line) { enterLine(line); });
    dock_->setCancelled([this] { cancel(); });
    // SAVETIME is read each minute, so a new value counts at once.
    auto* minute = new QTimer(this);
    connect(minute, &QTimer::timeout, this, [this] {
        const int saveTime = minutesBetweenSaves();
        if (saveTime > 0 && ++minutesWaited_ >= saveTime) {
            autoSaveNow();
            minutesWaited_ = 0;
        }
    });
    minute->start(60 * 1000);
}

CadWindow::~CadWindow() = default;

void CadWindow::detach() {
    // The views listen to drawings the application owns; they go first.
    while (tabs_->count() > 0) tabs_->removeTab(0);
    for (const auto& page : pages_) delete page->spaces;
    pages_.clear();
    commandLine_.reset();
    layerBar_->setDrawing(nullptr, {});
    app_ = nullptr;
}

void CadWindow::buildMenus() {
    auto add = [this](QMenu* menu, const QString& text, QKeySequence shortcut, auto done) {
        QAction* action = menu->addAction(text);
        action->setShortcut(shortcut);
        connect(action, &QAction::triggered, this, done);
        return action;
    };
    QMenu* file = menuBar()->addMenu(tr("&File"));
    add(file, tr("&New"), QKeySequence::New, [this] { newDrawing(); });
    add(file, tr("&Open..."), QKeySequence::Open, [this] { openDialog(); });
    recentMenu_ = file->addMenu(tr("Open &Recent"));
    add(file, tr("&Save"), QKeySequence::Save, [this] { saveCurrent(); });
    add(file, tr("Save &As..."), QKeySequence::SaveAs, [this] { saveAsDialog(); });
    add(file, tr("&Plot..."), QKeySequence::Print, [this] { plotDialog(); });
    add(file, tr("&Close"), QKeySequence::Close, [this] { closeTab(tabs_->currentIndex()); });
    file->addSeparator();
    add(file, tr("E&xit"), QKeySequence::Quit, [this] { close(); });
    fillRecentMenu();

    // A menu item starts its command afresh, as a menu macro's leading cancels do.
    const auto run = [this](const std::string& line) {
        if (waiting_ || viewCommand_ || (app_ && app_->commands().active())) cancel();
        QTimer::singleShot(0, this, [this, line] { enterLine(line); });
    };
    addCommandMenu(*menuBar(), "&Edit", run);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    add(view, tr("Zoom &Extents"), QKeySequence(Qt::Key_Home), [this] {
        if (auto* v = currentView()) v->zoomExtents();
    });
    add(view, tr("Zoom &Window"), QKeySequence(), [this] {
        viewCommand_.reset();
        enterLine("'_zoom");
        enterLine("_w");
    });
    add(view, tr("Zoom &Previous"), QKeySequence(), [this] {
        if (auto* v = currentView()) v->zoomPrevious();
    });
    add(view, tr("&Regenerate"), QKeySequence(), [this] {
        if (auto* v = currentView()) {
            v->scene().rebuild();
            v->update();
        }
    });
    view->addSeparator();
    view->addAction(dock_->toggleViewAction());
    add(view, tr("&Text Window"), QKeySequence(Qt::Key_F2), [this] { showTextWindow(); });

    addCommandMenu(*menuBar(), "&Draw", run);
    addCommandMenu(*menuBar(), "&Modify", run);
}

void CadWindow::attach(Application& app) {
    app_ = &app;
    commandLine_ = std::make_unique<CommandLine>(app);
    syncDocuments();
    updatePrompt();
    // Typing goes to the command line from the start, as in the common hosts.
    dock_->input()->setFocus();
}

DrawingView* CadWindow::currentView() const {
    if (!app_ || !app_->hasDocument()) return nullptr;
    const Page* page = pageOf(app_->current());
    return page ? page->view : nullptr;
}

CadWindow::Page* CadWindow::pageOf(const Document& document) const {
    for (const auto& page : pages_)
        if (page->document == &document) return page.get();
    return nullptr;
}

bool CadWindow::isModified(const Document& document) const {
    const Page* page = pageOf(document);
    return page && page->modified();
}

// The tabs follow the application's documents, whoever opened or closed them (OPEN and
// CLOSE on the command line, LISP code, the menus).
void CadWindow::syncDocuments() {
    syncing_ = true;
    const auto& documents = app_->documents();
    for (std::size_t i = pages_.size(); i-- > 0;) {
        Page& page = *pages_[i];
        const bool open = std::any_of(documents.begin(), documents.end(),
                                      [&](const auto& d) { return d.get() == page.document; });
        if (open) continue;
        page.attached = false;
        viewCommand_.reset();
        autoSave_.forget(*page.document);
        page.spaces->forgetDrawing();
        tabs_->removeTab(static_cast<int>(i));
        delete page.spaces;
        pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(i));
    }
    for (const auto& document : documents) {
        if (pageOf(*document)) continue;
        auto* view = new DrawingView(document->drawing(), Space::Model);
        view->setInput(viewInput());
        document->setView(view);
        pages_.push_back(std::make_unique<Page>(*document, view));
        pages_.back()->spaces = new LayoutTabs(document->drawing(), view);
        pages_.back()->layersChanged = [this, d = document.get()] {
            if (app_ && app_->hasDocument() && &app_->current() == d) layerBar_->refresh();
        };
        pages_.back()->marksChanged = [this] { showMarksSoon(); };
        pages_.back()->snapsChanged = [this, d = document.get()] {
            if (app_ && app_->hasDocument() && &app_->current() == d) statusBar_->sync();
        };
        // PROPERTIES opens its dialog here; the changes are part of the command's undo step.
        document->commands().setPropertiesEditor([this, d = document.get()](const std::vector<std::uint64_t>& entities) {
            PropertiesDialog dialog(d->drawing(), entities, this);
            if (dialog.exec() == QDialog::Accepted) commands::applyProperties(d->drawing(), entities, dialog.changes());
        });
        tabs_->addTab(pages_.back()->spaces, title(*document));
        if (document->titled()) remember(document->path());
    }
    syncing_ = false;
    showCurrent();
}

void CadWindow::showCurrent() {
    if (!app_ || !app_->hasDocument()) return;
    Page* page = pageOf(app_->current());
    if (!page) return;
    layerBar_->setDrawing(&page->document->drawing(), [view = page->view] { return view->selection(); });
    syncing_ = true;
    tabs_->setCurrentWidget(page->spaces);
    syncing_ = false;
    statusBar_->sync();
    showMarks();
}

// Name and unsaved mark of each tab and of the window.
void CadWindow::showMarks() {
    if (!app_ || !app_->hasDocument()) return;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const Page& page = *pages_[i];
        tabs_->setTabText(static_cast<int>(i), title(*page.document) + (page.modified() ? "*" : ""));
        tabs_->setTabToolTip(static_cast<int>(i), QString::fromStdString(page.document->path()));
    }
    // A drawing with nothing unsaved, however it was saved, needs no recovery file.
    for (const auto& page : pages_)
        if (!page->modified()) autoSave_.forget(*page->document);
    const Page* page = pageOf(app_->current());
    if (!page) return;
    setWindowTitle(title(*page->document) + "[*] - ardo-cad");
    setWindowModified(page->modified());
}

// Changes come many at a time (a command, a LISP loop): the marks follow once they are done.
void CadWindow::showMarksSoon() {
    if (marksPending_) return;
    marksPending_ = true;
    QTimer::singleShot(0, this, [this] {
        marksPending_ = false;
        showMarks();
    });
}

void CadWindow::updatePrompt() {
    if (viewCommand_) {
        // ">>" marks a prompt of a transparent command, as the common hosts show it.
        dock_->setPrompt((viewTransparent_ ? ">>" : "") + viewCommand_->prompt());
        return;
    }
    if (waiting_) {
        dock_->setPrompt(waiting_->question);
        return;
    }
    if (!commandLine_ || !app_->hasDocument()) return;
    std::string prompt = commandLine_->prompt();
    if (prompt.empty() && app_->commands().active()) prompt = app_->commands().prompt();
    dock_->setPrompt(prompt);
}

void CadWindow::refresh() {
    syncDocuments();
    updatePrompt();
    updateCompletions();
    if (auto* view = currentView()) view->update();
    if (commandLine_ && commandLine_->quitRequested()) QTimer::singleShot(0, this, &QWidget::close);
}

// Tab completes what the current drawing knows: host commands, LISP commands (C:NAME,
// typed as NAME) and LISP functions.
void CadWindow::updateCompletions() {
    if (!app_ || !app_->hasDocument()) return;
    QStringList names{"DRAWINGS", "SWITCH", "OPEN", "CLOSE", "QUIT"};
    for (std::string_view name : commands::commandNames()) names << QString::fromUtf8(name.data(), name.size());
    app_->lisp().symbols().forEach([&](const lisp::Symbol& symbol) {
        if (!symbol.value.isFunction()) return;
        const QString name = QString::fromStdString(symbol.name);
        names << (name.startsWith("C:") ? name.mid(2) : name.toLower());
    });
    names.removeDuplicates();
    names.sort(Qt::CaseInsensitive);
    dock_->setCompletions(names);
}

void CadWindow::enterLine(const std::string& line) {
    if (takeSnapOverride(line)) return;
    // A typed point uses up an override as a pick does.
    if (currentRequest().kind == commands::InputRequest::Kind::Point) snap_.pointGiven();
    if (runViewCommand(line)) return;
    // The line stands once after its prompt in the text window: the command processor
    // echoes what it takes, the window the rest.
    if (waiting_ || !commandLine_ || !commandLine_->echoesItself(line)) print(dock_->prompt() + line + "\n");
    if (waiting_) return answerPrompt(PromptAnswer{line, std::nullopt, {}});
    if (!commandLine_) return;
    if (!commandLine_->busy() && PlotDialog::asksForDialog(line)) {
        if (commandLine_->echoesItself(line)) print(dock_->prompt() + line + "\n");
        return plotDialog();
    }
    const bool started = !commandLine_->busy();
    commandLine_->enter(line);
    if (started) handPickfirst(line);
    refresh();
}

// Objects picked before the command (noun-verb) are its objects when it opens with an
// object prompt that takes them, as in the common hosts: ERASE then erases them without
// asking. A typed LISP expression keeps to its own selections.
void CadWindow::handPickfirst(const std::string& line) {
    DrawingView* view = currentView();
    if (!view || view->selection().empty() || line.starts_with('(') || !commandLine_->busy() ||
        !currentRequest().takesPickfirst)
        return;
    const std::vector<Handle> chosen = view->selection();
    view->setSelection({});
    for (Handle h : chosen) app_->command({ardo::ResBuf::entityName(static_cast<std::int64_t>(h))});
    app_->command({ardo::ResBuf::str("")});
}

// ZOOM and PAN, alone or transparently during another prompt, run on the current view.
bool CadWindow::runViewCommand(const std::string& line) {
    const auto answer = [this](const std::string& text) {
        std::string complaint;
        if (!viewCommand_->take(text, complaint)) viewCommand_.reset();
        print(complaint);
    };
    if (!viewCommand_) {
        // "ZOOM W" starts the command and answers its prompts with the words after it.
        QStringList words = QString::fromStdString(line).split(' ', Qt::SkipEmptyParts);
        DrawingView* view = currentView();
        viewTransparent_ = waiting_ || !commandLine_ || commandLine_->busy();
        if (words.isEmpty() || !view ||
            !(viewCommand_ = ViewCommand::start(words.takeFirst().toStdString(), viewTransparent_,
                                                app_->current().drawing(), *view)))
            return false;
        print(dock_->prompt() + line + "\n");
        for (const QString& word : words)
            if (viewCommand_) answer(word.toStdString());
    } else {
        print(dock_->prompt() + line + "\n");
        answer(line);
    }
    updatePrompt();
    if (auto* view = currentView()) view->update();
    return true;
}

void CadWindow::cancel() {
    if (viewCommand_) {
        // Escape ends the zoom or pan; what it interrupted goes on.
        print(dock_->prompt() + "*Cancel*\n");
        viewCommand_.reset();
        updatePrompt();
        return;
    }
    // "*Cancel*" follows the prompt it cancels; a command echoing its input says it itself.
    print(dock_->prompt());
    if (waiting_) {
        print("*Cancel*\n");
        return answerPrompt(std::nullopt);
    }
    const bool running = app_ && app_->commands().active();
    const bool saysItself = running && app_->commands().echoes();
    if (running) app_->commands().cancel();
    if (!saysItself) print("*Cancel*\n");
    refresh();
}

DrawingView::Input CadWindow::viewInput() {
    DrawingView::Input input;
    input.request = [this] { return currentRequest(); };
    input.singlePick = [this] { return waiting_ && waiting_->singlePick; };
    input.point = [this](Vec2 at) { pointPicked(at); };
    input.objects = [this](const std::vector<Handle>& found, Vec2 at, bool remove) { objectsPicked(found, at, remove); };
    input.typed = [this](QKeyEvent* event) {
        dock_->input()->setFocus();
        QApplication::sendEvent(dock_->input(), event);
    };
    input.cancel = [this] { cancel(); };
    input.cursor = [this](Vec2 at) { statusBar_->showCursor(at); };
    input.track = [this](Vec2 cursor, double scale) { return track(cursor, scale); };
    return input;
}

commands::InputRequest CadWindow::currentRequest() const {
    if (viewCommand_) return viewCommand_->request();
    if (waiting_) return waiting_->request;
    return app_ ? app_->commands().request() : commands::InputRequest{};
}

TrackedPoint CadWindow::track(Vec2 cursor, double scale) const {
    DrawingView* view = currentView();
    if (!view || !app_ || !app_->hasDocument()) return {cursor, std::nullopt};
    return snap_.track(view->scene(), view->layout(), app_->current().drawing(), cursor, scale,
                       statusBar_->settings(), currentRequest().from);
}

bool CadWindow::takeSnapOverride(const std::string& line) {
    if (currentRequest().kind != commands::InputRequest::Kind::Point || !snap_.takeOverride(line)) return false;
    // The prompt stays: the override waits for the pick it applies to.
    print(dock_->prompt() + line + "\n");
    return true;
}

void CadWindow::connectStatusBar() {
    StatusBar::Variables variables;
    variables.get = [this](const char* name) -> std::optional<int> {
        ardo::ResBuf value;
        if (!app_ || !app_->hasDocument() || app_->getVar(app_->current(), name, value) != ardo::RTNORM) return std::nullopt;
        return static_cast<int>(value.integer);
    };
    variables.set = [this](const char* name, int value) {
        if (app_ && app_->hasDocument()) app_->setVar(app_->current(), name, ardo::ResBuf::shortInt(value));
    };
    variables.say = [this](const std::string& text) { print(text + "\n"); };
    statusBar_->setVariables(std::move(variables));
}

void CadWindow::pointPicked(Vec2 at) {
    snap_.pointGiven();
    if (viewCommand_) {
        print(dock_->prompt() + QString("%1,%2\n").arg(at.x).arg(at.y).toStdString());
        if (!viewCommand_->takePoint(at)) viewCommand_.reset();
        updatePrompt();
        return;
    }
    const ardo::Point3 point{at.x, at.y, 0};
    if (waiting_) return answerPrompt(PromptAnswer{std::nullopt, point, {}});
    if (!app_->commands().echoes()) print(dock_->prompt() + QString("%1,%2\n").arg(at.x).arg(at.y).toStdString());
    app_->command({ardo::ResBuf::point3(point)});
    refresh();
}

void CadWindow::objectsPicked(const std::vector<Handle>& found, Vec2 at, bool remove) {
    if (waiting_) {
        PromptAnswer answer{std::nullopt, ardo::Point3{at.x, at.y, 0}, {}};
        for (Handle h : found) answer.entities.push_back(static_cast<std::int64_t>(h));
        return answerPrompt(std::move(answer));
    }
    if (found.empty()) return;
    // A command's object prompt takes names; Shift takes them out again.
    if (remove) app_->command({ardo::ResBuf::str("_Remove")});
    for (Handle h : found) app_->command({ardo::ResBuf::entityName(static_cast<std::int64_t>(h))});
    if (remove && app_->commands().active()) app_->command({ardo::ResBuf::str("_Add")});
    refresh();
}

void CadWindow::answerPrompt(std::optional<PromptAnswer> answer) {
    waiting_->answer = std::move(answer);
    waiting_->loop->quit();
}

// --- prompts from LISP code --------------------------------------------------------------

std::optional<PromptAnswer> CadWindow::ask(const std::string& question, const commands::InputRequest& request) {
    return wait(question, request, false);
}

// Waits for the answer to a question asked from LISP code: a typed line (echoed by the
// command line with the question before it), a pick in the view, or Escape.
std::optional<PromptAnswer> CadWindow::wait(const std::string& question, const commands::InputRequest& request,
                                            bool singlePick) {
    // One question at a time: a prompt asked while another waits cannot be answered.
    if (waiting_) return std::nullopt;
    QEventLoop loop;
    waiting_ = Waiting{question, request, singlePick, &loop, std::nullopt};
    updatePrompt();
    if (auto* view = currentView()) view->update();
    dock_->input()->setFocus();
    loop.exec();
    std::optional<PromptAnswer> answer = std::move(waiting_->answer);
    waiting_.reset();
    if (answer && !answer->text) {
        // A pick shows on the command line as the point or what was found.
        const std::string what = answer->point && answer->entities.empty() && !singlePick
                                     ? QString("%1,%2").arg((*answer->point)[0]).arg((*answer->point)[1]).toStdString()
                                     : std::to_string(answer->entities.size()) + " found";
        print(question + what + "\n");
    }
    updatePrompt();
    return answer;
}

std::optional<std::string> CadWindow::prompt(const std::string& question) {
    auto answer = ask(question, {});
    if (!answer) return std::nullopt;
    return answer->text ? *answer->text : std::string();
}

std::optional<int> CadWindow::pickEntity(const std::string& prompt, std::int64_t& entity, ardo::Point3& point) {
    if (waiting_) return ardo::RTCAN;
    commands::InputRequest one;
    one.kind = commands::InputRequest::Kind::Objects;
    const std::optional<PromptAnswer> answer = wait(prompt, one, true);
    if (!answer || (answer->text && answer->text->empty())) return ardo::RTCAN;
    if (answer->entities.empty()) return ardo::RTERROR;
    entity = answer->entities.front();
    point = answer->point.value_or(ardo::Point3{});
    return ardo::RTNORM;
}

ardo::MbAnswer CadWindow::messageBox(const std::string& text, const std::string& caption, ardo::MbButtons buttons,
                                     ardo::MbIcon icon) {
    QMessageBox box(this);
    box.setWindowTitle(QString::fromStdString(caption.empty() ? std::string("ardo-cad") : caption));
    box.setText(QString::fromStdString(text));
    switch (icon) {
    case ardo::MbIcon::Error: box.setIcon(QMessageBox::Critical); break;
    case ardo::MbIcon::Question: box.setIcon(QMessageBox::Question); break;
    case ardo::MbIcon::Exclamation: box.setIcon(QMessageBox::Warning); break;
    case ardo::MbIcon::Information: box.setIcon(QMessageBox::Information); break;
    case ardo::MbIcon::None: break;
    }
    switch (buttons) {
    case ardo::MbButtons::Ok: box.setStandardButtons(QMessageBox::Ok); break;
    case ardo::MbButtons::OkCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    case ardo::MbButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    case ardo::MbButtons::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    }
    const int chosen = box.exec();
    switch (chosen) {
    case QMessageBox::Ok: return ardo::MbAnswer::Ok;
    case QMessageBox::Yes: return ardo::MbAnswer::Yes;
    case QMessageBox::No: return ardo::MbAnswer::No;
    default:
        // Escape on a Yes/No box answers No, as the box has no Cancel.
        return buttons == ardo::MbButtons::YesNo ? ardo::MbAnswer::No
               : buttons == ardo::MbButtons::Ok  ? ardo::MbAnswer::Ok
                                                 : ardo::MbAnswer::Cancel;
    }
}

std::optional<int> CadWindow::chooseColor(ardo::HostColor& color, bool allowMetaColors) {
    ColorDialog dialog(color, allowMetaColors, this);
    if (dialog.exec() != QDialog::Accepted) return ardo::RTCAN;
    color = dialog.color();
    return ardo::RTNORM;
}

void CadWindow::alert(const std::string& text) {
    QMessageBox::warning(this, "ardo-cad", QString::fromStdString(text));
}

void CadWindow::print(std::string_view text) {
    dock_->print(text);
    if (textWindow_ && textWindow_->isVisible()) textWindow_->append(text);
}

void CadWindow::showTextWindow() {
    if (!textWindow_) textWindow_ = new TextWindow(this);
    textWindow_->showText(dock_->text());
}

// --- the host's redraw service ----------------------------------------------------------

void CadWindow::redraw() {
    for (const auto& page : pages_) {
        page->view->scene().clearLooks();
        page->view->update();
    }
}

void CadWindow::redrawEntity(std::int64_t entity, int mode) {
    DrawingView* view = currentView();
    if (!view) return;
    Scene& scene = view->scene();
    const Handle h = static_cast<Handle>(entity);
    switch (mode) {
    case 1: scene.setLook(h, Look::Normal); break;
    case 2: scene.setLook(h, Look::Hidden); break;
    case 3: scene.setLook(h, Look::Highlighted); break;
    case 4: scene.unhighlight(h); break;
    default: return;
    }
    // Many entities change in one go: the view paints them once, when the caller is done.
    if (!displayPending_) {
        displayPending_ = true;
        QTimer::singleShot(0, this, [this] { updateDisplay(); });
    }
}

void CadWindow::expressionQueued() {
    QTimer::singleShot(0, this, [this] {
        // Inside a command, a prompt or a dialog the expression waits for the next input line.
        if (!app_ || !app_->hasDocument() || waiting_ || QApplication::activeModalWidget() ||
            app_->commands().active())
            return;
        app_->idle();
        refresh();
    });
}

void CadWindow::updateDisplay() {
    displayPending_ = false;
    if (auto* view = currentView()) view->update();
}

// --- documents -------------------------------------------------------------------------

int CadWindow::minutesBetweenSaves() const {
    ardo::ResBuf value;
    if (!app_ || !app_->hasDocument() || app_->getVar(app_->current(), "SAVETIME", value) != ardo::RTNORM) return 0;
    return static_cast<int>(value.integer);
}

void CadWindow::autoSaveNow() {
    if (!app_) return;
    std::vector<Document*> documents;
    for (const auto& page : pages_) documents.push_back(page->document);
    if (const std::string failed = autoSave_.saveChanged(documents); !failed.empty())
        print(failed + "  Save the drawing yourself to keep its changes.\n");
}

void CadWindow::offerRecovery() {
    const std::vector<AutoSave::LeftBehind> found = autoSave_.leftBehind();
    if (found.empty() || !app_) return;
    QString names;
    for (const auto& drawing : found) names += "\n    " + QString::fromStdString(drawing.original);
    QMessageBox box(QMessageBox::Question, "ardo-cad",
                    tr("ardo-cad did not end normally. These drawings were saved automatically before:%1\n\n"
                       "Recover them?").arg(names),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Discard, this);
    box.setDefaultButton(QMessageBox::Yes);
    box.setInformativeText(tr("No keeps them for the next start; Discard deletes them."));
    const int answer = box.exec();
    if (answer == QMessageBox::No) return;
    for (const auto& drawing : found) {
        if (answer == QMessageBox::Discard) {
            AutoSave::discard(drawing);
            continue;
        }
        QFile file(drawing.file);
        if (!file.open(QIODevice::ReadOnly)) continue;
        auto restored = Drawing::fromBytes(file.readAll().toStdString(), drawing.original);
        if (!restored) {
            print(restored.error() + "\n");
            continue;
        }
        restored->markRestored();
        app_->addDocument(std::move(restored).value(), drawing.titled);
        print("Recovered \"" + drawing.original + "\" from its automatic save; save it to keep it.\n");
        AutoSave::discard(drawing);
    }
    app_->idle();
    refresh();
}

void CadWindow::newDrawing() {
    app_->addDocument(Drawing(), false);
    app_->idle();
    refresh();
}

void CadWindow::openDialog() {
    const QStringList paths = QFileDialog::getOpenFileNames(this, tr("Open Drawing"), QString(),
                                                            tr("Drawings (*.dxf *.DXF);;All files (*)"));
    openFiles(paths);
}

bool CadWindow::openFiles(const QStringList& paths) {
    bool all = true;
    for (const QString& path : paths) all = openFile(path.toStdString()) && all;
    app_->idle();
    refresh();
    return all;
}

// One drawing into a tab of its own. What cannot be read leaves the drawings already open
// as they are; a damaged drawing the recover reading can mend is offered that way.
bool CadWindow::openFile(const std::string& path) {
    const auto cancelled = [&] {
        print("Opening \"" + path + "\" was cancelled.\n");
        return false;
    };
    Reading reading = readDrawing(path, ReadMode::Strict, this);
    if (reading.cancelled) return cancelled();
    if (!reading.drawing) {
        const QString why = QString::fromStdString(reading.drawing.error());
        Reading recovered = readDrawing(path, ReadMode::Recover, this);
        if (recovered.cancelled) return cancelled();
        if (!recovered.drawing) {
            QMessageBox::warning(this, tr("Open Drawing"), why);
            return false;
        }
        const auto answer = QMessageBox::question(
            this, tr("Open Drawing"), why + "\n\n" + tr("The drawing is damaged. Open it in recover mode?"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        if (answer != QMessageBox::Yes) return false;
        reading = std::move(recovered);
        print("Recovered \"" + path + "\":\n" + repairReport(reading.drawing->repairs));
    }
    app_->addDocument(std::move(reading.drawing->drawing), true);
    return true;
}

bool CadWindow::saveCurrent(std::optional<std::string> path) {
    if (!app_ || !app_->hasDocument()) return false;
    Document& document = app_->current();
    if (!path) {
        if (!document.titled()) return saveAsDialog();
        path = document.path();
    }
    if (const ardo::Status saved = document.drawing().save(*path); !saved) {
        QMessageBox::warning(this, tr("Save Drawing"), QString::fromStdString(saved.error()));
        return false;
    }
    remember(*path);
    print("Saved \"" + *path + "\".\n");
    showCurrent();
    return true;
}

bool CadWindow::saveAsDialog() {
    if (!app_ || !app_->hasDocument()) return false;
    QString path = QFileDialog::getSaveFileName(this, tr("Save Drawing As"),
                                                QString::fromStdString(app_->current().path()),
                                                tr("Drawings (*.dxf)"));
    if (path.isEmpty()) return false;
    if (QFileInfo(path).suffix().isEmpty()) path += ".dxf";
    return saveCurrent(path.toStdString());
}

bool CadWindow::mayClose(Page& page) {
    if (!page.modified()) return true;
    app_->activate(*page.document);
    showCurrent();
    const auto answer = QMessageBox::question(
        this, "ardo-cad", tr("Save changes to %1?").arg(title(*page.document)),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer != QMessageBox::Yes && answer != QMessageBox::No) return false;
    return answer == QMessageBox::No || saveCurrent();
}

void CadWindow::closeTab(int index) {
    if (!app_ || index < 0 || index >= static_cast<int>(pages_.size())) return;
    Page& page = *pages_[static_cast<std::size_t>(index)];
    if (!mayClose(page)) return;
    // The application keeps one drawing open: a new one takes the last one's place.
    if (app_->documents().size() == 1) app_->addDocument(Drawing(), false);
    // The tab goes with the document when the tabs follow the documents again.
    if (const ardo::Status closed = app_->closeDocument(*page.document); !closed) print(closed.error() + "\n");
    app_->idle();
    refresh();
}

void CadWindow::closeEvent(QCloseEvent* event) {
    if (waiting_) answerPrompt(std::nullopt);
    for (const auto& page : pages_)
        if (!mayClose(*page)) {
            event->ignore();
            return;
        }
    event->accept();
}

// --- recent files ------------------------------------------------------------------------

QStringList CadWindow::recentFiles() const { return settings().value(kRecentKey).toStringList(); }

void CadWindow::remember(const std::string& path) {
    QStringList files = recentFiles();
    const QString file = QString::fromStdString(path);
    files.removeAll(file);
    files.prepend(file);
    while (files.size() > kRecentFiles) files.removeLast();
    settings().setValue(kRecentKey, files);
    fillRecentMenu();
}

void CadWindow::fillRecentMenu() {
    recentMenu_->clear();
    const QStringList files = recentFiles();
    for (int i = 0; i < files.size(); ++i)
        connect(recentMenu_->addAction(QString("&%1 %2").arg(i + 1).arg(files[i])), &QAction::triggered, this,
                [this, file = files[i]] { openFiles({file}); });
    recentMenu_->setEnabled(!files.isEmpty());
}

}  // namespace cadhost::gui
