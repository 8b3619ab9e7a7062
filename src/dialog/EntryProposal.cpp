#include "dialog/EntryProposal.h"

#include "layers/ColourCode.h"

namespace ardo {

namespace {

constexpr int kWhite = 7;

bool nameUsed(const CentralLayerFile& list, const std::string& name) {
    const FoundEntry found = list.findByName(name);
    return found && !found.entry->isDeleted();
}

bool keyUsed(const CentralLayerFile& list, const std::string& key) {
    const FoundEntry found = list.findByKey(key);
    return found && !found.entry->isDeleted();
}

// The text with the first number from `from` upward that the lookup finds unused.
template <typename Used>
std::string firstUnused(const std::string& stem, int from, Used used) {
    for (int n = from;; ++n) {
        std::string text = stem + std::to_string(n);
        if (!used(text)) return text;
    }
}

}  // namespace

std::string proposedLayerName(const CentralLayerFile& list) {
    return firstUnused("Layer", 1, [&](const std::string& t) { return nameUsed(list, t); });
}

LayerEntry newEntryProposal(const CentralLayerFile& list) {
    LayerEntry e;
    e.flags = entryflag::kFromFile;
    e.name = proposedLayerName(list);
    const ColourCode white = encodeColour(HostColor::fromIndex(kWhite));
    e.fileColor = white.code;
    e.fileLinetype = "Continuous";
    e.filePlotStyle = "Normal";
    return e;
}

void copyIdentification(const LayerEntry& from, LayerEntry& to) {
    to.key = from.key;
    to.name = from.name;
}

void copyFileProperties(const LayerEntry& from, LayerEntry& to) {
    to.fileColor = from.fileColor;
    to.fileColorBookName = from.fileColorBookName;
    to.fileColorName = from.fileColorName;
    to.fileLinetype = from.fileLinetype;
    to.fileLinetypeFile = from.fileLinetypeFile;
    to.fileStates = from.fileStates;
    to.fileLineweight = from.fileLineweight;
    to.filePlotStyle = from.filePlotStyle;
    to.filePlottable = from.filePlottable;
    to.fileTextField10 = from.fileTextField10;
}

LayerEntry propertiesOf(const LayerEntry& base) {
    LayerEntry e;
    copyIdentification(base, e);
    if (base.has(entryflag::kFromFile)) {
        copyFileProperties(base, e);
        return e;
    }
    e.fileColor = base.dwgColor;
    e.fileColorBookName = base.dwgColorBookName;
    e.fileColorName = base.dwgColorName;
    e.fileLinetype = base.dwgLinetype;
    e.fileStates = static_cast<std::int32_t>(base.dwgStates);
    e.fileLineweight = base.dwgLineweight;
    e.filePlotStyle = base.dwgPlotStyle;
    e.filePlottable = base.dwgPlottable;
    // The drawing layer's name is its key until the user gives one.
    e.key = base.name;
    return e;
}

LayerEntry entryBasedOn(const CentralLayerFile& list, const LayerEntry& base) {
    LayerEntry e = propertiesOf(base);
    e.flags = entryflag::kFromFile;
    if (base.has(entryflag::kFromFile)) {
        // A copy of a file entry needs a key and a name of its own.
        e.key = firstUnused(base.key + "_", 2, [&](const std::string& t) { return keyUsed(list, t); });
        e.name = firstUnused(base.name + "-", 2, [&](const std::string& t) { return nameUsed(list, t); });
    } else if (keyUsed(list, e.key)) {
        e.key = firstUnused(e.key + "_", 2, [&](const std::string& t) { return keyUsed(list, t); });
    }
    return e;
}

LayerEntry* entryTakingNew(const CentralLayerFile& list, const std::string& name) {
    const FoundEntry found = list.findByName(name);
    if (found && !found.entry->has(entryflag::kFromFile)) return found.entry;
    return nullptr;
}

}  // namespace ardo
