// Block definitions made or replaced by the host's commands, entities with their attributes
// or vertices, and table records taken over from another drawing.
#include <algorithm>
#include <cctype>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagEdit.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

namespace {

bool isPart(std::string_view type) { return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND"; }

std::string_view givenType(const std::vector<EntityTag>& record) {
    return record.empty() ? std::string_view() : std::string_view(record.front().value);
}

// Vertices and attributes end with a SEQEND. A POLYLINE made alone (entmake) waits for
// the vertices that LISP code makes after it, and its SEQEND.
bool needsSeqend(std::string_view type, std::size_t parts) {
    return parts > 0 && (type == "POLYLINE" || type == "INSERT");
}

std::string layerOf(const std::vector<EntityTag>& record) {
    for (const EntityTag& t : record)
        if (t.code == 8) return t.value;
    return "0";
}

}  // namespace

std::vector<OwnedTag> Drawing::entityRecord(const std::vector<EntityTag>& given, Handle handle,
                                            std::string_view owner) const {
    std::vector<OwnedTag> tags{{0, fileText(given.front().value)}};
    if (handle) tags.push_back({5, handleText(handle)});
    if (!isR12() && !owner.empty()) tags.push_back({330, std::string(owner)});
    // Before the first subclass marker stand the references to other objects, which are
    // the drawing's own business; later 330 groups (a hatch's boundary objects) are data.
    bool head = true;
    int group = 0;   // depth inside a 102 "{..." group
    for (auto t = given.begin() + 1; t != given.end(); ++t) {
        if (t->code == 100) head = false;
        if (head && t->code == 102) {
            group += t->value.starts_with("{") ? 1 : -1;
            continue;
        }
        if (head && (group > 0 || t->code == 5 || t->code == 330 || t->code == 360)) continue;
        if (t->code == 1001) head = false;
        tags.push_back({t->code, fileText(t->value)});
    }
    return tags;
}

RecordId Drawing::insertEntityRecords(RecordId before, const EntityRecords& records, std::string_view owner) {
    RecordId first = kNoRecord;
    for (std::size_t i = 0; i < records.size();) {
        const std::vector<EntityTag>& main = records[i];
        const Handle handle = takeHandle();
        const RecordId id = doc_.insertBefore(before, entityRecord(main, handle, owner));
        if (first == kNoRecord) first = id;
        const std::string own = handle ? handleText(handle) : std::string();
        std::size_t parts = 0;
        for (++i; i < records.size() && isPart(givenType(records[i])); ++i) {
            if (givenType(records[i]) == "SEQEND") continue;   // one is added below
            doc_.insertBefore(before, entityRecord(records[i], takeHandle(), own));
            ++parts;
        }
        if (needsSeqend(givenType(main), parts)) {
            std::vector<EntityTag> seqend{{0, "SEQEND"}};
            if (!isR12()) seqend.push_back({100, "AcDbEntity"});
            seqend.push_back({8, layerOf(main)});
            doc_.insertBefore(before, entityRecord(seqend, takeHandle(), own));
        }
    }
    return first;
}

bool isAnonymousBlockName(std::string_view name) {
    return name.size() > 2 && name[0] == '*' && std::isalpha(static_cast<unsigned char>(name[1])) &&
           std::all_of(name.begin() + 2, name.end(), [](char c) { return std::isdigit(static_cast<unsigned char>(c)); });
}

bool Drawing::hasBlock(std::string_view name) const { return blockByName_.count(foldName(name)) != 0; }

RecordId Drawing::blocksSectionEnd() {
    RecordId entities = kNoRecord;
    for (RecordId id = doc_.first(); id != kNoRecord; id = doc_.next(id)) {
        if (doc_.isErased(id) || doc_.type(id) != "SECTION") continue;
        const auto name = tagValue(doc_.tags(id), 2).value_or("");
        if (name == "BLOCKS") {
            for (RecordId end = doc_.next(id); end != kNoRecord; end = doc_.next(end))
                if (!doc_.isErased(end) && doc_.type(end) == "ENDSEC") return end;
        }
        if (name == "ENTITIES") {
            entities = id;
            break;
        }
    }
    // Blocks come before the entities.
    doc_.insertBefore(entities, {{0, "SECTION"}, {2, "BLOCKS"}});
    return doc_.insertBefore(entities, {{0, "ENDSEC"}});
}

ardo::DbStatus Drawing::defineBlock(const std::string& name, const ardo::Point3& base, const EntityRecords& entities) {
    const bool anonymous = isAnonymousBlockName(name);
    if (name.empty() || (name.front() == '*' && !anonymous) || entitiesEnd_ == kNoRecord) return ardo::DbStatus::InvalidInput;
    for (const auto& record : entities) {
        if (record.empty() || record.front().code != 0) return ardo::DbStatus::InvalidInput;
        if (!findLayer(layerOf(record))) return ardo::DbStatus::KeyNotFound;
    }
    const bool attributes = std::any_of(entities.begin(), entities.end(), [](const auto& r) {
        if (givenType(r) != "ATTDEF") return false;
        for (const EntityTag& t : r)
            if (t.code == 70) return (toInteger(t.value) & 2) == 0;   // constant ones are no attributes
        return true;
    });
    const std::string flags = std::to_string((anonymous ? 1 : 0) | (attributes ? 2 : 0));
    std::string owner;
    RecordId endblk = kNoRecord;
    if (const auto it = blockByName_.find(foldName(name)); it != blockByName_.end()) {
        const Block& block = blocks_[it->second];
        std::vector<Handle> old;
        for (std::uint32_t index : block.entities) old.push_back(entities_[index].handle);
        const RecordId head = block.record;
        eraseEntities(old);
        std::vector<OwnedTag> tags = doc_.copyTags(head);
        for (int axis = 0; axis < 3; ++axis) setTag(tags, 10 + 10 * axis, doubleToText(base[static_cast<std::size_t>(axis)]));
        setTag(tags, 70, flags);
        owner = std::string(tagValue(doc_.tags(head), 330).value_or(""));
        doc_.replace(head, std::move(tags));
        for (endblk = doc_.next(head); endblk != kNoRecord; endblk = doc_.next(endblk))
            if (!doc_.isErased(endblk) && doc_.type(endblk) == "ENDBLK") break;
    } else {
        const std::string encoded = fileText(name);
        if (!isR12()) {
            const Handle own = takeHandle();
            owner = handleText(own);
            addTableRecord("BLOCK_RECORD", {{0, "BLOCK_RECORD"}, {5, owner}, {330, tableHandle("BLOCK_RECORD")},
                                            {100, "AcDbSymbolTableRecord"}, {100, "AcDbBlockTableRecord"},
                                            {2, encoded}, {340, "0"}, {70, "0"}, {280, "1"}, {281, "0"}});
        }
        const RecordId before = blocksSectionEnd();
        std::vector<EntityTag> begin{{0, "BLOCK"}};
        if (!isR12()) begin.insert(begin.end(), {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockBegin"}});
        else begin.push_back({8, "0"});
        begin.insert(begin.end(), {{2, name}, {70, flags}, {10, doubleToText(base[0])}, {20, doubleToText(base[1])},
                                   {30, doubleToText(base[2])}, {3, name}});
        if (!isR12()) begin.push_back({1, ""});
        doc_.insertBefore(before, entityRecord(begin, takeHandle(), owner));
        std::vector<EntityTag> end{{0, "ENDBLK"}};
        if (!isR12()) end.insert(end.end(), {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockEnd"}});
        else end.push_back({8, "0"});
        endblk = doc_.insertBefore(before, entityRecord(end, takeHandle(), owner));
    }
    insertEntityRecords(endblk, entities, owner);
    reindex();
    announceInserts(name);
    return ardo::DbStatus::Ok;
}

void Drawing::announceInserts(std::string_view block) {
    const std::string key = foldName(block);
    std::vector<Handle> inserts;
    for (std::uint32_t i : spaceEntities_) {
        const Entity& e = entities_[i];
        if (!isNamedEntity(i) || doc_.type(e.record) != "INSERT") continue;
        if (foldName(text(tagValue(doc_.tags(e.record), 2).value_or(""))) == key) inserts.push_back(e.handle);
    }
    for (Handle h : inserts) announce([&](DrawingListener& l) { l.entityChanged(Change::Modified, h); });
}

bool Drawing::copyTableRecord(const Drawing& from, std::string_view tableName, const std::string& name) {
    const auto source = from.findTableRecord(tableName, name);
    if (!source) return false;
    if (findTableRecord(tableName, name)) return true;
    std::vector<EntityTag> given;
    for (const DxfTag& t : from.doc_.tags(*source))
        // A complex linetype's shapes refer to a text style by handle, which means nothing
        // in this drawing; the dashes stay.
        if (t.code != 340) given.push_back({t.code, from.text(t.value)});
    addTableRecord(tableName, entityRecord(given, takeHandle(), isR12() ? "" : tableHandle(tableName)));
    if (tableName == "LTYPE") announce([&](DrawingListener& l) { l.linetypeChanged(Change::Created, name); });
    return true;
}

}  // namespace cadhost
