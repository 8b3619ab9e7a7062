// ERASE: removes the selected objects; those on locked layers or in another space (model
// space while a layout is current, and the reverse) stay, as the common hosts leave them.
#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

class EraseCommand final : public SelectingCommand {
public:
    using SelectingCommand::SelectingCommand;

private:
    Step selected(const std::vector<std::int64_t>& entities) override {
        context_.drawing->eraseEntities(editableEntities(context_, entities));
        context_.previousSelection = entities;
        return Step::Done;
    }
};

}  // namespace

std::unique_ptr<Command> makeEraseCommand(Context& context) { return std::make_unique<EraseCommand>(context); }

}  // namespace cadhost::commands
