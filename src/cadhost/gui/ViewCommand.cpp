#include "cadhost/gui/ViewCommand.h"

#include "base/CaseFold.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/gui/DrawingView.h"

namespace cadhost::gui {

namespace {

using commands::InputRequest;

ardo::Point3 point3(Vec2 p) { return {p.x, p.y, 0}; }
Vec2 vec2(const ardo::Point3& p) { return {p[0], p[1]}; }

class Zoom final : public ViewCommand {
public:
    explicit Zoom(DrawingView& view) : view_(view) {}

    std::string prompt() const override {
        if (!asked_) return "Specify corner of window, enter a scale factor (nX), or [All/Extents/Previous/Window] <real time>: ";
        return first_ ? "Specify opposite corner: " : "Specify first corner: ";
    }
    InputRequest request() const override {
        return commands::pointRequest(first_ ? std::optional(point3(*first_)) : std::nullopt, first_.has_value());
    }
    bool take(const std::string& typed, std::string& complaint) override {
        const std::string_view text = ardo::trimWhite(typed);
        const ardo::Point3 last = first_ ? point3(*first_) : ardo::Point3{};
        if (auto p = commands::parsePoint(text, last)) return takePoint(vec2(*p));
        if (asked_) {
            complaint = commands::kInvalidPoint;
            return true;
        }
        if (text.empty()) return false;   // real-time zoom is the wheel's
        const bool relative = text.back() == 'x' || text.back() == 'X';
        if (const auto factor = commands::parseReal(relative ? text.substr(0, text.size() - 1) : text)) {
            if (*factor <= 0) {
                complaint = "Requires a positive scale factor.\n";
                return true;
            }
            // "2X" is twice the view shown; a bare 2 twice the drawing's extents.
            view_.zoomWindow(scaled(relative ? view_.visibleArea() : view_.scene().extents(), 1 / *factor));
            return false;
        }
        switch (commands::matchKeyword(ardo::ResBuf::str(std::string(text)), {"All", "Extents", "Previous", "Window"})
                    .value_or(99)) {
        case 0:
        case 1: view_.zoomExtents(); return false;
        case 2:
            if (!view_.zoomPrevious()) complaint = "No previous view saved.\n";
            return false;
        case 3: asked_ = true; return true;
        default: complaint = commands::kPointOrKeyword; return true;
        }
    }
    bool takePoint(Vec2 point) override {
        if (!first_) {
            asked_ = true;
            first_ = point;
            return true;
        }
        Box2 area;
        area.add(*first_);
        area.add(point);
        view_.zoomWindow(area);
        return false;
    }

private:
    static Box2 scaled(const Box2& box, double factor) {
        const double cx = (box.x0 + box.x1) / 2, cy = (box.y0 + box.y1) / 2;
        const double hw = (box.x1 - box.x0) / 2 * factor, hh = (box.y1 - box.y0) / 2 * factor;
        return Box2{cx - hw, cy - hh, cx + hw, cy + hh};
    }

    DrawingView& view_;
    bool asked_ = false;   // past the first prompt: a window's corners are asked
    std::optional<Vec2> first_;
};

class Pan final : public ViewCommand {
public:
    explicit Pan(DrawingView& view) : view_(view) {}

    std::string prompt() const override {
        return base_ ? "Specify second point: " : "Specify base point or displacement: ";
    }
    InputRequest request() const override {
        return commands::pointRequest(base_ ? std::optional(point3(*base_)) : std::nullopt);
    }
    bool take(const std::string& typed, std::string& complaint) override {
        const std::string_view text = ardo::trimWhite(typed);
        // Enter at the second point takes the base point as the displacement.
        if (base_ && text.empty()) return move({0, 0}, *base_);
        const auto p = commands::parsePoint(text, base_ ? point3(*base_) : ardo::Point3{});
        if (!p) {
            complaint = commands::kInvalidPoint;
            return true;
        }
        return takePoint(vec2(*p));
    }
    bool takePoint(Vec2 point) override {
        if (!base_) {
            base_ = point;
            return true;
        }
        return move(*base_, point);
    }

private:
    bool move(Vec2 from, Vec2 to) {
        // The drawing moves with the displacement, as a drag of the view does.
        view_.panBy(QPointF((to.x - from.x) * view_.scale(), -(to.y - from.y) * view_.scale()));
        return false;
    }

    DrawingView& view_;
    std::optional<Vec2> base_;
};

}  // namespace

std::unique_ptr<ViewCommand> ViewCommand::start(std::string_view line, bool transparent, DrawingView& view) {
    std::string_view word = ardo::trimWhite(line);
    const bool apostrophe = word.starts_with('\'');
    if (apostrophe) word.remove_prefix(1);
    else if (transparent) return nullptr;
    while (word.starts_with('_') || word.starts_with('.')) word.remove_prefix(1);
    const std::string name = ardo::upperCase(word);
    if (name == "ZOOM" || name == "Z") return std::make_unique<Zoom>(view);
    if (name == "PAN" || name == "P") return std::make_unique<Pan>(view);
    return nullptr;
}

}  // namespace cadhost::gui
