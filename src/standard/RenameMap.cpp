#include "standard/RenameMap.h"

#include "base/CaseFold.h"
#include "base/CodePage.h"
#include "base/TextFile.h"
#include "base/Utf8.h"
#include "layers/DrawingLayers.h"
#include "boundary/ResBuf.h"
#include "layers/LayerValue.h"

namespace ardo {

namespace {

// Mapping files come from spreadsheets and editors: UTF-8 when the bytes are, else the
// module files' code page.
std::string mapFileText(const std::string& bytes) {
    size_t pos = 0;
    while (pos < bytes.size()) {
        const size_t at = pos;
        decodeUtf8At(bytes, pos);
        if (pos - at == 1 && static_cast<unsigned char>(bytes[at]) >= 0x80)
            return decodeFileText(bytes);
    }
    return bytes.starts_with("\xEF\xBB\xBF") ? bytes.substr(3) : bytes;
}

bool matchFrom(const std::u32string& p, size_t pi, const std::u32string& n, size_t ni) {
    // One back-track point, the last "*": enough for "*" and "?" and no exponential cases.
    size_t starP = std::u32string::npos, starN = 0;
    while (ni < n.size()) {
        if (pi < p.size() && (p[pi] == U'?' || p[pi] == n[ni])) {
            ++pi, ++ni;
        } else if (pi < p.size() && p[pi] == U'*') {
            starP = pi++;
            starN = ni;
        } else if (starP != std::u32string::npos) {
            pi = starP + 1;
            ni = ++starN;
        } else {
            return false;
        }
    }
    while (pi < p.size() && p[pi] == U'*') ++pi;
    return pi == p.size();
}

std::u32string codePoints(const std::string& utf8) {
    std::u32string out;
    forEachCodePoint(upperCase(utf8), [&](char32_t c) { out += c; });
    return out;
}

}  // namespace

bool matchesLayerPattern(const std::string& pattern, const std::string& name) {
    return matchFrom(codePoints(pattern), 0, codePoints(name), 0);
}

std::variant<RenameMap, std::string> parseRenameMap(const std::string& text, const std::string& path) {
    RenameMap map;
    size_t lineNumber = 0, begin = 0;
    while (begin < text.size()) {
        size_t end = text.find('\n', begin);
        if (end == std::string::npos) end = text.size();
        const std::string_view line = trimWhite(std::string_view(text).substr(begin, end - begin));
        begin = end + 1;
        ++lineNumber;
        if (line.empty() || line.front() == '#') continue;
        size_t cut = line.find('\t');
        if (cut == std::string_view::npos) cut = line.find(';');
        if (cut == std::string_view::npos) cut = line.find(',');
        const std::string where = "\"" + path + "\" line " + std::to_string(lineNumber);
        if (cut == std::string_view::npos)
            return where + ": a rule is an old layer name pattern and a key, separated by a tab, \";\" or \",\"";
        RenameRule rule{std::string(trimWhite(line.substr(0, cut))), std::string(trimWhite(line.substr(cut + 1)))};
        if (rule.pattern.empty() || rule.key.empty())
            return where + ": the " + std::string(rule.pattern.empty() ? "old layer name pattern" : "key") + " is missing";
        map.push_back(std::move(rule));
    }
    return map;
}

std::variant<RenameMap, std::string> readRenameMap(const std::string& path) {
    const std::optional<std::string> bytes = readFileBytes(path);
    if (!bytes) return "cannot read the mapping file \"" + path + "\"; check the name and that it may be read";
    return parseRenameMap(mapFileText(*bytes), path);
}

int renameLayers(const RenameMap& map, const CentralLayerFile& merged, HostDrawing& drawing,
                 std::vector<LayerChange>& changes, bool dryRun) {
    int moved = 0;
    for (const auto& entry : merged.entries()) {
        const LayerEntry& layer = *entry;
        if (layer.has(entryflag::kFromFile) || !layer.has(entryflag::kInDrawing) || isHostOwnLayer(layer.name)) continue;
        const RenameRule* rule = nullptr;
        for (const RenameRule& r : map)
            if (matchesLayerPattern(r.pattern, layer.name)) {
                rule = &r;
                break;
            }
        if (!rule) continue;
        const FoundEntry target = merged.findByKey(rule->key);
        const bool exists = target && drawing.findLayer(target.entry->name).has_value();
        LayerChange change{layer.name, exists ? kMergedInto : kRenamedTo, {}, target ? target.entry->name : rule->key, {}};
        if (!target || !target.entry->has(entryflag::kFromFile)) {
            change.failure = "the central layer file has no key " + rule->key;
        } else if (!dryRun) {
            LayerValue fields;
            if (!exists && (!parseLayerValue(entryValueLine(*target.entry), fields) ||
                            createLayer(target.entry->name, fields) != RTNORM))
                change.failure = "the layer " + target.entry->name + " could not be made";
            else if (const DbStatus status = drawing.mergeLayer(layer.name, target.entry->name); status != DbStatus::Ok)
                change.failure = "the drawing refused the move (es " + std::to_string(static_cast<int>(status)) + ")";
        }
        if (change.failure.empty()) ++moved;
        changes.push_back(std::move(change));
    }
    return moved;
}

}  // namespace ardo
