#pragma once
// Reads a drawing off the GUI thread, so the window keeps painting, while a progress dialog
// shown once the reading takes a moment offers Cancel. A cancelled reading finishes
// unseen and its drawing is dropped; the drawings already open are not touched.
#include <string>

#include "base/Result.h"
#include "cadhost/drawing/Drawing.h"

class QWidget;

namespace cadhost::gui {

enum class ReadMode { Strict, Recover };

struct Reading {
    bool cancelled = false;
    // The drawing with what the recover reading repaired (nothing for a strict reading),
    // or the reader's message; empty when cancelled.
    ardo::Result<RecoveredDrawing> drawing = ardo::Error{""};
};

Reading readDrawing(const std::string& path, ReadMode mode, QWidget* parent);

// How long a reading runs before its dialog shows (300 ms; a test shows it at once, so that
// its Cancel does not race a reader that is quicker on an idle machine).
void setProgressDelay(int milliseconds);

}  // namespace cadhost::gui
