#pragma once
// What the application asks of the person in front of it: text on the command line, a line
// of input, message boxes, repainting the views, and the main window that dialogs and panes
// belong to. The console implements it on a terminal or a script; a window implements it
// with widgets.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "boundary/Host.h"
#include "cadhost/commands/InputRequest.h"

namespace cadhost {

// One answer to a prompt that also takes picks: typed text, a point picked in a view, or
// the entities that a pick, window or crossing found.
struct PromptAnswer {
    std::optional<std::string> text;
    std::optional<ardo::Point3> point;
    std::vector<std::int64_t> entities;
};

// The host's main window, for dialogs and docking panes to attach to. A windowed user
// interface derives its window from this; the console has none.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    virtual QWidget* widget() = 0;

protected:
    MainWindow() = default;
};

class UserInterface {
public:
    virtual ~UserInterface() = default;

    // Command-line output, exactly as given.
    virtual void print(std::string_view text) = 0;
    // Asks for one line of input after showing the question; nothing when nobody can
    // answer (end of input, or a script without a terminal).
    virtual std::optional<std::string> prompt(const std::string& question) = 0;
    // Asks for the next input of a prompt that also takes what `request` names from a
    // view; nothing when cancelled or nobody can answer. The console takes typed text.
    virtual std::optional<PromptAnswer> ask(const std::string& question, const commands::InputRequest& request) = 0;
    virtual ardo::MbAnswer messageBox(const std::string& text, const std::string& caption,
                                      ardo::MbButtons buttons, ardo::MbIcon icon) = 0;
    virtual void alert(const std::string& text) = 0;
    // Repaints the views after the drawing changed on screen (REGENALL, redraw).
    virtual void redraw() = 0;
    virtual MainWindow* mainWindow() = 0;

    // Shows one entity of the current drawing in a redraw mode (1 show, 2 hide,
    // 3 highlight, 4 unhighlight) until the next redraw; the application has checked both.
    virtual void redrawEntity(std::int64_t entity, int mode) = 0;
    // Paints what redrawEntity changed.
    virtual void updateDisplay() = 0;
    // The colour dialog: RTNORM with the chosen colour or RTCAN; nothing when this user
    // interface has no dialog (the application then asks on the command line).
    virtual std::optional<int> chooseColor(ardo::HostColor& color, bool allowMetaColors) = 0;
    // Picks one entity in a view: RTNORM with its id and the pick point, RTCAN, or RTERROR
    // when nothing was hit; nothing when there is no view to pick in.
    virtual std::optional<int> pickEntity(const std::string& prompt, std::int64_t& entity,
                                          ardo::Point3& point) = 0;
    // A module queued a LISP expression. The console runs it after the next input; a window
    // runs it as soon as nothing is in progress, since a pane's click is input of its own.
    virtual void expressionQueued() {}
};

}  // namespace cadhost
