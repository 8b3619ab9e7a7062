#pragma once
// The host's command line: commands the module and LISP code drive with tokens, as a user
// would type them ("_.LAYER", "_FREEZE", "Wand", "" for Enter). A command may take its
// input over several calls; it stays active until it ends.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "boundary/ResBuf.h"
#include "cadhost/commands/Command.h"

namespace cadhost {

class ColorServices;
class Drawing;
class UndoHistory;

class CommandProcessor {
public:
    struct Environment {
        Drawing* drawing = nullptr;
        // Command-line output (prompts and echoes when CMDECHO is 1, messages always).
        std::function<void(const std::string&)> print;
        // The entities of a LISP selection set named by an RTPICKS token.
        std::function<std::vector<std::int64_t>(std::int64_t set)> selectionMembers;
        // Repaints the views after "REGENALL" (the window sets it; the console needs none).
        std::function<void()> regenerate;
        // The application's colour services, for colour names typed at LAYER.
        const ColorServices* colors = nullptr;
        // The document's undo history, for U, UNDO and REDO.
        UndoHistory* undo = nullptr;
        // The view ZOOM and PAN work on: the window's current one; none in the console.
        std::function<commands::ViewControl*()> view{};
    };

    explicit CommandProcessor(Environment env);
    ~CommandProcessor();
    CommandProcessor(const CommandProcessor&) = delete;
    CommandProcessor& operator=(const CommandProcessor&) = delete;

    // Switches to another drawing (a command in progress is cancelled).
    void setDrawing(Drawing* drawing);

    // Feeds command-line input. With no command active, the first token names the command
    // ("_" and "." prefixes allowed). RTNORM when the input was taken; RTERROR for an
    // unknown command or input the command refused (the command is then cancelled, as the
    // host cancels a LISP (command) call).
    int feed(const ardo::ResBufChain& tokens);
    // True while a command waits for more input (CMDACTIVE bit 1).
    bool active() const;
    // Whether prompts and input are echoed (CMDECHO of the drawing).
    bool echoes() const;
    void cancel();
    bool knows(const std::string& commandName) const;

    // The previous selection set ("P"): set by "_select".
    const std::vector<std::int64_t>& previousSelection() const;
    // The prompt the active command waits at ("" when none is active).
    std::string prompt() const;
    // What that prompt takes besides text (Text when no command is active).
    commands::InputRequest request() const;
    // Names of the menu groups "MENULOAD" loaded, in load order.
    std::vector<std::string> menuGroups() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace cadhost
