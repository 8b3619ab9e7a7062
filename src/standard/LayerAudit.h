#pragma once
// One drawing's layers held against the central layer control file: the named layers whose
// properties differ, the layers no key names, the keys without a layer, and what applying
// the standard changed.
#include <optional>
#include <string>
#include <vector>

#include "layers/CentralLayerFile.h"

namespace ardo {

// The properties the standard fixes, as they are named in reports.
enum class LayerProperty { Colour, Linetype, Lineweight, Plottable, PlotStyle };
const char* propertyName(LayerProperty property);
std::optional<LayerProperty> propertyOfName(const std::string& name);

// One property of one layer with the file's and the drawing's value as texts. Colours also
// carry their RGB ("#rrggbb", empty for by layer, by block and no colour) for swatches.
struct LayerDeviation {
    std::string key;
    std::string layer;
    LayerProperty property = LayerProperty::Colour;
    std::string fileValue;
    std::string drawingValue;
    std::string fileRgb;
    std::string drawingRgb;
    bool operator==(const LayerDeviation&) const = default;
};

// A drawing layer no key names, with the most similar key as a hint (both empty when none
// is similar enough).
struct UnnamedLayer {
    std::string layer;
    std::string hintKey;
    std::string hintName;
    bool operator==(const UnnamedLayer&) const = default;
};

struct MissingKey {
    std::string key;
    std::string layer;
    bool operator==(const MissingKey&) const = default;
};

// A change made (or, in a dry run, that would be made) to bring a layer in line. A change
// that failed carries the reason.
struct LayerChange {
    std::string layer;
    std::string what;        // a property name, or "merged into" / "renamed to"
    std::string from;
    std::string to;
    std::string failure;
    bool operator==(const LayerChange&) const = default;
};

struct DrawingAudit {
    std::vector<LayerDeviation> deviations;
    std::vector<UnnamedLayer> unnamed;
    std::vector<MissingKey> missing;
    std::vector<LayerChange> changes;

    // Deviations and unnamed layers break the standard; missing keys are information only.
    bool meetsStandard() const { return deviations.empty() && unnamed.empty(); }
    bool operator==(const DrawingAudit&) const = default;
};

// The layers the host makes itself, which no standard names: "0" and "Defpoints", and
// layers of external references ("xref|layer").
bool isHostOwnLayer(const std::string& name);

// Compares the halves of a list that was loaded and merged with the drawing's layers.
// `namedPlotStyles`: the drawing uses named plot styles, so plot styles are compared.
DrawingAudit auditLayers(const CentralLayerFile& merged, bool namedPlotStyles);

// The deviations of one entry that is in the file and in the drawing.
std::vector<LayerDeviation> entryDeviations(const LayerEntry& entry, bool namedPlotStyles);

}  // namespace ardo
