#include "cadhost/geometry/Hatch.h"

#include <algorithm>
#include <cmath>

#include "cadhost/dxf/TagValue.h"
#include "cadhost/geometry/Paths.h"

namespace cadhost::geometry {

namespace {

constexpr double kDegree = M_PI / 180.0;
// Lines of one pattern family across a hatch beyond which it is not drawn: finer than any
// screen shows.
constexpr double kMaxLines = 1e5;

// Reads the tags in order, as the boundary data is a sequence, not a set of groups.
class Reader {
public:
    explicit Reader(const std::vector<EntityTag>& tags) : tags_(tags) {}
    bool done() const { return at_ >= tags_.size() || tags_[at_].code == 1001; }
    int code() const { return tags_[at_].code; }
    // The value of the next tag if it has `code`, moving past it; `fallback` otherwise.
    double take(int code, double fallback = 0) {
        if (done() || tags_[at_].code != code) return fallback;
        return toDouble(tags_[at_++].value, fallback);
    }
    ardo::Point3 point(int code) {
        const double x = take(code), y = take(code + 10);
        return {x, y, 0};
    }
    // Moves to the next tag with `code`; false at the end.
    bool seek(int code) {
        while (!done() && tags_[at_].code != code) ++at_;
        return !done();
    }

private:
    const std::vector<EntityTag>& tags_;
    std::size_t at_ = 0;
};

void appendCurve(std::vector<ardo::Point3>& loop, const Arc& arc, bool clockwise, int circleSegments) {
    std::vector<ardo::Point3> points{clockwise ? arc.pointAt(arc.end) : arc.pointAt(arc.start)};
    appendArc(points, arc, circleSegments, clockwise);
    loop.insert(loop.end(), points.begin(), points.end());
}

std::vector<ardo::Point3> polylineLoop(Reader& r, int circleSegments) {
    const bool bulges = r.take(72) != 0;
    r.take(73);
    const int count = static_cast<int>(r.take(93));
    std::vector<Vertex> vertices;
    for (int i = 0; i < count && !r.done(); ++i) {
        Vertex v;
        v.at = r.point(10);
        if (bulges) v.bulge = r.take(42);
        vertices.push_back(v);
    }
    std::vector<ardo::Point3> loop;
    if (vertices.empty()) return loop;
    loop.push_back(vertices.front().at);
    for (std::size_t i = 0; i < vertices.size(); ++i)
        appendSpan(loop, vertices[i].at, vertices[(i + 1) % vertices.size()].at, vertices[i].bulge, circleSegments);
    loop.pop_back();   // back at the first vertex
    return loop;
}

std::vector<ardo::Point3> edgeLoop(Reader& r, int circleSegments) {
    const int edges = static_cast<int>(r.take(93));
    std::vector<ardo::Point3> loop;
    for (int e = 0; e < edges && !r.done(); ++e) {
        const int type = static_cast<int>(r.take(72));
        if (type == 1) {
            loop.push_back(r.point(10));
            loop.push_back(r.point(11));
        } else if (type == 2) {
            Arc arc{r.point(10), r.take(40), 0, 0};
            arc.start = r.take(50) * kDegree;
            arc.end = r.take(51) * kDegree;
            const bool ccw = r.take(73, 1) != 0;
            // Clockwise edges give their angles measured clockwise.
            if (!ccw) arc.start = -arc.start, arc.end = -arc.end, std::swap(arc.start, arc.end);
            while (arc.end <= arc.start) arc.end += 2 * M_PI;
            appendCurve(loop, arc, !ccw, circleSegments);
        } else if (type == 3) {
            const ardo::Point3 c = r.point(10), major = r.point(11);
            const double ratio = r.take(40, 1);
            double a0 = r.take(50) * kDegree, a1 = r.take(51, 360) * kDegree;
            const bool ccw = r.take(73, 1) != 0;
            if (!ccw) a0 = -a0, a1 = -a1, std::swap(a0, a1);
            while (a1 <= a0) a1 += 2 * M_PI;
            const int n = std::max(8, static_cast<int>(std::ceil((a1 - a0) / (2 * M_PI) * circleSegments)));
            std::vector<ardo::Point3> points;
            for (int i = 0; i <= n; ++i) {
                const double a = a0 + (a1 - a0) * i / n;
                points.push_back({c[0] + major[0] * std::cos(a) - major[1] * ratio * std::sin(a),
                                  c[1] + major[1] * std::cos(a) + major[0] * ratio * std::sin(a), 0});
            }
            if (!ccw) std::reverse(points.begin(), points.end());
            loop.insert(loop.end(), points.begin(), points.end());
        } else if (type == 4) {
            const int degree = static_cast<int>(r.take(94));
            r.take(73);
            r.take(74);
            const int knotCount = static_cast<int>(r.take(95)), controlCount = static_cast<int>(r.take(96));
            std::vector<double> knots;
            std::vector<ardo::Point3> control;
            for (int k = 0; k < knotCount; ++k) knots.push_back(r.take(40));
            for (int k = 0; k < controlCount && !r.done(); ++k) {
                control.push_back(r.point(10));
                r.take(42);   // weights are left out: the curve is drawn as a plain B-spline
            }
            const auto points = bsplinePoints(degree, knots, control);
            loop.insert(loop.end(), points.begin(), points.end());
            // Fit points and end tangents may follow; the control points define the curve.
            if (!r.done() && r.code() == 97) {
                const int fit = static_cast<int>(r.take(97));
                for (int k = 0; k < fit; ++k) r.point(11);
                r.point(12);
                r.point(13);
            }
        } else {
            break;   // an edge type this reader does not know: the rest cannot be trusted
        }
    }
    return loop;
}

}  // namespace

std::optional<Hatch> hatchOf(const std::vector<EntityTag>& tags, int circleSegments) {
    if (tags.empty() || tags.front().value != "HATCH") return std::nullopt;
    Hatch hatch;
    hatch.solid = Groups(tags).flags(70) & 1;
    Reader r(tags);
    if (!r.seek(91)) return hatch;
    const int loops = static_cast<int>(r.take(91));
    for (int i = 0; i < loops && r.seek(92); ++i) {
        const int flags = static_cast<int>(r.take(92));
        auto loop = (flags & 2) ? polylineLoop(r, circleSegments) : edgeLoop(r, circleSegments);
        if (loop.size() > 2) hatch.loops.push_back(std::move(loop));
    }
    if (hatch.solid || !r.seek(78)) return hatch;
    const int lines = static_cast<int>(r.take(78));
    for (int i = 0; i < lines && r.seek(53); ++i) {
        PatternLine line;
        line.angle = r.take(53) * kDegree;
        line.base = {r.take(43), r.take(44), 0};
        line.offset = {r.take(45), r.take(46), 0};
        const int dashes = static_cast<int>(r.take(79));
        for (int d = 0; d < dashes; ++d) line.dashes.push_back(r.take(49));
        hatch.pattern.push_back(std::move(line));
    }
    return hatch;
}

std::vector<Segment> patternSegments(const Hatch& hatch, std::size_t limit) {
    std::vector<Segment> out;
    Extents box{};
    bool any = false;
    for (const auto& loop : hatch.loops)
        for (const auto& p : loop) {
            if (!any) box = {p, p}, any = true;
            for (int i = 0; i < 2; ++i) box.min[i] = std::min(box.min[i], p[i]), box.max[i] = std::max(box.max[i], p[i]);
        }
    if (!any) return out;
    std::vector<double> cuts;
    for (const PatternLine& line : hatch.pattern) {
        const double ux = std::cos(line.angle), uy = std::sin(line.angle);
        const double nx = -uy, ny = ux;
        // Lines lie `spacing` apart across; the offset's part along them shifts the dashes.
        const double spacing = line.offset[0] * nx + line.offset[1] * ny;
        if (std::fabs(spacing) < 1e-12) continue;
        double lo = 1e300, hi = -1e300;
        for (double x : {box.min[0], box.max[0]})
            for (double y : {box.min[1], box.max[1]}) {
                const double s = ((x - line.base[0]) * nx + (y - line.base[1]) * ny) / spacing;
                lo = std::min(lo, s), hi = std::max(hi, s);
            }
        if (hi - lo > kMaxLines) continue;
        double period = 0;
        for (double d : line.dashes) period += std::fabs(d);
        for (long k = static_cast<long>(std::floor(lo)); k <= static_cast<long>(std::ceil(hi)); ++k) {
            // This line: origin + t * u.
            const double ox = line.base[0] + k * line.offset[0], oy = line.base[1] + k * line.offset[1];
            cuts.clear();
            for (const auto& loop : hatch.loops)
                for (std::size_t i = 0; i < loop.size(); ++i) {
                    const auto& p = loop[i];
                    const auto& q = loop[(i + 1) % loop.size()];
                    const double sp = (p[0] - ox) * nx + (p[1] - oy) * ny, sq = (q[0] - ox) * nx + (q[1] - oy) * ny;
                    if ((sp > 0) == (sq > 0)) continue;
                    const double f = sp / (sp - sq);
                    const double x = p[0] + (q[0] - p[0]) * f, y = p[1] + (q[1] - p[1]) * f;
                    cuts.push_back((x - ox) * ux + (y - oy) * uy);
                }
            std::sort(cuts.begin(), cuts.end());
            for (std::size_t c = 0; c + 1 < cuts.size(); c += 2) {
                const double t0 = cuts[c], t1 = cuts[c + 1];
                auto emit = [&](double a, double b) {
                    out.push_back({{ox + a * ux, oy + a * uy, 0}, {ox + b * ux, oy + b * uy, 0}});
                };
                if (line.dashes.empty() || period <= 0) {
                    emit(t0, t1);
                } else {
                    // The pattern repeats from the line's origin; start at the period before t0.
                    double t = std::floor(t0 / period) * period;
                    for (std::size_t d = 0; t < t1 && out.size() < limit; d = (d + 1) % line.dashes.size()) {
                        const double length = line.dashes[d];
                        const double end = t + std::fabs(length);
                        if (length > 0 && end > t0) emit(std::max(t, t0), std::min(end, t1));
                        if (length == 0 && t >= t0) emit(t, t);
                        t = end;
                    }
                }
                if (out.size() >= limit) return out;
            }
        }
    }
    return out;
}

}  // namespace cadhost::geometry
