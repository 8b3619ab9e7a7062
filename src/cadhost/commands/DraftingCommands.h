#pragma once
// The commands that draw and erase entities.
#include <memory>

#include "cadhost/commands/Command.h"

namespace cadhost::commands {

std::unique_ptr<Command> makeLineCommand(Context& context);
std::unique_ptr<Command> makeCircleCommand(Context& context);
std::unique_ptr<Command> makeRectangCommand(Context& context);
std::unique_ptr<Command> makePointCommand(Context& context);
std::unique_ptr<Command> makeEraseCommand(Context& context);
std::unique_ptr<Command> makePlineCommand(Context& context);
std::unique_ptr<Command> makeArcCommand(Context& context);
std::unique_ptr<Command> makeTextCommand(Context& context);
std::unique_ptr<Command> makeMtextCommand(Context& context);

}  // namespace cadhost::commands
