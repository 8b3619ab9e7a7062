// Any bytes given to the DXF reader give a drawing or a message, never a crash; a drawing
// that loads is written out and read again, and every entity is asked for its data.
#include <cstddef>
#include <cstdint>
#include <string>

#include "cadhost/drawing/Drawing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto result = cadhost::Drawing::fromBytes(std::string(reinterpret_cast<const char*>(data), size));
    if (!result) return 0;
    cadhost::Drawing* drawing = &*result;
    drawing->forEachLayer([](const ardo::LayerRecord&) { return true; });
    for (auto h = drawing->firstEntity(); h; h = drawing->nextEntity(*h)) {
        drawing->extents(*h);
        drawing->entityList(*h);
    }
    ardo::LayerRecord layer;
    layer.name = "FUZZ";
    drawing->addLayer(layer);
    drawing->addPlaceHolder("ACAD_PLOTSTYLENAME", "Fuzz");
    auto again = cadhost::Drawing::fromBytes(drawing->toDxf());
    if (!again) __builtin_trap();   // what we write must read back
    return 0;
}
