#pragma once
// The commands that define, insert and take apart blocks, and hatch areas.
#include <memory>

#include "cadhost/commands/Command.h"

namespace cadhost::commands {

std::unique_ptr<Command> makeInsertCommand(Context& context);
std::unique_ptr<Command> makeBlockCommand(Context& context);
std::unique_ptr<Command> makeExplodeCommand(Context& context);
std::unique_ptr<Command> makeHatchCommand(Context& context);

}  // namespace cadhost::commands
