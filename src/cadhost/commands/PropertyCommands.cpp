// CHPROP (colour, layer, linetype, linetype scale, lineweight, thickness of the selected
// objects), PROPERTIES (a window's dialog for them, CHPROP on the console), MATCHPROP (those of one object onto others), LAYCUR (objects to the current
// layer) and LAYMCUR (the current layer from an object).
#include <algorithm>

#include "base/CaseFold.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/EditingCommands.h"
#include "cadhost/commands/LayerValues.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/PropertyGroups.h"
#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {

namespace {

// A colour as CHPROP takes it: BYLAYER, BYBLOCK, an index or name, "r,g,b"; nothing for
// input that names no colour.
std::optional<ardo::HostColor> typedColor(const ardo::ResBuf& input, const ColorServices* colors) {
    const std::string text = ardo::upperCase(ardo::trimWhite(inputText(input)));
    if (text == "BYLAYER" || text == "256") return ardo::HostColor::byLayer();
    if (text == "BYBLOCK" || text == "0") return ardo::HostColor::byBlock();
    if (!colors) return std::nullopt;
    if (const auto index = layerIndexColor(input, *colors)) return index;
    return layerTrueColor(input, *colors);
}

// A lineweight as typed: ByLayer, ByBlock, Default, or millimetres of the standard list.
std::optional<int> lineweightInput(const ardo::ResBuf& input) {
    const auto keyword = matchKeyword(input, {"ByLayer", "ByBlock", "Default"});
    if (keyword) return -1 - static_cast<int>(*keyword);
    return layerLineweight(input);
}

class ChpropCommand final : public EditingCommand {
public:
    using EditingCommand::EditingCommand;

private:
    enum class Stage { Property, Color, Layer, Linetype, LinetypeScale, Lineweight, Thickness };

    std::string ownPrompt() const override {
        switch (stage_) {
            case Stage::Property: return "Enter property to change [Color/LAyer/LType/ltScale/LWeight/Thickness]: ";
            case Stage::Color: return "New color <BYLAYER>: ";
            case Stage::Layer: return "Enter new layer name <" + drawing_.getVar("CLAYER")->text + ">: ";
            case Stage::Linetype: return "Enter new linetype name <ByLayer>: ";
            case Stage::LinetypeScale: return "Specify new linetype scale <1.0000>: ";
            case Stage::Lineweight: return "Enter new lineweight <ByLayer>: ";
            case Stage::Thickness: return "Specify new thickness <0.0000>: ";
        }
        return {};
    }

    Step answer(const ardo::ResBuf& input) override {
        if (stage_ == Stage::Property) {
            if (isEnter(input)) return Step::Done;
            const auto keyword = matchKeyword(input, {"Color", "LAyer", "LType", "ltScale", "LWeight", "Thickness"});
            if (!keyword) context_.message(kInvalidKeyword);
            else stage_ = static_cast<Stage>(*keyword + 1);
            return Step::More;
        }
        if (setValue(input)) stage_ = Stage::Property;
        return Step::More;
    }

