#pragma once
// The layer LISP functions: suite modules work with layers by layer key of the central
// layer control file instead of by layer name. Each takes the calling command's name as
// its first argument and answers nil on failure.
namespace ardo::handlers {

// (kemb_newlayer cmd key [prefix [suffix]]) -> state bits of the layer, created if missing.
int kemb_newlayer();
// (kemb_setlayer cmd key bits) -> the layer's new state bits; the layer must exist.
int kemb_setlayer();
// (Kemb_MakeLayer cmd key bits [prefix [suffix]]) -> (bits "name"); creates the layer if
// missing, then applies the bits, to a new layer as to an existing one.
int Kemb_MakeLayer();
// (kemb_getlayername cmd key) -> the entry's layer name.
int kemb_getlayername();
// (kemb_getlayerkey cmd name) -> the key of the first entry with that name (exact case).
int kemb_getlayerkey();
// (kemb_getLayerData cmd key) -> (name colour-code linetype linetype-file states).
int kemb_getLayerData();
// (Kemb_GetLayerDataEx cmd key) -> all eleven fields of the entry in file order: name,
// colour code, linetype, linetype file, states, colour book, colour name, lineweight,
// plot style, text field 10, plottable (1 or 0).
int Kemb_GetLayerDataEx();
// (Kemb_GetLayerFile cmd) -> path of the central layer control file in use.
int Kemb_GetLayerFile();
// (kemb_getObjektLayer command object objecttype folder): (key name current inDrawing).
int kemb_getObjektLayer();
// (kemb_getColorDataFromString text) -> ((62 . index) [(420 . rgb)] [(430 . "book$colour")]).
int kemb_getColorDataFromString();

}  // namespace ardo::handlers
