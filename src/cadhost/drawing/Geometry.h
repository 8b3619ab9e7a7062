#pragma once
// Bounding boxes and the placement of block contents (scale, rotation about z, offset).
#include <algorithm>
#include <cmath>
#include <optional>

#include "boundary/ResBuf.h"

namespace cadhost {

struct Extents {
    ardo::Point3 min{}, max{};
    bool operator==(const Extents&) const = default;
};

// A box that grows as points are added; empty until the first point.
class BoxBuilder {
public:
    void add(const ardo::Point3& p) {
        if (!box_) { box_ = Extents{p, p}; return; }
        for (int i = 0; i < 3; ++i) {
            box_->min[i] = std::min(box_->min[i], p[i]);
            box_->max[i] = std::max(box_->max[i], p[i]);
        }
    }
    void add(const Extents& e) { add(e.min); add(e.max); }
    const std::optional<Extents>& result() const { return box_; }

private:
    std::optional<Extents> box_;
};

// Where a block's contents land for an INSERT: p' = insertion + R(rotation) * S * (p - base).
struct Placement {
    ardo::Point3 base{}, insertion{}, scale{1, 1, 1};
    double rotationDegrees = 0;

    ardo::Point3 apply(const ardo::Point3& p) const {
        const double a = rotationDegrees * M_PI / 180.0;
        const double x = (p[0] - base[0]) * scale[0], y = (p[1] - base[1]) * scale[1], z = (p[2] - base[2]) * scale[2];
        return {insertion[0] + x * std::cos(a) - y * std::sin(a), insertion[1] + x * std::sin(a) + y * std::cos(a),
                insertion[2] + z};
    }
    // The box of the eight transformed corners, which holds the transformed contents.
    Extents apply(const Extents& e) const {
        BoxBuilder b;
        for (int i = 0; i < 8; ++i)
            b.add(apply(ardo::Point3{(i & 1) ? e.max[0] : e.min[0], (i & 2) ? e.max[1] : e.min[1],
                                     (i & 4) ? e.max[2] : e.min[2]}));
        return *b.result();
    }
};

}  // namespace cadhost
