#include "layers/LayerFunctionsEntry.h"

#include <unordered_map>

#include "base/CaseFold.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

constexpr const char* kLayerSection = "LAYER";

// The key lines of the [LAYER] section by upper-cased key (the first line of a key wins),
// so that a call finds its key without walking a central file of many thousand keys. The
// index belongs to one store in one shape: it is made again when the store was replaced
// or gained records.
class LayerKeyIndex {
public:
    std::optional<SettingsStore::ConstPosition> find(const SettingsStore& file, const std::string& key) {
        if (file.serial() != serial_ || file.records().size() != recordCount_) rebuild(file);
        if (!hasSection_) return std::nullopt;
        // Programs ask for one key many times in a row: its place is kept until another is asked.
        if (!lastFound_ || key != lastKey_) {
            lastKey_ = key;
            lastFound_ = lines_.find(upperCase(key));
        }
        const auto it = *lastFound_;
        if (it == lines_.end()) return file.end();
        // A key changed in place since: the store's own search has the last word.
        if (!equalsNoCase(it->second->key, key)) return file.findKey(header_, key);
        return it->second;
    }

private:
    void rebuild(const SettingsStore& file) {
        serial_ = file.serial();
        recordCount_ = file.records().size();
        lastFound_.reset();
        lines_.clear();
        header_ = file.findSection(kLayerSection);
        hasSection_ = header_ != file.end();
        if (!hasSection_) return;
        const auto end = file.sectionEnd(header_);
        for (auto line = std::next(header_); line != end; ++line) lines_.try_emplace(upperCase(line->key), line);
    }

    std::uint64_t serial_ = 0;
    size_t recordCount_ = 0;
    bool hasSection_ = false;
    SettingsStore::ConstPosition header_{};
    std::unordered_map<std::string, SettingsStore::ConstPosition> lines_;
    std::string lastKey_;
    std::optional<std::unordered_map<std::string, SettingsStore::ConstPosition>::const_iterator> lastFound_;
};

}  // namespace

// The last value line parsed, kept with the text it was parsed from: programs ask for the
// same key many times in a row, and a line changed since is parsed again.
struct ParsedLine {
    std::string text;
    LayerValue value;
    bool valid = false;
};

const LayerValue* layerEntryOfKey(const std::string& key) {
    const SettingsStore* file = moduleFiles().centralLayerFile.get();
    if (!file) return nullptr;
    static LayerKeyIndex index;
    static ParsedLine last;
    const auto found = index.find(*file, key);
    if (!found) return nullptr;
    const auto line = *found;
    if (line == file->end() || line->value.empty()) return nullptr;
    if (line->value != last.text) {
        last.text = line->value;
        last.valid = parseLayerValue(line->value, last.value);
    }
    return last.valid ? &last.value : nullptr;
}

void forEachLayerEntry(const std::function<bool(const std::string& key, const LayerValue&)>& visit) {
    const SettingsStore* file = moduleFiles().centralLayerFile.get();
    if (!file) return;
    const auto header = file->findSection(kLayerSection);
    if (header == file->end()) return;
    const auto end = file->sectionEnd(header);
    for (auto line = std::next(header); line != end; ++line) {
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
