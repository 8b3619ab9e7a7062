#pragma once
// LISP functions around colours besides the colour texts.

namespace ardo::handlers {

int kemb_GetLayerRgbColor();
int kemb_getColorDataFromLisp();
int kemb_setCurrentColorFromLisp();
int kemb_ColorDialog();

}  // namespace ardo::handlers
