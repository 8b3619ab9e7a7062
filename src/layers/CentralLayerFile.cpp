#include "layers/CentralLayerFile.h"

#include <algorithm>

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "base/Printf.h"
#include "layers/LayerValue.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

constexpr const char* kLayerSection = "LAYER";

void printBetweenLineFeeds(const std::string& message) { host().print(format("\n%s\n", message)); }

void reportFileNotFound(const std::string& path) {
    printBetweenLineFeeds(format("%s '%s' %s", catalogText(MsgKey::EtFileNotFound1), path,
                                 catalogText(MsgKey::EtFileNotFound2)));
}

void reportSectionNotFound(const std::string& path) {
    printBetweenLineFeeds(format("%s '%s' %s\n    '%s'\n%s", catalogText(MsgKey::EtSectionNotFound1),
                                 kLayerSection, catalogText(MsgKey::EtSectionNotFound2), path,
                                 catalogText(MsgKey::EtSectionNotFound3)));
}

void fillFileHalf(LayerEntry& e, LayerValue&& v) {
    e.name = std::move(v.name);
    e.fileColor = v.color;
    e.fileLinetype = std::move(v.linetype);
    e.fileLinetypeFile = std::move(v.linetypeFile);
    e.fileStates = v.states;
    e.fileColorBookName = std::move(v.colorBookName);
    e.fileColorName = std::move(v.colorName);
    e.fileLineweight = v.lineweight;
    e.filePlotStyle = std::move(v.plotStyle);
    e.fileTextField10 = std::move(v.textField10);
    e.filePlottable = v.plottable;
}

template <class Same>
FoundEntry findFirst(const CentralLayerFile::Entries& entries, const LayerEntry* skip, Same same) {
    for (size_t i = 0; i < entries.size(); ++i) {
        LayerEntry* e = entries[i].get();
        if (e != skip && same(*e)) return {e, static_cast<int>(i)};
    }
    return {};
}

}  // namespace

bool CentralLayerFile::loadFileImage(const std::string& path) {
    changed_ = false;
    image_ = SettingsStore::load(path);
    if (!image_) {
        reportFileNotFound(path);
        return false;
    }
    layerSection_ = image_->findSection(kLayerSection);
    if (layerSection_ == image_->end()) {
        reportSectionNotFound(path);
        return false;
    }
    return true;
}

void CentralLayerFile::releaseFileImage() {
    image_.reset();
    layerSection_ = {};
}

void CentralLayerFile::loadEntries() {
    clear();
    if (!hasLayerSection()) return;
    // Key lines of a later section are taken too: [LAYER] is meant to be the file's last.
    for (auto it = std::next(layerSection_); it != image_->end(); ++it) {
        if (it->key.empty()) continue;
        LayerValue value;
        if (!parseLayerValue(it->value, value)) continue;
        auto entry = std::make_unique<LayerEntry>();
        entry->flags = entryflag::kFromFile;
        entry->key = it->key;
        fillFileHalf(*entry, std::move(value));
        entries_.push_back(std::move(entry));
    }
}

void CentralLayerFile::sortByName() {
    for (auto& e : entries_) e->sortName = upperCase(e->name);
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const auto& a, const auto& b) { return a->sortName < b->sortName; });
}

FoundEntry CentralLayerFile::findByKey(const std::string& key, const LayerEntry* skip) const {
    return findFirst(entries_, skip, [&](const LayerEntry& e) { return equalsNoCase(e.key, key); });
}

FoundEntry CentralLayerFile::findByName(const std::string& name, const LayerEntry* skip) const {
    return findFirst(entries_, skip, [&](const LayerEntry& e) { return equalsNoCase(e.name, name); });
}

LayerEntry& CentralLayerFile::append(LayerEntry entry) {
    entries_.push_back(std::make_unique<LayerEntry>(std::move(entry)));
    return *entries_.back();
}

void CentralLayerFile::clear() {
    entries_.clear();
    changed_ = false;
}

std::string entryValueLine(const LayerEntry& e) {
    LayerValue v;
    v.name = e.name;
    v.color = e.fileColor;
    v.linetype = e.fileLinetype;
    v.linetypeFile = e.fileLinetypeFile;
    v.states = e.fileStates;
    v.colorBookName = e.fileColorBookName;
    v.colorName = e.fileColorName;
    v.lineweight = e.fileLineweight;
    v.plotStyle = e.filePlotStyle;
    v.textField10 = e.fileTextField10;
    v.plottable = e.filePlottable;
    return formatLayerValue(v);
}

}  // namespace ardo
