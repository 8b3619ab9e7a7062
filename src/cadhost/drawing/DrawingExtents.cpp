// Geometric extents of entities; block references through their block's extents.
#include <cmath>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

namespace {

using ardo::Point3;
constexpr int kMaxBlockNesting = 16;

// The values of one entity's own tags by code, first occurrence.
struct TagReader {
    std::span<const DxfTag> tags;
    std::optional<std::string_view> text(int code) const {
        for (const DxfTag& t : tags) {
            if (t.code == 1001) break;
            if (t.code == code) return t.value;
        }
        return std::nullopt;
    }
    double number(int code, double fallback = 0) const {
        const auto t = text(code);
        return t ? toDouble(*t, fallback) : fallback;
    }
    Point3 point(int code) const { return {number(code), number(code + 10), number(code + 20)}; }
    // Every point with this first code, in order (vertices, control points).
    template <class F>
    void eachPoint(int code, F&& f) const {
        for (std::size_t i = 0; i < tags.size() && tags[i].code != 1001; ++i) {
            if (tags[i].code != code) continue;
            Point3 p{toDouble(tags[i].value), 0, 0};
            if (i + 1 < tags.size() && tags[i + 1].code == code + 10) p[1] = toDouble(tags[i + 1].value);
            if (i + 2 < tags.size() && tags[i + 2].code == code + 20) p[2] = toDouble(tags[i + 2].value);
            f(p);
        }
    }
};

void addCircle(BoxBuilder& box, const Point3& c, double r) {
    box.add(Point3{c[0] - r, c[1] - r, c[2]});
    box.add(Point3{c[0] + r, c[1] + r, c[2]});
}

// An arc from start to end angle (degrees, counter-clockwise): its end points and every
// quadrant point it passes.
void addArc(BoxBuilder& box, const Point3& c, double r, double start, double end) {
    auto at = [&](double deg) {
        const double a = deg * M_PI / 180.0;
        box.add(Point3{c[0] + r * std::cos(a), c[1] + r * std::sin(a), c[2]});
    };
    start = std::fmod(std::fmod(start, 360.0) + 360.0, 360.0);
    end = std::fmod(std::fmod(end, 360.0) + 360.0, 360.0);
    if (end <= start) end += 360.0;
    at(start);
    at(end);
    for (double q = 0; q < 720.0; q += 90.0)
        if (q > start && q < end) at(q);
}

void addEllipse(BoxBuilder& box, const TagReader& r) {
    const Point3 c = r.point(10), major = r.point(11);
    const double ratio = r.number(40, 1);
    double p0 = r.number(41, 0), p1 = r.number(42, 2 * M_PI);
    if (p1 <= p0) p1 += 2 * M_PI;
    // Minor axis: the major axis turned by 90 degrees about z, times the ratio.
    const Point3 minor{-major[1] * ratio, major[0] * ratio, 0};
    constexpr int kSteps = 64;
    for (int i = 0; i <= kSteps; ++i) {
        const double t = p0 + (p1 - p0) * i / kSteps;
        box.add(Point3{c[0] + major[0] * std::cos(t) + minor[0] * std::sin(t),
                       c[1] + major[1] * std::cos(t) + minor[1] * std::sin(t), c[2] + major[2] * std::cos(t)});
    }
}

// Text is estimated: characters times 0.6 of the height wide, rotated about the insertion.
void addText(BoxBuilder& box, const TagReader& r, std::size_t chars, double width, int lines) {
    const Point3 p = r.point(10);
    const double h = r.number(40, 1);
    const double w = width > 0 ? width : static_cast<double>(chars) * h * 0.6;
    Placement place;
    place.insertion = p;
    place.rotationDegrees = r.number(50, 0);
    box.add(place.apply(Extents{{0, -h * (lines - 1) * 1.5, 0}, {w, h, 0}}));
}

}  // namespace

std::optional<Extents> Drawing::extents(Handle handle) const {
    const Entity* e = findEntity(handle);
    return e ? entityExtents(*e, 0) : std::nullopt;
}

std::optional<Extents> Drawing::blockExtents(std::int32_t block, int depth) const {
    Block& b = blocks_[block];
    if (b.extentState == Block::Extent::Known) return b.extents;
    if (b.extentState == Block::Extent::Working) return std::nullopt;   // the block inserts itself
    b.extentState = Block::Extent::Working;
    BoxBuilder box;
    for (std::uint32_t i : b.entities)
        if (!doc_.isErased(entities_[i].record))
            if (const auto e = entityExtents(entities_[i], depth)) box.add(*e);
    b.extents = box.result();
    b.extentState = Block::Extent::Known;
    return b.extents;
}

