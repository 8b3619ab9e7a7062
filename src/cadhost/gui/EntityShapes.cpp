#include "cadhost/gui/EntityShapes.h"

#include <cmath>

#include "cadhost/colors/AciPalette.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost::gui {

namespace {

// Nesting beyond this is a block that inserts itself.
constexpr int kMaxDepth = 16;
// Segments of a full circle: fine enough at the usual zoom, cheap at 200,000 entities.
constexpr int kCircleSegments = 72;

struct Tags {
    const std::vector<EntityTag>& tags;

    const std::string* text(int code) const {
        for (const EntityTag& t : tags) {
            if (t.code == 1001) break;
            if (t.code == code) return &t.value;
        }
        return nullptr;
    }
    double number(int code, double fallback = 0) const {
        const std::string* t = text(code);
        return t ? toDouble(*t, fallback) : fallback;
    }
    Vec2 point(int code) const { return {number(code), number(code + 10)}; }
};

void arcPoints(std::vector<Vec2>& out, Vec2 c, double r, double start, double sweep) {
    const int n = std::max(2, static_cast<int>(std::ceil(std::fabs(sweep) / (2 * M_PI) * kCircleSegments)));
    for (int i = 0; i <= n; ++i) {
        const double a = start + sweep * i / n;
        out.push_back({c.x + r * std::cos(a), c.y + r * std::sin(a)});
    }
}

double radians(double degrees) { return degrees * M_PI / 180.0; }

// The open uniform B-spline through de Boor's algorithm; the control polygon when the
// knots do not fit.
std::vector<Vec2> splinePoints(const Tags& t) {
    std::vector<double> knots;
    std::vector<Vec2> control, fit;
    for (std::size_t i = 0; i < t.tags.size(); ++i) {
        const int code = t.tags[i].code;
        if (code == 1001) break;
        if (code == 40) knots.push_back(toDouble(t.tags[i].value));
        if ((code == 10 || code == 11) && i + 1 < t.tags.size() && t.tags[i + 1].code == code + 10)
            (code == 10 ? control : fit).push_back({toDouble(t.tags[i].value), toDouble(t.tags[i + 1].value)});
    }
    const int degree = static_cast<int>(t.number(71, 3));
    const int n = static_cast<int>(control.size());
    if (n == 0) return fit;
    if (degree < 1 || knots.size() != static_cast<std::size_t>(n + degree + 1)) return control;
    std::vector<Vec2> out;
    const double u0 = knots[degree], u1 = knots[n];
    const int steps = std::max(8, n * 8);
    for (int s = 0; s <= steps; ++s) {
        const double u = u0 + (u1 - u0) * s / steps;
        int k = degree;
        while (k < n - 1 && u >= knots[k + 1]) ++k;
        std::vector<Vec2> d(control.begin() + (k - degree), control.begin() + k + 1);
        for (int r = 1; r <= degree; ++r)
            for (int j = degree; j >= r; --j) {
                const double span = knots[j + 1 + k - r] - knots[j + k - degree];
                const double alpha = span == 0 ? 0 : (u - knots[j + k - degree]) / span;
                d[j] = {(1 - alpha) * d[j - 1].x + alpha * d[j].x, (1 - alpha) * d[j - 1].y + alpha * d[j].y};
            }
        out.push_back(d[degree]);
    }
    return out;
}

}  // namespace

void appendBulge(std::vector<Vec2>& out, Vec2 from, Vec2 to, double bulge) {
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double chord = std::hypot(dx, dy);
    if (std::fabs(bulge) < 1e-9 || chord == 0) {
        out.push_back(to);
        return;
    }
    const double sweep = 4 * std::atan(bulge);
    const double radius = chord / (2 * std::sin(std::fabs(sweep) / 2));
    // The centre lies on the chord's normal, to the left for a positive bulge.
    const double towardCentre = radius * std::cos(std::fabs(sweep) / 2) * (bulge > 0 ? 1 : -1);
    const Vec2 centre{(from.x + to.x) / 2 - dy / chord * towardCentre, (from.y + to.y) / 2 + dx / chord * towardCentre};
    std::vector<Vec2> arc;
    arcPoints(arc, centre, radius, std::atan2(from.y - centre.y, from.x - centre.x), sweep);
    out.insert(out.end(), arc.begin() + 1, arc.end() - 1);
    out.push_back(to);
}

