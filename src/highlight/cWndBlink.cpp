#include "highlight/cWndBlink.h"

#include "highlight/BlinkControl.h"

namespace ardo {

cWndBlink::cWndBlink(BlinkControl& control, QObject* owner) : QObject(owner), control_(control) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &cWndBlink::onTimer);
}

void cWndBlink::startTimer(int periodMs) {
    periodMs_ = periodMs;
    timer_.start(periodMs);
}

void cWndBlink::killTimer() { timer_.stop(); }

void cWndBlink::onTimer() {
    control_.tick();
    timer_.start(periodMs_);
}

}  // namespace ardo
