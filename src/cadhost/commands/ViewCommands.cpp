// ZOOM and PAN: the same prompts and options typed, from scripts and from LISP (command).
// They change the view the context gives; without one (the console) they take the same
// input and change nothing.
#include <cmath>

#include "base/CaseFold.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/NewEntity.h"

namespace cadhost::commands {

namespace {

ViewControl* viewOf(const Context& context) { return context.view ? context.view() : nullptr; }

// "2X" is relative to the view shown, a bare number to the drawing's extents.
struct ScaleFactor {
    double factor = 1;
    bool relative = false;
};

std::optional<ScaleFactor> scaleFactor(const ardo::ResBuf& input) {
    if (const auto number = numberInput(input)) return ScaleFactor{*number, false};
    if (input.restype != ardo::RTSTR) return std::nullopt;
    std::string_view text = ardo::trimWhite(input.text);
    const bool relative = !text.empty() && (text.back() == 'x' || text.back() == 'X');
    if (relative) text.remove_suffix(1);
    const auto factor = parseReal(text);
    if (!factor) return std::nullopt;
    return ScaleFactor{*factor, relative};
}

constexpr const char* kPositiveFactor = "Requires a positive scale factor.\n";

class ZoomCommand final : public Command {
public:
    explicit ZoomCommand(Context& context) : context_(context) {}

    std::string prompt() const override {
        switch (ask_) {
        case Ask::Option:
            return "Specify corner of window, enter a scale factor (nX), or [All/Center/Extents/Previous/Window] "
                   "<real time>: ";
        case Ask::FirstCorner: return "Specify first corner: ";
        case Ask::OppositeCorner: return "Specify opposite corner: ";
        case Ask::Centre: return "Specify center point: ";
        case Ask::Height: {
            const ViewControl* view = viewOf(context_);
            return "Enter magnification or height <" + shownLength(view ? view->viewHeight() : 1) + ">: ";
        }
        }
        return {};
    }

    InputRequest request() const override {
        if (ask_ == Ask::Height) return {};
        return pointRequest(ask_ == Ask::OppositeCorner ? std::optional(first_) : std::nullopt,
                            ask_ == Ask::OppositeCorner);
    }

    Step take(const ardo::ResBuf& input) override {
        switch (ask_) {
        case Ask::Option: return takeOption(input);
        case Ask::FirstCorner:
        case Ask::OppositeCorner: return takeCorner(input);
        case Ask::Centre:
            if (const auto p = pointInput(*context_.drawing, input)) {
                centre_ = *p;
                ask_ = Ask::Height;
                return Step::More;
            }
            context_.message(kInvalidPoint);
            return Step::More;
        case Ask::Height: return takeHeight(input);
        }
        return Step::Done;
    }

private:
    enum class Ask { Option, FirstCorner, OppositeCorner, Centre, Height };

    Step takeOption(const ardo::ResBuf& input) {
        // Enter leaves real-time zoom to the mouse wheel.
        if (isEnter(input)) return Step::Done;
        if (input.restype != ardo::RTSTR || !parsePoint(input.text, {}))
            if (const auto scale = scaleFactor(input)) {
                if (!(scale->factor > 0)) {
                    context_.message(kPositiveFactor);
                    return Step::More;
                }
                if (ViewControl* view = viewOf(context_)) view->zoomScale(scale->factor, scale->relative);
                return Step::Done;
            }
        switch (matchKeyword(input, {"All", "Center", "Extents", "Previous", "Window"}).value_or(99)) {
        case 0:
        case 2:
            if (ViewControl* view = viewOf(context_)) view->zoomExtents();
            return Step::Done;
        case 1: ask_ = Ask::Centre; return Step::More;
        case 3:
            if (ViewControl* view = viewOf(context_); view && !view->zoomPrevious())
                context_.message("No previous view saved.\n");
            return Step::Done;
        case 4: ask_ = Ask::FirstCorner; return Step::More;
        default: break;
        }
        // A point at the first prompt is the window's first corner.
        return takeCorner(input, kPointOrKeyword);
    }

    Step takeCorner(const ardo::ResBuf& input, const char* complaint = kInvalidPoint) {
        const auto p = pointInput(*context_.drawing, input);
        if (!p) {
            context_.message(complaint);
            return Step::More;
        }
        if (ask_ != Ask::OppositeCorner) {
            first_ = *p;
            ask_ = Ask::OppositeCorner;
            return Step::More;
        }
        if (ViewControl* view = viewOf(context_)) view->zoomWindow(first_, *p);
        return Step::Done;
    }

    Step takeHeight(const ardo::ResBuf& input) {
        ViewControl* view = viewOf(context_);
        if (isEnter(input)) {
            if (view) view->zoomCenter(centre_, std::nullopt);
            return Step::Done;
        }
        const auto scale = scaleFactor(input);
        if (!scale) {
            context_.message("Requires a distance, numberX, or option keyword.\n");
            return Step::More;
        }
        if (!(scale->factor > 0)) {
            context_.message(kPositiveFactor);
            return Step::More;
        }
        // "nX" magnifies the view shown; a number is the height to show.
        if (view) view->zoomCenter(centre_, scale->relative ? view->viewHeight() / scale->factor : scale->factor);
        return Step::Done;
    }

    Context& context_;
    Ask ask_ = Ask::Option;
    ardo::Point3 first_{}, centre_{};
};

class PanCommand final : public Command {
public:
    explicit PanCommand(Context& context) : context_(context) {}

    std::string prompt() const override {
        return base_ ? "Specify second point: " : "Specify base point or displacement: ";
    }
    InputRequest request() const override { return pointRequest(base_); }

    Step take(const ardo::ResBuf& input) override {
        // Enter at the second point takes the base point as the displacement.
        if (base_ && isEnter(input)) return move({}, *base_);
        const auto p = pointInput(*context_.drawing, input);
        if (!p) {
            context_.message(kInvalidPoint);
            return Step::More;
        }
        if (!base_) {
            base_ = *p;
            return Step::More;
        }
        return move(*base_, *p);
    }

private:
    Step move(const ardo::Point3& from, const ardo::Point3& to) {
        if (ViewControl* view = viewOf(context_)) view->pan(from, to);
        return Step::Done;
    }

    Context& context_;
    std::optional<ardo::Point3> base_;
};

}  // namespace

std::unique_ptr<Command> makeZoomCommand(Context& context) { return std::make_unique<ZoomCommand>(context); }
std::unique_ptr<Command> makePanCommand(Context& context) { return std::make_unique<PanCommand>(context); }

}  // namespace cadhost::commands
