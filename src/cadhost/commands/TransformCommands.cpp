// MOVE, COPY, ROTATE, SCALE and MIRROR: the selected objects moved, turned, scaled or
// mirrored about points the user gives, in place or as copies.
#include <cmath>
#include <numbers>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/EditingCommands.h"
#include "cadhost/commands/EntityTransform.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/Stretch.h"
#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {

namespace {

ardo::Point3 difference(const ardo::Point3& a, const ardo::Point3& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

// MOVE, COPY and STRETCH: a base point and a second point, or a displacement. COPY places
// copies until Enter or Exit; Undo takes back the last placement. STRETCH moves what lies
// in the crossing windows the objects were chosen by.
class DisplaceCommand final : public EditingCommand {
public:
    enum class Kind { Move, Copy, Stretch };
    DisplaceCommand(Context& context, Kind kind) : EditingCommand(context), copy_(kind == Kind::Copy), kind_(kind) {}

    Step start() override {
        if (kind_ == Kind::Stretch) context_.echo("Select objects to stretch by crossing-window or crossing-polygon...\n");
        return Step::More;
    }

private:
    enum class Stage { Base, Displacement, Second };

    std::string ownPrompt() const override {
        switch (stage_) {
            case Stage::Base: return "Specify base point or [Displacement] <Displacement>: ";
            case Stage::Displacement: return "Specify displacement <0.0000, 0.0000, 0.0000>: ";
            case Stage::Second:
                return placed_.empty() ? "Specify second point or <use first point as displacement>: "
                                       : "Specify second point or [Exit/Undo] <Exit>: ";
        }
        return {};
    }
    InputRequest ownRequest() const override {
        return pointRequest(stage_ == Stage::Second ? std::optional(base_) : std::nullopt);
    }

    Step answer(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Base:
                if (isEnter(input) || matchKeyword(input, {"Displacement"})) {
                    stage_ = Stage::Displacement;
                    return Step::More;
                }
                if (const auto p = pointInput(drawing_, input)) {
                    base_ = *p;
                    stage_ = Stage::Second;
                    return Step::More;
                }
                context_.message(kPointOrKeyword);
                return Step::More;
            case Stage::Displacement:
                if (isEnter(input)) return Step::Done;
                if (const auto p = pointInput(drawing_, input)) {
                    place(*p);
                    return Step::Done;
                }
                context_.message(kInvalidPoint);
                return Step::More;
            case Stage::Second: return second(input);
        }
        return Step::Refused;
    }

    Step second(const ardo::ResBuf& input) {
        if (isEnter(input)) {
            if (!placed_.empty()) return Step::Done;
            place(base_);   // the first point is the displacement
            return Step::Done;
        }
        if (!placed_.empty()) {
            if (const auto keyword = matchKeyword(input, {"Exit", "Undo"})) {
                if (*keyword == 0) return Step::Done;
                drawing_.eraseEntities(placed_.back());
                placed_.pop_back();
                return Step::More;
            }
        }
        const auto p = pointInput(drawing_, input);
        if (!p) {
            context_.message(placed_.empty() ? kInvalidPoint : kPointOrKeyword);
            return Step::More;
        }
        place(difference(*p, base_));
        return copy_ ? Step::More : Step::Done;
    }

    void place(const ardo::Point3& by) {
        if (kind_ == Kind::Stretch) stretchEntities(context_, entities_, selection().regions(), by);
        else placed_.push_back(transformEntities(context_, entities_, Transform::translation(by), copy_));
    }

    bool copy_;
    Kind kind_;
    Stage stage_ = Stage::Base;
    ardo::Point3 base_{};
    std::vector<std::vector<Handle>> placed_;   // the copies of each placement
};

// ROTATE and SCALE: a base point, then an angle or factor, given directly or as the ratio
// of a reference and a new value; Copy keeps the originals.
class AboutBaseCommand final : public EditingCommand {
public:
    AboutBaseCommand(Context& context, bool rotate) : EditingCommand(context), rotate_(rotate) {}

private:
    enum class Stage { Base, Amount, Reference, NewValue };

    std::string ownPrompt() const override {
        switch (stage_) {
            case Stage::Base: return "Specify base point: ";
            case Stage::Amount:
                return rotate_ ? "Specify rotation angle or [Copy/Reference] <0>: "
                               : "Specify scale factor or [Copy/Reference]: ";
            case Stage::Reference: return rotate_ ? "Specify the reference angle <0>: " : "Specify reference length <1.0000>: ";
            case Stage::NewValue: return rotate_ ? "Specify the new angle <0>: " : "Specify new length <1.0000>: ";
        }
        return {};
    }
    InputRequest ownRequest() const override {
        return pointRequest(stage_ == Stage::Base ? std::nullopt : std::optional(base_));
    }

