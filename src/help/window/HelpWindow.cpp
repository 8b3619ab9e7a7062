#include "help/window/HelpWindow.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPointer>
#include <QRegularExpression>
#include <QSplitter>
#include <QStyle>
#include <QStringDecoder>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "base/Printf.h"
#include "messages/MessageFile.h"
#include "module/HostBinding.h"
#include "ui/QtApplication.h"

namespace ardo {

namespace {

constexpr const char* kScheme = "chm";
constexpr const char* kTexts = "HILFE";

QString text(const char* key) { return QString::fromStdString(MessageFile::instance().text(kTexts, key)); }

QUrl pageUrl(const std::string& topic) {
    QUrl url;
    url.setScheme(kScheme);
    const QString path = QString::fromStdString(topic);
    const int anchor = path.indexOf('#');
    url.setPath(anchor < 0 ? path : path.left(anchor));
    if (anchor >= 0) url.setFragment(path.mid(anchor + 1));
    if (!url.path().startsWith('/')) url.setPath("/" + url.path());
    return url;
}

QPointer<HelpWindow>& window() {
    static QPointer<HelpWindow> w;
    return w;
}

}  // namespace

QVariant ChmBrowser::loadResource(int type, const QUrl& name) {
    if (!file_ || name.scheme() != kScheme) return QTextBrowser::loadResource(type, name);
    const auto bytes = file_->read(QUrl::fromPercentEncoding(name.path().toUtf8()).toStdString());
    if (!bytes) return {};
    const QByteArray data(bytes->data(), static_cast<qsizetype>(bytes->size()));
    if (type == QTextDocument::HtmlResource || type == QTextDocument::StyleSheetResource) {
        QStringDecoder decoder = QStringDecoder::decoderForHtml(data);
        if (!decoder.isValid()) decoder = QStringDecoder(QStringDecoder::Latin1);
        return QString(decoder(data));
    }
    return data;
}

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setWindowTitle(text("Titel"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* tools = new QToolBar(this);
    layout->addWidget(tools);
    auto* split = new QSplitter(this);
    index_ = new QListWidget(split);
    browser_ = new ChmBrowser(split);
    // The browser would hand every link of the help file's own scheme to the desktop, which
    // knows no such scheme: pages of the file open here, other addresses on the desktop.
    browser_->setOpenLinks(false);
    connect(browser_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const QUrl target = browser_->source().resolved(link);
        if (target.scheme() == kScheme) browser_->setSource(target);
        else QDesktopServices::openUrl(target);
    });
    split->addWidget(index_);
    split->addWidget(browser_);
    split->setStretchFactor(1, 3);
    split->setSizes({230, 530});
    layout->addWidget(split, 1);

    QAction* back = tools->addAction(style()->standardIcon(QStyle::SP_ArrowBack), text("Zurueck"), browser_,
                                     &QTextBrowser::backward);
    QAction* forward = tools->addAction(style()->standardIcon(QStyle::SP_ArrowForward), text("Vor"), browser_,
                                        &QTextBrowser::forward);
    tools->addAction(style()->standardIcon(QStyle::SP_DirHomeIcon), text("Startseite"), browser_,
                     &QTextBrowser::home);
    QAction* showIndex = tools->addAction(text("Index"));
    showIndex->setCheckable(true);
    showIndex->setChecked(true);
    connect(showIndex, &QAction::toggled, index_, &QWidget::setVisible);
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = browser_->documentTitle();
        setWindowTitle(title.isEmpty() ? text("Titel") : text("Titel") + " - " + title);
    });
    connect(index_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
        browser_->setSource(pageUrl(item->data(Qt::UserRole).toString().toStdString()));
    });
    connect(index_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        browser_->setSource(pageUrl(item->data(Qt::UserRole).toString().toStdString()));
    });
    resize(800, 540);
}

std::string HelpWindow::startPage() const {
    // The project's default topic is not kept in a form chmlib reads; the index's first
    // entry, else the first page, serves as the start.
    if (index_->count() > 0) return index_->item(0)->data(Qt::UserRole).toString().toStdString();
    for (const auto& f : file_->files())
        if (f.ends_with(".htm") || f.ends_with(".html")) return f;
    return {};
}

