// ERASE: removes the selected objects; those on locked layers or in another space (model
// space while a layout is current, and the reverse) stay, as the common hosts leave them.
#include <unordered_map>

#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

class EraseCommand final : public SelectingCommand {
public:
    using SelectingCommand::SelectingCommand;

private:
    Step selected(const std::vector<std::int64_t>& entities) override {
        Drawing& drawing = *context_.drawing;
        std::size_t locked = 0, elsewhere = 0;
        const auto tilemode = drawing.getVar("TILEMODE");
        const Space current = !tilemode || tilemode->integer != 0 ? Space::Model : Space::Paper;
        std::vector<Handle> erasing;
        erasing.reserve(entities.size());
        std::unordered_map<std::string, bool> lockedLayers;   // looked up once per layer
        for (std::int64_t id : entities) {
            const auto entity = drawing.entity(static_cast<Handle>(id));
            if (!entity) continue;
            if (entity->space != current) {
                ++elsewhere;
                continue;
            }
            auto [known, fresh] = lockedLayers.try_emplace(entity->layer, false);
            if (fresh) {
                const auto layer = drawing.findLayer(entity->layer);
                known->second = layer && layer->isLocked;
            }
            if (known->second) ++locked;
            else erasing.push_back(static_cast<Handle>(id));
        }
        drawing.eraseEntities(erasing);
        if (elsewhere > 0)
            context_.message(std::to_string(elsewhere) + (elsewhere == 1 ? " was" : " were") + " not in current space.\n");
        if (locked > 0) context_.message(std::to_string(locked) + (locked == 1 ? " was" : " were") + " on a locked layer.\n");
        context_.previousSelection = entities;
        return Step::Done;
    }
};

}  // namespace

std::unique_ptr<Command> makeEraseCommand(Context& context) { return std::make_unique<EraseCommand>(context); }

}  // namespace cadhost::commands
