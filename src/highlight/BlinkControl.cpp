#include "highlight/BlinkControl.h"

#include <QWidget>

#include "boundary/Host.h"
#include "highlight/cOptHighlight.h"
#include "highlight/cWndBlink.h"
#include "module/HostBinding.h"

namespace ardo {

namespace {

constexpr double kSlowestFrequency = 0.1;
constexpr int kHighlight = 3, kUnhighlight = 4;

bool isHatch(std::int64_t entity) {
    std::string type;
    return host().entityType(entity, type) == RTNORM && type == "HATCH";
}

}  // namespace

BlinkControl::BlinkControl() = default;

BlinkControl::~BlinkControl() {
    if (window_) stop();
}

void BlinkControl::configure(const cOptHighlight& options, std::int64_t entities) {
    blink_ = options.mode == 1;
    setFrequency(options.frequency);
    changeHatch_ = options.changeHatch;
    entities_ = entities;
}

void BlinkControl::setFrequency(double changesPerSecond) {
    frequency_ = changesPerSecond > kSlowestFrequency ? changesPerSecond : kSlowestFrequency;
    periodMs_ = periodOf(frequency_);
}

bool BlinkControl::start() {
    if (!blink_) {
        redrawAll(kHighlight);
        return true;
    }
    QWidget* owner = host().mainWindow();
    if (window_ || !owner) return false;
    window_ = std::make_unique<cWndBlink>(*this, owner);
    redrawAll(kHighlight);
    visible_ = true;
    window_->startTimer(periodMs_);
    return true;
}

void BlinkControl::stop() {
    if (window_) window_->killTimer();
    entityList_.clear();
    redrawAll(kUnhighlight);
    visible_ = false;
    window_.reset();
}

void BlinkControl::tick() {
    visible_ = !visible_;
    redrawAll(visible_ ? kHighlight : kUnhighlight);
}

void BlinkControl::fillList() {
    long length = 0;
    if (host().ssLength(entities_, length) != RTNORM) return;
    entityList_.reserve(static_cast<size_t>(length));
    for (long i = 0; i < length; ++i) {
        std::int64_t name = 0;
        if (host().ssName(entities_, i, name) == RTNORM) entityList_.push_back({name, isHatch(name)});
    }
}

void BlinkControl::redrawAll(int mode) {
    if (entityList_.empty()) fillList();
    for (const Entity& e : entityList_)
        if (changeHatch_ || !e.hatch) host().redraw(e.name, mode);
    host().updateDisplay();
}

}  // namespace ardo
