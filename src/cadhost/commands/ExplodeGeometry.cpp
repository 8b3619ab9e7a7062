#include "cadhost/commands/ExplodeGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "cadhost/commands/NewEntity.h"
#include "cadhost/dxf/TagValue.h"
#include "cadhost/geometry/Shape.h"

namespace cadhost::commands {

namespace {

using Vec = ardo::Point3;
constexpr double kTwoPi = 2 * std::numbers::pi;

// The insert's linear part: turned after scaling along the block's axes.
struct Linear {
    double a = 1, b = 0, c = 0, d = 1, z = 1;
    Vec operator()(const Vec& v) const { return {a * v[0] + b * v[1], c * v[0] + d * v[1], z * v[2]}; }
    double det() const { return a * d - b * c; }
};

Linear linearOf(const Placement& p) {
    const double cs = std::cos(p.rotation), sn = std::sin(p.rotation);
    return {cs * p.scale[0], -sn * p.scale[1], sn * p.scale[0], cs * p.scale[1], p.scale[2]};
}

bool uniform(const Placement& p) {
    return std::fabs(std::fabs(p.scale[0]) - std::fabs(p.scale[1])) <= 1e-12 * std::fabs(p.scale[0]);
}

double length(const Vec& v) { return std::hypot(v[0], v[1]); }
double direction(const Vec& v) { return std::atan2(v[1], v[0]); }
double normalized(double radians) {
    const double r = std::fmod(radians, kTwoPi);
    return r < 0 ? r + kTwoPi : r;
}

double numberOf(const std::vector<EntityTag>& tags, int code, double fallback = 0) {
    return geometry::Groups(tags).get(code, fallback);
}
Vec pointOf(const std::vector<EntityTag>& tags, int code) { return geometry::Groups(tags).point(code); }

// Applies `change` to every point (or vector) of group `code`: x, then y and z when they
// follow. A point written without z keeps none.
template <typename Change>
void changePoints(std::vector<EntityTag>& tags, int code, Change change) {
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code != code) continue;
        Vec p{toDouble(tags[i].value), 0, 0};
        std::size_t n = 1;
        for (; n < 3 && i + n < tags.size() && tags[i + n].code == code + 10 * static_cast<int>(n); ++n)
            p[n] = toDouble(tags[i + n].value);
        const Vec q = change(p);
        for (std::size_t k = 0; k < n; ++k) tags[i + k].value = dxfNumber(q[k]);
        i += n - 1;
    }
}

template <typename Change>
void changeValue(std::vector<EntityTag>& tags, int code, Change change) {
    for (EntityTag& t : tags)
        if (t.code == code) t.value = dxfNumber(change(toDouble(t.value)));
}

void setValue(std::vector<EntityTag>& tags, int code, double value, int after) {
    for (EntityTag& t : tags)
        if (t.code == code) {
            t.value = dxfNumber(value);
            return;
        }
    const auto at = std::find_if(tags.begin(), tags.end(), [&](const EntityTag& t) { return t.code == after; });
    tags.insert(at == tags.end() ? at : at + 1, {code, dxfNumber(value)});
}

bool hasMarkers(const std::vector<EntityTag>& tags) {
    return std::any_of(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 100; });
}

// An entity made anew with the properties of `from`.
std::vector<EntityTag> madeLike(const std::vector<EntityTag>& from, std::string_view type, std::string_view subclass,
                                const std::vector<EntityTag>& data) {
    const bool markers = hasMarkers(from);
    std::vector<EntityTag> out{{0, std::string(type)}};
    if (markers) out.push_back({100, "AcDbEntity"});
    for (EntityTag& t : entityProperties(from)) out.push_back(std::move(t));
    if (markers && !subclass.empty()) out.push_back({100, std::string(subclass)});
    for (const EntityTag& t : data) {
        if (t.code == 100 && !markers) continue;
        out.push_back(t);
    }
    return out;
}

// The direction at `radians` after the linear part, in degrees.
double turnedDegrees(const Linear& l, double radians) {
    return normalized(direction(l({std::cos(radians), std::sin(radians), 0}))) * 180 / std::numbers::pi;
}

