#pragma once
// The colour code of a layer entry: one signed 32-bit integer whose top byte tells index
// colour (0x00), true colour (0x01, 0x02) or colour-book colour (0x04). Any other top byte
// is no colour.
#include <cstdint>
#include <optional>
#include <string>

#include "boundary/HostColor.h"

namespace ardo {

namespace colourcode {
constexpr std::int32_t kTrueColour = 0x02000000;   // drawing colours are always written so
constexpr std::int32_t kBookColour = 0x04000000;
constexpr int kByBlock = 0;
constexpr int kByLayer = 256;
constexpr std::int32_t kNoColour = -1;              // top byte 0xFF: read back as no colour
}  // namespace colourcode

// A drawing colour as code plus book and colour name (empty unless a book colour).
struct ColourCode {
    std::int32_t code = colourcode::kByLayer;
    std::string bookName;
    std::string colourName;
};

ColourCode encodeColour(const HostColor& colour);

// The host colour a code stands for; Method::None for an unknown top byte. A book colour
// carries its RGB and the names given.
HostColor decodeColour(std::int32_t code, const std::string& bookName = {},
                       const std::string& colourName = {});

// The colour a layer is created with: as decodeColour, but a book colour is looked up by
// its book and colour name through the host, and a book the host does not ship falls back
// to the code's own RGB as a true colour. None for an unknown top byte.
std::optional<HostColor> colorFromCode(std::int32_t code, const std::string& bookName,
                                       const std::string& colorName);

}  // namespace ardo
