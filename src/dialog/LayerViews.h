#pragma once
// The four views of the layer list, numbered as the settings store them, and which entries
// each view shows.
#include "layers/LayerEntry.h"

namespace ardo {

namespace layerview {
constexpr int kObjects = 1;      // keys of the current object
constexpr int kDrawing = 2;      // layers of the drawing
constexpr int kCentral = 3;      // entries of the central layer control file
constexpr int kObjectType = 4;   // keys named by the object-type layer file
}  // namespace layerview

// Deleted entries are in no view.
bool entryInView(const LayerEntry& entry, int view);

}  // namespace ardo
