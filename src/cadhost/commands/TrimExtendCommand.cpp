// TRIM and EXTEND: cutting edges or boundaries first (Enter takes every object), then
// picks on the lines, arcs and circles to cut back to an edge or lengthen to one; a Fence
// picks every object it crosses at once, Undo takes back the last pick.
#include <algorithm>
#include <cmath>
#include <limits>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/CurveEdits.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/EditingCommands.h"
#include "cadhost/commands/EntityTransform.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/geometry/Picking.h"

namespace cadhost::commands {

namespace {

constexpr double kTwoPi = 2 * M_PI;
constexpr double kClose = 1e-9;

class TrimExtendCommand final : public Command {
public:
    TrimExtendCommand(Context& context, bool extend)
        : context_(context), drawing_(*context.drawing), extend_(extend),
          edgeSelection_(*context.drawing, context.previousSelection, context.selectionMembers), log_(*context.drawing) {}

    Step start() override {
        context_.echo("Current settings: Projection=UCS, Edge=None\n");
        context_.echo(extend_ ? "Select boundary edges ...\n" : "Select cutting edges ...\n");
        return Step::More;
    }

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Edges: {
                const std::string asked = edgeSelection_.prompt();
                return asked == "Select objects: " && edgeSelection_.selected().empty() ? "Select objects or <select all>: "
                                                                                       : asked;
            }
            case Stage::Objects:
                return extend_ ? "Select object to extend or [Fence/Undo]: " : "Select object to trim or [Fence/Undo]: ";
            case Stage::Fence:
                return fence_.empty() ? "Specify first fence point: " : "Specify next fence point or [Undo]: ";
        }
        return {};
    }

    InputRequest request() const override {
        if (stage_ == Stage::Edges) return edgeSelection_.request();
        return pointRequest(stage_ == Stage::Fence && !fence_.empty() ? std::optional(fence_.back()) : std::nullopt);
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Edges: return takeEdges(input);
            case Stage::Objects: return takePick(input);
            case Stage::Fence: return takeFence(input);
        }
        return Step::Refused;
    }

