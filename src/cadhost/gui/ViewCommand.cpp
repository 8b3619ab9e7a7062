#include "cadhost/gui/ViewCommand.h"

#include "base/CaseFold.h"
#include "cadhost/commands/Command.h"
#include "cadhost/gui/DrawingView.h"

namespace cadhost::gui {

namespace {

// The host's command with the view as its view; what it prints is the complaint.
class HostViewCommand final : public ViewCommand {
public:
    HostViewCommand(commands::CommandFactory make, Drawing& drawing, DrawingView& view) {
        context_.drawing = &drawing;
        context_.print = [this](const std::string& text) { printed_ += text; };
        context_.view = [&view]() -> commands::ViewControl* { return &view; };
        command_ = make(context_);
    }

    std::string prompt() const override { return command_->prompt(); }
    commands::InputRequest request() const override { return command_->request(); }
    bool take(const std::string& typed, std::string& complaint) override {
        return feed(ardo::ResBuf::str(typed), complaint);
    }
    bool takePoint(Vec2 point) override {
        std::string complaint;
        return feed(ardo::ResBuf::point3({point.x, point.y, 0}), complaint);
    }

private:
    bool feed(const ardo::ResBuf& input, std::string& complaint) {
        const commands::Step step = command_->take(input);
        complaint = std::move(printed_);
        printed_.clear();
        return step == commands::Step::More;
    }

    commands::Context context_;
    std::unique_ptr<commands::Command> command_;
    std::string printed_;
};

}  // namespace

std::unique_ptr<ViewCommand> ViewCommand::start(std::string_view line, bool transparent, Drawing& drawing,
                                                DrawingView& view) {
    std::string_view word = ardo::trimWhite(line);
    const bool apostrophe = word.starts_with('\'');
    if (apostrophe) word.remove_prefix(1);
    else if (transparent) return nullptr;
    while (word.starts_with('_') || word.starts_with('.')) word.remove_prefix(1);
    const std::string name = ardo::upperCase(word);
    if (name == "ZOOM" || name == "Z")
        return std::make_unique<HostViewCommand>(commands::makeZoomCommand, drawing, view);
    if (name == "PAN" || name == "P") return std::make_unique<HostViewCommand>(commands::makePanCommand, drawing, view);
    return nullptr;
}

}  // namespace cadhost::gui
