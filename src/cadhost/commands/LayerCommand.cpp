// The command-line form of LAYER: options one after the other until Enter ends it.
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/LayerEdits.h"
#include "cadhost/commands/LayerNames.h"
#include "cadhost/commands/LayerValues.h"
#include "cadhost/drawing/Drawing.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

using ardo::ResBuf;

enum class Option { List, Make, Set, New, On, Off, Color, Ltype, Lweight, Plot, Freeze, Thaw, Lock, Unlock };
const std::vector<std::string_view> kOptions{"?",     "Make",  "Set",  "New",    "ON",   "OFF", "Color",
                                             "Ltype", "LWeight", "Plot", "Freeze", "Thaw", "LOck", "Unlock"};

enum class Ask { Option, Names, Color, TrueColor, BookColor, Linetype, Lineweight, Plot, ConfirmOff };

class LayerCommand final : public Command {
public:
    explicit LayerCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    Step start() override {
        context_.echo("Current layer:  \"" + currentLayer(drawing_) + "\"\n");
        return Step::More;
    }

    std::string prompt() const override;
    Step take(const ResBuf& input) override;

private:
    Step takeOption(const ResBuf& input);
    Step takeNames(const ResBuf& input);
    Step takeColor(const ResBuf& input);
    Step takeValue(std::optional<ardo::HostColor> color, const char* refusal);
    Step takeLinetype(const ResBuf& input);
    Step takeConfirmOff(const ResBuf& input);
    // Applies the pending option to the layers the list matches.
    void applyToLayers(const std::string& list);
    std::string namesPrompt() const;
    Step refuse(const std::string& message) {
        context_.message(message);
        return Step::Refused;
    }
    Step nextOption() {
        ask_ = Ask::Option;
        return Step::More;
    }

    Context& context_;
    Drawing& drawing_;
    Ask ask_ = Ask::Option;
    Option option_ = Option::List;
    ardo::HostColor color_;
    std::string valueText_;
    std::string linetype_;
    int lineweight_ = -3;
    bool plottable_ = true;
    std::string offPending_;
};

std::string LayerCommand::prompt() const {
    switch (ask_) {
        case Ask::Option:
            return "Enter an option\n[?/Make/Set/New/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/LOck/Unlock]: ";
        case Ask::Names: return namesPrompt();
        case Ask::Color: return "New color [Truecolor/COlorbook] : ";
        case Ask::TrueColor: return "Red, Green, Blue: ";
        case Ask::BookColor: return "Enter Color Book name and color name (BOOK$COLOR): ";
        case Ask::Linetype: return "Enter a loaded linetype name or [?] <Continuous>: ";
        case Ask::Lineweight: return "Enter lineweight (0.0mm - 2.11mm): ";
        case Ask::Plot: return "Enter a plotting preference [Plot/No plot] <Plot>: ";
        case Ask::ConfirmOff: return "Really want layer " + offPending_ + " (the CURRENT layer) off? <N> ";
    }
    return {};
}

std::string LayerCommand::namesPrompt() const {
    const std::string current = " <" + currentLayer(drawing_) + ">: ";
    switch (option_) {
        case Option::List: return "Enter layer name(s) to list <*>: ";
        case Option::Make: return "Enter name for new layer (becomes the current layer)" + current;
        case Option::Set: return "Enter layer name to make current or <select object>: ";
        case Option::New: return "Enter name list for new layer(s): ";
        case Option::On: return "Enter name list of layer(s) to turn On: ";
        case Option::Off: return "Enter name list of layer(s) to turn off or <select objects>: ";
        case Option::Color: return "Enter name list of layer(s) for color " + valueText_ + current;
        case Option::Ltype: return "Enter name list of layer(s) for linetype \"" + linetype_ + "\"" + current;
        case Option::Lweight: return "Enter name list of layers(s) for lineweight " + lineweightText(lineweight_) + current;
        case Option::Plot: return "Enter layer name(s) for this plot preference" + current;
        case Option::Freeze: return "Enter name list of layer(s) to freeze or <select objects>: ";
        case Option::Thaw: return "Enter name list of layer(s) to thaw: ";
        case Option::Lock: return "Enter name list of layer(s) to lock or <select objects>: ";
        case Option::Unlock: return "Enter name list of layer(s) to unlock or <select objects>: ";
    }
    return {};
}

Step LayerCommand::take(const ResBuf& input) {
    switch (ask_) {
        case Ask::Option: return takeOption(input);
        case Ask::Names: return takeNames(input);
        case Ask::Color: return takeColor(input);
        case Ask::TrueColor:
            return takeValue(layerTrueColor(input, *context_.colors),
                             "Invalid color.  Give red, green and blue as three numbers 0-255: \"255,128,0\".\n");
        case Ask::BookColor:
            return takeValue(layerBookColor(input, *context_.colors),
                             "Color not found.  Give a color book and one of its colors: \"RAL CLASSIC$RAL 1000\".\n");
        case Ask::Linetype: return takeLinetype(input);
        case Ask::Lineweight: {
            const auto lineweight = layerLineweight(input);
            if (!lineweight) return refuse("Invalid lineweight.  Give millimetres from 0.0 to 2.11.\n");
            lineweight_ = *lineweight;
            ask_ = Ask::Names;
            return Step::More;
        }
        case Ask::Plot: {
            const auto choice = matchKeyword(input, {"Plot", "No plot"});
            if (!isEnter(input) && !choice) return refuse(kInvalidKeyword);
            plottable_ = !choice || *choice == 0;
            ask_ = Ask::Names;
            return Step::More;
        }
        case Ask::ConfirmOff: return takeConfirmOff(input);
    }
    return Step::Refused;
}

