// INSERT and -INSERT: a block of the drawing, or a DXF file inserted as a block, placed
// with scale factors and a rotation; its attributes asked in order when ATTREQ is 1.
#include <cmath>
#include <filesystem>
#include <numbers>

#include "cadhost/commands/BlockCommands.h"
#include "cadhost/commands/BlockGeometry.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/DrawingAsBlock.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/geometry/Paths.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

// One attribute the insert asks for: its definition's tags, the prompt and the default.
struct AttributeAsked {
    std::vector<EntityTag> definition;
    std::string prompt, value;
};

class InsertCommand final : public Command {
public:
    explicit InsertCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Name: return "Enter block name: ";
            case Stage::Point: return "Specify insertion point or [Scale/X/Y/Z/Rotate]: ";
            case Stage::PresetScale: return "Specify scale factor for XYZ axes <1>: ";
            case Stage::PresetX: return "Specify scale factor for X <1>: ";
            case Stage::PresetY: return "Specify scale factor for Y <1>: ";
            case Stage::PresetZ: return "Specify scale factor for Z <1>: ";
            case Stage::PresetRotation: return "Specify rotation angle <0>: ";
            case Stage::XScale: return "Enter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: ";
            case Stage::Corner: return "Specify opposite corner: ";
            case Stage::XyzX: return "Specify X scale factor or [Corner] <1>: ";
            case Stage::YScale: return "Enter Y scale factor <use X scale factor>: ";
            case Stage::ZScale: return "Specify Z scale factor or <use X scale factor>: ";
            case Stage::Rotation: return "Specify rotation angle <0>: ";
            case Stage::Attribute: {
                const AttributeAsked& a = attributes_[asked_];
                return a.value.empty() ? a.prompt + ": " : a.prompt + " <" + a.value + ">: ";
            }
        }
        return {};
    }
    InputRequest request() const override {
        if (stage_ == Stage::Point) return pointRequest();
        if (stage_ == Stage::XScale || stage_ == Stage::Corner || stage_ == Stage::Rotation ||
            stage_ == Stage::XyzX)
            return pointRequest(placement_.point, stage_ == Stage::Corner);
        return {};
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Name: return takeName(input);
            case Stage::Point: return takePoint(input);
            case Stage::PresetScale: return preset(input, [this](double f) { placement_.scale = {f, f, f}; });
            case Stage::PresetX: return preset(input, [this](double f) { placement_.scale[0] = f; });
            case Stage::PresetY: return preset(input, [this](double f) { placement_.scale[1] = f; });
            case Stage::PresetZ: return preset(input, [this](double f) { placement_.scale[2] = f; });
            case Stage::PresetRotation: return presetRotation(input);
            case Stage::XScale: return takeXScale(input);
            case Stage::Corner: return takeCorner(input);
            case Stage::XyzX: return takeXyzX(input);
            case Stage::YScale: return takeYScale(input);
            case Stage::ZScale: return takeZScale(input);
            case Stage::Rotation: return takeRotation(input);
            case Stage::Attribute: return takeAttribute(input);
        }
        return Step::Refused;
    }