// A circle, arc or ellipse placed: kept as what it is under equal scales, an ellipse
// otherwise.
std::vector<EntityTag> placedConic(std::vector<EntityTag> tags, const Placement& placement, const Linear& l) {
    const std::string type = tags.front().value;
    const double sign = l.det() < 0 ? -1 : 1;
    const Vec centre = placement.place(pointOf(tags, 10));
    if (type != "ELLIPSE" && uniform(placement)) {
        changePoints(tags, 10, [&](const Vec&) { return centre; });
        changeValue(tags, 40, [&](double r) { return r * std::sqrt(std::fabs(l.det())); });
        if (type == "ARC") {
            const double a0 = numberOf(tags, 50) * std::numbers::pi / 180, a1 = numberOf(tags, 51) * std::numbers::pi / 180;
            const double s = turnedDegrees(l, sign > 0 ? a0 : a1), e = turnedDegrees(l, sign > 0 ? a1 : a0);
            changeValue(tags, 50, [&](double) { return s; });
            changeValue(tags, 51, [&](double) { return e; });
        }
        return tags;
    }
    Vec u, v;
    double ts = 0, te = kTwoPi;
    if (type == "ELLIPSE") {
        u = pointOf(tags, 11);
        const double ratio = numberOf(tags, 40, 1);
        v = {-u[1] * ratio, u[0] * ratio, 0};
        ts = numberOf(tags, 41, 0);
        te = numberOf(tags, 42, kTwoPi);
    } else {
        const double r = numberOf(tags, 40);
        u = {r, 0, 0};
        v = {0, r, 0};
        if (type == "ARC") {
            ts = numberOf(tags, 50) * std::numbers::pi / 180;
            te = numberOf(tags, 51) * std::numbers::pi / 180;
        }
    }
    if (te <= ts) te += kTwoPi;
    const bool full = te - ts >= kTwoPi - 1e-12;
    const Vec a = l(u), b = l(v);
    // The conjugate half-diameters a and b give the axes where |a cos t + b sin t| is largest.
    double t0 = 0.5 * std::atan2(2 * (a[0] * b[0] + a[1] * b[1]), (a[0] * a[0] + a[1] * a[1]) - (b[0] * b[0] + b[1] * b[1]));
    const auto at = [&](double t) { return Vec{a[0] * std::cos(t) + b[0] * std::sin(t), a[1] * std::cos(t) + b[1] * std::sin(t), 0}; };
    if (length(at(t0 + std::numbers::pi / 2)) > length(at(t0))) t0 += std::numbers::pi / 2;
    const Vec major = at(t0), minor = at(t0 + std::numbers::pi / 2);
    const double ratio = std::min(1.0, length(minor) / length(major));
    double start = 0, end = kTwoPi;
    if (!full) {
        start = normalized(sign > 0 ? ts - t0 : t0 - te);
        end = normalized(sign > 0 ? te - t0 : t0 - ts);
    }
    std::vector<EntityTag> data;
    appendPoint(data, 10, centre);
    appendPoint(data, 11, {major[0], major[1], 0});
    appendPoint(data, 210, {0, 0, 1});
    data.push_back({40, dxfNumber(ratio)});
    data.push_back({41, dxfNumber(start)});
    data.push_back({42, dxfNumber(end)});
    return madeLike(tags, "ELLIPSE", "AcDbEllipse", data);
}

std::optional<std::vector<EntityTag>> placedInsert(std::vector<EntityTag> tags, const Placement& placement) {
    const double turn = numberOf(tags, 50) * std::numbers::pi / 180;
    const double quarters = turn / (std::numbers::pi / 2);
    const bool square = std::fabs(quarters - std::round(quarters)) < 1e-9;
    if (placement.scale[0] != placement.scale[1] && !square) return std::nullopt;
    const bool swapped = square && (static_cast<long long>(std::llround(quarters)) % 2 != 0);
    const double sx = swapped ? placement.scale[1] : placement.scale[0];
    const double sy = swapped ? placement.scale[0] : placement.scale[1];
    changePoints(tags, 10, [&](const Vec& p) { return placement.place(p); });
    setValue(tags, 41, numberOf(tags, 41, 1) * sx, 30);
    setValue(tags, 42, numberOf(tags, 42, 1) * sy, 41);
    setValue(tags, 43, numberOf(tags, 43, 1) * placement.scale[2], 42);
    setValue(tags, 50, (turn + placement.rotation) * 180 / std::numbers::pi, 43);
    return tags;
}

void placeText(std::vector<EntityTag>& tags, const Placement& placement, const Linear& l, bool mtext) {
    changePoints(tags, 10, [&](const Vec& p) { return placement.place(p); });
    const double sx = std::fabs(placement.scale[0]), sy = std::fabs(placement.scale[1]);
    changeValue(tags, 40, [&](double h) { return h * sy; });
    if (mtext) {
        changeValue(tags, 41, [&](double w) { return w * sx; });
        // The direction of the x axis says the rotation without doubt about units; 50 goes.
        const bool directed = std::any_of(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 11; });
        const double turn = directed ? direction(pointOf(tags, 11)) : numberOf(tags, 50) * std::numbers::pi / 180;
        std::erase_if(tags, [](const EntityTag& t) { return t.code == 50 || t.code == 11 || t.code == 21 || t.code == 31; });
        const Vec axis = l({std::cos(turn), std::sin(turn), 0});
        const double size = length(axis);
        const auto at = std::find_if(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 30; });
        std::vector<EntityTag> data;
        appendPoint(data, 11, {axis[0] / size, axis[1] / size, 0});
        tags.insert(at == tags.end() ? at : at + 1, data.begin(), data.end());
        return;
    }
    changePoints(tags, 11, [&](const Vec& p) { return placement.place(p); });
    if (sx != sy) setValue(tags, 41, numberOf(tags, 41, 1) * sx / sy, 40);
    setValue(tags, 50, turnedDegrees(l, numberOf(tags, 50) * std::numbers::pi / 180), 40);
}

