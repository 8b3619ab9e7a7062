#pragma once
// A uniform grid over the drawing's extents that finds the items whose boxes meet an area
// without visiting the others, so a repaint costs what is on screen. Items far larger than
// a cell are kept apart and always visited; items outside the grid land in its edge cells.
#include <cstdint>
#include <functional>
#include <vector>

#include "cadhost/gui/SceneTypes.h"

namespace cadhost::gui {

class GridIndex {
public:
    // Lays the grid over `bounds` with about `expected` items in mind.
    void reset(const Box2& bounds, std::size_t expected);
    void insert(std::uint32_t item, const Box2& box);
    // Every item inserted with a box meeting `area`, each once; a moved item may be listed
    // under its old box as well, so callers check the item's current box.
    void query(const Box2& area, const std::function<void(std::uint32_t)>& visit) const;

private:
    int column(double x) const;
    int row(double y) const;

    Box2 bounds_;
    int columns_ = 1, rows_ = 1;
    double cellWidth_ = 1, cellHeight_ = 1;
    std::vector<std::vector<std::uint32_t>> cells_;
    std::vector<std::uint32_t> large_;
    mutable std::vector<std::uint32_t> seen_;   // query stamp per item
    mutable std::uint32_t stamp_ = 0;
};

}  // namespace cadhost::gui
