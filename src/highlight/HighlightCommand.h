#pragma once
// kemb_Highlight and C:kemb_HighlightOptions, installed into the module's function table
// by the module file.

namespace ardo {

// (kemb_Highlight command selection-set [settings-file section]): shows the entities until
// the prompt ends; returns nothing.
int kemb_Highlight();
// C:kemb_HighlightOptions: the options dialog on the module's own settings file.
int C_kemb_HighlightOptions();

void installHighlightHandlers();

}  // namespace ardo
