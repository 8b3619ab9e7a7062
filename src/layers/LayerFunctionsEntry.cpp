#include "layers/LayerFunctionsEntry.h"

#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

constexpr const char* kLayerSection = "LAYER";

}  // namespace

std::optional<LayerValue> layerEntryOfKey(const std::string& key) {
    const SettingsStore* file = moduleFiles().centralLayerFile.get();
    if (!file) return std::nullopt;
    const auto header = file->findSection(kLayerSection);
    if (header == file->end()) return std::nullopt;
    const auto line = file->findKey(header, key);
    if (line == file->end() || line->value.empty()) return std::nullopt;
    LayerValue value;
    if (!parseLayerValue(line->value, value)) return std::nullopt;
    return value;
}

void forEachLayerEntry(const std::function<bool(const std::string& key, const LayerValue&)>& visit) {
    const SettingsStore* file = moduleFiles().centralLayerFile.get();
    if (!file) return;
    const auto header = file->findSection(kLayerSection);
    if (header == file->end()) return;
    for (auto line = std::next(header); line != file->sectionEnd(header); ++line) {
        LayerValue value;
        if (line->isSection() || !parseLayerValue(line->value, value)) continue;
        if (!visit(line->key, value)) return;
    }
}

std::string decoratedLayerName(const std::string& name, const std::string& prefix, const std::string& suffix) {
    std::string result;
    if (!prefix.empty()) result = prefix.ends_with('_') ? prefix : prefix + "_";
    result += name;
    if (!suffix.empty()) {
        if (!result.empty()) result += '_';
        result += suffix;
    }
    return result;
}

}  // namespace ardo
