// REGENALL: reports the regeneration and lets the window repaint.
#include "cadhost/commands/Command.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

class RegenallCommand final : public Command {
public:
    explicit RegenallCommand(Context& context) : context_(context) {}

    Step start() override {
        const auto tilemode = context_.drawing->getVar("TILEMODE");
        if (tilemode && tilemode->integer == 0)
            context_.message("Regenerating layout.\nRegenerating model - caching viewports.\n");
        else
            context_.message("Regenerating model.\n");
        if (context_.regenerate) context_.regenerate();
        return Step::Done;
    }
    std::string prompt() const override { return {}; }
    Step take(const ardo::ResBuf&) override { return Step::Done; }

private:
    Context& context_;
};

}  // namespace

std::unique_ptr<Command> makeRegenallCommand(Context& context) { return std::make_unique<RegenallCommand>(context); }

}  // namespace cadhost::commands
