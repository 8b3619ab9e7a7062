#pragma once
// Shows the entities of one highlight call: steadily, or blinking on the timer of a hidden
// window. The hatch test opens each entity once; the list keeps its answer for the later
// phases of the blink.
#include <cstdint>
#include <memory>
#include <vector>

namespace ardo {

class cOptHighlight;
class cWndBlink;

class BlinkControl {
public:
    struct Entity {
        std::int64_t name = 0;
        bool hatch = false;
    };

    BlinkControl();
    ~BlinkControl();
    BlinkControl(const BlinkControl&) = delete;
    BlinkControl& operator=(const BlinkControl&) = delete;

    // Takes mode, frequency and hatch option, and the entities to show.
    void configure(const cOptHighlight& options, std::int64_t entities);
    // A frequency not above 0.1 is taken as 0.1 (ten seconds a change).
    void setFrequency(double changesPerSecond);

    // Highlights the entities; blinking also makes the timer window. False, with nothing
    // highlighted, when the window cannot be made (no main window, or one exists already).
    bool start();
    // Kills the timer, forgets the list, unhighlights every entity and drops the window.
    void stop();
    // One blink phase: toggles and redraws every entity highlighted or not.
    void tick();
    // Redraws every entity in a redraw mode (3 highlight, 4 unhighlight), hatches only
    // when they take part, then updates the display once.
    void redrawAll(int mode);

    bool blink() const { return blink_; }
    bool visible() const { return visible_; }
    int periodMs() const { return periodMs_; }
    bool hasWindow() const { return window_ != nullptr; }
    const std::vector<Entity>& entityList() const { return entityList_; }

private:
    void fillList();

    bool blink_ = true;
    double frequency_ = 2.0;
    bool changeHatch_ = true;
    std::int64_t entities_ = 0;
    std::unique_ptr<cWndBlink> window_;
    bool visible_ = false;
    int periodMs_ = 500;
    std::vector<Entity> entityList_;
};

}  // namespace ardo
