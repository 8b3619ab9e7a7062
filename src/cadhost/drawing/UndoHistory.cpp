#include "cadhost/drawing/UndoHistory.h"

#include <iterator>

namespace cadhost {

UndoHistory::UndoHistory(Drawing& drawing, std::size_t budget) : drawing_(drawing), budget_(budget) {
    drawing_.recordChanges(true);
}

void UndoHistory::closeStep(const std::string& label) {
    DrawingChanges changes = drawing_.takeChanges();
    if (changes.empty()) return;
    dropRedo();
    if (!groupOpen_ || steps_.empty()) steps_.push_back(Step{label, {}, false, 0});
    Step& step = steps_.back();
    const std::size_t bytes = changes.bytes();
    step.changes.push_back(std::move(changes));
    step.bytes += bytes;
    bytes_ += bytes;
    keepWithinBudget();
}

void UndoHistory::beginGroup() {
    closeStep("GROUP");
    groupOpen_ = false;
    steps_.push_back(Step{"GROUP", {}, false, 0});
    groupOpen_ = true;
}

bool UndoHistory::endGroup() {
    if (!groupOpen_) return false;
    closeStep("GROUP");
    groupOpen_ = false;
    if (!steps_.empty() && steps_.back().changes.empty() && !steps_.back().mark) steps_.pop_back();
    return true;
}

void UndoHistory::mark() {
    if (groupOpen_) endGroup();
    closeStep("GROUP");
    steps_.push_back(Step{"", {}, true, 0});
}

bool UndoHistory::hasMark() const {
    for (const Step& step : steps_)
        if (step.mark) return true;
    return false;
}

bool UndoHistory::canUndo() const {
    for (const Step& step : steps_)
        if (!step.mark && !step.changes.empty()) return true;
    return false;
}

void UndoHistory::undoStep(Step& step) {
    for (auto it = step.changes.rbegin(); it != step.changes.rend(); ++it) drawing_.undo(*it);
}

std::vector<std::string> UndoHistory::undo(std::size_t count) {
    if (groupOpen_) endGroup();
    closeStep("GROUP");
    std::vector<std::string> labels;
    std::vector<Step> undone;
    while (count > 0 && !steps_.empty()) {
        Step step = std::move(steps_.back());
        steps_.pop_back();
        if (step.mark || step.changes.empty()) continue;
        undoStep(step);
        labels.push_back(step.label);
        undone.push_back(std::move(step));
        --count;
    }
    if (!undone.empty()) redo_.push_back(std::move(undone));
    return labels;
}

std::vector<std::string> UndoHistory::back(bool& reachedMark) {
    if (groupOpen_) endGroup();
    closeStep("GROUP");
    reachedMark = false;
    std::vector<std::string> labels;
    std::vector<Step> undone;
    while (!steps_.empty()) {
        Step step = std::move(steps_.back());
        steps_.pop_back();
        if (step.mark) {
            reachedMark = true;
            break;
        }
        if (step.changes.empty()) continue;
        undoStep(step);
        labels.push_back(step.label);
        undone.push_back(std::move(step));
    }
    if (!undone.empty()) redo_.push_back(std::move(undone));
    return labels;
}

bool UndoHistory::redo() {
    closeStep("GROUP");
    if (redo_.empty()) return false;
    std::vector<Step> undone = std::move(redo_.back());
    redo_.pop_back();
    // The newest step was undone first, so the oldest comes back first.
    for (auto it = undone.rbegin(); it != undone.rend(); ++it) {
        for (DrawingChanges& changes : it->changes) drawing_.redo(changes);
        steps_.push_back(std::move(*it));
    }
    return true;
}

void UndoHistory::setBudget(std::size_t bytes) {
    budget_ = bytes;
    keepWithinBudget();
}

void UndoHistory::dropRedo() {
    for (const auto& undone : redo_)
        for (const Step& step : undone) bytes_ -= step.bytes;
    redo_.clear();
}

void UndoHistory::keepWithinBudget() {
    // The newest step stays whatever it costs: the user can always take back the last one.
    while (bytes_ > budget_ && steps_.size() > 1) {
        bytes_ -= steps_.front().bytes;
        steps_.pop_front();
    }
}

}  // namespace cadhost
