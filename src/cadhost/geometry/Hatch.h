#pragma once
// A HATCH entity's own geometry: its boundary loops as closed point chains and its pattern
// lines (as the entity carries them, already turned and scaled) cut to the area the loops
// enclose, nested loops making holes.
#include <optional>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Shape.h"

namespace cadhost::geometry {

struct PatternLine {
    double angle = 0;                  // radians
    ardo::Point3 base{}, offset{};     // the next line is the base moved by the offset
    std::vector<double> dashes;        // > 0 drawn, < 0 a gap, 0 a dot; none: solid
};

struct Hatch {
    std::vector<std::vector<ardo::Point3>> loops;
    bool solid = false;
    std::vector<PatternLine> pattern;
};

// Nothing for an entity that is not a HATCH.
std::optional<Hatch> hatchOf(const std::vector<EntityTag>& tags, int circleSegments);

// The pattern's strokes inside the loops (even-odd), as segments; a dot is a segment of no
// length. Stops at `limit` segments: a pattern too fine for its area is not worth more.
std::vector<Segment> patternSegments(const Hatch& hatch, std::size_t limit);

}  // namespace cadhost::geometry