private:
    enum class Stage {
        Name, Point, PresetScale, PresetX, PresetY, PresetZ, PresetRotation,
        XScale, Corner, XyzX, YScale, ZScale, Rotation, Attribute
    };

    Step takeName(const ardo::ResBuf& input) {
        const std::string typed(ardo::trimWhite(inputText(input)));
        if (input.restype != ardo::RTSTR || typed.empty()) return askAgain(context_, "Enter a block name or a drawing file.\n");
        if (const auto block = drawing_.blockContents(typed)) {
            // The block's own spelling, whatever case was typed; an empty block has no entity to tell it.
            const auto first = block->entities.empty() ? std::nullopt : drawing_.entity(block->entities.front());
            return named(first ? first->block : typed);
        }
        std::string file = typed;
        if (std::filesystem::path(file).extension().empty()) file += ".dxf";
        const auto found = context_.findFile ? context_.findFile(file)
                                             : (std::filesystem::is_regular_file(file) ? std::optional(file) : std::nullopt);
        if (!found) {
            context_.message("\"" + file + "\": Can't find file in search path.\n*Invalid*\n");
            return Step::More;
        }
        const auto defined = defineBlockFromFile(drawing_, *found);
        if (!defined) {
            context_.message(defined.error() + "\n*Invalid*\n");
            return Step::More;
        }
        return named(*defined);
    }

    Step named(const std::string& name) {
        placement_.block = name;
        stage_ = Stage::Point;
        return Step::More;
    }

    Step takePoint(const ardo::ResBuf& input) {
        if (const auto keyword = matchKeyword(input, {"Scale", "X", "Y", "Z", "Rotate"})) {
            constexpr Stage next[] = {Stage::PresetScale, Stage::PresetX, Stage::PresetY, Stage::PresetZ,
                                      Stage::PresetRotation};
            stage_ = next[*keyword];
            return Step::More;
        }
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, kPointOrKeyword);
        placement_.point = *p;
        // Factors given before the point are not asked again.
        if (presetScale_) return presetRotation_ ? finishPlacement() : (stage_ = Stage::Rotation, Step::More);
        stage_ = Stage::XScale;
        return Step::More;
    }

    template <typename Set>
    Step preset(const ardo::ResBuf& input, Set set) {
        const auto factor = isEnter(input) ? std::optional(1.0) : numberInput(input);
        if (!factor) return askAgain(context_, "Requires numeric value.\n");
        if (*factor == 0) return askAgain(context_, "Value must be nonzero.\n");
        set(*factor);
        presetScale_ = true;
        stage_ = Stage::Point;
        return Step::More;
    }

    Step presetRotation(const ardo::ResBuf& input) {
        const auto angle = isEnter(input) ? std::optional(0.0) : angleInput(drawing_, input, placement_.point);
        if (!angle) return askAgain(context_, "Requires valid numeric angle or second point.\n");
        placement_.rotation = *angle;
        presetRotation_ = true;
        stage_ = Stage::Point;
        return Step::More;
    }

    // A scale factor typed: Enter gives the default, zero is refused.
    std::optional<double> factorOf(const ardo::ResBuf& input, double fallback) {
        if (isEnter(input)) return fallback;
        const auto factor = numberInput(input);
        if (!factor) {
            context_.message("Requires numeric value or point.\n");
            return std::nullopt;
        }
        if (*factor == 0) {
            context_.message("Value must be nonzero.\n");
            return std::nullopt;
        }
        return factor;
    }

    Step takeXScale(const ardo::ResBuf& input) {
        if (const auto keyword = matchKeyword(input, {"Corner", "XYZ"})) {
            stage_ = *keyword == 0 ? Stage::Corner : Stage::XyzX;
            return Step::More;
        }
        if (input.restype != ardo::RTSTR || !numberInput(input))
            if (const auto p = pointInput(drawing_, input)) return corner(*p);
        const auto factor = factorOf(input, 1);
        if (!factor) return Step::More;
        placement_.scale = {*factor, *factor, *factor};
        stage_ = Stage::YScale;
        return Step::More;
    }

    Step takeCorner(const ardo::ResBuf& input) {
        const auto p = pointInput(drawing_, input);
        if (!p) return askAgain(context_, kInvalidPoint);
        return corner(*p);
    }

    // The opposite corner gives X and Y by its offsets from the insertion point.
    Step corner(const ardo::Point3& p) {
        const double x = p[0] - placement_.point[0], y = p[1] - placement_.point[1];
        if (x == 0 || y == 0) return askAgain(context_, "Value must be nonzero.\n");
        placement_.scale = {x, y, x};
        stage_ = Stage::Rotation;
        return Step::More;
    }

    Step takeXyzX(const ardo::ResBuf& input) {
        if (matchKeyword(input, {"Corner"})) {
            stage_ = Stage::Corner;
            return Step::More;
        }
        const auto factor = factorOf(input, 1);
        if (!factor) return Step::More;
        placement_.scale = {*factor, *factor, *factor};
        xyz_ = true;
        stage_ = Stage::YScale;
        return Step::More;
    }

    Step takeYScale(const ardo::ResBuf& input) {
        const auto factor = factorOf(input, placement_.scale[0]);
        if (!factor) return Step::More;
        placement_.scale[1] = *factor;
        stage_ = xyz_ ? Stage::ZScale : Stage::Rotation;
        return Step::More;
    }

    Step takeZScale(const ardo::ResBuf& input) {
        const auto factor = factorOf(input, placement_.scale[0]);
        if (!factor) return Step::More;
        placement_.scale[2] = *factor;
        stage_ = Stage::Rotation;
        return Step::More;
    }

    Step takeRotation(const ardo::ResBuf& input) {
        const auto angle = isEnter(input) ? std::optional(0.0) : angleInput(drawing_, input, placement_.point);
        if (!angle) return askAgain(context_, "Requires valid numeric angle or second point.\n");
        placement_.rotation = *angle;
        return finishPlacement();
    }

    Step finishPlacement() {
        const auto contents = drawing_.blockContents(placement_.block);
        if (!contents) {
            context_.message("Block \"" + placement_.block + "\" is no longer in the drawing.\n");
            return Step::Refused;
        }
        placement_.base = contents->base;
        const auto attreq = drawing_.getVar("ATTREQ");
        const bool ask = !attreq || attreq->integer != 0;
        for (Handle h : contents->entities) {
            auto tags = drawing_.entityTags(h);
            if (tags.empty() || tags.front().value != "ATTDEF") continue;
            const geometry::Groups g(tags);
            const int flags = g.flags(70);
            if (flags & 2) continue;   // constant: shown from the block, never asked
            const auto text = [&](int code) { return g.text(code) ? *g.text(code) : std::string(); };
            AttributeAsked a;
            a.prompt = text(3);
            if (a.prompt.empty()) a.prompt = text(2);
            a.value = text(1);
            a.definition = std::move(tags);
            // Preset attributes take their default without a question.
            attributes_.push_back(std::move(a));
            if (!ask || (flags & 8)) attributes_.back().prompt.clear();
        }
        return nextAttribute();
    }

    Step nextAttribute() {
        while (asked_ < attributes_.size() && attributes_[asked_].prompt.empty()) ++asked_;
        if (asked_ < attributes_.size()) {
            stage_ = Stage::Attribute;
            return Step::More;
        }
        return finish();
    }

    Step takeAttribute(const ardo::ResBuf& input) {
        if (!isEnter(input)) attributes_[asked_].value = inputText(input);
        ++asked_;
        return nextAttribute();
    }

    Step finish() {
        std::vector<EntityTag> data;
        if (!attributes_.empty()) data.push_back({66, "1"});
        data.push_back({2, placement_.block});
        appendPoint(data, 10, placement_.point);
        if (placement_.scale[0] != 1) data.push_back({41, dxfNumber(placement_.scale[0])});
        if (placement_.scale[1] != 1) data.push_back({42, dxfNumber(placement_.scale[1])});
        if (placement_.scale[2] != 1) data.push_back({43, dxfNumber(placement_.scale[2])});
        // Degrees as typed: "30" is 30, not what the round trip through radians leaves.
        const double degrees = std::round(placement_.rotation * 180 / M_PI * 1e9) / 1e9;
        if (degrees != 0) data.push_back({50, dxfNumber(degrees)});
        const std::string layer = drawing_.getVar("CLAYER") ? drawing_.getVar("CLAYER")->text : "0";
        Drawing::EntityRecords parts;
        for (const AttributeAsked& a : attributes_)
            parts.push_back(attributeFrom(a.definition, a.value, placement_, layer));
        if (!addEntity(drawing_, "INSERT", "AcDbBlockReference", std::move(data), parts)) {
            context_.message("The block reference could not be added to the drawing.\n");
            return Step::Refused;
        }
        return Step::Done;
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Name;
    Placement placement_;
    bool presetScale_ = false, presetRotation_ = false, xyz_ = false;
    std::vector<AttributeAsked> attributes_;
    std::size_t asked_ = 0;
};

}  // namespace

std::unique_ptr<Command> makeInsertCommand(Context& context) { return std::make_unique<InsertCommand>(context); }

}  // namespace cadhost::commands