Step LayerCommand::takeOption(const ResBuf& input) {
    if (isEnter(input)) return Step::Done;
    const auto option = matchKeyword(input, kOptions);
    if (!option) return refuse(kInvalidKeyword);
    option_ = static_cast<Option>(*option);
    switch (option_) {
        case Option::Color: ask_ = Ask::Color; break;
        case Option::Ltype: ask_ = Ask::Linetype; break;
        case Option::Lweight: ask_ = Ask::Lineweight; break;
        case Option::Plot: ask_ = Ask::Plot; break;
        default: ask_ = Ask::Names; break;
    }
    return Step::More;
}

Step LayerCommand::takeColor(const ResBuf& input) {
    if (const auto keyword = matchKeyword(input, {"Truecolor", "COlorbook"})) {
        ask_ = *keyword == 0 ? Ask::TrueColor : Ask::BookColor;
        return Step::More;
    }
    return takeValue(layerIndexColor(input, *context_.colors),
                     "Invalid color.  Give a number 1-255, a color name, t for a true color or co for a color book.\n");
}

Step LayerCommand::takeValue(std::optional<ardo::HostColor> color, const char* refusal) {
    if (!color) return refuse(refusal);
    color_ = *color;
    valueText_ = layerColorText(color_);
    ask_ = Ask::Names;
    return Step::More;
}

Step LayerCommand::takeLinetype(const ResBuf& input) {
    const std::string typed = isEnter(input) ? std::string("Continuous") : inputText(input);
    if (typed == "?") {
        std::string list = "Loaded linetypes:\n";
        for (const std::string& name : drawing_.linetypeNames()) list += "  " + name + "\n";
        context_.message(list);
        return Step::More;
    }
    for (const std::string& name : drawing_.linetypeNames()) {
        if (ardo::equalsNoCase(name, typed)) {
            linetype_ = name;
            ask_ = Ask::Names;
            return Step::More;
        }
    }
    return refuse("Linetype \"" + typed + "\" is not loaded.  Load it with the LINETYPE command first.\n");
}

Step LayerCommand::takeNames(const ResBuf& input) {
    const bool enter = isEnter(input);
    const std::string text = inputText(input);
    switch (option_) {
        case Option::List: listLayers(context_, enter ? std::string("*") : text); return nextOption();
        case Option::Make:
            if (!makeLayer(context_, enter ? currentLayer(drawing_) : text)) return Step::Refused;
            return nextOption();
        case Option::Set:
            if (!enter) setCurrentLayer(context_, text);
            return nextOption();
        case Option::New:
            if (!newLayers(context_, text)) return Step::Refused;
            return nextOption();
        case Option::Color:
        case Option::Ltype:
        case Option::Lweight:
        case Option::Plot: applyToLayers(enter ? currentLayer(drawing_) : text); break;
        default:
            if (!enter) applyToLayers(text);
            break;
    }
    if (!offPending_.empty()) {
        ask_ = Ask::ConfirmOff;
        return Step::More;
    }
    return nextOption();
}

void LayerCommand::applyToLayers(const std::string& list) {
    const auto names = matchingLayers(drawing_, list);
    if (names.empty()) context_.message(kNoMatchingLayer);
    for (const std::string& name : names) {
        const bool current = isCurrentLayer(drawing_, name);
        switch (option_) {
            case Option::On: changeLayer(context_, name, [](auto& l) { l.isOff = false; }); break;
            case Option::Off:
                if (current) offPending_ = name;
                else changeLayer(context_, name, [](auto& l) { l.isOff = true; });
                break;
            case Option::Freeze:
                if (current) context_.message("Cannot freeze the current layer.\n");
                else changeLayer(context_, name, [](auto& l) { l.isFrozen = true; });
                break;
            case Option::Thaw: changeLayer(context_, name, [](auto& l) { l.isFrozen = false; }); break;
            case Option::Lock: changeLayer(context_, name, [](auto& l) { l.isLocked = true; }); break;
            case Option::Unlock: changeLayer(context_, name, [](auto& l) { l.isLocked = false; }); break;
            case Option::Color: changeLayer(context_, name, [this](auto& l) { l.color = color_; }); break;
            case Option::Ltype: changeLayer(context_, name, [this](auto& l) { l.linetype = linetype_; }); break;
            case Option::Lweight: changeLayer(context_, name, [this](auto& l) { l.lineweight = lineweight_; }); break;
            case Option::Plot: changeLayer(context_, name, [this](auto& l) { l.isPlottable = plottable_; }); break;
            default: break;
        }
    }
}

Step LayerCommand::takeConfirmOff(const ResBuf& input) {
    const auto answer = matchKeyword(input, {"Yes", "No"});
    if (!isEnter(input) && !answer) return refuse(kInvalidKeyword);
    if (answer && *answer == 0) changeLayer(context_, offPending_, [](auto& l) { l.isOff = true; });
    offPending_.clear();
    return nextOption();
}

}  // namespace

std::unique_ptr<Command> makeLayerCommand(Context& context) { return std::make_unique<LayerCommand>(context); }

}  // namespace cadhost::commands
