#pragma once
// The entries the Layer menu proposes before the properties dialog opens, and which entry
// of the list takes an accepted new one.
#include <string>

#include "layers/CentralLayerFile.h"

namespace ardo {

// Modes of the properties dialog: its title, help topic and what OK does.
namespace propsmode {
constexpr int kNew = 1;            // a new entry
constexpr int kBased = 2;          // a new entry based on an existing layer
constexpr int kBasedObject = 3;    // a new object layer based on an entry
constexpr int kChange = 4;         // change an entry
constexpr int kShow = 5;           // show the properties of a drawing layer
}  // namespace propsmode

// "Layer%d" with the smallest number from 1 that no entry's name uses, any case.
std::string proposedLayerName(const CentralLayerFile& list);
// A new central-file entry: the proposed name, linetype Continuous, colour 7.
LayerEntry newEntryProposal(const CentralLayerFile& list);
// A new entry on the base's properties: a drawing layer lends its drawing half and, when
// the file does not hold it yet, its name as key and name; an entry of the file lends its
// file half, and key and name get the first free numbered suffix.
LayerEntry entryBasedOn(const CentralLayerFile& list, const LayerEntry& base);
// The properties a base lends: the drawing half of a drawing-only layer, else the file half.
LayerEntry propertiesOf(const LayerEntry& base);

// Key, name and the file half of the properties.
void copyIdentification(const LayerEntry& from, LayerEntry& to);
void copyFileProperties(const LayerEntry& from, LayerEntry& to);

// The entry that takes an accepted new entry: a layer of the same name that is only in the
// drawing gets the file half; none when the entry is new to the list.
LayerEntry* entryTakingNew(const CentralLayerFile& list, const std::string& name);

}  // namespace ardo
