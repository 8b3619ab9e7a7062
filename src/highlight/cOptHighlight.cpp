#include "highlight/cOptHighlight.h"

#include <algorithm>
#include <cstdlib>

#include "base/Printf.h"

namespace ardo {

namespace {

constexpr const char* kRegistryBranch = "KEMB_ARDOARX";
constexpr int kShortestPeriod = 333, kLongestPeriod = 10000;
constexpr int kRightmostDialog = 1200, kLowestDialog = 750;

// Positions off the top or left edge start at 0; beyond the limit they stop there.
int onScreen(int position, int limit) {
    if (position < 1) return 0;
    return std::min(position, limit);
}

}  // namespace

int periodOf(double frequency) { return static_cast<int>(1000.0 / frequency); }

void cOptHighlight::load(const std::string& filePath, const std::string& section) {
    bind(filePath, kRegistryBranch, "ArdoHighlight", section, false, true);
    // The file's defaults differ from a fresh record's: an options file without keys means
    // illuminate.
    int blinking = 0, blinkTime = 500, posX = 50, posY = 50;
    bool frame = false, hatch = false;
    double dist = 1.0;
    getInt("Blinking", blinking);
    getInt("BlinkTime", blinkTime);
    getBool("DrawFrame", frame);
    getReal("Distance", dist);
    getBool("ChngHatch", hatch);
    getInt("DlgPosX", posX);
    getInt("DlgPosY", posY);

    mode = blinking == 1 ? 1 : 0;
    period = std::clamp(blinkTime, kShortestPeriod, kLongestPeriod);
    // One decimal, as the dialog's list offers them.
    frequency = std::strtod(format("%.1lf", 1000.0 / period).c_str(), nullptr);
    drawFrame = frame;
    changeHatch = hatch;
    distance = dist;
    dialogPosX = onScreen(posX, kRightmostDialog);
    dialogPosY = onScreen(posY, kLowestDialog);
}

void cOptHighlight::save() {
    setInt("Blinking", mode, true);
    setInt("BlinkTime", periodOf(frequency), true);
    setBool("DrawFrame", drawFrame, true);
    setReal("Distance", distance, true);
    setBool("ChngHatch", changeHatch, true);
    setInt("DlgPosX", dialogPosX, true);
    setInt("DlgPosY", dialogPosY, true);
}

void cOptHighlight::setFrequency(double changesPerSecond) {
    frequency = changesPerSecond;
    period = periodOf(changesPerSecond);
}

void cOptHighlight::copyValuesFrom(const cOptHighlight& other) {
    mode = other.mode;
    frequency = other.frequency;
    period = other.period;
    drawFrame = other.drawFrame;
    changeHatch = other.changeHatch;
    distance = other.distance;
    frameLayer = other.frameLayer;
    frameLayerKey = other.frameLayerKey;
    frameLayerFlags[0] = other.frameLayerFlags[0];
    frameLayerFlags[1] = other.frameLayerFlags[1];
    dialogPosX = other.dialogPosX;
    dialogPosY = other.dialogPosY;
}

}  // namespace ardo
