#pragma once
// Where a block's contents land in an insert: its base point at the insertion point,
// scaled along the block's axes, then turned about the insertion point.
#include <string>
#include <vector>

#include "boundary/ResBuf.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

struct Placement {
    std::string block;
    ardo::Point3 point{};
    ardo::Point3 scale{1, 1, 1};
    double rotation = 0;   // radians
    ardo::Point3 base{};   // the block's base point

    // A point of the block's coordinates in the drawing.
    ardo::Point3 place(const ardo::Point3& p) const;
};

// The ATTRIB an insert gets from an attribute definition of its block (the definition's
// tags as the drawing gives them) and the value given. A definition on layer "0" puts the
// attribute on the insert's layer.
std::vector<EntityTag> attributeFrom(const std::vector<EntityTag>& definition, const std::string& value,
                                     const Placement& placement, const std::string& insertLayer);

}  // namespace cadhost::commands
