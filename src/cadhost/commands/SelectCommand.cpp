// SELECT: gathers objects into the previous selection set for the next command.
#include "cadhost/commands/ObjectSelection.h"

namespace cadhost::commands {

namespace {

class SelectCommand final : public SelectingCommand {
public:
    using SelectingCommand::SelectingCommand;

private:
    Step selected(const std::vector<std::int64_t>& entities) override {
        context_.previousSelection = entities;
        return Step::Done;
    }
};

}  // namespace

std::unique_ptr<Command> makeSelectCommand(Context& context) { return std::make_unique<SelectCommand>(context); }

}  // namespace cadhost::commands
