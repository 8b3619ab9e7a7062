// RECTANG: a closed four-vertex polyline from two opposite corners; POINT: one POINT entity.
#include <vector>

#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/NewEntity.h"

namespace cadhost::commands {

namespace {

class RectangCommand final : public Command {
public:
    explicit RectangCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override {
        return first_ ? "Specify other corner point: " : "Specify first corner point: ";
    }
    InputRequest request() const override { return pointRequest(first_, first_.has_value()); }

    Step take(const ardo::ResBuf& input) override {
        const auto p = pointInput(drawing_, input);
        if (!p) {
            context_.message(kInvalidPoint);
            return Step::More;
        }
        if (!first_) {
            first_ = p;
            return Step::More;
        }
        const ardo::Point3& a = *first_;
        if ((*p)[0] == a[0] || (*p)[1] == a[1]) {
            context_.message("The corners lie on one line; specify another corner.\n");
            return Step::More;
        }
        std::vector<EntityTag> data{{90, "4"}, {70, "1"}, {43, "0.0"}, {38, dxfNumber(a[2])}};
        for (const auto& [x, y] : {std::pair{a[0], a[1]}, {(*p)[0], a[1]}, {(*p)[0], (*p)[1]}, {a[0], (*p)[1]}}) {
            data.push_back({10, dxfNumber(x)});
            data.push_back({20, dxfNumber(y)});
        }
        if (!addEntity(drawing_, "LWPOLYLINE", "AcDbPolyline", std::move(data))) {
            context_.message("The rectangle could not be added to the drawing.\n");
            return Step::Refused;
        }
        return Step::Done;
    }

private:
    Context& context_;
    Drawing& drawing_;
    std::optional<ardo::Point3> first_;
};

class PointCommand final : public Command {
public:
    explicit PointCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override { return "Specify a point: "; }
    InputRequest request() const override { return pointRequest(); }

    Step take(const ardo::ResBuf& input) override {
        const auto p = pointInput(drawing_, input);
        if (!p) {
            context_.message(kInvalidPoint);
            return Step::More;
        }
        std::vector<EntityTag> data;
        appendPoint(data, 10, *p);
        if (!addEntity(drawing_, "POINT", "AcDbPoint", std::move(data))) {
            context_.message("The point could not be added to the drawing.\n");
            return Step::Refused;
        }
        return Step::Done;
    }

private:
    Context& context_;
    Drawing& drawing_;
};

}  // namespace

std::unique_ptr<Command> makeRectangCommand(Context& context) { return std::make_unique<RectangCommand>(context); }
std::unique_ptr<Command> makePointCommand(Context& context) { return std::make_unique<PointCommand>(context); }

}  // namespace cadhost::commands
