// HATCH and -HATCH: a pattern or a solid fill in closed boundaries chosen by Select objects
// (closed polylines, circles, full ellipses) or by a point inside one. A point picks the
// smallest closed boundary around it, with the boundaries inside that as islands. The
// hatch is not associative: it does not follow its boundary when that changes.
#include <algorithm>
#include <cmath>
#include <numeric>

#include "cadhost/commands/BlockCommands.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/HatchPatterns.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/geometry/Paths.h"
#include "cadhost/geometry/AreaOutline.h"
#include "cadhost/geometry/Queries.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

// One boundary path of the HATCH entity for a closed entity: polylines as polyline paths
// with their bulges, circles and full ellipses as one edge. Nothing for anything else.
std::optional<std::vector<EntityTag>> boundaryPath(const Drawing& drawing, Handle h, double& elevation) {
    const auto tags = drawing.entityTags(h);
    if (tags.empty()) return std::nullopt;
    const std::string type = tags.front().value;
    const geometry::Groups g(tags);
    if (std::fabs(g.get(210)) > 1e-12 || std::fabs(g.get(220)) > 1e-12 || g.get(230, 1) < 0)
        return std::nullopt;   // on another plane
    std::vector<EntityTag> path;
    if (type == "LWPOLYLINE" || type == "POLYLINE") {
        // Open polylines enclose nothing; 3D polylines and meshes lie in no one plane.
        if (!(g.flags(70) & 1) || (g.flags(70) & (8 | 16 | 64))) return std::nullopt;
        const auto polyline = geometry::polylineOf(drawing, h, tags);
        if (!polyline || polyline->vertices.size() < 2) return std::nullopt;
        const auto& vertices = polyline->vertices;
        elevation = type == "LWPOLYLINE" ? g.get(38) : g.get(30);
        const bool bulged = std::any_of(vertices.begin(), vertices.end(), [](const auto& v) { return v.bulge != 0; });
        path = {{92, "3"}, {72, bulged ? "1" : "0"}, {73, "1"}, {93, std::to_string(vertices.size())}};
        for (const auto& v : vertices) {
            path.push_back({10, dxfNumber(v.at[0])});
            path.push_back({20, dxfNumber(v.at[1])});
            if (bulged) path.push_back({42, dxfNumber(v.bulge)});
        }
    } else if (type == "CIRCLE") {
        elevation = g.get(30);
        path = {{92, "1"}, {93, "1"}, {72, "2"}, {10, dxfNumber(g.get(10))}, {20, dxfNumber(g.get(20))},
                {40, dxfNumber(g.get(40))}, {50, "0.0"}, {51, "360.0"}, {73, "1"}};
    } else if (type == "ELLIPSE") {
        const double start = g.get(41), end = g.get(42, 2 * M_PI);
        if (std::fabs(std::fabs(end - start) - 2 * M_PI) > 1e-9) return std::nullopt;   // an arc encloses nothing
        elevation = g.get(30);
        path = {{92, "1"}, {93, "1"}, {72, "3"}, {10, dxfNumber(g.get(10))}, {20, dxfNumber(g.get(20))},
                {11, dxfNumber(g.get(11))}, {21, dxfNumber(g.get(21))}, {40, dxfNumber(g.get(40, 1))},
                {50, "0.0"}, {51, "360.0"}, {73, "1"}};
    } else {
        return std::nullopt;
    }
    path.push_back({97, "0"});
    return path;
}

class HatchCommand final : public Command {
public:
    explicit HatchCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Main: return "Specify internal point or [Properties/Select objects]: ";
            case Stage::Pattern: return "Enter a pattern name or [?/Solid] <" + pattern_ + ">: ";
            case Stage::Scale: return "Specify a scale for the pattern <" + shownLength(scale_) + ">: ";
            case Stage::Angle: return "Specify an angle for the pattern <" + angleText() + ">: ";
            case Stage::Objects: return selection_->prompt();
        }
        return {};
    }
    InputRequest request() const override {
        if (stage_ == Stage::Main) return pointRequest();
        if (stage_ == Stage::Objects) return selection_->request();
        return {};
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Main: return takeMain(input);
            case Stage::Pattern: return takePattern(input);
            case Stage::Scale: {
                const auto scale = isEnter(input) ? std::optional(scale_) : numberInput(input);
                if (!scale || *scale <= 0)
                    return askAgain(context_, scale ? "Value must be positive and nonzero.\n" : "Requires numeric value.\n");
                scale_ = *scale;
                stage_ = Stage::Angle;
                return Step::More;
            }
            case Stage::Angle: {
                const auto angle = isEnter(input) ? std::optional(angle_) : angleInput(drawing_, input, {});
                if (!angle) return askAgain(context_, "Requires valid numeric angle or second point.\n");
                angle_ = *angle;
                stage_ = Stage::Main;
                return Step::More;
            }
            case Stage::Objects:
                if (const auto step = takeObjects(*selection_, input, context_)) return *step;
                addBoundaries(selection_->selected());
                selection_.reset();
                stage_ = Stage::Main;
                return Step::More;
        }
        return Step::Refused;
    }

