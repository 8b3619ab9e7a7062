// SELECT: gathers objects into the previous selection set for the next command.
#include <algorithm>
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

using ardo::ResBuf;

constexpr const char* kInvalidSelection =
    "*Invalid selection*\nExpects an entity name, a selection set or Last/ALL/Previous/Add/Remove\n";

class SelectCommand final : public Command {
public:
    explicit SelectCommand(Context& context) : context_(context), drawing_(*context.drawing) {}

    std::string prompt() const override { return removing_ ? "Remove objects: " : "Select objects: "; }
    InputRequest request() const override {
        InputRequest objects;
        objects.kind = InputRequest::Kind::Objects;
        return objects;
    }

    Step take(const ResBuf& input) override {
        if (isEnter(input)) {
            context_.previousSelection = selected_;
            return Step::Done;
        }
        std::vector<std::int64_t> found;
        if (input.restype == ardo::RTENAME) {
            if (!drawing_.entity(static_cast<Handle>(input.integer))) return refuse();
            found.push_back(input.integer);
        } else if (input.restype == ardo::RTPICKS) {
            if (context_.selectionMembers) found = context_.selectionMembers(input.integer);
        } else if (const auto keyword = matchKeyword(input, {"Last", "ALL", "Previous", "Add", "Remove"})) {
            switch (*keyword) {
                case 0: found = lastEntity(); break;
                case 1: found = allEntities(); break;
                case 2: found = context_.previousSelection; break;
                default: removing_ = *keyword == 4; return Step::More;
            }
        } else {
            return refuse();
        }
        apply(found);
        return Step::More;
    }

private:
    Step refuse() {
        context_.message(kInvalidSelection);
        return Step::Refused;
    }

    std::vector<std::int64_t> allEntities() const {
        std::vector<std::int64_t> out;
        drawing_.forEachEntity([&](const EntityInfo& e) {
            out.push_back(static_cast<std::int64_t>(e.handle));
            return true;
        });
        return out;
    }

    std::vector<std::int64_t> lastEntity() const {
        const auto all = allEntities();
        return all.empty() ? all : std::vector<std::int64_t>{all.back()};
    }

    void apply(const std::vector<std::int64_t>& found) {
        std::size_t changed = 0;
        for (std::int64_t e : found) {
            const auto at = std::find(selected_.begin(), selected_.end(), e);
            if (!removing_ && at == selected_.end()) {
                selected_.push_back(e);
                ++changed;
            } else if (removing_ && at != selected_.end()) {
                selected_.erase(at);
                ++changed;
            }
        }
        std::string report = std::to_string(found.size()) + " found";
        if (!removing_ && changed < found.size())
            report += " (" + std::to_string(found.size() - changed) + " duplicate)";
        if (removing_) report += ", " + std::to_string(changed) + " removed";
        context_.echo(report + ", " + std::to_string(selected_.size()) + " total\n");
    }

    Context& context_;
    const Drawing& drawing_;
    std::vector<std::int64_t> selected_;
    bool removing_ = false;
};

}  // namespace

std::unique_ptr<Command> makeSelectCommand(Context& context) { return std::make_unique<SelectCommand>(context); }

}  // namespace cadhost::commands
