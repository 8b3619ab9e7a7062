// The value line of the central layer control file: any text parses without fault, and a
// valid line written back parses to the same fields.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "layers/LayerValue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    ardo::LayerValue value;
    if (!ardo::parseLayerValue(text, value)) return 0;
    // Names with commas cannot survive the round trip; they split into more fields.
    if (value.name.find(',') != std::string::npos) return 0;
    const std::string line = ardo::formatLayerValue(value);
    ardo::LayerValue again;
    if (!ardo::parseLayerValue(line, again) || ardo::formatLayerValue(again) != line) std::abort();
    return 0;
}