std::optional<Extents> Drawing::entityExtents(const Entity& e, int depth) const {
    const TagReader r{doc_.tags(e.record)};
    const std::string_view type = r.tags[0].value;
    BoxBuilder box;
    if (type == "LINE") {
        box.add(r.point(10));
        box.add(r.point(11));
    } else if (type == "POINT") {
        box.add(r.point(10));
    } else if (type == "CIRCLE") {
        addCircle(box, r.point(10), r.number(40));
    } else if (type == "ARC") {
        addArc(box, r.point(10), r.number(40), r.number(50), r.number(51, 360));
    } else if (type == "ELLIPSE") {
        addEllipse(box, r);
    } else if (type == "LWPOLYLINE") {
        const double elevation = r.number(38);
        r.eachPoint(10, [&](Point3 p) { p[2] = elevation; box.add(p); });
    } else if (type == "POLYLINE") {
        for (RecordId v = doc_.next(e.record); v != kNoRecord && e.last != e.record; v = doc_.next(v)) {
            if (doc_.type(v) == "VERTEX") box.add(TagReader{doc_.tags(v)}.point(10));
            if (v == e.last) break;
        }
    } else if (type == "SOLID" || type == "3DFACE" || type == "TRACE") {
        for (int code : {10, 11, 12, 13}) box.add(r.point(code));
    } else if (type == "SPLINE") {
        // The control polygon holds the curve; fit points stand in when it is missing.
        r.eachPoint(10, [&](const Point3& p) { box.add(p); });
        if (!box.result()) r.eachPoint(11, [&](const Point3& p) { box.add(p); });
    } else if (type == "HATCH") {
        // Boundary vertices and edge end points, between the path count (91) and the seed
        // points (98).
        bool inPaths = false;
        for (std::size_t i = 0; i + 1 < r.tags.size(); ++i) {
            const int code = r.tags[i].code;
            if (code == 91) inPaths = true;
            if (code == 98 || code == 1001) break;
            if (inPaths && (code == 10 || code == 11) && r.tags[i + 1].code == code + 10)
                box.add(Point3{toDouble(r.tags[i].value), toDouble(r.tags[i + 1].value), 0});
        }
    } else if (type == "TEXT") {
        addText(box, r, std::string_view(Drawing::tagValue(r.tags, 1).value_or("")).size(), 0, 1);
    } else if (type == "MTEXT") {
        const std::string_view content = Drawing::tagValue(r.tags, 1).value_or("");
        int lines = 1;
        for (std::size_t at = content.find("\\P"); at != std::string_view::npos; at = content.find("\\P", at + 2)) ++lines;
        addText(box, r, content.size() / static_cast<std::size_t>(lines), r.number(41), lines);
    } else if (type == "INSERT") {
        if (depth >= kMaxBlockNesting) return std::nullopt;
        const auto name = Drawing::tagValue(r.tags, 2);
        const auto it = name ? blockByName_.find(foldName(text(*name))) : blockByName_.end();
        if (it == blockByName_.end()) return std::nullopt;
        const auto inner = blockExtents(it->second, depth + 1);
        if (!inner) return std::nullopt;
        Placement place;
        place.base = TagReader{doc_.tags(blocks_[it->second].record)}.point(10);
        place.insertion = r.point(10);
        place.scale = {r.number(41, 1), r.number(42, 1), r.number(43, 1)};
        place.rotationDegrees = r.number(50);
        // MINSERT arrays: columns along x and rows along y of the block's own system.
        // Counts are 16-bit integers in the file; anything beyond is damage and counts as one.
        const int columns = std::max(1, static_cast<int>(toGroupInteger(70, r.text(70).value_or(""), 1)));
        const int rows = std::max(1, static_cast<int>(toGroupInteger(71, r.text(71).value_or(""), 1)));
        const double dx = r.number(44), dy = r.number(45);
        for (int row : {0, rows - 1})
            for (int col : {0, columns - 1}) {
                Placement cell = place;
                Placement shift;
                shift.rotationDegrees = place.rotationDegrees;
                const Point3 offset = shift.apply(Point3{col * dx, row * dy, 0});
                for (int k = 0; k < 3; ++k) cell.insertion[k] += offset[k];
                box.add(cell.apply(*inner));
            }
    } else {
        return std::nullopt;
    }
    return box.result();
}

}  // namespace cadhost
