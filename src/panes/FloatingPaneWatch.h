#pragma once
// Watches one floating pane: it stays rolled up to its caption until the cursor has rested
// on the caption for 350 ms, and 100 ms after the cursor has left it rolls up again and the
// keyboard goes back to the main window, so typing reaches the drawing's command line.
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QTimer>
#include <QDockWidget>
#include <functional>

class QWidget;

namespace ardo {

class FloatingPaneWatch : public QObject {
public:
    static constexpr int kOpenDelayMs = 350;
    static constexpr int kLeaveCheckMs = 100;
    // The caption's right end where its buttons lie: resting there does not open the pane.
    static constexpr int kCaptionButtonsWidth = 40;

    using CursorPosition = std::function<QPoint()>;

    // The manager owns the watch and ends it when the pane docks again or goes.
    FloatingPaneWatch(QDockWidget& pane, QWidget& mainWindow, CursorPosition cursor);
    ~FloatingPaneWatch() override;

    bool isRolledUp() const { return rolledUp_; }
    // The height the pane has when open, also while it is rolled up.
    int openHeight() const { return rolledUp_ ? openHeight_ : (pane_ ? pane_->height() : 0); }
    void rollUp();
    void open();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool cursorInFrame() const;
    bool cursorOnCaption() const;
    void openIfStillResting();
    void giveKeyboardBackIfLeft();

    QPointer<QDockWidget> pane_;
    QPointer<QWidget> mainWindow_;
    CursorPosition cursor_;
    QTimer openTimer_;
    QTimer leaveTimer_;
    bool rolledUp_ = false;
    int openHeight_ = 0;
    QSize openMinimum_;
    QSize openMaximum_;
};

}  // namespace ardo
