// PLINE: one LWPOLYLINE of line and arc segments, with widths or half-widths that taper from
// start to end, Length along the last direction, Undo and Close.
#include <vector>

#include "cadhost/commands/ArcGeometry.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/NewEntity.h"

namespace cadhost::commands {

namespace {

constexpr const char* kDistanceRequired = "Requires numeric distance or second point.\n";
constexpr const char* kAngleRequired = "Requires valid numeric angle or second point.\n";
constexpr const char* kNoArc = "No arc fits that input; specify another value.\n";

class PlineCommand final : public Command {
public:
    explicit PlineCommand(Context& context) : context_(context), drawing_(*context.drawing) {
        if (const auto width = drawing_.getVar("PLINEWID"); width && width->restype == ardo::RTREAL)
            startWidth_ = endWidth_ = width->real;
    }

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Start: return "Specify start point: ";
            case Stage::Next:
                if (arcs_) {
                    return std::string("Specify endpoint of arc or\n[Angle/CEnter/") + (segments() ? "CLose/" : "") +
                           "Direction/Halfwidth/Line/Radius/Second pt/Undo/Width]: ";
                }
                return segments() >= 2 ? "Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: "
                                       : "Specify next point or [Arc/Halfwidth/Length/Undo/Width]: ";
            case Stage::StartWidth:
                return (half_ ? "Specify starting half-width <" : "Specify starting width <") + shownLength(shown(startWidth_)) + ">: ";
            case Stage::EndWidth:
                return (half_ ? "Specify ending half-width <" : "Specify ending width <") + shownLength(shown(endWidth_)) + ">: ";
            case Stage::Length: return "Specify length of line: ";
            case Stage::Angle:
            case Stage::CentreAngle: return "Specify included angle: ";
            case Stage::AngleEnd: return "Specify endpoint of arc or [CEnter]: ";
            case Stage::AngleCentre:
            case Stage::Centre: return "Specify center point of arc: ";
            case Stage::CentreEnd: return "Specify endpoint of arc or [Angle/Length]: ";
            case Stage::Chord: return "Specify length of chord: ";
            case Stage::Direction: return "Specify the tangent direction for the start point of arc: ";
            case Stage::DirectionEnd: return "Specify endpoint of the arc: ";
            case Stage::Radius: return "Specify radius of arc: ";
            case Stage::RadiusEnd: return "Specify endpoint of arc: ";
            case Stage::Second: return "Specify second point on arc: ";
            case Stage::SecondEnd: return "Specify end point of arc: ";
        }
        return {};
    }
    InputRequest request() const override {
        if (stage_ == Stage::Start) return pointRequest();
        return pointRequest(vertices_.back().at);
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Start: return takeStart(input);
            case Stage::Next: return arcs_ ? takeArcEnd(input) : takeNextPoint(input);
            case Stage::StartWidth:
            case Stage::EndWidth: return takeWidth(input);
            case Stage::Length:
                if (const auto length = distanceInput(drawing_, input, last()))
                    return addSegment(polarPoint(last(), tangent(), *length), 0);
                return askAgain(context_, kDistanceRequired);
            case Stage::Angle:
                if (const auto angle = angleInput(drawing_, input, last())) {
                    included_ = *angle;
                    return next(Stage::AngleEnd);
                }
                return askAgain(context_, kAngleRequired);
            case Stage::AngleEnd:
                if (matchKeyword(input, {"CEnter"})) return next(Stage::AngleCentre);
                if (const auto end = pointInput(drawing_, input)) return addArc(arcFromEndsAngle(last(), *end, included_));
                return askAgain(context_, kPointOrKeyword);
            case Stage::AngleCentre:
                if (const auto centre = pointInput(drawing_, input))
                    return addArc(arcFromCentreAngle(*centre, last(), included_));
                return askAgain(context_, kInvalidPoint);
            case Stage::Centre:
                centre_ = pointInput(drawing_, input);
                if (!centre_) return askAgain(context_, kInvalidPoint);
                return next(Stage::CentreEnd);
            case Stage::CentreEnd:
                if (const auto keyword = matchKeyword(input, {"Angle", "Length"}))
                    return next(*keyword == 0 ? Stage::CentreAngle : Stage::Chord);
                if (const auto end = pointInput(drawing_, input)) return addArc(arcFromCentre(*centre_, last(), *end));
                return askAgain(context_, kPointOrKeyword);
            case Stage::CentreAngle:
                if (const auto angle = angleInput(drawing_, input, *centre_))
                    return addArc(arcFromCentreAngle(*centre_, last(), *angle));
                return askAgain(context_, kAngleRequired);
            case Stage::Chord:
                if (const auto chord = distanceInput(drawing_, input, last()))
                    return addArc(arcFromCentreChord(*centre_, last(), *chord));
                return askAgain(context_, kDistanceRequired);
            case Stage::Direction:
                if (const auto direction = angleInput(drawing_, input, last())) {
                    direction_ = *direction;
                    return next(Stage::DirectionEnd);
                }
                return askAgain(context_, kAngleRequired);
            case Stage::DirectionEnd:
                if (const auto end = pointInput(drawing_, input)) return addTangentArc(direction_, *end);
                return askAgain(context_, kInvalidPoint);
            case Stage::Radius:
                if (const auto radius = distanceInput(drawing_, input, last()); radius && *radius > 0) {
                    radius_ = *radius;
                    return next(Stage::RadiusEnd);
                } else {
                    return askAgain(context_, radius ? "Value must be positive and nonzero.\n" : kDistanceRequired);
                }
            case Stage::RadiusEnd:
                if (const auto end = pointInput(drawing_, input)) return addArc(arcFromEndsRadius(last(), *end, radius_));
                return askAgain(context_, kInvalidPoint);
            case Stage::Second:
                centre_ = pointInput(drawing_, input);   // the second point, kept where the centre would be
                if (!centre_) return askAgain(context_, kInvalidPoint);
                return next(Stage::SecondEnd);
            case Stage::SecondEnd:
                if (const auto end = pointInput(drawing_, input)) {
                    const auto included = includedThroughPoints(last(), *centre_, *end);
                    if (!included) return askAgain(context_, kNoArc);
                    return addSegment(*end, *included);
                }
                return askAgain(context_, kInvalidPoint);
        }
        return Step::Refused;
    }

