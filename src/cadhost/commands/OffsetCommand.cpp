// OFFSET: a parallel copy of a line, arc, circle or polyline at a distance or through a
// point, on the side the user shows; the source may be erased and the copy may go to the
// current layer. Undo takes back the last copy.
#include <cmath>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/CurveEdits.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/EditingCommands.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/Offsets.h"
#include "cadhost/geometry/Picking.h"

namespace cadhost::commands {

namespace {

class OffsetCommand final : public Command {
public:
    explicit OffsetCommand(Context& context) : context_(context), drawing_(*context.drawing), log_(*context.drawing) {}

    Step start() override {
        showSettings();
        return Step::More;
    }

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Distance: return "Specify offset distance or [Through/Erase/Layer] <Through>: ";
            case Stage::SecondPoint: return "Specify second point: ";
            case Stage::Erase: return "Erase source object after offsetting? [Yes/No] <No>: ";
            case Stage::Layer: return "Enter layer option for offset objects [Current/Source] <Source>: ";
            case Stage::Object: return "Select object to offset or [Exit/Undo] <Exit>: ";
            case Stage::Side: {
                const std::string asked = distance_ ? "Specify point on side to offset" : "Specify through point";
                return asked + (multiple_ ? " or [Exit/Undo] <next object>: " : " or [Exit/Multiple/Undo] <Exit>: ");
            }
        }
        return {};
    }

    InputRequest request() const override {
        return pointRequest(stage_ == Stage::SecondPoint ? std::optional(first_) : std::nullopt);
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Distance: return takeDistance(input);
            case Stage::SecondPoint: {
                const auto p = pointInput(drawing_, input);
                if (!p) return askAgain(context_, kInvalidPoint);
                return setDistance(std::hypot((*p)[0] - first_[0], (*p)[1] - first_[1]));
            }
            case Stage::Erase:
            case Stage::Layer: {
                const bool erase = stage_ == Stage::Erase;
                const auto keyword = isEnter(input) ? std::optional<std::size_t>(1)   // No, Source
                                                    : matchKeyword(input, erase ? std::vector<std::string_view>{"Yes", "No"}
                                                                                : std::vector<std::string_view>{"Current", "Source"});
                if (!keyword) return askAgain(context_, kInvalidKeyword);
                (erase ? eraseSource_ : currentLayer_) = *keyword == 0;
                stage_ = Stage::Distance;
                return Step::More;
            }
            case Stage::Object: return takeObject(input);
            case Stage::Side: return takeSide(input);
        }
        return Step::Refused;
    }

private:
    enum class Stage { Distance, SecondPoint, Erase, Layer, Object, Side };

    void showSettings() const {
        context_.echo(std::string("Current settings: Erase source=") + (eraseSource_ ? "Yes" : "No") +
                      "  Layer=" + (currentLayer_ ? "Current" : "Source") + "  OFFSETGAPTYPE=0\n");
    }

    Step takeDistance(const ardo::ResBuf& input) {
        if (isEnter(input)) return setDistance(std::nullopt);
        if (const auto keyword = matchKeyword(input, {"Through", "Erase", "Layer"})) {
            if (*keyword == 0) return setDistance(std::nullopt);
            stage_ = *keyword == 1 ? Stage::Erase : Stage::Layer;
            return Step::More;
        }
        if (const auto number = numberInput(input)) return setDistance(*number);
        if (const auto p = pointInput(drawing_, input)) {
            first_ = *p;
            stage_ = Stage::SecondPoint;
            return Step::More;
        }
        return askAgain(context_, "Requires numeric distance, two points, or option keyword.\n");
    }

    // Nothing: through a point.
    Step setDistance(std::optional<double> distance) {
        if (distance && *distance <= 0) {
            stage_ = Stage::Distance;
            return askAgain(context_, "Value must be positive and nonzero.\n");
        }
        distance_ = distance;
        stage_ = Stage::Object;
        return Step::More;
    }

    Step takeObject(const ardo::ResBuf& input) {
        if (isEnter(input)) return Step::Done;
        if (const auto keyword = matchKeyword(input, {"Exit", "Undo"})) {
            if (*keyword == 0) return Step::Done;
            if (!log_.undo()) context_.message("Nothing to undo.\n");
            return Step::More;
        }
        std::optional<Handle> picked;
        if (input.restype == ardo::RTENAME) {
            if (drawing_.entity(static_cast<Handle>(input.integer))) picked = static_cast<Handle>(input.integer);
        } else if (const auto p = pointInput(drawing_, input)) {
            picked = geometry::pickAt(drawing_, *p, geometry::pickAperture(drawing_));
        } else {
            return askAgain(context_, kPointOrKeyword);
        }
        if (!picked) return askAgain(context_, "No object found.\n");
        // The source stays unchanged unless it is to be erased.
        if (eraseSource_ && editableEntities(context_, {static_cast<std::int64_t>(*picked)}).empty()) return Step::More;
        const auto type = drawing_.entity(*picked)->type;
        if (type != "LINE" && type != "ARC" && type != "CIRCLE" && type != "LWPOLYLINE")
            return askAgain(context_, "Cannot offset that object.\n");
        source_ = *picked;
        multiple_ = false;
        stage_ = Stage::Side;
        return Step::More;
    }

    Step takeSide(const ardo::ResBuf& input) {
        if (isEnter(input) && !multiple_) return Step::Done;
        if (isEnter(input)) {   // Multiple ends with the next object
            stage_ = Stage::Object;
            return Step::More;
        }
        if (const auto keyword = matchKeyword(input, {"Exit", "Multiple", "Undo"})) {
            if (*keyword == 0) return Step::Done;
            if (*keyword == 1) multiple_ = true;
            else {
                log_.undo();
                stage_ = Stage::Object;
            }
            return Step::More;
        }
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, kPointOrKeyword);
        double distance = 0;
        if (distance_) {
            distance = *distance_;
        } else if (const auto shape = geometry::shapeOf(drawing_, source_)) {
            distance = geometry::distanceTo(*shape, *p);
        }
        auto tags = distance > 0 ? offsetTags(drawing_, source_, distance, *p) : std::nullopt;
        if (!tags) return askAgain(context_, "Cannot offset that object.\n");
        std::erase_if(*tags, [](const EntityTag& t) { return t.code == 5 || t.code == 330; });
        if (currentLayer_)
            for (EntityTag& t : *tags)
                if (t.code == 8) t.value = drawing_.getVar("CLAYER")->text;
        log_.beginAction();
        const auto made = log_.make(*tags);
        if (!made) return askAgain(context_, "Cannot offset that object.\n");
        if (eraseSource_) log_.erase(source_);
        // Multiple goes on from each new copy; otherwise the next object is asked for.
        if (multiple_) source_ = *made;
        else stage_ = Stage::Object;
        return Step::More;
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Distance;
    std::optional<double> distance_;
    ardo::Point3 first_{};
    bool eraseSource_ = false, currentLayer_ = false, multiple_ = false;
    Handle source_ = 0;
    EditLog log_;
};

}  // namespace

std::unique_ptr<Command> makeOffsetCommand(Context& context) { return std::make_unique<OffsetCommand>(context); }

}  // namespace cadhost::commands
