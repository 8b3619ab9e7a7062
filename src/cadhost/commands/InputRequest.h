#pragma once
// What a prompt takes besides typed text, so that a window can offer picks in its view.
#include <optional>

#include "boundary/ResBuf.h"

namespace cadhost::commands {

// A point (with a rubber band from `from` when given, a rectangle for a corner), or
// objects (a pick, a window or a crossing, handed over as entity names).
struct InputRequest {
    enum class Kind { Text, Point, Objects };
    Kind kind = Kind::Text;
    std::optional<ardo::Point3> from;
    bool rectangle = false;
    // Objects picked before the command may answer this prompt (noun-verb editing).
    bool takesPickfirst = false;
};

}  // namespace cadhost::commands