void HelpWindow::fillIndex() {
    index_->clear();
    for (const auto& f : file_->files()) {
        if (!f.ends_with(".hhk")) continue;
        const auto bytes = file_->read(f);
        if (!bytes) continue;
        // Each entry is an object with a Name and a Local parameter.
        static const QRegularExpression entry(
            R"re(<param\s+name="Name"\s+value="([^"]*)"\s*/?>\s*<param\s+name="Local"\s+value="([^"]*)")re",
            QRegularExpression::CaseInsensitiveOption);
        const QString hhk = QString::fromUtf8(bytes->data(), static_cast<qsizetype>(bytes->size()));
        for (auto it = entry.globalMatch(hhk); it.hasNext();) {
            const auto m = it.next();
            auto* item = new QListWidgetItem(m.captured(1), index_);
            item->setData(Qt::UserRole, m.captured(2));
        }
        index_->sortItems();
        return;
    }
}

bool HelpWindow::showTopic(const std::string& helpFile, const std::string& topic) {
    if (!file_ || path_ != helpFile) {
        auto opened = ChmFile::open(helpFile);
        if (!opened) return false;
        file_ = std::move(opened);
        path_ = helpFile;
        browser_->setFile(file_.get());
        browser_->clearHistory();
        fillIndex();
    }
    const std::string page = topic.empty() ? startPage() : topic;
    const QUrl url = pageUrl(page);
    if (!file_->read(url.path().toStdString())) return false;
    browser_->setSource(url);
    if (!isVisible()) placeBesideOwner();
    QWidget::show();
    raise();
    activateWindow();
    return true;
}

// Over the window that asked, kept on its screen: window managers place a new window where
// there is room, which may be half off the screen.
void HelpWindow::placeBesideOwner() {
    const QWidget* owner = parentWidget() ? parentWidget()->window() : nullptr;
    const QScreen* shown = owner ? owner->screen() : QGuiApplication::primaryScreen();
    if (!shown) return;
    // Room for the frame the window manager adds: a title bar and thin borders.
    const QRect room = shown->availableGeometry().adjusted(8, 32, -8, -8);
    QRect frame(QPoint(), size().boundedTo(room.size()));
    frame.moveCenter(owner ? owner->frameGeometry().center() : room.center());
    frame.moveLeft(std::clamp(frame.left(), room.left(), room.right() - frame.width()));
    frame.moveTop(std::clamp(frame.top(), room.top(), room.bottom() - frame.height()));
    resize(frame.size());
    move(frame.topLeft());
}

HelpWindow* currentHelpWindow() { return window(); }

bool showHelpAddress(const std::string& address) {
    const HelpAddress where = splitHelpAddress(address);
    bool madeHere = false;
    if (!ensureApplication(&madeHere)) {
        // Without a display the topic is checked all the same: a missing file is reported
        // as such, and an existing topic is named for the user to open elsewhere.
        const auto file = ChmFile::open(where.file);
        if (!file || !file->read(pageUrl(where.topic).path().toStdString())) return false;
        host().print(format(MessageFile::instance().text(kTexts, "KeineAnzeige"), address));
        return true;
    }
    // A modal dialog asking for help blocks every window but its own: the help window
    // belongs to the dialog then, or it could not be read, scrolled or closed.
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner && hasHost()) owner = host().mainWindow();
    if (!window()) window() = new HelpWindow(owner);
    else if (window()->parentWidget() != owner) window()->setParent(owner, Qt::Window);
    if (!window()->showTopic(where.file, where.topic)) return false;
    // Nobody runs the event loop of an application made here: the window runs its own
    // until it is closed.
    if (madeHere && !window()->parentWidget()) {
        window()->setAttribute(Qt::WA_DeleteOnClose);
        QEventLoop loop;
        QObject::connect(window().data(), &QObject::destroyed, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

}  // namespace ardo
