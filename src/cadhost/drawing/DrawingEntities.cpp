// Entity access by handle and in file order, entity lists and viewports.
#include <algorithm>
#include <unordered_set>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagEdit.h"
#include "cadhost/dxf/GroupCode.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

const Drawing::Entity* Drawing::findEntity(Handle handle) const {
    const std::uint32_t* index = entityByHandle_.find(handle);
    if (!index || doc_.isErased(entities_[*index].record)) return nullptr;
    return &entities_[*index];
}

bool Drawing::isNamedEntity(std::uint32_t index) const {
    // An entity whose name a real handle took already cannot be named and is left out.
    const Entity& e = entities_[index];
    if (doc_.isErased(e.record)) return false;
    const std::uint32_t* named = entityByHandle_.find(e.handle);
    return named && *named == index;
}

std::optional<Handle> Drawing::firstEntity() const {
    for (std::uint32_t i : spaceEntities_)
        if (isNamedEntity(i)) return entities_[i].handle;
    return std::nullopt;
}

std::optional<Handle> Drawing::nextEntity(Handle handle) const {
    const std::uint32_t* index = entityByHandle_.find(handle);
    if (!index || entities_[*index].block >= 0) return std::nullopt;
    // Entities of model and paper space were indexed in file order, so the position in
    // spaceEntities_ follows from the entity's index by binary search.
    auto pos = std::lower_bound(spaceEntities_.begin(), spaceEntities_.end(), *index);
    for (++pos; pos != spaceEntities_.end(); ++pos)
        if (isNamedEntity(*pos)) return entities_[*pos].handle;
    return std::nullopt;
}

std::size_t Drawing::entityCount() const { return spaceEntities_.size(); }

std::optional<EntityInfo> Drawing::entity(Handle handle) const {
    const Entity* e = findEntity(handle);
    if (!e) return std::nullopt;
    const auto tags = doc_.tags(e->record);
    EntityInfo info;
    info.handle = e->handle;
    info.type = std::string(tags[0].value);
    info.layer = text(tagValue(tags, 8).value_or("0"));
    if (e->block >= 0) {
        info.space = Space::Block;
        info.block = blocks_[e->block].name;
    } else {
        info.space = toInteger(tagValue(tags, 67).value_or("0")) == 1 ? Space::Paper : Space::Model;
    }
    return info;
}

std::string_view Drawing::entityType(Handle handle) const {
    const Entity* e = findEntity(handle);
    return e ? doc_.type(e->record) : std::string_view{};
}

std::optional<std::string> Drawing::layerOfEntity(std::int64_t id) const {
    if (id <= 0) return std::nullopt;
    const std::optional<EntityInfo> info = entity(static_cast<Handle>(id));
    if (!info) return std::nullopt;
    return info->layer;
}

void Drawing::forEachEntity(const std::function<bool(const EntityInfo&)>& visit) const {
    for (std::uint32_t i : spaceEntities_)
        if (isNamedEntity(i) && !visit(*entity(entities_[i].handle))) return;
}

std::vector<EntityTag> Drawing::entityTags(Handle handle) const {
    std::vector<EntityTag> out;
    if (const Entity* e = findEntity(handle))
        for (const DxfTag& t : doc_.tags(e->record)) out.push_back({t.code, text(t.value)});
    return out;
}

