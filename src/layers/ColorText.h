#pragma once
// Colour texts as suite modules pass them: index colour names and numbers, RGB names with
// or without "RGB:", colour-book colours as "book$colour", and the words for by layer and
// by block in the host's English and German forms.
#include <string>

#include "boundary/HostColor.h"
#include "boundary/ResBuf.h"

namespace ardo {

// 1 when the text named a colour and the colour was set, 0 otherwise. The English words
// are tried before their German forms, so a host of either language understands both.
int parseColorText(HostColor& color, const std::string& text);

// The colour as DXF group pairs, each pair as RTLB, RTSHORT code, RTDOTE, value, RTLE:
// (62 . index) always, (420 . RGB) for true and book colours, (430 . "book$colour") for
// book colours. True and book colours carry the nearest index colour in group 62.
ResBufChain colorDataList(const HostColor& color);

// The colour as the host writes it in CECOLOR: BYLAYER, BYBLOCK, an index, "RGB:r,g,b" or
// "book$colour"; empty for no colour.
std::string colorText(const HostColor& color);

}  // namespace ardo
