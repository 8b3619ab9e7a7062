#include "dialog/LayerViews.h"

namespace ardo {

bool entryInView(const LayerEntry& entry, int view) {
    if (entry.isDeleted()) return false;
    switch (view) {
        case layerview::kObjects: return entry.has(entryflag::kCurrentObject);
        case layerview::kDrawing: return entry.has(entryflag::kInDrawing);
        case layerview::kCentral: return entry.has(entryflag::kFromFile);
        case layerview::kObjectType: return entry.has(entryflag::kInObjectFile);
        default: return false;
    }
}

}  // namespace ardo
