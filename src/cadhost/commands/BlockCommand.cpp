// BLOCK and -BLOCK: selected objects become a block definition with a name and a base
// point, and are erased from the drawing. Redefining an existing block changes every insert
// of it.
#include <string_view>

#include "cadhost/commands/BlockCommands.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/EditingCommand.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/commands/TypedInput.h"
#include "base/CaseFold.h"
#include "base/Utf8.h"

namespace cadhost::commands {

namespace {

// Whether inserting `name` somewhere inside block `inside` would make a block contain itself.
bool reaches(const Drawing& drawing, const std::string& inside, const std::string& name, int depth = 0) {
    if (foldName(inside) == foldName(name)) return true;
    const auto contents = drawing.blockContents(inside);
    if (!contents || depth > 64) return false;
    for (Handle h : contents->entities) {
        const auto info = drawing.entity(h);
        if (!info || info->type != "INSERT") continue;
        for (const EntityTag& t : drawing.entityTags(h))
            if (t.code == 2 && reaches(drawing, t.value, name, depth + 1)) return true;
    }
    return false;
}

class BlockCommand final : public Command {
public:
    explicit BlockCommand(Context& context)
        : context_(context), drawing_(*context.drawing),
          selection_(drawing_, context.previousSelection, context.selectionMembers) {}

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Name: return "Enter block name: ";
            case Stage::Redefine: return "Block \"" + name_ + "\" already exists. Redefine it? [Yes/No] <N>: ";
            case Stage::Base: return "Specify insertion base point: ";
            case Stage::Objects: return selection_.prompt();
        }
        return {};
    }
    InputRequest request() const override {
        if (stage_ == Stage::Base) return pointRequest();
        if (stage_ == Stage::Objects) return selection_.request();
        return {};
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Name: return takeName(input);
            case Stage::Redefine: {
                const auto answer = isEnter(input) ? std::optional<std::size_t>(1) : matchKeyword(input, {"Yes", "No"});
                if (!answer) return askAgain(context_, kInvalidKeyword);
                stage_ = *answer == 0 ? Stage::Base : Stage::Name;
                return Step::More;
            }
            case Stage::Base: {
                const auto p = pointInput(drawing_, input);
                if (!p) return askAgain(context_, kInvalidPoint);
                base_ = *p;
                stage_ = Stage::Objects;
                return Step::More;
            }
            case Stage::Objects:
                if (const auto step = takeObjects(selection_, input, context_)) return *step;
                return define();
        }
        return Step::Refused;
    }

private:
    enum class Stage { Name, Redefine, Base, Objects };

    Step takeName(const ardo::ResBuf& input) {
        if (isEnter(input)) return Step::Done;
        const std::string typed(ardo::trimWhite(inputText(input)));
        if (input.restype != ardo::RTSTR || !validBlockName(typed)) return askAgain(context_, "Invalid block name.\n");
        name_ = typed;
        stage_ = drawing_.hasBlock(name_) ? Stage::Redefine : Stage::Base;
        return Step::More;
    }

    static bool validBlockName(std::string_view name) {
        std::size_t characters = 0;
        ardo::forEachCodePoint(name, [&](char32_t) { ++characters; });
        if (name.empty() || characters > 255 || ardo::hasControlCharacter(name)) return false;
        return name.find_first_of("<>/\\\":;?*|,=`") == std::string_view::npos;
    }

    Step define() {
        context_.previousSelection = selection_.selected();
        const std::vector<Handle> entities = editableEntities(context_, selection_.selected());
        if (entities.empty()) {
            context_.message("No objects selected; block \"" + name_ + "\" was not defined.\n");
            return Step::Done;
        }
        Drawing::EntityRecords records;
        for (Handle h : entities) {
            const auto tags = drawing_.entityTags(h);
            if (tags.front().value == "INSERT")
                for (const EntityTag& t : tags)
                    if (t.code == 2 && reaches(drawing_, t.value, name_)) {
                        context_.message("Block \"" + name_ + "\" references itself.\n*Invalid*\n");
                        return Step::Refused;
                    }
            records.push_back(tags);
            for (auto& part : drawing_.entityParts(h)) records.push_back(std::move(part));
        }
        if (drawing_.defineBlock(name_, base_, records) != ardo::DbStatus::Ok) {
            context_.message("Block \"" + name_ + "\" could not be defined in this drawing.\n");
            return Step::Refused;
        }
        drawing_.eraseEntities(entities);
        return Step::Done;
    }

    Context& context_;
    Drawing& drawing_;
    ObjectSelection selection_;
    Stage stage_ = Stage::Name;
    std::string name_;
    ardo::Point3 base_{};
};

}  // namespace

std::unique_ptr<Command> makeBlockCommand(Context& context) { return std::make_unique<BlockCommand>(context); }

}  // namespace cadhost::commands
