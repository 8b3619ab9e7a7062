#pragma once
// Object snaps: the points of an entity's geometry that a point prompt may jump to, by
// the kinds and bit values of OSMODE as the common hosts number them.
#include <optional>
#include <string_view>
#include <vector>

#include "cadhost/geometry/Shape.h"

namespace cadhost::geometry {

enum class SnapKind : int {
    Endpoint = 1,
    Midpoint = 2,
    Center = 4,
    Node = 8,
    Quadrant = 16,
    Intersection = 32,
    Insertion = 64,
    Perpendicular = 128,
    Tangent = 256,
    Nearest = 512,
};

// Every kind in the order of its bit.
const std::vector<SnapKind>& snapKinds();
// OSMODE's bit that turns the running snaps off while keeping the chosen kinds.
constexpr int kSnapsOff = 16384;
// "Endpoint", "Midpoint", ...: what the marker's tooltip and the settings say.
std::string_view snapName(SnapKind kind);
// The kind a typed override names ("END", "_mid", ...); NON is none of them.
std::optional<SnapKind> snapOverride(std::string_view typed);
bool isNoSnapOverride(std::string_view typed);

struct SnapPoint {
    SnapKind kind;
    ardo::Point3 at;
};

// What one entity offers besides its measured shape: the insertion point of a block or
// text, a centre that is not an arc's (ellipses), and whether its pieces are its own lines
// (false for a box standing in for texts and blocks, whose corners are no points to snap to).
struct SnapSource {
    Shape shape;
    bool ownLines = true;
    // Chords along a curve (ellipses, splines): only the chain's ends are endpoints.
    bool chorded = false;
    std::optional<ardo::Point3> insertion;
    std::optional<ardo::Point3> center;
};

std::optional<SnapSource> snapSourceOf(const Drawing& drawing, Handle entity);

// The candidates of the kinds in `kinds` (OSMODE bits) that one entity offers near `cursor`
// (nearest and perpendicular need it), `from` the prompt's base point for perpendicular and
// tangent (left out without one). Intersections are between two entities: see below.
std::vector<SnapPoint> snapPoints(const SnapSource& source, int kinds, const ardo::Point3& cursor,
                                  const std::optional<ardo::Point3>& from);

// Where two entities' shapes meet.
std::vector<ardo::Point3> snapIntersections(const SnapSource& a, const SnapSource& b);

}  // namespace cadhost::geometry
