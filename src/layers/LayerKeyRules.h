#pragma once
// Which keys, layer names and object-type names are acceptable, and how an edited key or name
// is accepted for an entry. Keys and names are compared without regard to case.
#include <string>
#include <string_view>

#include "layers/CentralLayerFile.h"

namespace ardo {

// No character that separates or marks fields in the central layer control file.
bool isValidLayerKey(std::string_view text);
bool isValidLayerName(std::string_view text);
// Not empty, and nothing a file name may not hold.
bool isValidObjectTypeName(std::string_view text);

// Trims the text and checks it: missing, invalid character, used by another entry; each
// refusal is an error box. A text equal to the current key does nothing. Otherwise the user
// is asked whether to change it; true when the entry's key was changed.
bool acceptEditedKey(const CentralLayerFile& list, LayerEntry& entry, const std::string& text);
// The same for the layer name, with the name lookup for uniqueness.
bool acceptEditedName(const CentralLayerFile& list, LayerEntry& entry, const std::string& text);

// Checks the key and name of an entry made or changed in the properties dialog, both
// already trimmed: missing, invalid character, held by another entry than `self` (by an
// entry of the file: already used; by a layer only in the drawing: used elsewhere). Each
// refusal is an error box; true when both pass.
bool identificationAccepted(const CentralLayerFile& list, const std::string& key, const std::string& name,
                            const LayerEntry* self);

// A fresh key from the host's clock reading CDATE (YYYYMMDD.HHMMSSmmm).
std::string makeLayerKey(double cdate);

}  // namespace ardo