private:
    enum class Stage {
        Start, Next, StartWidth, EndWidth, Length, Angle, AngleEnd, AngleCentre, Centre, CentreEnd, CentreAngle,
        Chord, Direction, DirectionEnd, Radius, RadiusEnd, Second, SecondEnd
    };
    // A vertex and the segment that leaves it: its widths and included angle (0 for a line).
    struct Vertex {
        ardo::Point3 at{};
        double startWidth = 0, endWidth = 0, included = 0;
    };

    std::size_t segments() const { return vertices_.size() - 1; }
    const ardo::Point3& last() const { return vertices_.back().at; }
    double shown(double width) const { return half_ ? width / 2 : width; }

    // The direction the polyline leaves its last vertex in: along the last line, or the
    // tangent at the end of the last arc; east before the first segment.
    double tangent() const {
        if (segments() == 0) return 0;
        const Vertex& from = vertices_[vertices_.size() - 2];
        return angleBetween(from.at, last()) + from.included / 2;
    }

    Step next(Stage stage) {
        stage_ = stage;
        return Step::More;
    }

    Step takeStart(const ardo::ResBuf& input) {
        std::optional<ardo::Point3> start;
        if (isEnter(input)) {
            const auto lastPoint = drawing_.getVar("LASTPOINT");
            start = lastPoint ? lastPoint->point : ardo::Point3{};
        } else {
            start = pointInput(drawing_, input);
        }
        if (!start) return askAgain(context_, kInvalidPoint);
        vertices_.push_back({*start});
        context_.echo("Current line-width is " + shownLength(startWidth_) + "\n");
        return next(Stage::Next);
    }

    // Keywords both modes share, after the mode's own.
    std::optional<Step> takeSharedKeyword(std::size_t keyword) {
        switch (keyword) {
            case 0:
                half_ = true;
                return next(Stage::StartWidth);
            case 1: return undo();
            case 2:
                half_ = false;
                return next(Stage::StartWidth);
            default: return std::nullopt;
        }
    }

    Step takeNextPoint(const ardo::ResBuf& input) {
        if (isEnter(input)) return finish(false);
        if (const auto keyword = matchKeyword(input, {"Arc", "Close", "Length", "Halfwidth", "Undo", "Width"})) {
            if (*keyword == 0) {
                arcs_ = true;
                return Step::More;
            }
            if (*keyword == 1) {
                if (segments() < 2) return askAgain(context_, kPointOrKeyword);
                vertices_.back().startWidth = startWidth_;
                vertices_.back().endWidth = endWidth_;
                return finish(true);
            }
            if (*keyword == 2) return next(Stage::Length);
            return *takeSharedKeyword(*keyword - 3);
        }
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, kPointOrKeyword);
        return addSegment(*p, 0);
    }

    Step takeArcEnd(const ardo::ResBuf& input) {
        if (isEnter(input)) return finish(false);
        const auto keyword = matchKeyword(
            input, {"Angle", "CEnter", "CLose", "Direction", "Line", "Radius", "Second pt", "Halfwidth", "Undo", "Width"});
        if (keyword) {
            switch (*keyword) {
                case 0: return next(Stage::Angle);
                case 1: return next(Stage::Centre);
                case 2: return closeWithArc();
                case 3: return next(Stage::Direction);
                case 4:
                    arcs_ = false;
                    return Step::More;
                case 5: return next(Stage::Radius);
                case 6: return next(Stage::Second);
                default: return *takeSharedKeyword(*keyword - 7);
            }
        }
        const auto end = pointInput(drawing_, input);
        if (!end) return askAgain(context_, kPointOrKeyword);
        return addTangentArc(tangent(), *end);
    }

    Step takeWidth(const ardo::ResBuf& input) {
        double& width = stage_ == Stage::StartWidth ? startWidth_ : endWidth_;
        if (!isEnter(input)) {
            const auto typed = distanceInput(drawing_, input, last());
            if (!typed) return askAgain(context_, kDistanceRequired);
            if (*typed < 0) return askAgain(context_, "Value must be positive or zero.\n");
            width = half_ ? *typed * 2 : *typed;
        }
        if (stage_ == Stage::EndWidth) {
            drawing_.setVar("PLINEWID", ardo::ResBuf::realNum(endWidth_));
            return next(Stage::Next);
        }
        endWidth_ = startWidth_;   // the starting width is the ending width's default
        return next(Stage::EndWidth);
    }

    Step addTangentArc(double direction, const ardo::Point3& end) {
        const auto included = includedFromTangent(last(), direction, end);
        if (!included) return askAgain(context_, kNoArc);
        return addSegment(end, *included);
    }

    Step addArc(const std::optional<Arc>& arc) {
        if (!arc) return askAgain(context_, kNoArc);
        const auto [end, included] = arcFrom(*arc, last());
        return addSegment(end, included);
    }

    Step closeWithArc() {
        if (segments() == 0) return askAgain(context_, kPointOrKeyword);
        const auto included = includedFromTangent(last(), tangent(), vertices_.front().at);
        if (!included) return askAgain(context_, kNoArc);
        Vertex& from = vertices_.back();
        from.startWidth = startWidth_;
        from.endWidth = endWidth_;
        from.included = *included;
        return finish(true);
    }

    Step addSegment(const ardo::Point3& to, double included) {
        Vertex& from = vertices_.back();
        from.startWidth = startWidth_;
        from.endWidth = endWidth_;
        from.included = included;
        // The ending width is the width of the segments that follow.
        startWidth_ = endWidth_;
        vertices_.push_back({{to[0], to[1], vertices_.front().at[2]}, endWidth_, endWidth_, 0});
        drawing_.setVar("LASTPOINT", ardo::ResBuf::point3(to));
        return next(Stage::Next);
    }

    Step undo() {
        stage_ = Stage::Next;
        if (segments() == 0) {
            context_.message("All segments already undone.\n");
            vertices_.clear();
            return next(Stage::Start);
        }
        vertices_.pop_back();
        vertices_.back().included = 0;
        drawing_.setVar("LASTPOINT", ardo::ResBuf::point3(last()));
        return Step::More;
    }

    Step finish(bool closed) {
        if (segments() == 0 && !closed) return Step::Done;   // a start point alone draws nothing
        bool uniform = true;
        for (const Vertex& v : vertices_)
            uniform = uniform && v.startWidth == vertices_.front().startWidth && v.endWidth == v.startWidth;
        std::vector<EntityTag> data{{90, std::to_string(vertices_.size())}, {70, closed ? "1" : "0"}};
        if (uniform) data.push_back({43, dxfNumber(vertices_.front().startWidth)});
        data.push_back({38, dxfNumber(vertices_.front().at[2])});
        for (const Vertex& v : vertices_) {
            data.push_back({10, dxfNumber(v.at[0])});
            data.push_back({20, dxfNumber(v.at[1])});
            if (!uniform) {
                data.push_back({40, dxfNumber(v.startWidth)});
                data.push_back({41, dxfNumber(v.endWidth)});
            }
            if (v.included != 0) data.push_back({42, dxfNumber(bulgeOf(v.included))});
        }
        return finishWith(context_, "LWPOLYLINE", "AcDbPolyline", std::move(data), "The polyline");
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Start;
    bool arcs_ = false;
    bool half_ = false;
    std::vector<Vertex> vertices_;
    double startWidth_ = 0, endWidth_ = 0;
    double included_ = 0, direction_ = 0, radius_ = 0;
    std::optional<ardo::Point3> centre_;
};

}  // namespace

std::unique_ptr<Command> makePlineCommand(Context& context) { return std::make_unique<PlineCommand>(context); }

}  // namespace cadhost::commands