private:
    enum class Stage { Main, Pattern, Scale, Angle, Objects };

    std::string angleText() const {
        std::string text = dxfNumber(angle_ * 180 / M_PI);
        if (text.ends_with(".0")) text.resize(text.size() - 2);
        return text;
    }

    Step takeMain(const ardo::ResBuf& input) {
        if (isEnter(input)) return finish();
        if (const auto keyword = matchKeyword(input, {"Properties", "Select objects"})) {
            if (*keyword == 0) {
                stage_ = Stage::Pattern;
            } else {
                selection_.emplace(drawing_, context_.previousSelection, context_.selectionMembers);
                stage_ = Stage::Objects;
            }
            return Step::More;
        }
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, kPointOrKeyword);
        if (!boundaryAround(*p)) context_.message("Valid hatch boundary not found.\n");
        return Step::More;
    }

    Step takePattern(const ardo::ResBuf& input) {
        if (isEnter(input)) {
            stage_ = pattern_ == "SOLID" ? Stage::Main : Stage::Scale;
            return Step::More;
        }
        const std::string typed = inputText(input);
        if (typed == "?") {
            std::string list;
            for (std::string_view name : hatchPatternNames()) list += std::string(list.empty() ? "" : " ") + std::string(name);
            context_.message("Predefined patterns: " + list + "\n");
            return Step::More;
        }
        const std::string_view name = ardo::trimWhite(typed.starts_with("_") ? std::string_view(typed).substr(1) : typed);
        const auto found = findHatchPattern(name == "S" || name == "s" ? "SOLID" : name);
        if (!found) return askAgain(context_, ("Pattern \"" + typed + "\" is not defined. Enter ? for the list.\n").c_str());
        pattern_ = std::string(*found);
        stage_ = pattern_ == "SOLID" ? Stage::Main : Stage::Scale;
        return Step::More;
    }

    void addBoundaries(const std::vector<std::int64_t>& chosen) {
        std::size_t skipped = 0;
        for (Handle h : editableEntities(context_, chosen)) {
            if (std::find(boundaries_.begin(), boundaries_.end(), h) != boundaries_.end()) continue;
            double elevation = 0;
            if (auto path = boundaryPath(drawing_, h, elevation)) {
                if (paths_.empty()) elevation_ = elevation;
                paths_.push_back(std::move(*path));
                boundaries_.push_back(h);
            } else {
                ++skipped;
            }
        }
        if (skipped > 0)
            context_.message(std::to_string(skipped) + (skipped == 1 ? " object is" : " objects are") +
                             " no closed boundary and " + (skipped == 1 ? "was" : "were") + " left out.\n");
    }

    // The smallest closed boundary around the point, with the closed boundaries inside it
    // as islands.
    bool boundaryAround(const ardo::Point3& p) {
        struct Ring {
            Handle handle;
            geometry::Polygon polygon;
            double area;
        };
        std::vector<Ring> rings;
        drawing_.forEachEntity([&](const EntityInfo& e) {
            if (e.space != Space::Model) return true;
            if (const auto outline = geometry::areaOutlineOf(drawing_, e.handle)) {
                geometry::Polygon polygon;
                for (const auto& xy : outline->ring) polygon.push_back({xy[0], xy[1], 0});
                rings.push_back({e.handle, std::move(polygon), outline->area});
            }
            return true;
        });
        const Ring* around = nullptr;
        for (const Ring& r : rings)
            if (geometry::insidePolygon(r.polygon, p) && (!around || r.area < around->area)) around = &r;
        if (!around) return false;
        std::vector<std::int64_t> chosen{static_cast<std::int64_t>(around->handle)};
        for (const Ring& r : rings)
            if (&r != around && r.area < around->area && !geometry::insidePolygon(r.polygon, p) &&
                std::all_of(r.polygon.begin(), r.polygon.end(),
                            [&](const ardo::Point3& q) { return geometry::insidePolygon(around->polygon, q); }))
                chosen.push_back(static_cast<std::int64_t>(r.handle));
        addBoundaries(chosen);
        return true;
    }

    Step finish() {
        if (paths_.empty()) return Step::Done;
        const bool solid = pattern_ == "SOLID";
        std::vector<EntityTag> data;
        appendPoint(data, 10, {0, 0, elevation_});
        appendPoint(data, 210, {0, 0, 1});
        data.push_back({2, pattern_});
        data.push_back({70, solid ? "1" : "0"});
        data.push_back({71, "0"});
        data.push_back({91, std::to_string(paths_.size())});
        for (const auto& path : paths_) data.insert(data.end(), path.begin(), path.end());
        data.push_back({75, "0"});
        data.push_back({76, "1"});
        if (!solid) {
            data.push_back({52, dxfDegrees(angle_)});
            data.push_back({41, dxfNumber(scale_)});
            data.push_back({77, "0"});
            const auto lines = hatchPatternTags(pattern_, scale_, angle_);
            data.push_back({78, std::to_string(std::count_if(lines.begin(), lines.end(), [](const EntityTag& t) {
                                return t.code == 53;
                            }))});
            data.insert(data.end(), lines.begin(), lines.end());
        }
        data.push_back({98, "0"});
        return finishWith(context_, "HATCH", "AcDbHatch", std::move(data), "The hatch");
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Main;
    std::optional<ObjectSelection> selection_;
    std::string pattern_ = "ANSI31";
    double scale_ = 1, angle_ = 0, elevation_ = 0;
    std::vector<std::vector<EntityTag>> paths_;
    std::vector<Handle> boundaries_;
};

}  // namespace

std::unique_ptr<Command> makeHatchCommand(Context& context) { return std::make_unique<HatchCommand>(context); }

}  // namespace cadhost::commands
