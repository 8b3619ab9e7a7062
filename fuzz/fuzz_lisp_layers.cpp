// LISP over the host's layer functions: any text evaluated at the prompt of a drawing with
// layers ends in a value or a LISP error, never a crash, and whatever it did to the layer
// table, the drawing is written as a file that reads back with the same layers.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "cadhost/app/CadHost.h"
#include "cadhost/lisp/StackGuard.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Fuzzed code may write files with (open) or SAVEAS: keep them in a folder of their own.
    const auto dir = std::filesystem::temp_directory_path() / ("fuzz-lisp-" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    std::filesystem::current_path(dir);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    cadhost::CadHost host(cadhost::Drawing(), false, [](std::string_view) {});
    host.lisp().evaluate("(command \"-LAYER\" \"N\" \"Wände,A-B,Plan#1\" \"\")");
    cadhost::lisp::StackScope scope;
    host.lisp().evaluate(std::string_view(reinterpret_cast<const char*>(data), size));
    std::size_t layers = 0;
    host.drawing().forEachLayer([&](const ardo::LayerRecord&) { return ++layers, true; });
    auto again = cadhost::Drawing::fromBytes(host.drawing().toDxf());
    auto* read = std::get_if<cadhost::Drawing>(&again);
    if (!read) __builtin_trap();
    std::size_t readLayers = 0;
    read->forEachLayer([&](const ardo::LayerRecord&) { return ++readLayers, true; });
    if (readLayers != layers) __builtin_trap();
    return 0;
}
