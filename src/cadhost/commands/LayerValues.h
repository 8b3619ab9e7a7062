#pragma once
// The property values the layer command reads: colours and lineweights.
#include <optional>
#include <string>

#include "cadhost/colors/ColorServices.h"
#include "boundary/HostColor.h"
#include "boundary/ResBuf.h"

namespace cadhost::commands {

// An index colour by number 1..255 or by name; by layer and by block are no layer colours.
std::optional<ardo::HostColor> layerIndexColor(const ardo::ResBuf& input, const ColorServices& colors);
// "r,g,b".
std::optional<ardo::HostColor> layerTrueColor(const ardo::ResBuf& input, const ColorServices& colors);
// "BOOK$COLOR" of a colour book the host has.
std::optional<ardo::HostColor> layerBookColor(const ardo::ResBuf& input, const ColorServices& colors);

// The colour as the layer command shows it: "1", "255,128,0" or "BOOK$COLOR".
std::string layerColorText(const ardo::HostColor& color);

// Millimetres 0.0..2.11, rounded to the nearest standard lineweight (hundredths of a mm).
std::optional<int> layerLineweight(const ardo::ResBuf& input);
// "0.25mm", or "Default" for the default lineweight.
std::string lineweightText(int lineweight);

}  // namespace cadhost::commands
