// Undo and redo at the level of the drawing's records: whatever changed the drawing (a
// command, LISP code, a module through the host boundary) is taken back the same way.
#include <unordered_set>
#include <utility>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

// What a touched record is to the drawing's listeners, before or after a step.
struct Drawing::Touched {
    enum class Kind { Other, Entity, Layer, Linetype } kind = Kind::Other;
    std::string name;
    Handle handle = 0;
    bool live = false;
};

void Drawing::recordChanges(bool on) {
    doc_.setRecording(on);
    stepStart_ = session();
}

DrawingChanges Drawing::takeChanges() {
    DrawingChanges changes;
    changes.edits = doc_.takeEdits();
    changes.before = std::exchange(stepStart_, session());
    changes.after = stepStart_;
    return changes;
}

DrawingSession Drawing::session() const { return {nextHandle_, handSeedChanged_, currentColorBeyondIndex_}; }

void Drawing::restoreSession(const DrawingSession& s) {
    nextHandle_ = s.nextHandle;
    handSeedChanged_ = s.handSeedChanged;
    currentColorBeyondIndex_ = s.currentColorBeyondIndex;
    stepStart_ = s;
}

void Drawing::undo(DrawingChanges& changes) { applyStep(changes, false); }
void Drawing::redo(DrawingChanges& changes) { applyStep(changes, true); }

void Drawing::applyStep(DrawingChanges& changes, bool forward) {
    std::vector<RecordId> records = changes.edits.records();
    std::unordered_set<RecordId> seen;
    std::erase_if(records, [&](RecordId id) { return !seen.insert(id).second; });
    const bool headerTouched = seen.count(header_) != 0;
    const auto headerBefore = headerTouched ? headerValues() : std::unordered_map<std::string, std::string>{};
    const auto before = touched(records);
    if (forward)
        doc_.reapply(changes.edits);
    else
        doc_.revert(changes.edits);
    reindex();
    restoreSession(forward ? changes.after : changes.before);
    announceSwitch(before, touched(records));
    if (headerTouched) {
        const auto headerAfter = headerValues();
        for (const auto& [name, value] : headerAfter) {
            const auto was = headerBefore.find(name);
            if (was == headerBefore.end() || was->second != value) {
                const std::string variable = name.substr(1);   // without the header's "$"
                announce([&](DrawingListener& l) { l.variableChanged(variable); });
            }
        }
    }
}

void Drawing::reindex() {
    const std::vector<DxfRepair> findings = std::move(findings_);
    headerIndex_.clear();
    tables_.clear();
    layerByName_.clear();
    decodedLayers_.clear();
    byHandle_.clear();
    entities_.clear();
    spaceEntities_.clear();
    entityByHandle_.clear();
    blocks_.clear();
    blockByName_.clear();
    objects_.clear();
    currentLayer_.reset();
    header_ = entitiesEnd_ = objectsEnd_ = tablesEnd_ = kNoRecord;
    index();
    findings_ = findings;
}

std::vector<Drawing::Touched> Drawing::touched(const std::vector<RecordId>& records) const {
    std::vector<Touched> out;
    out.reserve(records.size());
    for (RecordId id : records) {
        Touched t;
        t.live = !doc_.isErased(id);
        const auto tags = doc_.tags(id);
        const std::string_view type = tags[0].value;
        if (type == "LAYER" || type == "LTYPE") {
            t.kind = type == "LAYER" ? Touched::Kind::Layer : Touched::Kind::Linetype;
            t.name = text(tagValue(tags, 2).value_or(""));
        } else if (const auto h = tagValue(tags, 5)) {
            t.handle = toHandle(*h);
            const std::uint32_t* index = entityByHandle_.find(t.handle);
            if (index && entities_[*index].record == id) t.kind = Touched::Kind::Entity;
        }
        out.push_back(std::move(t));
    }
    return out;
}

std::unordered_map<std::string, std::string> Drawing::headerValues() const {
    std::unordered_map<std::string, std::string> out;
    for (const auto& [name, index] : headerIndex_) {
        std::string joined;
        for (const DxfTag& t : headerVar(name)->subspan(1)) {
            joined += std::to_string(t.code);
            joined += '\n';
            joined += t.value;
            joined += '\n';
        }
        out.emplace(name, std::move(joined));
    }
    return out;
}

void Drawing::announceSwitch(const std::vector<Touched>& before, const std::vector<Touched>& after) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Touched& was = before[i];
        const Touched& now = after[i];
        // An entity erased on one side was not in the index there; the other side names it.
        const Touched& which = now.kind != Touched::Kind::Other ? now : was;
        if (which.kind == Touched::Kind::Other || (!was.live && !now.live)) continue;
        const Change change = !was.live ? Change::Created : !now.live ? Change::Erased : Change::Modified;
        switch (which.kind) {
            case Touched::Kind::Entity:
                announce([&](DrawingListener& l) { l.entityChanged(change, which.handle); });
                break;
            case Touched::Kind::Layer:
                announce([&](DrawingListener& l) { l.layerChanged(change, which.name); });
                break;
            case Touched::Kind::Linetype:
                announce([&](DrawingListener& l) { l.linetypeChanged(change, which.name); });
                break;
            case Touched::Kind::Other:
                break;
        }
    }
}

}  // namespace cadhost