private:
    enum class Stage { Edges, Objects, Fence };

    Step takeEdges(const ardo::ResBuf& input) {
        if (isEnter(input) && edgeSelection_.selected().empty()) {
            drawing_.forEachEntity([&](const EntityInfo& e) {
                edges_.push_back(e.handle);
                return true;
            });
        } else {
            if (const auto going = takeObjects(edgeSelection_, input, context_)) return *going;
            context_.previousSelection = edgeSelection_.selected();
            edges_.assign(edgeSelection_.selected().begin(), edgeSelection_.selected().end());
        }
        stage_ = Stage::Objects;
        return Step::More;
    }

    Step takePick(const ardo::ResBuf& input) {
        if (isEnter(input)) return Step::Done;
        if (const auto keyword = matchKeyword(input, {"Fence", "Undo"})) {
            if (*keyword == 0) {
                fence_.clear();
                stage_ = Stage::Fence;
            } else if (!log_.undo()) {
                context_.message("Nothing to undo.\n");
            }
            return Step::More;
        }
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, kPointOrKeyword);
        const auto hit = geometry::pickAt(drawing_, *p, geometry::pickAperture(drawing_));
        if (!hit) {
            context_.message("No object found.\n");
            return Step::More;
        }
        log_.beginAction();
        change(*hit, *p);
        return Step::More;
    }

    Step takeFence(const ardo::ResBuf& input) {
        if (isEnter(input)) {
            stage_ = Stage::Objects;
            if (fence_.size() >= 2) crossFence();
            return Step::More;
        }
        if (!fence_.empty() && matchKeyword(input, {"Undo"})) {
            fence_.pop_back();
            return Step::More;
        }
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, fence_.empty() ? kInvalidPoint : kPointOrKeyword);
        fence_.push_back(*p);
        return Step::More;
    }

    // Every object the fence crosses, picked where it crosses; the pieces a cut leaves are
    // picked on at the later crossings.
    void crossFence() {
        log_.beginAction();
        for (Handle crossed : geometry::selectByFence(drawing_, fence_)) {
            const auto shape = geometry::shapeOf(drawing_, crossed);
            if (!shape) continue;
            std::vector<ardo::Point3> crossings;
            for (std::size_t i = 0; i + 1 < fence_.size(); ++i) {
                const auto found = geometry::intersections(geometry::Segment{fence_[i], fence_[i + 1]}, *shape);
                crossings.insert(crossings.end(), found.begin(), found.end());
            }
            std::vector<Handle> pieces{crossed};
            for (const ardo::Point3& at : crossings) {
                const auto on = std::find_if(pieces.begin(), pieces.end(), [&](Handle piece) {
                    const auto now = geometry::shapeOf(drawing_, piece);
                    return now && geometry::distanceTo(*now, at) < 1e-6;
                });
                if (on == pieces.end()) continue;
                const auto made = change(*on, at);
                pieces.insert(pieces.end(), made.begin(), made.end());
            }
        }
    }

    // Trims or extends the object at the picked point; the entities that hold its pieces
    // afterwards.
    std::vector<Handle> change(Handle entity, const ardo::Point3& at) {
        if (editableEntities(context_, {static_cast<std::int64_t>(entity)}).empty()) return {};
        const auto curve = curveOf(drawing_.entityTags(entity));
        if (!curve || (extend_ && curve->kind == Curve::Kind::Circle)) {
            context_.message(extend_ ? "Cannot EXTEND this object.\n" : "Cannot TRIM this object.\n");
            return {};
        }
        std::vector<Handle> pieces = extend_ ? lengthen(entity, *curve, at) : cut(entity, *curve, at);
        // The pieces still cut or bound the others, as the edge they were part of did.
        if (std::find(edges_.begin(), edges_.end(), entity) != edges_.end())
            edges_.insert(edges_.end(), pieces.begin(), pieces.end());
        return pieces;
    }

    // Where the edges meet the curve (or its extension, given as `reach`), as parameters.
    std::vector<double> meetings(Handle entity, const Curve& curve, const Curve& reach) const {
        std::vector<double> out;
        for (Handle edge : edges_) {
            if (edge == entity || drawing_.isErasedEntity(edge)) continue;
            const auto shape = geometry::shapeOf(drawing_, edge);
            if (!shape) continue;
            const auto points = reach.kind == Curve::Kind::Line
                                    ? geometry::intersections(geometry::Segment{reach.a, reach.b}, *shape)
                                    : geometry::intersections(reach.arc, *shape);
            for (const ardo::Point3& p : points) out.push_back(curve.parameterOf(p));
        }
        return out;
    }

    std::vector<Handle> cut(Handle entity, const Curve& curve, const ardo::Point3& at) {
        const auto cuts = meetings(entity, curve, curve);
        const double span = curve.span();
        const double t = std::clamp(curve.parameterOf(at), 0.0, span);
        if (curve.kind == Curve::Kind::Circle) return cutCircle(entity, curve, cuts, t);
        double lower = -1, upper = span + 1;
        for (double c : cuts) {
            if (c > kClose && c < t) lower = std::max(lower, c);
            if (c > t && c < span - kClose) upper = std::min(upper, c);
        }
        const bool before = lower >= 0, after = upper <= span;
        if (!before && !after) {
            context_.message("Object does not intersect an edge.\n");
            return {};
        }
        std::vector<Handle> pieces;
        if (before && after) {
            if (const auto copy = log_.copyWith(entity, curve.piece(upper, span))) pieces.push_back(*copy);
        }
        const auto kept = log_.replace(entity, before ? curve.piece(0, lower) : curve.piece(upper, span));
        if (kept && *kept != entity) pieces.push_back(*kept);
        return pieces;
    }

    // A circle keeps the arc from the cut after the pick round to the cut before it.
    std::vector<Handle> cutCircle(Handle entity, const Curve& circle, std::vector<double> cuts, double t) {
        std::sort(cuts.begin(), cuts.end());
        cuts.erase(std::unique(cuts.begin(), cuts.end(), [](double x, double y) { return y - x < 1e-9; }), cuts.end());
        if (cuts.size() >= 2 && cuts.back() - cuts.front() > kTwoPi - 1e-9) cuts.pop_back();
        if (cuts.size() < 2) {
            context_.message("Circle must intersect twice.\n");
            return {};
        }
        const auto next = std::upper_bound(cuts.begin(), cuts.end(), t);
        const double after = next == cuts.end() ? cuts.front() + kTwoPi : *next;
        const double before = next == cuts.begin() ? cuts.back() - kTwoPi : *(next - 1);
        const auto made = log_.replace(entity, circle.piece(after, before + kTwoPi));
        return made && *made != entity ? std::vector<Handle>{*made} : std::vector<Handle>{};
    }

    std::vector<Handle> lengthen(Handle entity, const Curve& curve, const ardo::Point3& at) {
        Curve longer = curve;
        if (curve.kind == Curve::Kind::Line) {
            // The end nearer the pick goes out along the line, as far as any edge can lie.
            const bool atStart = std::hypot(at[0] - curve.a[0], at[1] - curve.a[1]) <
                                 std::hypot(at[0] - curve.b[0], at[1] - curve.b[1]);
            const ardo::Point3& from = atStart ? curve.a : curve.b;
            const ardo::Point3& other = atStart ? curve.b : curve.a;
            const double length = std::hypot(from[0] - other[0], from[1] - other[1]);
            if (length == 0) return {};
            const double reach = std::max(edgeReach(from), length);
            Curve ray;
            ray.a = from;
            ray.b = {from[0] + (from[0] - other[0]) / length * reach, from[1] + (from[1] - other[1]) / length * reach,
                     from[2]};
            double nearest = std::numeric_limits<double>::infinity();
            for (double t : meetings(entity, ray, ray))
                if (t * reach > length * kClose) nearest = std::min(nearest, t);
            if (!std::isfinite(nearest)) return noEdge();
            (atStart ? longer.a : longer.b) = ray.pointAt(nearest);
        } else {
            const bool atStart = std::hypot(at[0] - curve.arc.pointAt(curve.arc.start)[0],
                                            at[1] - curve.arc.pointAt(curve.arc.start)[1]) <
                                 std::hypot(at[0] - curve.arc.pointAt(curve.arc.end)[0],
                                            at[1] - curve.arc.pointAt(curve.arc.end)[1]);
            Curve whole = curve;
            whole.kind = Curve::Kind::Circle;
            whole.arc.start = 0;
            whole.arc.end = kTwoPi;
            // How far each meeting lies beyond the chosen end; the arc may not close on itself.
            const double room = kTwoPi - curve.span();
            double nearest = std::numeric_limits<double>::infinity();
            for (double angle : meetings(entity, whole, whole)) {
                const double beyond = atStart ? normalizedAngle(curve.arc.start - angle) : normalizedAngle(angle - curve.arc.end);
                if (beyond > kClose && beyond < room - kClose) nearest = std::min(nearest, beyond);
            }
            if (!std::isfinite(nearest)) return noEdge();
            (atStart ? longer.arc.start : longer.arc.end) += atStart ? -nearest : nearest;
        }
        log_.replace(entity, longer);
        return {};
    }

    std::vector<Handle> noEdge() {
        context_.message("Object does not intersect an edge.\n");
        return {};
    }

    // Farther than any edge's extents from the point.
    double edgeReach(const ardo::Point3& from) const {
        double reach = 1;
        for (Handle edge : edges_)
            if (const auto box = drawing_.extents(edge))
                for (const ardo::Point3& corner : {box->min, box->max})
                    reach = std::max(reach, 2 * (std::abs(corner[0] - from[0]) + std::abs(corner[1] - from[1])));
        return reach;
    }

    Context& context_;
    Drawing& drawing_;
    bool extend_;
    Stage stage_ = Stage::Edges;
    ObjectSelection edgeSelection_;
    std::vector<Handle> edges_;
    std::vector<ardo::Point3> fence_;
    EditLog log_;
};

}  // namespace

std::unique_ptr<Command> makeTrimCommand(Context& context) { return std::make_unique<TrimExtendCommand>(context, false); }
std::unique_ptr<Command> makeExtendCommand(Context& context) { return std::make_unique<TrimExtendCommand>(context, true); }

}  // namespace cadhost::commands
