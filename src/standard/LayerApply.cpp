#include "standard/LayerApply.h"

#include <set>

#include "base/CaseFold.h"
#include "layers/ColourCode.h"
#include "layers/DrawingLayers.h"
#include "layers/PlotStyle.h"
#include "standard/LayerValueText.h"

namespace ardo {

namespace {

// Sets one property of the record from the entry's file half; the failure, or empty.
std::string takeFileValue(const LayerEntry& e, LayerProperty property, HostDrawing& drawing, LayerRecord& record,
                          bool dryRun) {
    switch (property) {
        case LayerProperty::Colour: {
            const auto colour = colorFromCode(e.fileColor, e.fileColorBookName, e.fileColorName);
            if (!colour) return "the file's colour code names no colour";
            record.color = *colour;
            return {};
        }
        case LayerProperty::Linetype:
            if (!dryRun) ensureLinetype(e.fileLinetype, e.fileLinetypeFile);
            if (!dryRun && !drawing.hasLinetype(e.fileLinetype))
                return "linetype " + e.fileLinetype + " could not be loaded from \"" + e.fileLinetypeFile + "\"";
            record.linetype = e.fileLinetype;
            return {};
        case LayerProperty::Lineweight: record.lineweight = e.fileLineweight; return {};
        case LayerProperty::Plottable: record.isPlottable = e.filePlottable; return {};
        case LayerProperty::PlotStyle:
            if (!dryRun) preparePlotStyle(e.filePlotStyle);
            record.plotStyleName = e.filePlotStyle;
            return {};
    }
    return {};
}

// Whether the layer as the drawing now has it holds the file's value: a drawing format may
// not keep every property (R12 has no lineweights, for one).
bool holdsFileValue(const LayerEntry& e, LayerProperty property, const LayerRecord& r) {
    switch (property) {
        case LayerProperty::Colour: {
            const ColourCode code = encodeColour(r.color);
            return sameColour(e.fileColor, e.fileColorBookName, e.fileColorName, code.code, code.bookName,
                              code.colourName);
        }
        case LayerProperty::Linetype: return equalsNoCase(r.linetype, e.fileLinetype);
        case LayerProperty::Lineweight: return r.lineweight == e.fileLineweight;
        case LayerProperty::Plottable: return r.isPlottable == e.filePlottable;
        case LayerProperty::PlotStyle: return equalsNoCase(r.plotStyleName, e.filePlotStyle);
    }
    return false;
}

constexpr const char* kNotKept = "the drawing did not keep the value; its DXF version may not hold it";

}  // namespace

int applyStandard(const CentralLayerFile& merged, HostDrawing& drawing, DrawingAudit& audit, bool dryRun) {
    std::set<std::string> changedLayers;
    size_t i = 0;
    while (i < audit.deviations.size()) {
        // The deviations of one layer stand together; the layer is updated once for all of them.
        const std::string layer = audit.deviations[i].layer;
        const FoundEntry found = merged.findByName(layer);
        std::optional<LayerRecord> record = drawing.findLayer(layer);
        std::vector<LayerChange> changes;
        for (; i < audit.deviations.size() && audit.deviations[i].layer == layer; ++i) {
            const LayerDeviation& d = audit.deviations[i];
            LayerChange change{layer, propertyName(d.property), d.drawingValue, d.fileValue, {}};
            if (!found || !record)
                change.failure = "the layer is no longer in the drawing";
            else
                change.failure = takeFileValue(*found.entry, d.property, drawing, *record, dryRun);
            changes.push_back(std::move(change));
        }
        if (record && !dryRun) {
            const DbStatus status = drawing.updateLayer(*record);
            const std::optional<LayerRecord> now = drawing.findLayer(layer);
            for (size_t k = 0; k < changes.size(); ++k) {
                LayerChange& c = changes[k];
                if (!c.failure.empty()) continue;
                if (status != DbStatus::Ok)
                    c.failure = "the drawing refused the change (es " + std::to_string(static_cast<int>(status)) + ")";
                else if (!now || !holdsFileValue(*found.entry, *propertyOfName(c.what), *now))
                    c.failure = kNotKept;
            }
        }
        for (LayerChange& c : changes) {
            if (c.failure.empty()) changedLayers.insert(upperCase(c.layer));
            audit.changes.push_back(std::move(c));
        }
    }
    return static_cast<int>(changedLayers.size());
}

}  // namespace ardo
