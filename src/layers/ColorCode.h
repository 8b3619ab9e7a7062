#pragma once
// The colour code of a layer entry: one signed 32-bit integer whose top byte tells an
// index colour (0x00), a true colour (0x01, 0x02) or a colour-book colour (0x04).
#include <cstdint>
#include <optional>
#include <string>

#include "host/HostColor.h"

namespace ardo {

// The host colour of a code. A book colour is looked up by its book and colour name
// through the host; a book the host does not ship falls back to the code's own RGB as a
// true colour. An unknown top byte is no colour.
std::optional<HostColor> colorFromCode(std::int32_t code, const std::string& bookName,
                                       const std::string& colorName);

}  // namespace ardo
