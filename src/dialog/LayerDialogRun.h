#pragma once
// One run of the layer dialog as the LISP functions and the command start it, and the
// three handlers they are installed as.
#include <string>

#include "dialog/cDlgLayer.h"

namespace ardo {

struct LayerDialogOutcome {
    std::string key;
    std::string name;
    bool ok = false;          // the user left with OK
    int status = RTERROR;     // RTNORM, RTCAN, or RTERROR when the dialog could not be built
    bool created = false;     // the chosen layer was created in the drawing
};

// False, with the reason printed, when no dialog can be shown (no display); makes the
// QApplication when the host runs without one (the console on a desktop).
bool dialogsCanBeShown(const char* function);

// Runs the dialog modally over the host's main window. In mode 7 with createChosen, a
// chosen entry that is not in the drawing is created there.
LayerDialogOutcome runLayerDialog(const LayerDialogCall& call, bool createChosen);

// The LISP outcome: 1 normal end, 0 cancelled, -1 error.
int lispOutcome(int status);

// Installs the three LISP entry points into the module's function table.
void installLayerDialogHandlers();

}  // namespace ardo
