// VPLAYER: layers frozen per viewport of a layout and the "frozen in new viewports" default.
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/LayerEdits.h"
#include "cadhost/commands/LayerNames.h"
#include "cadhost/commands/Viewports.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

using ardo::ResBuf;

enum class Option { Freeze, Thaw, Reset, Newfrz, Vpvisdflt };
enum class Ask { Option, Names, Viewports, Visibility };
enum class Apply { All, Current, ExceptCurrent };

class VplayerCommand final : public Command {
public:
    explicit VplayerCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    Step start() override {
        const auto tilemode = drawing_.getVar("TILEMODE");
        if (!tilemode || tilemode->integer != 0) {
            context_.message("** Command not allowed in Model Tab **\n");
            return Step::Refused;
        }
        return Step::More;
    }

    std::string prompt() const override;
    Step take(const ResBuf& input) override;

private:
    Step takeOption(const ResBuf& input);
    Step takeNames(const ResBuf& input);
    Step takeViewports(const ResBuf& input);
    Step takeVisibility(const ResBuf& input);
    void newFrozenLayers(const std::string& list);
    std::vector<Handle> chosenViewports(Apply apply) const;
    Step refuse(const char* message) {
        context_.message(message);
        return Step::Refused;
    }

    Context& context_;
    Drawing& drawing_;
    Ask ask_ = Ask::Option;
    Option option_ = Option::Freeze;
    std::vector<std::string> layers_;
};

std::string VplayerCommand::prompt() const {
    switch (ask_) {
        case Ask::Option: return "Enter an option [Freeze/Thaw/Reset/Newfrz/Vpvisdflt]: ";
        case Ask::Names:
            switch (option_) {
                case Option::Freeze: return "Enter layer name(s) to freeze or <select objects>: ";
                case Option::Thaw: return "Enter layer name(s) to thaw or <select objects>: ";
                case Option::Reset: return "Enter layer name(s) to reset or <select objects>: ";
                case Option::Newfrz: return "Enter name(s) of new layers frozen in all viewports: ";
                case Option::Vpvisdflt: return "Enter layer name(s) to change viewport visibility: ";
            }
            break;
        case Ask::Viewports: return "Enter an option [All/Current/Except current] <Current>: ";
        case Ask::Visibility: return "Enter a viewport visibility option [Frozen/Thawed] <Thawed>: ";
    }
    return {};
}

Step VplayerCommand::take(const ResBuf& input) {
    switch (ask_) {
        case Ask::Option: return takeOption(input);
        case Ask::Names: return takeNames(input);
        case Ask::Viewports: return takeViewports(input);
        case Ask::Visibility: return takeVisibility(input);
    }
    return Step::Refused;
}

Step VplayerCommand::takeOption(const ResBuf& input) {
    if (isEnter(input)) return Step::Done;
    const auto option = matchKeyword(input, {"Freeze", "Thaw", "Reset", "Newfrz", "Vpvisdflt"});
    if (!option) return refuse(kInvalidKeyword);
    option_ = static_cast<Option>(*option);
    ask_ = Ask::Names;
    return Step::More;
}

Step VplayerCommand::takeNames(const ResBuf& input) {
    if (isEnter(input)) {
        ask_ = Ask::Option;
        return Step::More;
    }
    if (option_ == Option::Newfrz) {
        newFrozenLayers(inputText(input));
        ask_ = Ask::Option;
        return Step::More;
    }
    layers_ = matchingLayers(drawing_, inputText(input));
    if (layers_.empty()) context_.message(kNoMatchingLayer);
    ask_ = option_ == Option::Vpvisdflt ? Ask::Visibility : Ask::Viewports;
    return Step::More;
}

std::vector<Handle> VplayerCommand::chosenViewports(Apply apply) const {
    const auto current = currentViewport(drawing_);
    if (apply == Apply::All) return layoutViewports(drawing_);
    if (!current) {
        context_.message("No floating viewport in this layout; nothing changed.\n");
        return {};
    }
    if (apply == Apply::Current) return {*current};
    std::vector<Handle> others;
    for (Handle h : layoutViewports(drawing_))
        if (h != *current) others.push_back(h);
    return others;
}

Step VplayerCommand::takeViewports(const ResBuf& input) {
    const auto choice = matchKeyword(input, {"All", "Current", "Except current"});
    if (!isEnter(input) && !choice) return refuse(kInvalidKeyword);
    const Apply apply = choice ? static_cast<Apply>(*choice) : Apply::Current;
    for (Handle viewport : chosenViewports(apply)) {
        if (option_ == Option::Reset) {
            // Back to what the layer's default for new viewports says.
            for (const std::string& name : layers_)
                freezeInViewport(drawing_, viewport, {name}, drawing_.findLayer(name)->frozenInNewViewports);
        } else {
            freezeInViewport(drawing_, viewport, layers_, option_ == Option::Freeze);
        }
    }
    ask_ = Ask::Option;
    return Step::More;
}

Step VplayerCommand::takeVisibility(const ResBuf& input) {
    const auto choice = matchKeyword(input, {"Frozen", "Thawed"});
    if (!isEnter(input) && !choice) return refuse(kInvalidKeyword);
    const bool frozen = choice && *choice == 0;
    for (const std::string& name : layers_)
        changeLayer(context_, name, [frozen](ardo::LayerRecord& l) { l.frozenInNewViewports = frozen; });
    ask_ = Ask::Option;
    return Step::More;
}

void VplayerCommand::newFrozenLayers(const std::string& list) {
    for (const std::string& name : splitNames(list)) {
        if (drawing_.findLayer(name)) {
            context_.message("Layer \"" + name + "\" already exists.\n");
            continue;
        }
        if (!newLayers(context_, name)) return;
        changeLayer(context_, name, [](ardo::LayerRecord& l) { l.frozenInNewViewports = true; });
        for (Handle viewport : allFloatingViewports(drawing_)) freezeInViewport(drawing_, viewport, {name}, true);
    }
}

}  // namespace

std::unique_ptr<Command> makeVplayerCommand(Context& context) { return std::make_unique<VplayerCommand>(context); }

}  // namespace cadhost::commands
