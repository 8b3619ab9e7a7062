#pragma once
// One running command of the command line and what all commands share: the drawing, the
// output, the selection sets and the loaded menu groups.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cadhost/colors/ColorServices.h"
#include "cadhost/commands/InputRequest.h"
#include "cadhost/commands/ViewControl.h"
#include "boundary/ResBuf.h"

namespace cadhost {

class Drawing;
class UndoHistory;

namespace commands {

struct MenuGroup {
    std::string name;
    std::string file;
};

struct Context {
    Drawing* drawing = nullptr;
    std::function<void(const std::string&)> print;
    std::function<std::vector<std::int64_t>(std::int64_t)> selectionMembers;
    std::function<void()> regenerate;
    std::vector<std::int64_t> previousSelection;
    std::vector<MenuGroup> menuGroups;
    const ColorServices* colors = nullptr;
    UndoHistory* undo = nullptr;
    // The view that ZOOM and PAN change; null (or no function) in the console.
    std::function<ViewControl*()> view;

    // Messages are printed whatever CMDECHO says.
    void message(const std::string& text) const {
        if (print) print(text);
    }
    // Prompts, echoed input and reports that CMDECHO 0 suppresses.
    bool echoes() const;
    void echo(const std::string& text) const {
        if (echoes()) message(text);
    }
};

enum class Step { More, Done, Refused };

class Command {
public:
    virtual ~Command() = default;
    // Called once when the command starts; a command that needs no input ends here.
    virtual Step start() { return Step::More; }
    // The prompt for the next input.
    virtual std::string prompt() const = 0;
    virtual InputRequest request() const { return {}; }
    virtual Step take(const ardo::ResBuf& input) = 0;
};

using CommandFactory = std::unique_ptr<Command> (*)(Context&);

std::unique_ptr<Command> makeLayerCommand(Context& context);
std::unique_ptr<Command> makeVplayerCommand(Context& context);
std::unique_ptr<Command> makeSelectCommand(Context& context);
std::unique_ptr<Command> makeRegenallCommand(Context& context);
std::unique_ptr<Command> makeZoomCommand(Context& context);
std::unique_ptr<Command> makePanCommand(Context& context);
std::unique_ptr<Command> makeQsaveCommand(Context& context);
std::unique_ptr<Command> makeSaveasCommand(Context& context);
std::unique_ptr<Command> makeMenuloadCommand(Context& context);
std::unique_ptr<Command> makeMenuunloadCommand(Context& context);
std::unique_ptr<Command> makeMapExportCommand(Context& context);

}  // namespace commands
}  // namespace cadhost
