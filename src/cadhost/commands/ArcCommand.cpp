// ARC: three points; start, centre and end, included angle or chord length; start, end and
// centre, included angle, start direction or radius; or the centre first.
#include <vector>

#include "cadhost/commands/ArcGeometry.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/NewEntity.h"

namespace cadhost::commands {

namespace {

constexpr const char* kNoArc = "No arc fits that input; specify another value.\n";

class ArcCommand final : public Command {
public:
    explicit ArcCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Start: return "Specify start point of arc or [Center]: ";
            case Stage::Second: return "Specify second point of arc or [Center/End]: ";
            case Stage::ThirdPoint:
            case Stage::EndAfterStart: return "Specify end point of arc: ";
            case Stage::Centre: return "Specify center point of arc: ";
            case Stage::StartAfterCentre: return "Specify start point of arc: ";
            case Stage::AfterCentre: return "Specify end point of arc or [Angle/chord Length]: ";
            case Stage::AfterEnds: return "Specify center point of arc or [Angle/Direction/Radius]: ";
            case Stage::CentreAngle:
            case Stage::EndsAngle: return "Specify included angle: ";
            case Stage::Chord: return "Specify length of chord: ";
            case Stage::Direction: return "Specify tangent direction for the start point of arc: ";
            case Stage::Radius: return "Specify radius of arc: ";
        }
        return {};
    }
    InputRequest request() const override {
        return pointRequest(points_.empty() ? std::nullopt : std::optional(points_.back()));
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Start:
                if (matchKeyword(input, {"Center"})) return next(Stage::Centre);
                return takePoint(input, kPointOrKeyword, Stage::Second);
            case Stage::Second:
                if (const auto keyword = matchKeyword(input, {"Center", "End"}))
                    return next(*keyword == 0 ? Stage::Centre : Stage::EndAfterStart);
                return takePoint(input, kPointOrKeyword, Stage::ThirdPoint);
            case Stage::ThirdPoint: {
                const auto end = pointInput(drawing_, input);
                if (!end) return askAgain(context_, kInvalidPoint);
                return finish(arcThroughPoints(points_[0], points_[1], *end));
            }
            case Stage::Centre:
                centre_ = pointInput(drawing_, input);
                if (!centre_) return askAgain(context_, kInvalidPoint);
                return next(points_.empty() ? Stage::StartAfterCentre : Stage::AfterCentre);
            case Stage::StartAfterCentre: return takePoint(input, kInvalidPoint, Stage::AfterCentre);
            case Stage::AfterCentre:
                if (const auto keyword = matchKeyword(input, {"Angle", "Length"}))
                    return next(*keyword == 0 ? Stage::CentreAngle : Stage::Chord);
                if (const auto end = pointInput(drawing_, input)) return finish(arcFromCentre(*centre_, points_[0], *end));
                return askAgain(context_, kPointOrKeyword);
            case Stage::EndAfterStart: return takePoint(input, kInvalidPoint, Stage::AfterEnds);
            case Stage::AfterEnds:
                if (const auto keyword = matchKeyword(input, {"Angle", "Direction", "Radius"}))
                    return next(*keyword == 0 ? Stage::EndsAngle : *keyword == 1 ? Stage::Direction : Stage::Radius);
                if (const auto c = pointInput(drawing_, input)) return finish(arcFromCentre(*c, points_[0], points_[1]));
                return askAgain(context_, kPointOrKeyword);
            case Stage::CentreAngle:
                if (const auto angle = angleInput(drawing_, input, *centre_))
                    return finish(arcFromCentreAngle(*centre_, points_[0], *angle));
                return askAgain(context_, kAngleRequired);
            case Stage::Chord:
                if (const auto chord = distanceInput(drawing_, input, points_[0]))
                    return finish(arcFromCentreChord(*centre_, points_[0], *chord));
                return askAgain(context_, "Requires numeric distance or second point.\n");
            case Stage::EndsAngle:
                if (const auto angle = angleInput(drawing_, input, points_[0]))
                    return finish(arcFromEndsAngle(points_[0], points_[1], *angle));
                return askAgain(context_, kAngleRequired);
            case Stage::Direction:
                if (const auto tangent = angleInput(drawing_, input, points_[0])) {
                    const auto included = includedFromTangent(points_[0], *tangent, points_[1]);
                    return finish(included ? arcFromEndsAngle(points_[0], points_[1], *included) : std::nullopt);
                }
                return askAgain(context_, kAngleRequired);
            case Stage::Radius:
                if (const auto radius = distanceInput(drawing_, input, points_[1]))
                    return finish(arcFromEndsRadius(points_[0], points_[1], *radius));
                return askAgain(context_, "Requires numeric distance or second point.\n");
        }
        return Step::Refused;
    }

private:
    enum class Stage {
        Start, Second, ThirdPoint, Centre, StartAfterCentre, AfterCentre, EndAfterStart, AfterEnds,
        CentreAngle, Chord, EndsAngle, Direction, Radius
    };
    static constexpr const char* kAngleRequired = "Requires valid numeric angle or second point.\n";

    Step next(Stage stage) {
        stage_ = stage;
        return Step::More;
    }
    Step takePoint(const ardo::ResBuf& input, const char* complaint, Stage then) {
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, complaint);
        points_.push_back(*p);
        return next(then);
    }

    // A value that gives no arc is asked for again at the same prompt.
    Step finish(const std::optional<Arc>& arc) {
        if (!arc) return askAgain(context_, kNoArc);
        std::vector<EntityTag> data;
        appendPoint(data, 10, arc->centre);
        data.push_back({40, dxfNumber(arc->radius)});
        if (hasSubclassMarkers(drawing_)) data.push_back({100, "AcDbArc"});
        data.push_back({50, dxfDegrees(arc->start)});
        data.push_back({51, dxfDegrees(arc->end)});
        return finishWith(context_, "ARC", "AcDbCircle", std::move(data), "The arc");
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Start;
    std::vector<ardo::Point3> points_;
    std::optional<ardo::Point3> centre_;
};

}  // namespace

std::unique_ptr<Command> makeArcCommand(Context& context) { return std::make_unique<ArcCommand>(context); }

}  // namespace cadhost::commands
