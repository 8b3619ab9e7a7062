#include "support/MemoryDrawing.h"

#include "host/CaseFold.h"

namespace ardo::test {

DbStatus MemoryDrawing::forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const {
    for (size_t i = 0; i < layers.size(); ++i) {
        if (failAfterRecords >= 0 && static_cast<int>(i) >= failAfterRecords) return failStatus;
        if (!visit(layers[i])) break;
    }
    return DbStatus::Ok;
}

LayerRecord* MemoryDrawing::layer(const std::string& name) {
    for (auto& l : layers)
        if (equalsNoCase(l.name, name)) return &l;
    return nullptr;
}

std::optional<LayerRecord> MemoryDrawing::findLayer(const std::string& name) const {
    for (const auto& l : layers)
        if (equalsNoCase(l.name, name)) return l;
    return std::nullopt;
}

DbStatus MemoryDrawing::addLayer(const LayerRecord& record) {
    if (record.name.empty()) return DbStatus::InvalidInput;
    if (findLayer(record.name)) return DbStatus::DuplicateRecordName;
    layers.push_back(record);
    return DbStatus::Ok;
}

DbStatus MemoryDrawing::setLayerPlotStyleName(const std::string& name, const std::string& plotStyle) {
    LayerRecord* l = layer(name);
    if (!l) return DbStatus::KeyNotFound;
    l->plotStyleName = plotStyle;
    return DbStatus::Ok;
}

bool MemoryDrawing::hasLinetype(const std::string& name) const { return linetypes.count(upperCase(name)) != 0; }

DbStatus MemoryDrawing::loadLinetype(const std::string& name, const std::string& linFile) {
    if (linFile.empty()) return DbStatus::FileNotFound;
    linetypes.insert(upperCase(name));
    return DbStatus::Ok;
}

bool MemoryDrawing::isContinuousLinetype(const std::string& name) const { return equalsNoCase(name, "Continuous"); }

bool MemoryDrawing::hasDictionary(const std::string& name) const { return dictionaries_.count(upperCase(name)) != 0; }

DbStatus MemoryDrawing::addDictionary(const std::string& name) {
    dictionaries_[upperCase(name)];
    return DbStatus::Ok;
}

DbStatus MemoryDrawing::addPlaceHolder(const std::string& dictionary, const std::string& entry) {
    auto it = dictionaries_.find(upperCase(dictionary));
    if (it == dictionaries_.end()) return DbStatus::KeyNotFound;
    it->second.insert(upperCase(entry));
    return DbStatus::Ok;
}

bool MemoryDrawing::hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const {
    auto it = dictionaries_.find(upperCase(dictionary));
    return it != dictionaries_.end() && it->second.count(upperCase(entry)) != 0;
}

}  // namespace ardo::test
