#pragma once
// Lines, arcs and circles as TRIM, EXTEND and OFFSET change them: read from an entity's
// tags, cut and lengthened along their own parameter, and written back; and the log of
// such edits that a command's own Undo option takes back.
#include <optional>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Shape.h"

namespace cadhost::commands {

struct Curve {
    enum class Kind { Line, Arc, Circle };
    Kind kind = Kind::Line;
    ardo::Point3 a{}, b{};   // a line's ends
    geometry::Arc arc;       // an arc or circle, start < end (radians)

    // Length along the curve is measured by a parameter: a line's runs from 0 at a to 1
    // at b, an arc's is the angle from its start, a circle's the angle from 0.
    double span() const;
    double parameterOf(const ardo::Point3& p) const;
    ardo::Point3 pointAt(double parameter) const;
    // The piece between two parameters (from < to), as a line or an arc.
    Curve piece(double from, double to) const;
    geometry::Shape shape() const;
};

// Nothing for other entity types.
std::optional<Curve> curveOf(const std::vector<EntityTag>& tags);
// The tags with the curve's geometry. A circle that became an arc gets the type ARC and
// must be made anew (type cannot change in place).
std::vector<EntityTag> curveTags(std::vector<EntityTag> tags, const Curve& curve);

// Changes to the drawing grouped in actions, so that a command can take back its last one.
class EditLog {
public:
    explicit EditLog(Drawing& drawing) : drawing_(drawing) {}
    void beginAction() { actions_.emplace_back(); }
    void modify(Handle entity, const std::vector<EntityTag>& tags);
    std::optional<Handle> make(const std::vector<EntityTag>& tags);
    void erase(Handle entity);
    // Writes the curve back to the entity; a circle turned arc replaces the entity. The
    // entity that holds the curve now.
    std::optional<Handle> replace(Handle entity, const Curve& curve);
    // Makes a copy of the entity with the curve's geometry.
    std::optional<Handle> copyWith(Handle entity, const Curve& curve);
    // False when there is nothing to take back.
    bool undo();

private:
    struct Change {
        enum class What { Modified, Made, Erased } what;
        Handle entity;
        std::vector<EntityTag> before;
    };
    Drawing& drawing_;
    std::vector<std::vector<Change>> actions_;
};

}  // namespace cadhost::commands
