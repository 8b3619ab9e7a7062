// LINE: segments from point to point, each a LINE of its own; Undo takes the last one
// back, Close joins the first point and ends.
#include <vector>

#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/NewEntity.h"

namespace cadhost::commands {

namespace {

class LineCommand final : public Command {
public:
    explicit LineCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override {
        if (points_.empty()) return "Specify first point: ";
        return segments_.size() >= 2 ? "Specify next point or [Close/Undo]: " : "Specify next point or [Undo]: ";
    }
    InputRequest request() const override {
        return pointRequest(points_.empty() ? std::nullopt : std::optional(points_.back()));
    }

    Step take(const ardo::ResBuf& input) override {
        if (isEnter(input)) return points_.empty() ? continueFromLastPoint() : Step::Done;
        if (!points_.empty()) {
            const auto keyword = matchKeyword(input, {"Close", "Undo"});
            if (keyword == 1u) return undo();
            if (keyword == 0u && segments_.size() >= 2) {
                if (!addSegment(points_.front())) return Step::Refused;
                return Step::Done;
            }
        }
        const auto p = pointInput(drawing_, input);
        if (!p) {
            context_.message(points_.empty() ? kInvalidPoint : kPointOrKeyword);
            return Step::More;
        }
        if (points_.empty()) {
            points_.push_back(*p);
            return Step::More;
        }
        return addSegment(*p) ? Step::More : Step::Refused;
    }

private:
    // Enter at the first point starts at the last point given.
    Step continueFromLastPoint() {
        const auto last = drawing_.getVar("LASTPOINT");
        points_.push_back(last ? last->point : ardo::Point3{});
        return Step::More;
    }

    // By value: `to` may be one of points_, which the push below can move.
    bool addSegment(ardo::Point3 to) {
        std::vector<EntityTag> data;
        appendPoint(data, 10, points_.back());
        appendPoint(data, 11, to);
        const auto line = addEntity(drawing_, "LINE", "AcDbLine", std::move(data));
        if (!line) {
            context_.message("The line could not be added to the drawing.\n");
            return false;
        }
        segments_.push_back(*line);
        points_.push_back(to);
        drawing_.setVar("LASTPOINT", ardo::ResBuf::point3(to));
        return true;
    }

    Step undo() {
        if (segments_.empty()) {
            context_.message("All segments already undone.\n");
            points_.clear();
            return Step::More;
        }
        (void)drawing_.eraseEntity(segments_.back());
        segments_.pop_back();
        points_.pop_back();
        drawing_.setVar("LASTPOINT", ardo::ResBuf::point3(points_.back()));
        return Step::More;
    }

    Context& context_;
    Drawing& drawing_;
    std::vector<ardo::Point3> points_;
    std::vector<Handle> segments_;
};

}  // namespace

std::unique_ptr<Command> makeLineCommand(Context& context) { return std::make_unique<LineCommand>(context); }

}  // namespace cadhost::commands
