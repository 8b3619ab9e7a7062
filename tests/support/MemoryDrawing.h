#pragma once
// A small drawing database held in memory, for layer-core tests until the CAD host's drawing
// database can stand in: a layer table in insertion order, linetypes, dictionaries and the
// plot style mode. A layer table that fails after a number of records can be set up.
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/HostDrawing.h"

namespace ardo::test {

class MemoryDrawing : public HostDrawing {
public:
    std::vector<LayerRecord> layers;
    std::set<std::string> linetypes{"CONTINUOUS", "BYLAYER", "BYBLOCK"};   // upper case
    bool namedPlotStyles = false;
    // When set, visiting the layer table fails with this status after that many records.
    int failAfterRecords = -1;
    DbStatus failStatus = DbStatus::InvalidOpenState;

    DbStatus forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const override;
    std::optional<LayerRecord> findLayer(const std::string& name) const override;
    DbStatus addLayer(const LayerRecord& record) override;
    DbStatus setLayerPlotStyleName(const std::string& layer, const std::string& plotStyle) override;

    bool hasLinetype(const std::string& name) const override;
    DbStatus loadLinetype(const std::string& name, const std::string& linFile) override;
    bool isContinuousLinetype(const std::string& name) const override;

    bool usesNamedPlotStyles() const override { return namedPlotStyles; }
    bool hasDictionary(const std::string& name) const override;
    DbStatus addDictionary(const std::string& name) override;
    DbStatus addPlaceHolder(const std::string& dictionary, const std::string& entry) override;
    bool hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const override;

private:
    LayerRecord* layer(const std::string& name);
    std::map<std::string, std::set<std::string>> dictionaries_;   // upper-case names
};

}  // namespace ardo::test
