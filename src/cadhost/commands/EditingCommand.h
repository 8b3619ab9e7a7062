#pragma once
// What the editing commands share: a "Select objects:" prompt first, then the command's
// own prompts for what it does to the objects. Objects on locked layers and outside the
// current space are left alone and counted, as ERASE leaves them.
#include <cstdint>
#include <string>
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// The entities a command may change: those of the current space on unlocked layers. The
// others are counted on the command line ("1 was on a locked layer.").
std::vector<Handle> editableEntities(const Context& context, const std::vector<std::int64_t>& entities);

class EditingCommand : public Command {
public:
    explicit EditingCommand(Context& context);
    std::string prompt() const final;
    InputRequest request() const final;
    Step take(const ardo::ResBuf& input) final;

protected:
    // After the selection: the command's first own prompt (More), or Done when it needs
    // no more input.
    virtual Step begin() { return Step::More; }
    virtual std::string ownPrompt() const = 0;
    virtual InputRequest ownRequest() const { return {}; }
    virtual Step answer(const ardo::ResBuf& input) = 0;

    const ObjectSelection& selection() const { return selection_; }

    Context& context_;
    Drawing& drawing_;
    std::vector<Handle> entities_;

private:
    ObjectSelection selection_;
    bool selecting_ = true;
};

// Applies the transform to the entities, in place or to copies; entities of a type the
// host cannot transform are counted on the command line. The copies made.
std::vector<Handle> transformEntities(const Context& context, const std::vector<Handle>& entities,
                                      const class Transform& transform, bool copy);

}  // namespace cadhost::commands
