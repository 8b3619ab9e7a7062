#include "cadhost/gui/EntityShapes.h"

#include <algorithm>
#include <cmath>

#include "base/CaseFold.h"
#include "cadhost/colors/AciPalette.h"
#include "cadhost/geometry/Hatch.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::gui {

namespace {

// Nesting beyond this is a block that inserts itself.
constexpr int kMaxDepth = 16;
// Segments of a full circle: fine enough at the usual zoom, cheap at 200,000 entities.
constexpr int kCircleSegments = 72;
// A pattern this dense is grey at any zoom that shows the whole hatch.
constexpr std::size_t kMaxPatternSegments = 200000;

using geometry::Groups;

Vec2 flat(const ardo::Point3& p) { return {p[0], p[1]}; }
Vec2 point(const Groups& g, int code) { return {g.get(code), g.get(code + 10)}; }

double radians(double degrees) { return degrees * M_PI / 180.0; }

// The band a polyline span covers, its width running from the start width to the end
// width along it; nothing for a span without width.
std::vector<Vec2> spanBand(const geometry::Vertex& from, const geometry::Vertex& to) {
    if (from.startWidth <= 0 && from.endWidth <= 0) return {};
    std::vector<ardo::Point3> centre{from.at};
    geometry::appendSpan(centre, from.at, to.at, from.bulge, kCircleSegments);
    std::vector<double> along{0};
    for (std::size_t k = 1; k < centre.size(); ++k)
        along.push_back(along.back() + std::hypot(centre[k][0] - centre[k - 1][0], centre[k][1] - centre[k - 1][1]));
    if (along.back() == 0) return {};
    std::vector<Vec2> left, right;
    for (std::size_t k = 0; k < centre.size(); ++k) {
        // The direction at a point: from its neighbours, or along the end chord.
        const auto& a = centre[k == 0 ? 0 : k - 1];
        const auto& b = centre[k + 1 == centre.size() ? k : k + 1];
        const double dx = b[0] - a[0], dy = b[1] - a[1], length = std::hypot(dx, dy);
        if (length == 0) continue;
        const double t = along[k] / along.back();
        const double half = ((1 - t) * from.startWidth + t * from.endWidth) / 2;
        const double nx = -dy / length * half, ny = dx / length * half;
        left.push_back({centre[k][0] + nx, centre[k][1] + ny});
        right.push_back({centre[k][0] - nx, centre[k][1] - ny});
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    return left;
}

}  // namespace

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

std::string wrapLines(const std::string& text, std::size_t columns) {
    std::string out;
    std::size_t lineStart = 0, lastSpace = std::string::npos, length = 0;
    for (char c : text) {
        out += c;
        if (c == '\n') {
            lineStart = out.size(), lastSpace = std::string::npos, length = 0;
            continue;
        }
        if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) continue;   // inside a character
        ++length;
        if (c == ' ') lastSpace = out.size() - 1;
        if (length > columns && lastSpace != std::string::npos) {
            out[lastSpace] = '\n';
            lineStart = lastSpace + 1, lastSpace = std::string::npos;
            length = textExtent(out.substr(lineStart)).longest;
        }
    }
    return out;
}

PieceLine EntityShapes::lineOf(const Groups& t, const Context& context) const {
    PieceLine line;
    line.dashScale = t.get(48, 1) * context.place.scale();
    if (const std::string* name = t.text(6); name && !ardo::equalsNoCase(*name, "BYLAYER")) {
        line.dashesByLayer = false;
        if (!ardo::equalsNoCase(*name, "BYBLOCK")) {
            line.dashes = pattern_(*name);
        } else if (context.depth > 0) {
            // The reference's pattern at the reference's scale.
            line.dashes = context.blockLine.dashes;
            line.dashScale = context.blockLine.dashScale;
        }
    }
    line.weight = static_cast<int>(t.get(370, -1));
    // ByBlock outside a block draws as the default.
    if (line.weight == -2) line.weight = context.depth > 0 ? context.blockLine.weight : -3;
    return line;
}

