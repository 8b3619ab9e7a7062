#pragma once
// A document's undo history: the drawing's changes in steps (a command, a LISP expression
// typed at the prompt, or a BEGIN/END group), with marks for BACK and the steps undone
// last ready for REDO. Its memory is bounded by a byte budget; when a new step would pass
// it, the oldest steps are dropped and can no longer be undone.
#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"

namespace cadhost {

class UndoHistory {
public:
    static constexpr std::size_t kDefaultBudget = std::size_t{64} << 20;

    explicit UndoHistory(Drawing& drawing, std::size_t budget = kDefaultBudget);
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    // Takes the drawing's changes since the last step as a step named `label` (a command
    // name, "GROUP" for a LISP expression). Nothing is kept when nothing changed. In an
    // open group the changes join the group.
    void closeStep(const std::string& label);

    // BEGIN and END of a group that U undoes as one step; a group already open is closed
    // first, as the common hosts do. False from END when no group is open.
    void beginGroup();
    bool endGroup();
    bool groupOpen() const { return groupOpen_; }
    void mark();

    // Undoes up to `count` steps (marks in the way are passed and removed); the labels of
    // the steps undone, newest first. An open group is closed first.
    std::vector<std::string> undo(std::size_t count);
    // Undoes back to the newest mark, which is removed; `reachedMark` tells whether there
    // was one (otherwise everything was undone).
    std::vector<std::string> back(bool& reachedMark);
    bool hasMark() const;
    // Makes again what the last undo took back; false when there is nothing to redo (a
    // change since then drops it).
    bool redo();

    bool canUndo() const;
    std::size_t steps() const { return steps_.size(); }
    // Memory the kept steps hold, undone ones included; never above the budget after a
    // step was closed unless a single step is larger.
    std::size_t bytes() const { return bytes_; }
    std::size_t budget() const { return budget_; }
    void setBudget(std::size_t bytes);

private:
    struct Step {
        std::string label;
        std::vector<DrawingChanges> changes;
        bool mark = false;
        std::size_t bytes = 0;
    };
    void undoStep(Step& step);
    void keepWithinBudget();
    void dropRedo();

    Drawing& drawing_;
    std::size_t budget_;
    std::size_t bytes_ = 0;
    std::deque<Step> steps_;
    std::vector<std::vector<Step>> redo_;   // each undo's steps, newest undo last
    bool groupOpen_ = false;
};

}  // namespace cadhost