ardo::ResBufChain Drawing::entityList(Handle handle, bool withExtendedData) const {
    ardo::ResBufChain out;
    const Entity* e = findEntity(handle);
    if (!e) return out;
    ardo::ResBuf name = ardo::ResBuf::entityName(static_cast<std::int64_t>(handle));
    name.restype = -1;
    out.push_back(name);
    const auto tags = doc_.tags(e->record);
    for (std::size_t i = 0; i < tags.size() && (withExtendedData || tags[i].code != 1001); ++i) {
        ardo::ResBuf r;
        r.restype = static_cast<short>(tags[i].code);
        if (startsPoint(tags[i].code)) {
            std::size_t n = 0;
            for (; n < 3 && i + n < tags.size() && tags[i + n].code == tags[i].code + 10 * static_cast<int>(n); ++n)
                r.point[n] = toDouble(tags[i + n].value);
            i += n - 1;
        } else {
            switch (valueKind(tags[i].code)) {
                case ValueKind::Double: r.real = toDouble(tags[i].value); break;
                case ValueKind::Int16:
                case ValueKind::Int32:
                case ValueKind::Int64:
                case ValueKind::Bool: r.integer = toGroupInteger(tags[i].code, tags[i].value); break;
                case ValueKind::Handle: r.integer = static_cast<std::int64_t>(toHandle(tags[i].value)); break;
                default: r.text = text(tags[i].value); break;
            }
        }
        out.push_back(std::move(r));
    }
    return out;
}

std::vector<Handle> Drawing::viewports() const {
    std::vector<Handle> out;
    for (const Entity& e : entities_)
        if (!doc_.isErased(e.record) && e.handle && doc_.type(e.record) == "VIEWPORT") out.push_back(e.handle);
    return out;
}

std::vector<std::string> Drawing::viewportFrozenLayers(Handle viewport) const {
    std::vector<std::string> out;
    const Entity* e = findEntity(viewport);
    if (!e) return out;
    for (const DxfTag& t : doc_.tags(e->record)) {
        if (t.code == 1001) break;
        if (t.code != 341 && t.code != 331) continue;   // writers use either
        if (const auto layer = recordByHandle(t.value))
            out.push_back(text(tagValue(doc_.tags(*layer), 2).value_or("")));
    }
    return out;
}

ardo::DbStatus Drawing::setViewportFrozenLayers(Handle viewport, const std::vector<std::string>& layers) {
    const Entity* e = findEntity(viewport);
    if (!e || doc_.type(e->record) != "VIEWPORT") return ardo::DbStatus::KeyNotFound;
    std::vector<std::string> handles;
    for (const std::string& name : layers) {
        const auto layer = findTableRecord("LAYER", name);
        if (!layer) return ardo::DbStatus::KeyNotFound;
        handles.emplace_back(tagValue(doc_.tags(*layer), 5).value_or("0"));
    }
    std::vector<OwnedTag> tags = doc_.copyTags(e->record);
    const std::size_t own = ownTagsEnd(tags);
    const auto isList = [](const OwnedTag& t) { return t.code == 331 || t.code == 341; };
    const auto first = std::find_if(tags.begin(), tags.begin() + static_cast<std::ptrdiff_t>(own), isList);
    int code = 331;
    std::size_t at = own;
    if (first != tags.begin() + static_cast<std::ptrdiff_t>(own)) {
        code = first->code;
        at = static_cast<std::size_t>(first - tags.begin());
    } else {
        // The list sits before the status flags (90) in the files AutoCAD writes.
        const auto status = std::find_if(tags.begin(), tags.begin() + static_cast<std::ptrdiff_t>(own),
                                          [](const OwnedTag& t) { return t.code == 90; });
        at = static_cast<std::size_t>(status - tags.begin());
    }
    removeTags(tags, 331);
    removeTags(tags, 341);
    std::vector<OwnedTag> list;
    for (const std::string& h : handles) list.push_back({code, h});
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(std::min(at, ownTagsEnd(tags))), list.begin(), list.end());
    doc_.replace(e->record, std::move(tags));
    announce([&](DrawingListener& l) { l.entityChanged(Change::Modified, viewport); });
    return ardo::DbStatus::Ok;
}

std::optional<Handle> Drawing::makeEntity(const std::vector<EntityTag>& given) { return makeEntity(given, {}); }

