#pragma once
// Functions of the table whose work (the layer dialog, highlighting) lives in the module's
// dialogs; without them this build does not contain it. Each tells the user so on the command
// line, with the message file's "NotAvailable" text, and returns nil. The dialog functions
// go to their dialogs once the module file has installed them.

namespace ardo::handlers {

int kemb_layerDialog();
int kemb_ArdoIniDialog();
int C_Kemb_EditLayers();
int kemb_Highlight();
int C_kemb_HighlightOptions();

}  // namespace ardo::handlers
