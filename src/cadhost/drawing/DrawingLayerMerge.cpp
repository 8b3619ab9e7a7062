// Merging one layer into another, as layer translators do: every reference to the old
// layer moves to the new one, then the old record goes.
#include <algorithm>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagEdit.h"

namespace cadhost {

using ardo::DbStatus;

DbStatus Drawing::mergeLayer(const std::string& from, const std::string& into) {
    const auto fromId = findTableRecord("LAYER", from);
    const auto intoId = findTableRecord("LAYER", into);
    if (!fromId || !intoId) return DbStatus::KeyNotFound;
    if (*fromId == *intoId || from == "0") return DbStatus::InvalidInput;
    const std::string oldKey = foldName(from);
    // References take the record's own spelling, not the caller's.
    const std::string intoName = text(tagValue(doc_.tags(*intoId), 2).value_or(""));
    const std::string newName = fileText(intoName);

    // Entities of every space and block with the records that belong to them (vertices,
    // attributes, sequence ends), and the block headers.
    const auto relayer = [&](RecordId id) {
        const auto own = doc_.tags(id);
        const auto layer = std::find_if(own.begin(), own.end(), [](const DxfTag& t) { return t.code == 8 || t.code == 1001; });
        if (layer == own.end() || layer->code != 8 || foldName(text(layer->value)) != oldKey) return;
        std::vector<OwnedTag> tags = doc_.copyTags(id);
        setTag(tags, 8, newName);
        doc_.replace(id, std::move(tags));
    };
    for (const Entity& e : entities_)
        for (RecordId id = e.record; id != kNoRecord; id = doc_.next(id)) {
            if (!doc_.isErased(id)) relayer(id);
            if (id == e.last) break;
        }
    for (const Block& b : blocks_)
        if (b.record != kNoRecord) relayer(b.record);

    replaceFrozenLayer(from, intoName);
    if (const auto current = getVar("CLAYER"); current && foldName(current->text) == oldKey)
        setVar("CLAYER", ardo::ResBuf::str(intoName));

    doc_.erase(*fromId);
    layerByName_.erase(oldKey);
    Table& layers = tables_.at("LAYER");
    layers.records.erase(std::remove(layers.records.begin(), layers.records.end(), *fromId), layers.records.end());
    return DbStatus::Ok;
}

void Drawing::replaceFrozenLayer(const std::string& layer, const std::optional<std::string>& into) {
    const auto isNamed = [](const std::string& name) {
        return [key = foldName(name)](const std::string& n) { return foldName(n) == key; };
    };
    for (const Handle viewport : viewports()) {
        std::vector<std::string> frozen = viewportFrozenLayers(viewport);
        if (std::erase_if(frozen, isNamed(layer)) == 0) continue;
        if (into && std::none_of(frozen.begin(), frozen.end(), isNamed(*into))) frozen.push_back(*into);
        setViewportFrozenLayers(viewport, frozen);
    }
}

}  // namespace cadhost