std::string plainMText(const std::string& value) {
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (c == '{' || c == '}') continue;
        if (c != '\\' || i + 1 == value.size()) {
            out += c;
            continue;
        }
        const char code = value[++i];
        if (code == 'P' || code == 'X') {
            out += '\n';
        } else if (code == '\\' || code == '{' || code == '}') {
            out += code;
        } else if (code == '~') {
            out += ' ';
        } else if (code == 'S') {
            // A stack "a^b" shows as "a/b".
            const std::size_t end = value.find(';', i);
            for (std::size_t k = i + 1; k < std::min(end, value.size()); ++k)
                out += (value[k] == '^' || value[k] == '#') ? '/' : value[k];
            i = end == std::string::npos ? value.size() : end;
        } else if (std::string_view("fFHCcWQTApa").find(code) != std::string_view::npos) {
            const std::size_t end = value.find(';', i);
            i = end == std::string::npos ? value.size() : end;
        }
        // Underline, overline and strike-through switches (L, l, O, o, K, k) draw as plain text.
    }
    return out;
}

std::vector<Piece> EntityShapes::shapes(Handle entity) {
    std::vector<Piece> out;
    add(entity, Context{}, out);
    return out;
}

void EntityShapes::add(Handle entity, const Context& context, std::vector<Piece>& out) {
    const std::vector<EntityTag> tagList = drawing_.entityTags(entity);
    if (tagList.empty()) return;
    const Tags t{tagList};
    const std::string& type = tagList.front().value;

    // Layer "0" inside a block takes the reference's layer; ByBlock takes its colour.
    const std::string* layerName = t.text(8);
    int layer = layerIndex_(layerName ? *layerName : "0");
    if (context.blockLayer >= 0 && (!layerName || *layerName == "0")) layer = context.blockLayer;
    PieceColor color;
    if (t.text(420)) {
        color = {false, static_cast<std::uint32_t>(t.number(420)) & 0xFFFFFF};
    } else if (const int aci = static_cast<int>(t.number(62, 256)); aci == 0) {
        color = context.depth > 0 ? context.blockColor : PieceColor{false, aciRgb(7)};
    } else if (aci > 0 && aci < 256) {
        color = {false, aciRgb(aci)};
    }
    const Affine& place = context.place;

    auto piece = [&](Piece::Kind kind, std::vector<Vec2> points, bool closed = false) {
        Piece p;
        p.kind = kind;
        p.closed = closed;
        p.layer = layer;
        p.color = color;
        for (Vec2& v : points) v = place.apply(v);
        p.points = std::move(points);
        out.push_back(std::move(p));
    };
    auto text = [&](Vec2 at, double height, double angleDegrees, std::string value) {
        if (value.empty() || height <= 0) return;
        Piece p;
        p.kind = Piece::Kind::Text;
        p.layer = layer;
        p.color = color;
        p.points = {place.apply(at)};
        p.height = height * place.scale();
        p.angle = radians(angleDegrees) + place.angle();
        p.text = std::move(value);
        out.push_back(std::move(p));
    };

    if (type == "LINE") {
        piece(Piece::Kind::Stroke, {t.point(10), t.point(11)});
    } else if (type == "CIRCLE" || type == "ARC") {
        std::vector<Vec2> points;
        const bool full = type == "CIRCLE";
        double start = full ? 0 : radians(t.number(50)), end = full ? 2 * M_PI : radians(t.number(51, 360));
        if (end <= start) end += 2 * M_PI;
        arcPoints(points, t.point(10), t.number(40), start, end - start);
        piece(Piece::Kind::Stroke, std::move(points), full);
    } else if (type == "ELLIPSE") {
        const Vec2 c = t.point(10), major = t.point(11);
        const double ratio = t.number(40, 1);
        double p0 = t.number(41, 0), p1 = t.number(42, 2 * M_PI);
        if (p1 <= p0) p1 += 2 * M_PI;
        const Vec2 minor{-major.y * ratio, major.x * ratio};
        const int n = std::max(8, static_cast<int>((p1 - p0) / (2 * M_PI) * kCircleSegments));
        std::vector<Vec2> points;
        for (int i = 0; i <= n; ++i) {
            const double a = p0 + (p1 - p0) * i / n;
            points.push_back({c.x + major.x * std::cos(a) + minor.x * std::sin(a),
                              c.y + major.y * std::cos(a) + minor.y * std::sin(a)});
        }
        piece(Piece::Kind::Stroke, std::move(points));
    } else if (type == "LWPOLYLINE" || type == "POLYLINE") {
        // Vertices with the bulge of the segment that starts at each.
        std::vector<std::pair<Vec2, double>> vertices;
        if (type == "LWPOLYLINE") {
            for (std::size_t i = 0; i < tagList.size() && tagList[i].code != 1001; ++i) {
                if (tagList[i].code == 10) vertices.push_back({{toDouble(tagList[i].value), 0}, 0});
                if (tagList[i].code == 20 && !vertices.empty()) vertices.back().first.y = toDouble(tagList[i].value);
                if (tagList[i].code == 42 && !vertices.empty()) vertices.back().second = toDouble(tagList[i].value);
            }
        } else {
            for (const auto& vertex : drawing_.entityParts(entity)) {
                const Tags v{vertex};
                if (static_cast<int>(v.number(70)) & 16) continue;   // spline frame points are not on the curve
                vertices.push_back({v.point(10), v.number(42)});
            }
        }
        if (vertices.empty()) return;
        const bool closed = static_cast<int>(t.number(70)) & 1;
        std::vector<Vec2> points{vertices.front().first};
        for (std::size_t i = 0; i + 1 < vertices.size(); ++i)
            appendBulge(points, vertices[i].first, vertices[i + 1].first, vertices[i].second);
        if (closed && vertices.size() > 1) appendBulge(points, vertices.back().first, vertices.front().first, vertices.back().second);
        piece(points.size() == 1 ? Piece::Kind::Dot : Piece::Kind::Stroke, std::move(points));
    } else if (type == "SPLINE") {
        piece(Piece::Kind::Stroke, splinePoints(t));
    } else if (type == "POINT") {
        piece(Piece::Kind::Dot, {t.point(10)});
    } else if (type == "SOLID" || type == "TRACE" || type == "3DFACE") {
        // The third and fourth corners of a solid are in zig-zag order.
        const bool zigzag = type != "3DFACE";
        std::vector<Vec2> corners{t.point(10), t.point(11), zigzag ? t.point(13) : t.point(12),
                                  zigzag ? t.point(12) : t.point(13)};
        piece(type == "3DFACE" ? Piece::Kind::Stroke : Piece::Kind::Fill, std::move(corners), true);
    } else if (type == "TEXT" || type == "ATTRIB") {
        if (type == "ATTRIB" && (static_cast<int>(t.number(70)) & 1)) return;   // invisible attribute
        const std::string* value = t.text(1);
        text(t.point(10), t.number(40), t.number(50), value ? *value : "");
    } else if (type == "MTEXT") {
        std::string value;
        for (const EntityTag& tag : tagList)
            if (tag.code == 3 || tag.code == 1) value += tag.value;
        const double height = t.number(40);
        double angle = t.number(50);
        if (t.text(11)) angle = std::atan2(t.number(21), t.number(11)) * 180.0 / M_PI;
        // The insertion point is the top left corner; the run starts at the first base line.
        const double a = radians(angle);
        const Vec2 at = t.point(10);
        text({at.x + height * std::sin(a), at.y - height * std::cos(a)}, height, angle, plainMText(value));
    } else if (type == "INSERT" || type == "DIMENSION") {
        if (context.depth >= kMaxDepth) return;
        Context inner{place, layer, color, context.depth + 1};
        addInsert(tagList, entity, inner, context, out);
    }
}