PieceLine EntityShapes::inheritedLine(PieceLine line, const std::string& layer) const {
    if (!line.dashesByLayer && line.weight != -1) return line;
    const auto record = drawing_.findLayer(layer);
    if (line.dashesByLayer) {
        line.dashesByLayer = false;
        if (record) line.dashes = pattern_(record->linetype);
    }
    if (line.weight == -1) line.weight = record ? record->lineweight : -3;
    return line;
}

std::vector<Piece> EntityShapes::shapes(Handle entity) {
    std::vector<Piece> out;
    add(entity, Context{}, out);
    return out;
}

void EntityShapes::add(Handle entity, const Context& context, std::vector<Piece>& out) {
    const std::vector<EntityTag> tagList = drawing_.entityTags(entity);
    if (tagList.empty()) return;
    const Groups t(tagList);
    const std::string& type = tagList.front().value;

    // Layer "0" inside a block takes the reference's layer; ByBlock takes its colour.
    const std::string* layerName = t.text(8);
    int layer = layerIndex_(layerName ? *layerName : "0");
    if (context.blockLayer >= 0 && (!layerName || *layerName == "0")) layer = context.blockLayer;
    PieceColor color;
    if (t.text(420)) {
        color = {false, static_cast<std::uint32_t>(t.get(420)) & 0xFFFFFF};
    } else if (const int aci = static_cast<int>(t.get(62, 256)); aci == 0) {
        color = context.depth > 0 ? context.blockColor : PieceColor{false, aciRgb(7)};
    } else if (aci > 0 && aci < 256) {
        color = {false, aciRgb(aci)};
    }
    const Affine& place = context.place;
    const PieceLine lineStyle = lineOf(t, context);

    auto piece = [&](Piece::Kind kind, std::vector<Vec2> points, bool closed = false) {
        Piece p;
        p.kind = kind;
        p.closed = closed;
        p.layer = layer;
        p.color = color;
        p.line = lineStyle;
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

    if (type == "TEXT" || type == "ATTRIB") {
        if (type == "ATTRIB" && (static_cast<int>(t.get(70)) & 1)) return;   // invisible attribute
        const std::string* value = t.text(1);
        text(point(t, 10), t.get(40), t.get(50), value ? *value : "");
    } else if (type == "MTEXT") {
        std::string value;
        for (const EntityTag& tag : tagList)
            if (tag.code == 3 || tag.code == 1) value += tag.value;
        const double height = t.get(40);
        double angle = t.get(50);
        if (t.text(11)) angle = std::atan2(t.get(21), t.get(11)) * 180.0 / M_PI;
        // The insertion point is the top left corner; the run starts at the first base line.
        const double a = radians(angle);
        const Vec2 at = point(t, 10);
        std::string plain = plainMText(value);
        if (const double width = t.get(41); width > 0 && height > 0)
            plain = wrapLines(plain, static_cast<std::size_t>(std::max(1.0, width / (kCharacterAdvance * height))));
        text({at.x + height * std::sin(a), at.y - height * std::cos(a)}, height, angle, std::move(plain));
    } else if (type == "INSERT" || type == "DIMENSION") {
        if (context.depth >= kMaxDepth) return;
        Context inner{place, layer, color, inheritedLine(lineStyle, layerName ? *layerName : "0"), context.depth + 1};
        addInsert(tagList, entity, inner, context, out);
    } else if (const auto hatch = geometry::hatchOf(tagList, kCircleSegments)) {
        if (hatch->solid && !hatch->loops.empty()) {
            std::vector<Vec2> points;
            std::vector<std::uint32_t> loops;
            for (const auto& loop : hatch->loops) {
                if (!points.empty()) loops.push_back(static_cast<std::uint32_t>(points.size()));
                for (const ardo::Point3& v : loop) points.push_back(flat(v));
            }
            piece(Piece::Kind::Fill, std::move(points), true);
            out.back().loops = std::move(loops);
        } else if (const auto lines = geometry::patternSegments(*hatch, kMaxPatternSegments); !lines.empty()) {
            std::vector<Vec2> points;
            points.reserve(2 * lines.size());
            for (const geometry::Segment& l : lines) points.push_back(flat(l.a)), points.push_back(flat(l.b));
            piece(Piece::Kind::Segments, std::move(points));
        }
        // The boundary is drawn by the entities it was made from, not by the hatch.
    } else if (const auto polyline = geometry::polylineOf(drawing_, entity, tagList);
               polyline && std::any_of(polyline->vertices.begin(), polyline->vertices.end(),
                                       [](const geometry::Vertex& v) { return v.startWidth > 0 || v.endWidth > 0; })) {
        // A polyline with widths is its spans' bands; a span of no width stays a line.
        const auto& v = polyline->vertices;
        const std::size_t spans = polyline->closed ? v.size() : v.size() - 1;
        for (std::size_t i = 0; i < spans; ++i) {
            const geometry::Vertex& from = v[i];
            const geometry::Vertex& to = v[(i + 1) % v.size()];
            if (auto band = spanBand(from, to); !band.empty()) {
                piece(Piece::Kind::Fill, std::move(band), true);
                continue;
            }
            std::vector<ardo::Point3> line{from.at};
            geometry::appendSpan(line, from.at, to.at, from.bulge, kCircleSegments);
            std::vector<Vec2> points;
            for (const ardo::Point3& p : line) points.push_back(flat(p));
            piece(Piece::Kind::Stroke, std::move(points));
        }
    } else {
        for (const geometry::Path& path : geometry::pathsOf(drawing_, entity, tagList, kCircleSegments)) {
            std::vector<Vec2> points;
            points.reserve(path.points.size());
            for (const ardo::Point3& v : path.points) points.push_back(flat(v));
            const Piece::Kind kind = path.filled ? Piece::Kind::Fill
                                     : points.size() == 1 ? Piece::Kind::Dot
                                                          : Piece::Kind::Stroke;
            piece(kind, std::move(points), path.closed);
        }
        if (type == "IMAGE") imageName(t, text);
    }
}

template <class Text>
void EntityShapes::imageName(const Groups& t, Text&& text) const {
    // The picture is not drawn: its frame names the file, along the bottom edge.
    const std::string* definition = t.text(340);
    if (!definition) return;
    const auto tags = drawing_.recordTags(*definition);
    const std::string* path = tags.empty() ? nullptr : Groups(tags).text(1);
    if (!path || path->empty()) return;
    const std::size_t slash = path->find_last_of("/\\");
    const std::string name = slash == std::string::npos ? *path : path->substr(slash + 1);
    const ardo::Point3 u = t.point(11), v = t.point(12);
    const double height = std::hypot(v[0], v[1]) * t.get(23, 1) / 12;
    const double width = std::hypot(u[0], u[1]) * t.get(13, 1);
    // Small enough to fit the frame's width.
    const double fitted = std::min(height, width / (0.8 * static_cast<double>(name.size() + 2)));
    const Vec2 at = point(t, 10);
    const double a = std::atan2(u[1], u[0]);
    text(Vec2{at.x + fitted * (std::cos(a) - std::sin(a)) / 2, at.y + fitted * (std::sin(a) + std::cos(a)) / 2}, fitted,
         a * 180.0 / M_PI, name);
}

void EntityShapes::addInsert(const std::vector<EntityTag>& tagList, Handle entity, const Context& inner,
                             const Context& outer, std::vector<Piece>& out) {
    const Groups t(tagList);
    const std::string* name = t.text(2);
    if (!name) return;
    const auto block = drawing_.blockContents(*name);
    if (!block) return;
    const bool isInsert = tagList.front().value == "INSERT";
    Context context = inner;
    if (isInsert) {
        // p' = insertion + R * S * (p - base)
        const double a = radians(t.get(50));
        const double sx = t.get(41, 1), sy = t.get(42, 1);
        const Vec2 at = point(t, 10);
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
            const Groups a(part);
            if (static_cast<int>(a.get(70)) & 1) continue;
            const std::string* value = a.text(1);
            const std::string* layerName = a.text(8);
            Piece p;
            p.kind = Piece::Kind::Text;
            p.layer = layerIndex_(layerName ? *layerName : "0");
            const int aci = static_cast<int>(a.get(62, 256));
            if (aci > 0 && aci < 256) p.color = {false, aciRgb(aci)};
            p.points = {point(a, 10)};
            p.height = a.get(40);
            p.angle = radians(a.get(50));
            p.text = value ? *value : "";
            if (!p.text.empty() && p.height > 0) out.push_back(std::move(p));
        }
}

}  // namespace cadhost::gui
