#include "cadhost/commands/CommandProcessor.h"

#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/CommandNames.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost {

using ardo::ResBuf;

struct CommandProcessor::Impl {
    commands::Context context;
    std::unique_ptr<commands::Command> active;

    void setActive(std::unique_ptr<commands::Command> command) {
        active = std::move(command);
        if (context.drawing) context.drawing->setCommandActive(active ? 1 : 0);
    }

    // False when the command was refused; it is cancelled then.
    bool settle(commands::Step step) {
        if (step == commands::Step::More) return true;
        setActive(nullptr);
        return step == commands::Step::Done;
    }

    bool startCommand(const ResBuf& token) {
        const std::string typed = commands::inputText(token);
        const auto entry = token.restype == ardo::RTSTR ? commands::findCommand(typed) : std::nullopt;
        if (!entry) {
            context.message("Unknown command \"" + commands::commandKey(typed) + "\".  Press F1 for help.\n");
            return false;
        }
        context.echo("Command: " + typed + "\n");
        if (!context.drawing) {
            context.message("No drawing is open.  Open or create a drawing first.\n");
            return false;
        }
        setActive(entry->make(context));
        return settle(active->start());
    }

    bool take(const ResBuf& token) {
        context.echo(active->prompt() + commands::inputText(token) + "\n");
        return settle(active->take(token));
    }
};

CommandProcessor::CommandProcessor(Environment env) : impl_(std::make_unique<Impl>()) {
    impl_->context.drawing = env.drawing;
    impl_->context.print = std::move(env.print);
    impl_->context.selectionMembers = std::move(env.selectionMembers);
    impl_->context.regenerate = std::move(env.regenerate);
    impl_->context.view = std::move(env.view);
    impl_->context.colors = env.colors;
    impl_->context.undo = env.undo;
}

CommandProcessor::~CommandProcessor() = default;

void CommandProcessor::setDrawing(Drawing* drawing) {
    cancel();
    impl_->context.drawing = drawing;
    impl_->context.previousSelection.clear();
}

int CommandProcessor::feed(const ardo::ResBufChain& tokens) {
    for (const ResBuf& token : tokens) {
        // Enter at the command prompt would repeat the last command interactively; in
        // scripted input it is a stray answer and is passed over.
        if (!impl_->active && commands::isEnter(token)) continue;
        const bool ok = impl_->active ? impl_->take(token) : impl_->startCommand(token);
        if (!ok) {
            cancel();
            return ardo::RTERROR;
        }
    }
    return ardo::RTNORM;
}

bool CommandProcessor::active() const { return impl_->active != nullptr; }

bool CommandProcessor::echoes() const { return impl_->context.echoes(); }

void CommandProcessor::cancel() {
    if (impl_->active) impl_->context.echo("*Cancel*\n");
    impl_->setActive(nullptr);
}

bool CommandProcessor::knows(const std::string& commandName) const {
    return commands::findCommand(commandName).has_value();
}

const std::vector<std::int64_t>& CommandProcessor::previousSelection() const {
    return impl_->context.previousSelection;
}

std::string CommandProcessor::prompt() const { return impl_->active ? impl_->active->prompt() : std::string(); }

commands::InputRequest CommandProcessor::request() const {
    return impl_->active ? impl_->active->request() : commands::InputRequest{};
}

std::vector<std::string> CommandProcessor::menuGroups() const {
    std::vector<std::string> names;
    for (const auto& group : impl_->context.menuGroups) names.push_back(group.name);
    return names;
}

}  // namespace cadhost