void EntityShapes::addInsert(const std::vector<EntityTag>& tagList, Handle entity, const Context& inner,
                             const Context& outer, std::vector<Piece>& out) {
    const Tags t{tagList};
    const std::string* name = t.text(2);
    if (!name) return;
    const auto block = drawing_.blockContents(*name);
    if (!block) return;
    const bool isInsert = tagList.front().value == "INSERT";
    Context context = inner;
    if (isInsert) {
        // p' = insertion + R * S * (p - base)
        const double a = radians(t.number(50));
        const double sx = t.number(41, 1), sy = t.number(42, 1);
        const Vec2 at = t.point(10);
        const Affine local{std::cos(a) * sx, std::sin(a) * sx, -std::sin(a) * sy, std::cos(a) * sy, 0, 0};
        const Vec2 base = local.apply({block->base[0], block->base[1]});
        const Affine own{local.a, local.b, local.c, local.d, at.x - base.x, at.y - base.y};
        context.place = outer.place.after(own);
    }
    for (Handle h : block->entities) add(h, context, out);
    // Attributes are placed in world coordinates already.
    if (isInsert && outer.depth == 0)
        for (const auto& part : drawing_.entityParts(entity)) {
            if (part.empty() || part.front().value != "ATTRIB") continue;
            const Tags a{part};
            if (static_cast<int>(a.number(70)) & 1) continue;
            const std::string* value = a.text(1);
            const std::string* layerName = a.text(8);
            Piece p;
            p.kind = Piece::Kind::Text;
            p.layer = layerIndex_(layerName ? *layerName : "0");
            const int aci = static_cast<int>(a.number(62, 256));
            if (aci > 0 && aci < 256) p.color = {false, aciRgb(aci)};
            p.points = {a.point(10)};
            p.height = a.number(40);
            p.angle = radians(a.number(50));
            p.text = value ? *value : "";
            if (!p.text.empty() && p.height > 0) out.push_back(std::move(p));
        }
}

}  // namespace cadhost::gui
