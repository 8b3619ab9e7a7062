#include "standard/LayerAudit.h"

#include <array>

#include "base/CaseFold.h"
#include "standard/LayerValueText.h"
#include "standard/NearestKey.h"

namespace ardo {

namespace {

constexpr std::array<const char*, 5> kPropertyNames{"colour", "linetype", "lineweight", "plottable", "plot style"};

LayerDeviation deviation(const LayerEntry& e, LayerProperty property, std::string fileValue,
                         std::string drawingValue) {
    return {e.key, e.name, property, std::move(fileValue), std::move(drawingValue), {}, {}};
}

}  // namespace

const char* propertyName(LayerProperty property) { return kPropertyNames[static_cast<size_t>(property)]; }

std::optional<LayerProperty> propertyOfName(const std::string& name) {
    for (size_t i = 0; i < kPropertyNames.size(); ++i)
        if (name == kPropertyNames[i]) return static_cast<LayerProperty>(i);
    return std::nullopt;
}

bool isHostOwnLayer(const std::string& name) {
    return name == "0" || equalsNoCase(name, "Defpoints") || name.find('|') != std::string::npos;
}

std::vector<LayerDeviation> entryDeviations(const LayerEntry& e, bool namedPlotStyles) {
    std::vector<LayerDeviation> out;
    if (namesLayerColour(e.fileColor) && !sameColour(e.fileColor, e.fileColorBookName, e.fileColorName, e.dwgColor,
                                                e.dwgColorBookName, e.dwgColorName)) {
        LayerDeviation d = deviation(e, LayerProperty::Colour,
                                     colourText(e.fileColor, e.fileColorBookName, e.fileColorName),
                                     colourText(e.dwgColor, e.dwgColorBookName, e.dwgColorName));
        d.fileRgb = colourRgbText(e.fileColor);
        d.drawingRgb = colourRgbText(e.dwgColor);
        out.push_back(std::move(d));
    }
    if (!e.fileLinetype.empty() && !equalsNoCase(e.fileLinetype, e.dwgLinetype))
        out.push_back(deviation(e, LayerProperty::Linetype, e.fileLinetype, e.dwgLinetype));
    if (e.fileLineweight != e.dwgLineweight)
        out.push_back(deviation(e, LayerProperty::Lineweight, lineweightText(e.fileLineweight),
                                lineweightText(e.dwgLineweight)));
    if (e.filePlottable != e.dwgPlottable)
        out.push_back(deviation(e, LayerProperty::Plottable, plottableText(e.filePlottable),
                                plottableText(e.dwgPlottable)));
    // A drawing with colour-dependent plot styles has no plot style names to hold against the file.
    if (namedPlotStyles && !equalsNoCase(e.filePlotStyle, e.dwgPlotStyle))
        out.push_back(deviation(e, LayerProperty::PlotStyle, e.filePlotStyle, e.dwgPlotStyle));
    return out;
}

DrawingAudit auditLayers(const CentralLayerFile& merged, bool namedPlotStyles) {
    DrawingAudit audit;
    for (const auto& entry : merged.entries()) {
        const LayerEntry& e = *entry;
        const bool inFile = e.has(entryflag::kFromFile), inDrawing = e.has(entryflag::kInDrawing);
        if (inFile && inDrawing) {
            for (LayerDeviation& d : entryDeviations(e, namedPlotStyles)) audit.deviations.push_back(std::move(d));
        } else if (inFile) {
            audit.missing.push_back({e.key, e.name});
        } else if (inDrawing && !isHostOwnLayer(e.name)) {
            UnnamedLayer u{e.name, {}, {}};
            if (const LayerEntry* hint = nearestKeyEntry(merged, e.name)) {
                u.hintKey = hint->key;
                u.hintName = hint->name;
            }
            audit.unnamed.push_back(std::move(u));
        }
    }
    return audit;
}

}  // namespace ardo
