#pragma once
// The highlight options: how entities are shown (steady or blinking, how often), the frame
// around them, whether hatches take part, and where the options dialog opens. Read from and
// written to one section of a settings file through cSetup.
#include <string>

#include "settings/cSetup.h"

namespace ardo {

// The section the options live in unless a caller names another.
inline constexpr const char* kHighlightSection = "HIGHLIGHTING";

class cOptHighlight : public cSetup {
public:
    int mode = 1;                 // 0 illuminate, 1 blink
    double frequency = 2.0;       // changes per second
    int period = 500;             // milliseconds between changes
    bool drawFrame = false;
    bool changeHatch = false;
    double distance = 1.0;        // frame distance from the extents, drawing units
    // The layer permanent frames go on, chosen in the options dialog; empty means the
    // current layer. Its key finds the entry it is created from.
    std::string frameLayer;
    std::string frameLayerKey;
    int frameLayerFlags[2] = {0, 1};   // {0, 1}: create the layer when it is missing
    int dialogPosX = 50, dialogPosY = 50;

    // Binds the file and section and reads every key with its load rules.
    void load(const std::string& filePath, const std::string& section);
    // Writes every key back to the bound section.
    void save();
    // Sets the frequency and the period that follows from it.
    void setFrequency(double changesPerSecond);
    // Copies the option values (not the binding).
    void copyValuesFrom(const cOptHighlight& other);
};

// Milliseconds between changes at a frequency: the truncation of 1000 / frequency.
int periodOf(double frequency);

}  // namespace ardo
