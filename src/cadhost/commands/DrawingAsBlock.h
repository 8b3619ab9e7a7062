#pragma once
// Block definitions taken from elsewhere: a block of another drawing, or a whole DXF file
// inserted as a block, with the layers, linetypes, text styles and blocks they use.
#include <string>

#include "base/Result.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// Defines `name` in `into` from the block of that name in `from`; the records and blocks
// its entities name are copied first. What `into` has already is kept, as inserting a
// drawing keeps it, but for anonymous blocks (a dimension's), which are numbered anew.
ardo::Status copyBlock(Drawing& into, const Drawing& from, const std::string& name);

// Reads the DXF file and defines a block named after it (the file name without folder
// and extension) from its model space, with INSBASE as the base point. A block of that
// name in `into` is kept and used. The block's name, or why the file cannot be inserted.
ardo::Result<std::string> defineBlockFromFile(Drawing& into, const std::string& path);

}  // namespace cadhost::commands
