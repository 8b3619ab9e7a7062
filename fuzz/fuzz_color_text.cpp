// Any colour text gives a colour or a refusal, never a crash; a colour that was set gives
// its DXF group list, whose index colour is one a layer can have.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "layers/ColorText.h"
#include "support/ScriptedHost.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Colour names are looked up in the host's real colour services, as in ardo-cad.
    static ardo::test::ScriptedHost host;
    const std::string text(reinterpret_cast<const char*>(data), size);
    ardo::HostColor color;
    if (ardo::parseColorText(color, text) != 1) return 0;
    const ardo::ResBufChain list = ardo::colorDataList(color);
    if (list.empty()) std::abort();
    // Parsing is a function of the text: the same text gives the same colour again.
    ardo::HostColor again;
    if (ardo::parseColorText(again, text) != 1 || !(again == color)) std::abort();
    return 0;
}
