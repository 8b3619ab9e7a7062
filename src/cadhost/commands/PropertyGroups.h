#pragma once
// The general properties of entities as their groups hold them (colour, layer, linetype,
// linetype scale, lineweight, thickness): read across a selection and set on it. CHPROP,
// MATCHPROP and the properties dialog share these.
#include <optional>
#include <string>
#include <vector>

#include "boundary/HostColor.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

inline constexpr int kColorCodes[] = {62, 420, 430};
inline constexpr int kLayerCode = 8, kLinetypeCode = 6, kLinetypeScaleCode = 48, kLineweightCode = 370,
                     kThicknessCode = 39;

// Sets the entities' groups: each code in `remove` goes, `set` replaces or adds its tags
// (before extended data).
void setProperties(Drawing& drawing, const std::vector<Handle>& entities, std::vector<int> remove,
                   const std::vector<EntityTag>& set);

// The colour groups of an entity and back: none for BYLAYER, 62 for an index or
// BYBLOCK, 420 for a true colour, 430 for a book colour (with its 420).
ardo::HostColor colorOfGroups(const std::vector<EntityTag>& tags);
std::vector<EntityTag> colorGroups(const ardo::HostColor& color);

// What the selected entities have in common; nothing where they differ ("*VARIES*").
// Linetype "ByLayer" and lineweight -1 (ByLayer) stand for absent groups.
struct SharedProperties {
    std::optional<ardo::HostColor> color;
    std::optional<std::string> layer, linetype;
    std::optional<int> lineweight;
    std::optional<double> linetypeScale;
};
SharedProperties sharedProperties(const Drawing& drawing, const std::vector<Handle>& entities);

// The properties to set; those left empty stay as each entity has them.
using PropertyChanges = SharedProperties;
void applyProperties(Drawing& drawing, const std::vector<Handle>& entities, const PropertyChanges& changes);

}  // namespace cadhost::commands
