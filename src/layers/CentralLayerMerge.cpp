#include <unordered_map>

#include "base/CaseFold.h"
#include "layers/CentralLayerFile.h"
#include "layers/ColourCode.h"

namespace ardo {

namespace {

std::uint32_t stateBits(const LayerRecord& r) {
    return (r.isOff ? 1u : 0u) | (r.isFrozen ? 2u : 0u) | (r.isLocked ? 4u : 0u) |
           (r.frozenInNewViewports ? 16u : 0u);
}

void fillDrawingHalf(LayerEntry& e, const LayerRecord& r, const HostDrawing& drawing, bool namedPlotStyles) {
    ColourCode colour = encodeColour(r.color);
    e.dwgColor = colour.code;
    e.dwgColorBookName = std::move(colour.bookName);
    e.dwgColorName = std::move(colour.colourName);
    e.dwgStates = stateBits(r);
    e.dwgLineweight = r.lineweight;
    e.dwgPlottable = r.isPlottable;
    e.dwgPlotStyle = namedPlotStyles ? r.plotStyleName : std::string();
    e.dwgLinetype = drawing.isContinuousLinetype(r.linetype) ? std::string("CONTINUOUS") : r.linetype;
}

}  // namespace

bool CentralLayerFile::mergeDrawingLayers(const HostDrawing& drawing) {
    const bool namedPlotStyles = drawing.usesNamedPlotStyles();
    // One lookup per drawing layer: an index by upper-case name, the first entry of a name wins.
    std::unordered_map<std::string, LayerEntry*> byName;
    byName.reserve(entries_.size());
    for (const auto& e : entries_) byName.emplace(upperCase(e->name), e.get());

    const DbStatus status = drawing.forEachLayer([&](const LayerRecord& record) {
        auto [it, isNew] = byName.emplace(upperCase(record.name), nullptr);
        if (isNew) {
            LayerEntry entry;
            entry.name = record.name;
            it->second = &append(std::move(entry));
        }
        LayerEntry& e = *it->second;
        e.flags |= entryflag::kInDrawing;
        fillDrawingHalf(e, record, drawing, namedPlotStyles);
        return true;
    });
    return status == DbStatus::Ok;
}

}  // namespace ardo
