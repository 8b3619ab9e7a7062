#pragma once
// The LISP functions that open the module's dialogs are built with the dialogs, which need
// a windowing toolkit; the module file installs them, and until then the functions say they
// are not available.
#include "boundary/Host.h"

namespace ardo {

struct DialogHandlers {
    LispHandler layerDialog = nullptr;      // kemb_layerDialog
    LispHandler ardoIniDialog = nullptr;    // kemb_ArdoIniDialog
    LispHandler editLayers = nullptr;       // C:Kemb_EditLayers
    LispHandler highlight = nullptr;        // kemb_Highlight
    LispHandler highlightOptions = nullptr; // C:kemb_HighlightOptions
};

DialogHandlers& dialogHandlers();

}  // namespace ardo
