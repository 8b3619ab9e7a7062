#pragma once
// Permanent frames: a crossed box around each highlighted entity, on the frame layer.
#include <cstdint>
#include <vector>

#include "boundary/ResBuf.h"

namespace ardo {

class cOptHighlight;

// The frame's vertices around extents grown by `distance`: the rectangle and both its
// diagonals in one polyline, P4, P1, P3, P2, P4, P3, P2, P1 (P1 lower left, then
// counter-clockwise).
std::vector<Point3> crossedBox(const Point3& min, const Point3& max, double distance);

// Frames every entity of the set that has extents, in set order; each frame is added to
// the frames set. Entities that cannot be named or measured are skipped. The frame layer
// is created from its central file entry the first time a frame needs it.
void drawPermanentFrames(std::int64_t entities, const cOptHighlight& options, std::int64_t frames);

}  // namespace ardo
