#pragma once
// The blink timer: a hidden object owned by the host's main window whose timer drives the
// blink phases on the main thread while the prompt waits. Each tick re-arms the timer, so
// ticks never overlap, however long a phase takes.
#include <QObject>
#include <QTimer>

namespace ardo {

class BlinkControl;

class cWndBlink : public QObject {
public:
    cWndBlink(BlinkControl& control, QObject* owner);

    void startTimer(int periodMs);
    void killTimer();
    bool timerActive() const { return timer_.isActive(); }

private:
    void onTimer();

    BlinkControl& control_;
    QTimer timer_;
    int periodMs_ = 500;
};

}  // namespace ardo
