#pragma once
// Moving, rotating, scaling and mirroring an entity's data: a similarity of the xy plane
// (z is moved and scaled along, never turned), applied to every point, length and angle
// of the entity types the host draws.
#include <optional>
#include <vector>

#include "boundary/ResBuf.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

class Transform {
public:
    static Transform translation(const ardo::Point3& by);
    static Transform rotation(const ardo::Point3& base, double angle);
    static Transform scaling(const ardo::Point3& base, double factor);
    // The reflection in the line through a and b (which differ in x or y).
    static Transform mirror(const ardo::Point3& a, const ardo::Point3& b);

    ardo::Point3 point(const ardo::Point3& p) const;
    ardo::Point3 vector(const ardo::Point3& v) const;
    // The direction at `radians` after the transform, in [0, 2pi).
    double angle(double radians) const;
    double scale() const;
    bool mirrored() const { return m_[0][0] * m_[1][1] - m_[0][1] * m_[1][0] < 0; }

private:
    double m_[2][2] = {{1, 0}, {0, 1}};
    ardo::Point3 t_{};
    double zScale_ = 1;
};

// The entity's tags (as Drawing::entityTags gives them, or an insert's ATTRIB as
// Drawing::entityParts does) with the transform applied; nothing for a type the host
// cannot transform.
std::optional<std::vector<EntityTag>> transformedTags(std::vector<EntityTag> tags, const Transform& transform);

// The angle in [0, 2pi).
double normalizedAngle(double radians);

// Sets the first group with `code` of the entity's own data; a group that is absent is
// added before extended data unless the value is 0, its default.
void setGroupNumber(std::vector<EntityTag>& tags, int code, double value);

}  // namespace cadhost::commands
