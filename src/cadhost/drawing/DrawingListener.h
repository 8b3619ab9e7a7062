#pragma once
// Who wants to know when a drawing changes: a layer pane, the view, the layer toolbar.
// The drawing announces each change once, after it is made, whoever made it (a command,
// LISP code, a module through the host boundary). Listeners must not change the drawing
// while they are told.
#include <cstdint>
#include <string>

namespace cadhost {

enum class Change { Created, Modified, Erased };

class DrawingListener {
public:
    virtual ~DrawingListener() = default;
    // Names as the drawing holds them; entities by their handle.
    virtual void layerChanged(Change, const std::string& /*layer*/) {}
    virtual void linetypeChanged(Change, const std::string& /*linetype*/) {}
    virtual void entityChanged(Change, std::uint64_t /*handle*/) {}
    // A system variable was set (by its upper-case name).
    virtual void variableChanged(const std::string& /*name*/) {}
};

}  // namespace cadhost
