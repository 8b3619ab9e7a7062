#pragma once
// The options dialog as the highlight prompt and the options command run it.

namespace ardo {

class cOptHighlight;

// Shows the dialog until OK or Cancel, picking the distance in the drawing between
// openings when asked. The changes are kept either way: Cancel closes the dialog, it
// does not undo what was set in it. Without a display it says so and changes nothing.
void runHighlightOptionsLoop(cOptHighlight& options);

}  // namespace ardo
