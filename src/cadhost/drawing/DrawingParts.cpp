// What a window needs of entities beyond their own tags: the vertices and attributes after
// an entity, the contents of the blocks it inserts, and moving it to another layer.
#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagEdit.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

std::vector<std::vector<EntityTag>> Drawing::entityParts(Handle handle) const {
    std::vector<std::vector<EntityTag>> out;
    const Entity* e = findEntity(handle);
    if (!e || e->last == e->record) return out;
    for (RecordId r = doc_.next(e->record); r != kNoRecord; r = doc_.next(r)) {
        if (doc_.type(r) != "SEQEND" && !doc_.isErased(r)) {
            std::vector<EntityTag> tags;
            for (const DxfTag& t : doc_.tags(r)) tags.push_back({t.code, text(t.value)});
            out.push_back(std::move(tags));
        }
        if (r == e->last) break;
    }
    return out;
}

ardo::DbStatus Drawing::modifyEntityParts(Handle handle, const std::vector<std::vector<EntityTag>>& parts) {
    const Entity* e = findEntity(handle);
    if (!e) return ardo::DbStatus::KeyNotFound;
    std::vector<RecordId> records;
    for (RecordId r = doc_.next(e->record); e->last != e->record && r != kNoRecord; r = doc_.next(r)) {
        if (doc_.type(r) != "SEQEND" && !doc_.isErased(r)) records.push_back(r);
        if (r == e->last) break;
    }
    if (records.size() != parts.size()) return ardo::DbStatus::InvalidInput;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].empty() || parts[i].front().code != 0 || parts[i].front().value != doc_.type(records[i]))
            return ardo::DbStatus::InvalidInput;
        for (const EntityTag& t : parts[i])
            if (t.code == 8 && !findLayer(t.value)) return ardo::DbStatus::KeyNotFound;
    }
    for (std::size_t i = 0; i < parts.size(); ++i) doc_.replace(records[i], modifiedTags(records[i], parts[i]));
    announce([&](DrawingListener& l) { l.entityChanged(Change::Modified, handle); });
    return ardo::DbStatus::Ok;
}

std::optional<Drawing::BlockContents> Drawing::blockContents(std::string_view name) const {
    const auto it = blockByName_.find(foldName(name));
    if (it == blockByName_.end()) return std::nullopt;
    const Block& block = blocks_[it->second];
    BlockContents out;
    const auto head = doc_.tags(block.record);
    for (int axis = 0; axis < 3; ++axis)
        out.base[axis] = toDouble(tagValue(head, 10 + 10 * axis).value_or("0"));
    for (std::uint32_t index : block.entities)
        if (!doc_.isErased(entities_[index].record)) out.entities.push_back(entities_[index].handle);
    return out;
}

ardo::DbStatus Drawing::setEntityLayer(Handle handle, const std::string& layer) {
    const Entity* e = findEntity(handle);
    const auto record = findLayer(layer);
    if (!e || !record) return ardo::DbStatus::KeyNotFound;
    std::vector<OwnedTag> tags = doc_.copyTags(e->record);
    // The layer's own spelling, as the table holds it.
    setTag(tags, 8, fileText(record->name));
    doc_.replace(e->record, std::move(tags));
    announce([&](DrawingListener& l) { l.entityChanged(Change::Modified, handle); });
    return ardo::DbStatus::Ok;
}

std::vector<EntityTag> Drawing::tableRecordTags(std::string_view table, std::string_view name) const {
    std::vector<EntityTag> out;
    if (const auto record = findTableRecord(table, name))
        for (const DxfTag& t : doc_.tags(*record)) out.push_back({t.code, text(t.value)});
    return out;
}

std::vector<EntityTag> Drawing::recordTags(std::string_view handle) const {
    std::vector<EntityTag> out;
    if (const auto record = recordByHandle(handle))
        for (const DxfTag& t : doc_.tags(*record)) out.push_back({t.code, text(t.value)});
    return out;
}

}  // namespace cadhost
