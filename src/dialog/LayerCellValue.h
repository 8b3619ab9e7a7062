#pragma once
// What a property cell of the layer list shows: the drawing half or the file half of the
// entry, chosen by the priority, its text, and whether the two halves disagree.
#include <string>

#include "boundary/HostColor.h"
#include "dialog/LayerColumns.h"
#include "layers/LayerEntry.h"
#include "layers/Lineweight.h"

namespace ardo {

enum class DataHalf { None, Drawing, File };

// Priority 1 shows the drawing half first, priority 2 the file half first; a half the
// entry does not have is never shown.
DataHalf shownHalf(const LayerEntry& entry, int priority);

// True only for an entry in both the drawing and the file whose halves differ in the
// column's property.
bool halvesDiffer(const LayerEntry& entry, LayerColumn column);

// The colour of one half as the host's colour.
HostColor halfColour(const LayerEntry& entry, DataHalf half);

// The text of a cell; key and name do not depend on the half. Empty when no half is shown.
std::string cellText(const LayerEntry& entry, LayerColumn column, DataHalf half,
                     const LineweightState& lineweights);

// The on/off, frozen, locked and frozen-in-new-viewports bits that the list shows.
constexpr std::uint32_t kShownStateBits = 1 | 2 | 4 | 16;

}  // namespace ardo
