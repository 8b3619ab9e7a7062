#include "cadhost/commands/Command.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

bool Context::echoes() const {
    if (!drawing) return true;
    const auto echo = drawing->getVar("CMDECHO");
    return !echo || echo->integer != 0;
}

}  // namespace cadhost::commands
