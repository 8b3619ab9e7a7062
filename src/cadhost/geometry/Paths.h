#pragma once
// An entity's own geometry as chains of points, fine enough to draw and to measure curves
// that have no exact form here (ellipses, splines). The exact shapes of Shape.h and the
// drawing view are both made from these readers, so an entity has one geometry.
#include <optional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Shape.h"

namespace cadhost::geometry {

// The first value of each group code of an entity's own data (extended data left out).
class Groups {
public:
    explicit Groups(const std::vector<EntityTag>& tags) : tags_(tags) {}
    const std::string* text(int code) const;
    double get(int code, double fallback = 0) const;
    int flags(int code) const { return static_cast<int>(get(code)); }
    ardo::Point3 point(int code) const { return {get(code), get(code + 10), get(code + 20)}; }

private:
    const std::vector<EntityTag>& tags_;
};

struct Vertex {
    ardo::Point3 at{};
    double bulge = 0;                      // of the span that starts here
    double startWidth = 0, endWidth = 0;   // of the same span
};

struct Polyline {
    std::vector<Vertex> vertices;
    bool closed = false;
};

// The vertices of a LWPOLYLINE or POLYLINE (a spline's frame points left out, as they are
// not on the curve); nothing for other entities.
std::optional<Polyline> polylineOf(const Drawing& drawing, Handle entity, const std::vector<EntityTag>& tags);

// The points of the arc after its first, `reversed` walking it clockwise from its end;
// `circleSegments` chords make a full circle.
void appendArc(std::vector<ardo::Point3>& out, const Arc& arc, int circleSegments, bool reversed = false);

// One span of a polyline from `from` to `to`, `from` left out.
void appendSpan(std::vector<ardo::Point3>& out, const ardo::Point3& from, const ardo::Point3& to, double bulge,
                int circleSegments);

// Points along a non-rational B-spline (de Boor); its control polygon when the knots do
// not fit it.
std::vector<ardo::Point3> bsplinePoints(int degree, const std::vector<double>& knots,
                                        const std::vector<ardo::Point3>& control);

struct Path {
    std::vector<ardo::Point3> points;   // one point for a POINT
    bool closed = false;
    bool filled = false;                 // SOLID and TRACE
};

// LINE, ARC, CIRCLE, ELLIPSE, LWPOLYLINE, POLYLINE, SPLINE, POINT, SOLID, TRACE, 3DFACE and
// what framePathsOf gives; nothing for other entities (texts, blocks, hatches are not
// drawn from one chain).
std::vector<Path> pathsOf(const Drawing& drawing, Handle entity, const std::vector<EntityTag>& tags,
                          int circleSegments);

// A LEADER's path with its arrowhead (closed and filled, DIMASZ times DIMSCALE long from
// its dimension style, or from the header when the drawing lacks the style); the frames
// of IMAGE and WIPEOUT; a floating VIEWPORT's border (not the layout's own, ID 1).
std::vector<Path> framePathsOf(const Drawing& drawing, const std::vector<EntityTag>& tags);

}  // namespace cadhost::geometry
