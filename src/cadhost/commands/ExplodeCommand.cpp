// EXPLODE: block references become the entities of their block, placed as the insert
// shows them; polylines become lines and arcs. The pieces keep their own layer, colour,
// linetype and lineweight, BYBLOCK included, as the common hosts leave them. Attribute
// values go with the insert; its block's attribute definitions come out as definitions.
#include <algorithm>
#include <cmath>
#include <string>

#include "cadhost/commands/BlockCommands.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/ExplodeGeometry.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::commands {

namespace {

// An insert's placement of its block, as its tags give it.
Placement placementOf(const geometry::Groups& g, const Drawing::BlockContents& block) {
    Placement p;
    p.block = g.text(2) ? *g.text(2) : std::string();
    p.point = g.point(10);
    p.scale = {g.get(41, 1), g.get(42, 1), g.get(43, 1)};
    p.rotation = g.get(50) * M_PI / 180;
    p.base = block.base;
    return p;
}

// A piece keeps the space of what it came from: model or paper.
void intoSpaceOf(std::vector<EntityTag>& piece, const std::vector<EntityTag>& whole) {
    std::erase_if(piece, [](const EntityTag& t) { return t.code == 67; });
    if (geometry::Groups(whole).flags(67) == 1) {
        const auto layer = std::find_if(piece.begin(), piece.end(), [](const EntityTag& t) { return t.code == 8; });
        piece.insert(layer, {67, "1"});
    }
}

class ExplodeCommand final : public SelectingCommand {
public:
    using SelectingCommand::SelectingCommand;

private:
    Step selected(const std::vector<std::int64_t>& chosen) override {
        context_.previousSelection = chosen;
        Drawing& drawing = *context_.drawing;
        std::size_t refused = 0, leftOut = 0;
        bool widthLost = false;
        std::vector<Handle> exploded;
        for (Handle h : editableEntities(context_, chosen)) {
            const auto tags = drawing.entityTags(h);
            const geometry::Groups g(tags);
            const std::string type = tags.front().value;
            std::vector<std::pair<std::vector<EntityTag>, Drawing::EntityRecords>> pieces;
            if (type == "INSERT") {
                const auto block = g.text(2) ? drawing.blockContents(*g.text(2)) : std::nullopt;
                if (!block || g.flags(70) > 1 || g.flags(71) > 1) {
                    ++refused;   // a missing block, or an array of inserts (MINSERT)
                    continue;
                }
                const Placement placement = placementOf(g, *block);
                for (Handle inner : block->entities) {
                    auto piece = placedEntity(drawing.entityTags(inner), placement);
                    if (!piece) {
                        ++leftOut;
                        continue;
                    }
                    Drawing::EntityRecords parts;
                    for (const auto& part : drawing.entityParts(inner))
                        if (auto placed = placedEntity(part, placement)) parts.push_back(std::move(*placed));
                    pieces.push_back({std::move(*piece), std::move(parts)});
                }
            } else if (type == "LWPOLYLINE" || type == "POLYLINE") {
                // Meshes and polyface meshes are no chains of segments.
                const auto polyline = (g.flags(70) & (16 | 64)) ? std::nullopt : geometry::polylineOf(drawing, h, tags);
                if (!polyline) {
                    ++refused;
                    continue;
                }
                for (auto& segment : polylineSegments(tags, *polyline, widthLost)) pieces.push_back({std::move(segment), {}});
            } else {
                ++refused;
                continue;
            }
            for (auto& [piece, parts] : pieces) {
                intoSpaceOf(piece, tags);
                if (!drawing.makeEntity(piece, parts)) ++leftOut;
            }
            exploded.push_back(h);
        }
        drawing.eraseEntities(exploded);
        if (widthLost) context_.message("Exploding this polyline has lost width information.\n");
        if (refused > 0)
            context_.message(std::to_string(refused) + (refused == 1 ? " was" : " were") + " not able to be exploded.\n");
        if (leftOut > 0)
            context_.message(std::to_string(leftOut) + (leftOut == 1 ? " object" : " objects") +
                             " of the blocks could not be placed exactly and " + (leftOut == 1 ? "was" : "were") +
                             " left out.\n");
        return Step::Done;
    }
};

}  // namespace

std::unique_ptr<Command> makeExplodeCommand(Context& context) { return std::make_unique<ExplodeCommand>(context); }

}  // namespace cadhost::commands
