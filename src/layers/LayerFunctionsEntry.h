#pragma once
// Entries of the central layer control file as the layer LISP functions see them: by key
// in its "[LAYER]" section, parsed into their fields.
#include <functional>
#include <string>

#include "layers/LayerValue.h"

namespace ardo {

// The parsed value of the key (compared without regard to case); null when no file is
// loaded, the key is missing, its value is empty or does not parse. Valid until the next
// lookup: the value is kept for the next call of the same key.
const LayerValue* layerEntryOfKey(const std::string& key);

// Visits the key lines of the "[LAYER]" section in file order with their parsed values,
// lines that do not parse skipped, until the visitor returns false.
void forEachLayerEntry(const std::function<bool(const std::string& key, const LayerValue&)>& visit);

// The name with an optional prefix and suffix: "ABC" + "WALL" + "NEU" gives
// "ABC_WALL_NEU"; a prefix that ends in "_" gets no second one.
std::string decoratedLayerName(const std::string& name, const std::string& prefix, const std::string& suffix);

}  // namespace ardo
