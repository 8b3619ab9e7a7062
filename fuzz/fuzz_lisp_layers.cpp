// LISP over the host's layer functions: any text evaluated at the prompt of a drawing with
// layers ends in a value or a LISP error, never a crash, and whatever it did to the layer
// table, the drawing is written as a file that reads back with the same layers.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/CaseFold.h"

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "cadhost/lisp/StackGuard.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Fuzzed code may write files with (open) or SAVEAS: keep them in a folder of their own.
    const auto dir = std::filesystem::temp_directory_path() / ("fuzz-lisp-" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    std::filesystem::current_path(dir);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    // A loop may run for ever at a real prompt too; loops are not what this target is about.
    const std::string folded = ardo::upperCase(text);
    if (folded.find("WHILE") != std::string::npos || folded.find("REPEAT") != std::string::npos) return 0;
    cadhost::ConsoleInterface ui([](std::string_view) {});
    cadhost::Application app(ui);
    app.addDocument(cadhost::Drawing(), false);
    app.lisp().evaluate("(command \"-LAYER\" \"N\" \"Wände,A-B,Plan#1\" \"\")");
    cadhost::lisp::StackScope scope;
    app.lisp().evaluate(text);
    std::size_t layers = 0;
    app.drawing().forEachLayer([&](const ardo::LayerRecord&) { return ++layers, true; });
    auto again = cadhost::Drawing::fromBytes(app.drawing().toDxf());
    if (!again) __builtin_trap();
    cadhost::Drawing* read = &*again;
    std::size_t readLayers = 0;
    read->forEachLayer([&](const ardo::LayerRecord&) { return ++readLayers, true; });
    if (readLayers != layers) __builtin_trap();
    return 0;
}