    Step answer(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Base:
                if (const auto p = pointInput(drawing_, input)) {
                    base_ = *p;
                    stage_ = Stage::Amount;
                } else {
                    context_.message(kInvalidPoint);
                }
                return Step::More;
            case Stage::Amount:
                if (const auto keyword = matchKeyword(input, {"Copy", "Reference"})) {
                    if (*keyword == 0) {
                        copy_ = true;
                        context_.echo(rotate_ ? "Rotating a copy of the selected objects.\n"
                                              : "Scaling a copy of the selected objects.\n");
                    } else {
                        stage_ = Stage::Reference;
                    }
                    return Step::More;
                }
                if (rotate_ && isEnter(input)) return apply(0);
                if (const auto value = amount(input)) return apply(*value);
                return Step::More;
            case Stage::Reference:
                if (const auto value = isEnter(input) ? std::optional(rotate_ ? 0.0 : 1.0) : amount(input)) {
                    reference_ = *value;
                    stage_ = Stage::NewValue;
                }
                return Step::More;
            case Stage::NewValue: {
                const auto value = isEnter(input) ? std::optional(rotate_ ? 0.0 : 1.0) : amount(input);
                if (!value) return Step::More;
                return apply(rotate_ ? *value - reference_ : *value / reference_);
            }
        }
        return Step::Refused;
    }

    // An angle (degrees typed, or the direction to a point) or a positive length or factor
    // (typed, or the distance to a point); complains and gives nothing otherwise.
    std::optional<double> amount(const ardo::ResBuf& input) {
        if (rotate_) {
            if (input.restype == ardo::RTREAL) return input.real * std::numbers::pi / 180;
            if (input.restype == ardo::RTSHORT || input.restype == ardo::RTLONG)
                return static_cast<double>(input.integer) * std::numbers::pi / 180;
            if (input.restype == ardo::RTSTR)
                if (const auto a = parseAngle(input.text)) return a;
            if (const auto p = pointInput(drawing_, input)) return angleBetween(base_, *p);
            context_.message("Requires valid numeric angle or second point.\n");
            return std::nullopt;
        }
        const auto value = distanceInput(drawing_, input, base_);
        if (!value) {
            context_.message("Requires numeric distance, second point, or option keyword.\n");
            return std::nullopt;
        }
        if (*value <= 0) {
            context_.message("Value must be positive and nonzero.\n");
            return std::nullopt;
        }
        return value;
    }

    Step apply(double value) {
        transformEntities(context_, entities_,
                          rotate_ ? Transform::rotation(base_, value) : Transform::scaling(base_, value), copy_);
        return Step::Done;
    }

    bool rotate_;
    bool copy_ = false;
    Stage stage_ = Stage::Base;
    ardo::Point3 base_{};
    double reference_ = 0;
};

// MIRROR: two points of the mirror line, and whether the originals go.
class MirrorCommand final : public EditingCommand {
public:
    using EditingCommand::EditingCommand;

private:
    std::string ownPrompt() const override {
        if (points_.empty()) return "Specify first point of mirror line: ";
        if (points_.size() == 1) return "Specify second point of mirror line: ";
        return "Erase source objects? [Yes/No] <No>: ";
    }
    InputRequest ownRequest() const override {
        if (points_.size() >= 2) return {};
        return pointRequest(points_.empty() ? std::nullopt : std::optional(points_.front()));
    }

    Step answer(const ardo::ResBuf& input) override {
        if (points_.size() < 2) {
            const auto p = pointInput(drawing_, input);
            if (!p) {
                context_.message(kInvalidPoint);
            } else if (!points_.empty() && distanceBetween(points_.front(), *p, true) == 0) {
                context_.message("The mirror line needs two different points.\n");
            } else {
                points_.push_back(*p);
            }
            return Step::More;
        }
        bool erase = false;
        if (!isEnter(input)) {
            const auto keyword = matchKeyword(input, {"Yes", "No"});
            if (!keyword) {
                context_.message(kInvalidKeyword);
                return Step::More;
            }
            erase = *keyword == 0;
        }
        // Erasing the originals is mirroring them in place.
        transformEntities(context_, entities_, Transform::mirror(points_[0], points_[1]), !erase);
        return Step::Done;
    }

    std::vector<ardo::Point3> points_;
};

}  // namespace

std::unique_ptr<Command> makeMoveCommand(Context& context) {
    return std::make_unique<DisplaceCommand>(context, DisplaceCommand::Kind::Move);
}
std::unique_ptr<Command> makeCopyCommand(Context& context) {
    return std::make_unique<DisplaceCommand>(context, DisplaceCommand::Kind::Copy);
}
std::unique_ptr<Command> makeStretchCommand(Context& context) {
    return std::make_unique<DisplaceCommand>(context, DisplaceCommand::Kind::Stretch);
}
std::unique_ptr<Command> makeRotateCommand(Context& context) { return std::make_unique<AboutBaseCommand>(context, true); }
std::unique_ptr<Command> makeScaleCommand(Context& context) { return std::make_unique<AboutBaseCommand>(context, false); }
std::unique_ptr<Command> makeMirrorCommand(Context& context) { return std::make_unique<MirrorCommand>(context); }

}  // namespace cadhost::commands