    // False when the input was refused (the prompt comes again).
    bool setValue(const ardo::ResBuf& input) {
        const std::string text(ardo::trimWhite(inputText(input)));
        switch (stage_) {
            case Stage::Color: {
                const auto color = isEnter(input) ? std::optional(ardo::HostColor::byLayer()) : typedColor(input, context_.colors);
                if (!color) return complain("Invalid color.  Enter a color name or a number from 0 to 256.\n");
                setProperties(drawing_, entities_, {std::begin(kColorCodes), std::end(kColorCodes)}, colorGroups(*color));
                return true;
            }
            case Stage::Layer: {
                const auto layer = drawing_.findLayer(isEnter(input) ? drawing_.getVar("CLAYER")->text : text);
                if (!layer) return complain("Cannot find layer \"" + text + "\".\n");
                setProperties(drawing_, entities_, {}, {{kLayerCode, layer->name}});
                return true;
            }
            case Stage::Linetype: {
                if (isEnter(input) || ardo::equalsNoCase(text, "BYLAYER")) {
                    setProperties(drawing_, entities_, {kLinetypeCode}, {});
                    return true;
                }
                const auto names = drawing_.linetypeNames();
                const auto found = std::find_if(names.begin(), names.end(),
                                                [&](const std::string& n) { return ardo::equalsNoCase(n, text); });
                if (found == names.end())
                    return complain("Linetype " + text + " not found.  Use the LINETYPE command to load it.\n");
                setProperties(drawing_, entities_, {}, {{kLinetypeCode, *found}});
                return true;
            }
            case Stage::LinetypeScale:
            case Stage::Thickness: {
                const bool scale = stage_ == Stage::LinetypeScale;
                const auto value = isEnter(input) ? std::optional(scale ? 1.0 : 0.0) : distanceValue(input);
                if (!value) return complain("Requires numeric value.\n");
                if (scale && *value <= 0) return complain("Value must be positive and nonzero.\n");
                // The default value is written by leaving the group out.
                const bool plain = *value == (scale ? 1.0 : 0.0);
                const int code = scale ? kLinetypeScaleCode : kThicknessCode;
                setProperties(drawing_, entities_, {code}, plain ? std::vector<EntityTag>{} : std::vector<EntityTag>{{code, dxfNumber(*value)}});
                return true;
            }
            case Stage::Lineweight: {
                const auto weight = isEnter(input) ? std::optional(-1) : lineweightInput(input);
                if (!weight) return complain("Invalid lineweight.  Enter a standard lineweight in millimetres, ByLayer, ByBlock or Default.\n");
                setProperties(drawing_, entities_, {kLineweightCode},
                              *weight == -1 ? std::vector<EntityTag>{} : std::vector<EntityTag>{{kLineweightCode, std::to_string(*weight)}});
                return true;
            }
            case Stage::Property: break;
        }
        return false;
    }

    static std::optional<double> distanceValue(const ardo::ResBuf& input) {
        if (input.restype == ardo::RTREAL) return input.real;
        if (input.restype == ardo::RTSHORT || input.restype == ardo::RTLONG) return static_cast<double>(input.integer);
        return parseReal(inputText(input));
    }
    bool complain(const std::string& text) {
        context_.message(text);
        return false;
    }

    Stage stage_ = Stage::Property;
};

// LAYCUR: the selected objects go to the current layer.
class LaycurCommand final : public EditingCommand {
public:
    using EditingCommand::EditingCommand;

private:
    Step begin() override {
        const std::string current = drawing_.getVar("CLAYER")->text;
        std::size_t changed = 0;
        for (Handle h : entities_) {
            const auto e = drawing_.entity(h);
            if (e && !ardo::equalsNoCase(e->layer, current) && drawing_.setEntityLayer(h, current) == ardo::DbStatus::Ok)
                ++changed;
        }
        context_.message(std::to_string(changed) + (changed == 1 ? " object" : " objects") + " changed to layer \"" +
                         current + "\" (the current layer).\n");
        return Step::Done;
    }
    std::string ownPrompt() const override { return {}; }
    Step answer(const ardo::ResBuf&) override { return Step::Done; }
};

// A command that starts with one object: LAYMCUR's and MATCHPROP's source.
class OneObjectCommand : public Command {
public:
    OneObjectCommand(Context& context, std::string prompt)
        : context_(context), drawing_(*context.drawing), prompt_(std::move(prompt)),
          selection_(*context.drawing, context.previousSelection, context.selectionMembers, true) {}
    std::string prompt() const override { return picked_ ? ownPrompt() : prompt_; }
    InputRequest request() const override { return picked_ ? ownRequest() : selection_.request(); }
    Step take(const ardo::ResBuf& input) final {
        if (picked_) return answer(input);
        // Enter without an object ends the command, as the common hosts do.
        if (isEnter(input) && selection_.selected().empty()) return Step::Done;
        const auto going = takeObjects(selection_, input, context_);
        if (going == Step::Refused) return Step::Refused;
        if (selection_.selected().empty()) return going ? Step::More : Step::Done;
        const auto entity = drawing_.entity(static_cast<Handle>(selection_.selected().front()));
        if (!entity) return Step::Done;
        picked_ = true;
        return picked(*entity);
    }

protected:
    virtual Step picked(const EntityInfo& entity) = 0;
    virtual std::string ownPrompt() const { return {}; }
    virtual InputRequest ownRequest() const { return {}; }
    virtual Step answer(const ardo::ResBuf&) { return Step::Done; }

