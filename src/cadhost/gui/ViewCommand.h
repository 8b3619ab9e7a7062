#pragma once
// ZOOM and PAN typed at the window's command line: alone at the command prompt, or
// transparently with an apostrophe ('ZOOM, 'PAN) in the middle of another command or a
// LISP prompt, which goes on afterwards. They run the host's own ZOOM and PAN on the view.
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cadhost/commands/InputRequest.h"
#include "cadhost/gui/SceneTypes.h"

namespace cadhost {
class Drawing;
}

namespace cadhost::gui {

class DrawingView;

class ViewCommand {
public:
    virtual ~ViewCommand() = default;

    // The command a line starts, or null when the line names none. `transparent` says
    // whether something else waits for input: only 'ZOOM and 'PAN start then.
    static std::unique_ptr<ViewCommand> start(std::string_view line, bool transparent, Drawing& drawing,
                                              DrawingView& view);

    virtual std::string prompt() const = 0;
    virtual commands::InputRequest request() const = 0;
    // Typed input (the message for input it refuses in `complaint`); false once done.
    virtual bool take(const std::string& typed, std::string& complaint) = 0;
    virtual bool takePoint(Vec2 point) = 0;
};

}  // namespace cadhost::gui
