#pragma once
// PLOT and -PLOT at the command line: the plot's settings asked prompt by prompt, then the
// PDF written by the installed plot writer.
#include <memory>

#include "cadhost/commands/Command.h"

namespace cadhost::commands {

std::unique_ptr<Command> makePlotCommand(Context& context);

}  // namespace cadhost::commands
