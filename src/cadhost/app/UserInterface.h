#pragma once
// What the application asks of the person in front of it: text on the command line, a line
// of input, message boxes, repainting the views, and the main window that dialogs and panes
// belong to. The console implements it on a terminal or a script; a window implements it
// with widgets.
#include <optional>
#include <string>
#include <string_view>

#include "boundary/Host.h"

namespace cadhost {

// The host's main window, for dialogs and docking panes to attach to. A windowed user
// interface derives its window from this; the console has none.
class MainWindow {
public:
    virtual ~MainWindow() = default;

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
    virtual ardo::MbAnswer messageBox(const std::string& text, const std::string& caption,
                                      ardo::MbButtons buttons, ardo::MbIcon icon) = 0;
    virtual void alert(const std::string& text) = 0;
    // Repaints the views after the drawing changed on screen (REGENALL, redraw).
    virtual void redraw() = 0;
    virtual MainWindow* mainWindow() = 0;
};

}  // namespace cadhost
