#include "panes/FloatingPaneWatch.h"

#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QStyle>
#include <algorithm>

namespace ardo {

FloatingPaneWatch::FloatingPaneWatch(QDockWidget& pane, QWidget& mainWindow, CursorPosition cursor)
    : pane_(&pane), mainWindow_(&mainWindow), cursor_(std::move(cursor)) {
    openTimer_.setSingleShot(true);
    openTimer_.setInterval(kOpenDelayMs);
    leaveTimer_.setInterval(kLeaveCheckMs);
    connect(&openTimer_, &QTimer::timeout, this, &FloatingPaneWatch::openIfStillResting);
    connect(&leaveTimer_, &QTimer::timeout, this, &FloatingPaneWatch::giveKeyboardBackIfLeft);
    // Moves over the caption come without a pressed button.
    pane_->setAttribute(Qt::WA_Hover);
    pane_->installEventFilter(this);
}

FloatingPaneWatch::~FloatingPaneWatch() {
    if (!pane_) return;
    pane_->removeEventFilter(this);
    // A pane that docks again shows its content.
    open();
}

bool FloatingPaneWatch::cursorInFrame() const { return pane_ && pane_->frameGeometry().contains(cursor_()); }

bool FloatingPaneWatch::cursorOnCaption() const {
    if (!pane_) return false;
    const QPoint local = pane_->mapFromGlobal(cursor_());
    const QWidget* content = pane_->widget();
    const int captionBottom = content && !rolledUp_ ? content->geometry().top() : pane_->height();
    return local.x() >= 0 && local.x() < pane_->width() - kCaptionButtonsWidth && local.y() >= 0 &&
           local.y() < captionBottom;
}

bool FloatingPaneWatch::eventFilter(QObject* watched, QEvent* event) {
    if (!pane_ || watched != pane_.data()) return false;
    switch (event->type()) {
    case QEvent::HoverMove:
    case QEvent::HoverEnter:
    case QEvent::MouseMove:
        leaveTimer_.stop();
        if (rolledUp_ && cursorOnCaption()) openTimer_.start();
        break;
    case QEvent::HoverLeave:
    case QEvent::Leave:
        openTimer_.stop();
        if (!rolledUp_) leaveTimer_.start();
        break;
    default:
        break;
    }
    return false;
}

void FloatingPaneWatch::openIfStillResting() {
    if (cursorInFrame()) open();
}

void FloatingPaneWatch::giveKeyboardBackIfLeft() {
    // Over a child window of the pane (a list's popup, a menu) the pane is still in use.
    if (cursorInFrame()) return;
    if (QWidget* under = QApplication::widgetAt(cursor_()); under && pane_ && pane_->isAncestorOf(under)) return;
    leaveTimer_.stop();
    rollUp();
    if (mainWindow_) {
        mainWindow_->activateWindow();
        if (QWidget* last = mainWindow_->focusWidget()) last->setFocus(Qt::OtherFocusReason);
    }
}

void FloatingPaneWatch::rollUp() {
    if (rolledUp_ || !pane_ || !pane_->widget()) return;
    openHeight_ = pane_->height();
    openMinimum_ = pane_->minimumSize();
    openMaximum_ = pane_->maximumSize();
    rolledUp_ = true;
    // Where the window manager draws the caption, the pane keeps a strip to rest on. The size
    // is fixed, or the frame's layout would shrink it to nothing once the content is hidden.
    const int width = pane_->width();
    const int captionHeight = pane_->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, pane_);
    const int withoutContent = pane_->height() - pane_->widget()->height();
    pane_->widget()->hide();
    pane_->setFixedSize(width, std::max(withoutContent, captionHeight));
}

void FloatingPaneWatch::open() {
    if (!rolledUp_ || !pane_) return;
    rolledUp_ = false;
    const int width = pane_->width();
    pane_->setMinimumSize(openMinimum_);
    pane_->setMaximumSize(openMaximum_);
    if (QWidget* content = pane_->widget()) content->show();
    pane_->resize(width, openHeight_);
}

}  // namespace ardo