bool onPlanView(const std::vector<EntityTag>& tags) {
    return std::fabs(numberOf(tags, 210, 0)) < 1e-12 && std::fabs(numberOf(tags, 220, 0)) < 1e-12 &&
           numberOf(tags, 230, 1) > 0;
}

}  // namespace

std::vector<EntityTag> entityProperties(const std::vector<EntityTag>& tags) {
    static constexpr int kCodes[] = {8, 6, 62, 370, 420, 430, 440, 48, 60, 67, 284};
    std::vector<EntityTag> out;
    int markers = 0;
    for (std::size_t i = 1; i < tags.size(); ++i) {
        const EntityTag& t = tags[i];
        if (t.code == 1001 || (t.code == 100 && ++markers > 1)) break;
        if (std::find(std::begin(kCodes), std::end(kCodes), t.code) != std::end(kCodes)) out.push_back(t);
    }
    return out;
}

std::optional<std::vector<EntityTag>> placedEntity(const std::vector<EntityTag>& given, const Placement& placement) {
    if (given.empty() || !onPlanView(given)) return std::nullopt;
    std::vector<EntityTag> tags = given;
    const std::string type = tags.front().value;
    const Linear l = linearOf(placement);
    const auto place = [&](const Vec& p) { return placement.place(p); };
    if (type == "LINE" || type == "POINT" || type == "SOLID" || type == "TRACE" || type == "3DFACE") {
        for (int code : {10, 11, 12, 13}) changePoints(tags, code, place);
        return tags;
    }
    if (type == "CIRCLE" || type == "ARC" || type == "ELLIPSE") return placedConic(std::move(tags), placement, l);
    if (type == "LWPOLYLINE") {
        const bool arcs = std::any_of(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 42 && toDouble(t.value) != 0; });
        if (arcs && !uniform(placement)) return std::nullopt;
        const double elevation = numberOf(tags, 38);
        changePoints(tags, 10, [&](const Vec& p) { return place({p[0], p[1], elevation}); });
        const double z = place({0, 0, elevation})[2];
        if (z != 0 || elevation != 0) setValue(tags, 38, z, 90);
        const double k = std::sqrt(std::fabs(l.det()));
        for (int code : {40, 41, 43}) changeValue(tags, code, [&](double w) { return w * k; });
        if (l.det() < 0) changeValue(tags, 42, [](double bulge) { return -bulge; });
        return tags;
    }
    if (type == "TEXT" || type == "ATTDEF" || type == "ATTRIB" || type == "MTEXT") {
        placeText(tags, placement, l, type == "MTEXT");
        return tags;
    }
    if (type == "INSERT") return placedInsert(std::move(tags), placement);
    if (type == "SPLINE") {
        for (int code : {10, 11}) changePoints(tags, code, place);
        for (int code : {12, 13}) changePoints(tags, code, l);
        return tags;
    }
    return std::nullopt;
}

std::vector<std::vector<EntityTag>> polylineSegments(const std::vector<EntityTag>& tags, const geometry::Polyline& polyline,
                                                     bool& widthLost) {
    std::vector<std::vector<EntityTag>> out;
    const auto& chain = polyline.vertices;
    const std::size_t n = chain.size();
    const std::size_t segments = polyline.closed ? n : (n > 0 ? n - 1 : 0);
    for (std::size_t i = 0; i < segments; ++i) {
        const geometry::Vertex& from = chain[i];
        const Vec& to = chain[(i + 1) % n].at;
        if (from.startWidth != 0 || from.endWidth != 0) widthLost = true;
        if (from.at == to) continue;
        std::vector<EntityTag> data;
        const auto arc = geometry::bulgeArc(from.at, to, from.bulge);
        if (!arc) {
            appendPoint(data, 10, from.at);
            appendPoint(data, 11, to);
            out.push_back(madeLike(tags, "LINE", "AcDbLine", data));
            continue;
        }
        appendPoint(data, 10, arc->center);
        data.push_back({40, dxfNumber(arc->radius)});
        data.push_back({100, "AcDbArc"});
        data.push_back({50, dxfDegrees(normalized(arc->start))});
        data.push_back({51, dxfDegrees(normalized(arc->end))});
        out.push_back(madeLike(tags, "ARC", "AcDbCircle", data));
    }
    return out;
}

}  // namespace cadhost::commands
