#pragma once
// The vertices of a polyline as its tags give them, for the shapes drawn, picked and
// exported: the light-weight LWPOLYLINE and the old POLYLINE with its VERTEX records.
#include <vector>

#include "boundary/ResBuf.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::geometry {

struct PolylineVertex {
    ardo::Point3 p{};
    double bulge = 0;   // of the span that starts here
};

struct PolylineData {
    std::vector<PolylineVertex> vertices;
    bool closed = false;
    // False for 3D polylines and meshes, which are no outlines in the xy plane.
    bool flat = true;
};

// Vertices at the polyline's elevation (group 38).
PolylineData lwpolylineData(const std::vector<EntityTag>& tags);
// The POLYLINE's own tags and its records (VERTEX ...); spline frame points are left out.
PolylineData polylineData(const std::vector<EntityTag>& tags, const std::vector<std::vector<EntityTag>>& parts);

}  // namespace cadhost::geometry
