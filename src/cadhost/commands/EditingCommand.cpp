#include "cadhost/commands/EditingCommand.h"

#include <unordered_map>

#include "cadhost/commands/EntityTransform.h"

namespace cadhost::commands {

namespace {

std::string counted(std::size_t n, const std::string& what) {
    return std::to_string(n) + (n == 1 ? " was " : " were ") + what + ".\n";
}

}  // namespace

std::vector<Handle> editableEntities(const Context& context, const std::vector<std::int64_t>& entities) {
    Drawing& drawing = *context.drawing;
    std::size_t locked = 0, elsewhere = 0;
    const auto tilemode = drawing.getVar("TILEMODE");
    const Space current = !tilemode || tilemode->integer != 0 ? Space::Model : Space::Paper;
    std::vector<Handle> out;
    out.reserve(entities.size());
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
        if (known->second)
            ++locked;
        else
            out.push_back(static_cast<Handle>(id));
    }
    if (elsewhere > 0) context.message(counted(elsewhere, "not in current space"));
    if (locked > 0) context.message(counted(locked, "on a locked layer"));
    return out;
}

EditingCommand::EditingCommand(Context& context)
    : context_(context), drawing_(*context.drawing),
      selection_(*context.drawing, context.previousSelection, context.selectionMembers) {}

std::string EditingCommand::prompt() const { return selecting_ ? selection_.prompt() : ownPrompt(); }

InputRequest EditingCommand::request() const { return selecting_ ? selection_.request() : ownRequest(); }

Step EditingCommand::take(const ardo::ResBuf& input) {
    if (!selecting_) return answer(input);
    if (const auto going = takeObjects(selection_, input, context_)) return *going;
    context_.previousSelection = selection_.selected();
    entities_ = editableEntities(context_, selection_.selected());
    if (entities_.empty()) return Step::Done;
    selecting_ = false;
    return begin();
}

std::vector<Handle> transformEntities(const Context& context, const std::vector<Handle>& entities,
                                      const Transform& transform, bool copy) {
    Drawing& drawing = *context.drawing;
    std::vector<Handle> copies;
    std::size_t unknown = 0;
    for (Handle h : entities) {
        auto tags = transformedTags(drawing.entityTags(h), transform);
        // An insert's attributes go with it; a POLYLINE's vertices are not transformed yet.
        auto parts = drawing.entityParts(h);
        bool known = tags.has_value();
        for (auto& part : parts) {
            auto moved = known ? transformedTags(std::move(part), transform) : std::nullopt;
            known = moved.has_value();
            if (known) part = std::move(*moved);
        }
        if (!known) {
            ++unknown;
            continue;
        }
        if (copy) {
            const auto own = [](const EntityTag& t) { return t.code == 5 || t.code == 330; };
            std::erase_if(*tags, own);
            for (auto& part : parts) std::erase_if(part, own);
            if (const auto made = drawing.makeEntity(*tags, parts)) copies.push_back(*made);
        } else {
            drawing.modifyEntity(h, *tags);
            if (!parts.empty()) drawing.modifyEntityParts(h, parts);
        }
    }
    if (unknown > 0)
        context.message(std::to_string(unknown) + (unknown == 1 ? " object was" : " objects were") +
                        " of a kind this command cannot change.\n");
    return copies;
}

}  // namespace cadhost::commands