    Context& context_;
    Drawing& drawing_;

private:
    std::string prompt_;
    ObjectSelection selection_;
    bool picked_ = false;
};

class LaymcurCommand final : public OneObjectCommand {
public:
    explicit LaymcurCommand(Context& context)
        : OneObjectCommand(context, "Select object whose layer will become current: ") {}

private:
    Step picked(const EntityInfo& entity) override {
        if (drawing_.setVar("CLAYER", ardo::ResBuf::str(entity.layer)) != ardo::DbStatus::Ok) {
            context_.message("Layer \"" + entity.layer + "\" cannot be made current.\n");
            return Step::Done;
        }
        context_.message(entity.layer + " is now the current layer.\n");
        return Step::Done;
    }
};

// MATCHPROP: the source's colour, layer, linetype, linetype scale, lineweight and
// thickness onto every destination object selected.
class MatchpropCommand final : public OneObjectCommand {
public:
    explicit MatchpropCommand(Context& context)
        : OneObjectCommand(context, "Select source object: "),
          destinations_(*context.drawing, context.previousSelection, context.selectionMembers) {}

private:
    Step picked(const EntityInfo& entity) override {
        for (const EntityTag& t : drawing_.entityTags(entity.handle)) {
            if (t.code == 1001) break;
            if (t.code == kLayerCode || t.code == kLinetypeCode || t.code == kLinetypeScaleCode || t.code == kLineweightCode ||
                t.code == kThicknessCode || std::find(std::begin(kColorCodes), std::end(kColorCodes), t.code) != std::end(kColorCodes))
                properties_.push_back(t);
        }
        context_.echo("Current active settings: Color Layer Ltype Ltscale Lineweight Thickness\n");
        return Step::More;
    }
    std::string ownPrompt() const override { return "Select destination object(s): "; }
    InputRequest ownRequest() const override { return destinations_.request(); }
    Step answer(const ardo::ResBuf& input) override {
        if (const auto going = takeObjects(destinations_, input, context_)) return *going;
        const std::vector<Handle> entities = editableEntities(context_, destinations_.selected());
        setProperties(drawing_, entities,
                      {kColorCodes[0], kColorCodes[1], kColorCodes[2], kLinetypeCode, kLinetypeScaleCode, kLineweightCode, kThicknessCode},
                      properties_);
        return Step::Done;
    }

    ObjectSelection destinations_;
    std::vector<EntityTag> properties_;
};

// PROPERTIES in a window: the selected objects go to the window's properties dialog.
class PropertiesCommand final : public SelectingCommand {
public:
    using SelectingCommand::SelectingCommand;

private:
    Step selected(const std::vector<std::int64_t>& entities) override {
        context_.previousSelection = entities;
        const std::vector<Handle> editable = editableEntities(context_, entities);
        if (!editable.empty()) context_.editProperties(editable);
        return Step::Done;
    }
};

}  // namespace

std::unique_ptr<Command> makePropertiesCommand(Context& context) {
    if (context.editProperties) return std::make_unique<PropertiesCommand>(context);
    return std::make_unique<ChpropCommand>(context);
}
std::unique_ptr<Command> makeChpropCommand(Context& context) { return std::make_unique<ChpropCommand>(context); }
std::unique_ptr<Command> makeLaycurCommand(Context& context) { return std::make_unique<LaycurCommand>(context); }
std::unique_ptr<Command> makeLaymcurCommand(Context& context) { return std::make_unique<LaymcurCommand>(context); }
std::unique_ptr<Command> makeMatchpropCommand(Context& context) { return std::make_unique<MatchpropCommand>(context); }

}  // namespace cadhost::commands
