#pragma once
// The commands that change, copy and take back what is drawn: U, UNDO, REDO and the
// editing commands.
#include <memory>

#include "cadhost/commands/Command.h"

namespace cadhost::commands {

std::unique_ptr<Command> makeUCommand(Context& context);
std::unique_ptr<Command> makeUndoCommand(Context& context);
std::unique_ptr<Command> makeRedoCommand(Context& context);
std::unique_ptr<Command> makeMoveCommand(Context& context);
std::unique_ptr<Command> makeCopyCommand(Context& context);
std::unique_ptr<Command> makeRotateCommand(Context& context);
std::unique_ptr<Command> makeScaleCommand(Context& context);
std::unique_ptr<Command> makeMirrorCommand(Context& context);
std::unique_ptr<Command> makeChpropCommand(Context& context);
std::unique_ptr<Command> makePropertiesCommand(Context& context);
std::unique_ptr<Command> makeMatchpropCommand(Context& context);
std::unique_ptr<Command> makeLaycurCommand(Context& context);
std::unique_ptr<Command> makeLaymcurCommand(Context& context);
std::unique_ptr<Command> makeOffsetCommand(Context& context);
std::unique_ptr<Command> makeStretchCommand(Context& context);
std::unique_ptr<Command> makeTrimCommand(Context& context);
std::unique_ptr<Command> makeExtendCommand(Context& context);

}  // namespace cadhost::commands
