// Changing an entity's data in place and bringing an erased entity back.
#include <algorithm>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagEdit.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

std::vector<OwnedTag> Drawing::modifiedTags(RecordId record, const std::vector<EntityTag>& given) const {
    const std::vector<OwnedTag> before = doc_.copyTags(record);
    std::vector<OwnedTag> tags{before.front()};
    // The handle and the owner are the drawing's, whatever the list says.
    for (const OwnedTag& t : before)
        if (t.code == 5 || t.code == 330) {
            tags.push_back(t);
            if (t.code == 330) break;
        }
    std::vector<std::string> applications;
    for (auto t = given.begin() + 1; t != given.end(); ++t) {
        if (t->code == 5 || t->code == 330 || t->code == -1) continue;
        if (t->code == 1001) applications.push_back(fileText(t->value));
        tags.push_back({t->code, fileText(t->value)});
    }
    // Extended data of the applications the list leaves out stays as it was.
    bool kept = false;
    for (auto t = before.begin() + static_cast<std::ptrdiff_t>(ownTagsEnd(before)); t != before.end(); ++t) {
        if (t->code == 1001) kept = std::find(applications.begin(), applications.end(), t->value) == applications.end();
        if (kept) tags.push_back(*t);
    }
    return tags;
}

ardo::DbStatus Drawing::modifyEntity(Handle handle, const std::vector<EntityTag>& given) {
    const Entity* e = findEntity(handle);
    if (!e) return ardo::DbStatus::KeyNotFound;
    if (given.empty() || given.front().code != 0 || given.front().value != doc_.type(e->record))
        return ardo::DbStatus::InvalidInput;
    for (const EntityTag& t : given)
        if (t.code == 8 && !findLayer(t.value)) return ardo::DbStatus::KeyNotFound;
    doc_.replace(e->record, modifiedTags(e->record, given));
    announce([&](DrawingListener& l) { l.entityChanged(Change::Modified, handle); });
    return ardo::DbStatus::Ok;
}

bool Drawing::isErasedEntity(Handle handle) const { return erasedEntities_.count(handle) != 0 && !findEntity(handle); }

ardo::DbStatus Drawing::restoreEntity(Handle handle) {
    const auto it = erasedEntities_.find(handle);
    if (it == erasedEntities_.end() || findEntity(handle)) return ardo::DbStatus::KeyNotFound;
    for (RecordId id = it->second.first;; id = doc_.next(id)) {
        doc_.restore(id);
        if (id == it->second.second) break;
    }
    erasedEntities_.erase(it);
    // Rare enough (entdel of an erased entity) to index afresh rather than splice.
    reindex();
    announce([&](DrawingListener& l) { l.entityChanged(Change::Created, handle); });
    return ardo::DbStatus::Ok;
}

}  // namespace cadhost
