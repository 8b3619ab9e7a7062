#pragma once
// Binary DXF ("AutoCAD Binary DXF" sentinel) turned into the equivalent ASCII tags, so the
// rest of the host reads one format, and tags written back in binary form.
#include <optional>
#include <span>
#include <vector>
#include <string>
#include <string_view>

#include "cadhost/dxf/DxfDocument.h"

namespace cadhost {

bool isBinaryDxf(std::string_view bytes);

struct BinaryDxfText {
    std::string text;                     // the equivalent ASCII DXF, "\n" line ends
    std::vector<std::size_t> tagOffsets;  // byte of each tag in the binary file, then its size
    bool twoByteCodes = true;             // Release 12 writes one-byte group codes
};

// The ASCII text of a binary DXF, or the reason it cannot be read.
std::variant<BinaryDxfText, DxfError> binaryDxfToText(std::string_view bytes);

// The binary form of a tag: the value text is read as the group code's kind of value.
void appendBinaryTag(std::string& out, int code, std::string_view value, bool oneByteCodes);
// The first bytes of every binary DXF.
std::string_view binaryDxfSentinel();

}  // namespace cadhost
