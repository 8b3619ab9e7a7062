#pragma once
// The host's working database as the layer core sees it: layer and linetype tables,
// the named-object dictionary and the plot style mode.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "boundary/HostColor.h"

namespace ardo {

// Error statuses of database operations; the module prints them as numbers ("es %d").
enum class DbStatus : int {
    Ok = 0,
    InvalidInput = 3,
    OutOfMemory = 5,
    KeyNotFound = 6,
    DuplicateRecordName = 7,
    InvalidOpenState = 8,
    FileNotFound = 9,
    NotInDatabase = 10,
    WasErased = 11,
};

struct LayerRecord {
    std::string name;
    HostColor color;            // the layer's colour; "off" is kept apart in isOff
    bool isOff = false;
    bool isFrozen = false;
    bool isLocked = false;
    bool frozenInNewViewports = false;   // VPDFLT
    std::string linetype = "Continuous";
    int lineweight = -3;        // hundredths of a millimetre; -1 by layer, -2 by block, -3 default
    bool isPlottable = true;
    std::string plotStyleName = "Normal";
};

class HostDrawing {
public:
    virtual ~HostDrawing() = default;

    // Layer table, visited in table order; the visitor returns false to stop.
    virtual DbStatus forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const = 0;
    virtual std::optional<LayerRecord> findLayer(const std::string& name) const = 0;
    // Adds a new record; a name that exists is refused with DuplicateRecordName.
    virtual DbStatus addLayer(const LayerRecord& record) = 0;
    // Changes the existing layer record.name to the given properties; KeyNotFound when there
    // is no such layer or the drawing lacks the linetype.
    virtual DbStatus updateLayer(const LayerRecord& record) = 0;
    // Moves everything on layer `from` (entities in every space and block, viewport freezes,
    // the current layer) to the existing layer `into` and removes `from`. KeyNotFound when
    // either is missing, InvalidInput for layer "0" or a layer merged into itself.
    virtual DbStatus mergeLayer(const std::string& from, const std::string& into) = 0;
    virtual DbStatus setLayerPlotStyleName(const std::string& layer, const std::string& plotStyle) = 0;

    // Linetype table.
    virtual bool hasLinetype(const std::string& name) const = 0;
    // Loads one linetype by name from a ".lin" file into the drawing.
    virtual DbStatus loadLinetype(const std::string& name, const std::string& linFile) = 0;
    // True when the name is the drawing's Continuous linetype.
    virtual bool isContinuousLinetype(const std::string& name) const = 0;

    // Plot styles: named (true) or colour-dependent (false).
    virtual bool usesNamedPlotStyles() const = 0;
    // Named-object dictionary: sub-dictionaries and place-holder entries.
    virtual bool hasDictionary(const std::string& name) const = 0;
    virtual DbStatus addDictionary(const std::string& name) = 0;
    virtual DbStatus addPlaceHolder(const std::string& dictionary, const std::string& entry) = 0;
    virtual bool hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const = 0;

    // The layer of an entity (an RTENAME id, as entSel gives it); none when the drawing has
    // no such entity or the host cannot tell.
    virtual std::optional<std::string> layerOfEntity(std::int64_t /*entity*/) const { return std::nullopt; }
};

}  // namespace ardo