std::optional<Handle> Drawing::makeEntity(const std::vector<EntityTag>& given, const EntityRecords& parts) {
    if (given.empty() || given.front().code != 0 || entitiesEnd_ == kNoRecord || !hasHandles()) return std::nullopt;
    const auto hasLayer = [&](const std::vector<EntityTag>& tags) {
        const auto layer = std::find_if(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 8; });
        // The record is enough; decoding the layer would cost more than the entity.
        return layer != tags.end() && findTableRecord("LAYER", layer->value);
    };
    if (!hasLayer(given)) return std::nullopt;
    for (const auto& part : parts)
        if (part.empty() || part.front().code != 0 || !hasLayer(part)) return std::nullopt;
    // Into the space shown: model space, or the current layout's paper space.
    // Tags that name the space (group 67) put it there, in the file's active paper space.
    const auto space = std::find_if(given.begin(), given.end(), [](const EntityTag& t) { return t.code == 67; });
    const bool spaceGiven = space != given.end();
    const bool paper = spaceGiven ? toInteger(space->value) == 1 : paperSpaceShown();
    const auto [block, before] = spaceGiven ? std::pair{std::int32_t{-1}, entitiesEnd_} : newEntityPlace();
    std::string owner;
    if (!isR12()) {
        const std::string ownerName = block >= 0 ? blocks_[static_cast<std::size_t>(block)].name
                                      : paper    ? "*Paper_Space"
                                                 : "*Model_Space";
        if (const auto record = findTableRecord("BLOCK_RECORD", ownerName))
            owner = std::string(tagValue(doc_.tags(*record), 5).value_or("0"));
    }
    EntityRecords records{given};
    if (paper && !spaceGiven) {
        // Group 67 belongs to the common entity groups: after their subclass marker when there is one.
        std::vector<EntityTag>& main = records.front();
        const auto common = std::find_if(main.begin(), main.end(),
                                         [](const EntityTag& t) { return t.code == 100 && t.value == "AcDbEntity"; });
        main.insert(common == main.end() ? main.begin() + 1 : common + 1, EntityTag{67, "1"});
    }
    records.insert(records.end(), parts.begin(), parts.end());
    const Handle handle = nextHandle_;
    const RecordId record = insertEntityRecords(before, records, owner);
    RecordId cursor = record;
    if (block >= 0) {
        Block& owner = blocks_[static_cast<std::size_t>(block)];
        owner.entities.push_back(addEntity(record, block, cursor));
        owner.extentState = Block::Extent::Unknown;
        owner.extents.reset();
    } else {
        // Appended last in the file and in the index, so the file order holds.
        spaceEntities_.push_back(addEntity(record, -1, cursor));
    }
    announce([&](DrawingListener& l) { l.entityChanged(Change::Created, handle); });
    return handle;
}

ardo::DbStatus Drawing::eraseEntity(Handle handle) {
    return eraseEntities({handle}) == 1 ? ardo::DbStatus::Ok : ardo::DbStatus::KeyNotFound;
}

std::size_t Drawing::eraseEntities(const std::vector<Handle>& handles) {
    std::unordered_set<std::uint32_t> gone;
    std::vector<Handle> erased;
    for (Handle handle : handles) {
        const Entity* e = findEntity(handle);
        if (!e) continue;
        erasedEntities_[handle] = {e->record, e->last};
        std::vector<RecordId> records{e->record};
        while (records.back() != e->last) records.push_back(doc_.next(records.back()));
        for (RecordId id : records) {
            if (const auto own = tagValue(doc_.tags(id), 5)) byHandle_.erase(toHandle(*own));
            doc_.erase(id);
        }
        const std::uint32_t index = *entityByHandle_.find(handle);
        if (e->block >= 0) {
            Block& block = blocks_[static_cast<std::size_t>(e->block)];
            std::erase(block.entities, index);
            block.extentState = Block::Extent::Unknown;   // worked out again when asked
            block.extents.reset();
        } else {
            gone.insert(index);
        }
        entityByHandle_.erase(handle);
        erased.push_back(handle);
    }
    // Out of the list that counts and walks entities in one pass; it stays sorted.
    if (!gone.empty()) std::erase_if(spaceEntities_, [&](std::uint32_t i) { return gone.count(i) != 0; });
    for (Handle handle : erased) announce([&](DrawingListener& l) { l.entityChanged(Change::Erased, handle); });
    return erased.size();
}

}  // namespace cadhost
