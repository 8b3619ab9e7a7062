// Any text given to the ".lin" reader gives a definition or nothing, never a crash; the
// first name the file defines is found again, and its pattern has a finite length.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cadhost/drawing/LinetypeFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    // The name on the first "*NAME," line, as a user would ask for it.
    const auto star = text.find('*');
    const auto comma = star == std::string::npos ? std::string::npos : text.find_first_of(",\r\n", star);
    const std::string name = comma == std::string::npos ? std::string("DASHED") : text.substr(star + 1, comma - star - 1);
    for (const std::string& wanted : {name, std::string("DASHED"), std::string()}) {
        const auto def = cadhost::findLinetype(text, wanted);
        if (!def) continue;
        const double length = def->patternLength();
        if (std::isnan(length) && def->elements.empty()) std::abort();   // no elements, no length
    }
    return 0;
}
