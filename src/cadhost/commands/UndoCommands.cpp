// U, UNDO and REDO over the document's undo history.
#include <string>
#include <vector>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/EditingCommands.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/drawing/UndoHistory.h"

namespace cadhost::commands {

namespace {

constexpr const char* kEverythingUndone = "Everything has been undone\n";

// What was undone, as the command line shows it: the command names, newest first.
void reportUndone(const Context& context, const std::vector<std::string>& labels) {
    if (labels.empty()) return;
    std::string line;
    for (const std::string& label : labels) line += (line.empty() ? "" : " ") + label;
    context.message(line + "\n");
}

bool hasHistory(const Context& context) {
    if (context.undo) return true;
    context.message("This drawing keeps no undo history.\n");
    return false;
}

class UCommand final : public Command {
public:
    explicit UCommand(Context& context) : context_(context) {}
    Step start() override {
        if (!hasHistory(context_)) return Step::Refused;
        const auto labels = context_.undo->undo(1);
        if (labels.empty())
            context_.message(kEverythingUndone);
        else
            reportUndone(context_, labels);
        return Step::Done;
    }
    std::string prompt() const override { return {}; }
    Step take(const ardo::ResBuf&) override { return Step::Done; }

private:
    Context& context_;
};

class UndoCommand final : public Command {
public:
    explicit UndoCommand(Context& context) : context_(context) {}
    Step start() override { return hasHistory(context_) ? Step::More : Step::Refused; }

    std::string prompt() const override {
        return confirmingBack_ ? "This will undo everything. OK? <Y>: "
                               : "Enter the number of operations to undo or [BEgin/End/Mark/Back] <1>: ";
    }

    Step take(const ardo::ResBuf& input) override {
        UndoHistory& history = *context_.undo;
        if (confirmingBack_) return confirmBack(input);
        if (isEnter(input)) return undo(1);
        if (const auto keyword = matchKeyword(input, {"BEgin", "End", "Mark", "Back"})) {
            switch (*keyword) {
                case 0: history.beginGroup(); return Step::Done;
                case 1: history.endGroup(); return Step::Done;
                case 2: history.mark(); return Step::Done;
                default:
                    if (history.hasMark()) return back();
                    confirmingBack_ = true;
                    return Step::More;
            }
        }
        const auto count = input.restype == ardo::RTSHORT || input.restype == ardo::RTLONG
                               ? std::optional<double>(static_cast<double>(input.integer))
                               : parseReal(inputText(input));
        if (!count || *count != static_cast<double>(static_cast<long long>(*count))) {
            context_.message("Requires an integer value or option keyword.\n");
            return Step::More;
        }
        if (*count < 1) {
            context_.message("Value must be positive and nonzero.\n");
            return Step::More;
        }
        return undo(static_cast<std::size_t>(*count));
    }

private:
    Step undo(std::size_t count) {
        const auto labels = context_.undo->undo(count);
        reportUndone(context_, labels);
        if (labels.size() < count) context_.message(kEverythingUndone);
        return Step::Done;
    }

    Step back() {
        bool reachedMark = false;
        reportUndone(context_, context_.undo->back(reachedMark));
        context_.message(reachedMark ? "Mark encountered\n" : kEverythingUndone);
        return Step::Done;
    }

    Step confirmBack(const ardo::ResBuf& input) {
        if (isEnter(input)) return back();
        if (const auto keyword = matchKeyword(input, {"Yes", "No"})) return *keyword == 0 ? back() : Step::Done;
        context_.message(kInvalidKeyword);
        return Step::More;
    }

    Context& context_;
    bool confirmingBack_ = false;
};

class RedoCommand final : public Command {
public:
    explicit RedoCommand(Context& context) : context_(context) {}
    Step start() override {
        if (!hasHistory(context_)) return Step::Refused;
        if (!context_.undo->redo()) context_.message("Previous command did not undo things.\n");
        return Step::Done;
    }
    std::string prompt() const override { return {}; }
    Step take(const ardo::ResBuf&) override { return Step::Done; }

private:
    Context& context_;
};

}  // namespace

std::unique_ptr<Command> makeUCommand(Context& context) { return std::make_unique<UCommand>(context); }
std::unique_ptr<Command> makeUndoCommand(Context& context) { return std::make_unique<UndoCommand>(context); }
std::unique_ptr<Command> makeRedoCommand(Context& context) { return std::make_unique<RedoCommand>(context); }

}  // namespace cadhost::commands
