#pragma once
// Layer property values as a report shows them, and the comparison of colour codes that
// the audit and the apply share.
#include <cstdint>
#include <string>

namespace ardo {

// "ByLayer", "ByBlock", the index ("1"), "RGB:255,255,0", "BOOK$COLOUR", or "none" for a
// code that names no colour.
std::string colourText(std::int32_t code, const std::string& bookName, const std::string& colourName);
// "#rrggbb" of the colour a code shows, through the host's palette for index colours;
// empty for by layer, by block and no colour.
std::string colourRgbText(std::int32_t code);
// The lineweight list's millimetre text ("0.50 mm", "Vorgabe"); the number for values outside it.
std::string lineweightText(std::int32_t lineweight);
std::string plottableText(bool plottable);

// The same colour on both sides: true colours whatever their top byte, book colours by book
// and colour name without regard to case.
bool sameColour(std::int32_t fileCode, const std::string& fileBook, const std::string& fileName,
                std::int32_t drawingCode, const std::string& drawingBook, const std::string& drawingName);
// True for the colours a layer can have: index, true and book colours. By layer, by block
// and codes with an unknown top byte name none.
bool namesLayerColour(std::int32_t code);

}  // namespace ardo
