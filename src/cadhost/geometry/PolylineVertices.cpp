#include "cadhost/geometry/PolylineVertices.h"

#include <cstdlib>
#include <string>

namespace cadhost::geometry {

namespace {

double number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }
int flags(const std::string& text) { return std::atoi(text.c_str()); }

constexpr int kClosed = 1;
constexpr int kSplineFrame = 16;               // a VERTEX's flag
constexpr int k3dPolyline = 8, kMesh = 16, kPolyface = 64;

}  // namespace

PolylineData lwpolylineData(const std::vector<EntityTag>& tags) {
    PolylineData data;
    double elevation = 0;
    for (const EntityTag& t : tags) {
        if (t.code == 10) data.vertices.push_back({{number(t.value), 0, 0}, 0});
        else if (t.code == 20 && !data.vertices.empty()) data.vertices.back().p[1] = number(t.value);
        else if (t.code == 42 && !data.vertices.empty()) data.vertices.back().bulge = number(t.value);
        else if (t.code == 38) elevation = number(t.value);
        else if (t.code == 70) data.closed = (flags(t.value) & kClosed) != 0;
    }
    for (PolylineVertex& v : data.vertices) v.p[2] = elevation;
    return data;
}

PolylineData polylineData(const std::vector<EntityTag>& tags, const std::vector<std::vector<EntityTag>>& parts) {
    PolylineData data;
    for (const EntityTag& t : tags)
        if (t.code == 70) {
            data.closed = (flags(t.value) & kClosed) != 0;
            data.flat = (flags(t.value) & (k3dPolyline | kMesh | kPolyface)) == 0;
        }
    for (const std::vector<EntityTag>& part : parts) {
        if (part.empty() || part.front().code != 0 || part.front().value != "VERTEX") continue;
        PolylineVertex v;
        bool frame = false;
        for (const EntityTag& t : part) {
            if (t.code == 10) v.p[0] = number(t.value);
            else if (t.code == 20) v.p[1] = number(t.value);
            else if (t.code == 30) v.p[2] = number(t.value);
            else if (t.code == 42) v.bulge = number(t.value);
            else if (t.code == 70) frame = (flags(t.value) & kSplineFrame) != 0;
        }
        if (!frame) data.vertices.push_back(v);
    }
    return data;
}

}  // namespace cadhost::geometry
