// CIRCLE: centre and radius or diameter, two points of a diameter, or three points on it.
#include <algorithm>
#include <cmath>
#include <vector>

#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/ArcGeometry.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {

namespace {

class CircleCommand final : public Command {
public:
    explicit CircleCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Centre: return "Specify center point for circle or [3P/2P]: ";
            case Stage::Radius: return "Specify radius of circle or [Diameter]: ";
            case Stage::Diameter: return "Specify diameter of circle: ";
            case Stage::TwoPoints:
                return points_.empty() ? "Specify first end point of circle's diameter: "
                                       : "Specify second end point of circle's diameter: ";
            case Stage::ThreePoints:
                return points_.empty() ? "Specify first point on circle: "
                       : points_.size() == 1 ? "Specify second point on circle: "
                                             : "Specify third point on circle: ";
        }
        return {};
    }
    InputRequest request() const override {
        return pointRequest(points_.empty() ? std::nullopt : std::optional(points_.back()));
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Centre:
                if (const auto keyword = matchKeyword(input, {"3P", "2P"})) {
                    stage_ = *keyword == 0 ? Stage::ThreePoints : Stage::TwoPoints;
                    return Step::More;
                }
                return takePoint(input, kPointOrKeyword, [this] { stage_ = Stage::Radius; });
            case Stage::Radius:
                if (matchKeyword(input, {"Diameter"})) {
                    stage_ = Stage::Diameter;
                    return Step::More;
                }
                return takeSize(input, 1.0);
            case Stage::Diameter: return takeSize(input, 0.5);
            case Stage::TwoPoints:
                return takePoint(input, kInvalidPoint, [] {});
            case Stage::ThreePoints:
                return takePoint(input, kInvalidPoint, [] {});
        }
        return Step::Refused;
    }

private:
    enum class Stage { Centre, Radius, Diameter, TwoPoints, ThreePoints };

    template <typename Then>
    Step takePoint(const ardo::ResBuf& input, const char* complaint, Then then) {
        const auto p = pointInput(drawing_, input);
        if (!p) {
            context_.message(complaint);
            return Step::More;
        }
        points_.push_back(*p);
        if (stage_ == Stage::TwoPoints && points_.size() == 2) {
            const ardo::Point3 centre{(points_[0][0] + points_[1][0]) / 2, (points_[0][1] + points_[1][1]) / 2,
                                      points_[0][2]};
            return finish(centre, distanceBetween(points_[0], points_[1], true) / 2);
        }
        if (stage_ == Stage::ThreePoints && points_.size() == 3) {
            const auto circle = circleThrough(points_[0], points_[1], points_[2]);
            if (!circle) {
                context_.message("The three points lie on one line; specify another third point.\n");
                points_.pop_back();
                return Step::More;
            }
            return finish(circle->first, circle->second);
        }
        then();
        return Step::More;
    }

    Step takeSize(const ardo::ResBuf& input, double toRadius) {
        const auto size = distanceInput(drawing_, input, points_.front());
        if (!size || *size <= 0) {
            context_.message(size ? "Value must be positive and nonzero.\n"
                                  : "Requires numeric distance or second point.\n");
            return Step::More;
        }
        return finish(points_.front(), *size * toRadius);
    }

    Step finish(const ardo::Point3& centre, double radius) {
        if (radius <= 0) {
            context_.message("Value must be positive and nonzero.\n");
            points_.pop_back();
            return Step::More;
        }
        std::vector<EntityTag> data;
        appendPoint(data, 10, centre);
        data.push_back({40, dxfNumber(radius)});
        if (!addEntity(drawing_, "CIRCLE", "AcDbCircle", std::move(data))) {
            context_.message("The circle could not be added to the drawing.\n");
            return Step::Refused;
        }
        return Step::Done;
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Centre;
    std::vector<ardo::Point3> points_;
};

}  // namespace

std::unique_ptr<Command> makeCircleCommand(Context& context) { return std::make_unique<CircleCommand>(context); }

}  // namespace cadhost::commands
