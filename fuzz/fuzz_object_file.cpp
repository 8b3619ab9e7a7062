// The object-type layer file: any content reads, finds lines and writes without fault, and the
// written file reads back with the other objects' lines unchanged.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "base/CaseFold.h"
#include "layers/ObjectLayerFile.h"
#include "../tests/support/QuietHost.h"
#include "../tests/support/TempFolder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static ardo::test::QuietHost host;
    static const ardo::test::TempFolder folder;
    static const std::string in = folder.file("in.ini");
    static const std::string out = folder.file("out.ini");
    std::ofstream(in, std::ios::binary).write(reinterpret_cast<const char*>(data), std::streamsize(size));

    ardo::ObjectLayerFile object;
    if (!object.read(in)) std::abort();
    const std::string current = object.lines().empty() ? std::string("Obj") : object.lines().front().objectName;
    object.findLine(current);
    ardo::CentralLayerFile list;
    object.markReferences(list, current);
    if (!object.write(list, out, current, "")) std::abort();

    ardo::ObjectLayerFile again;
    if (!again.read(out)) std::abort();
    size_t others = 0;
    for (const auto& line : object.lines())
        if (!ardo::equalsNoCase(line.objectName, current)) ++others;
    // Lines with a key that trims to nothing or that holds a comma may read back differently,
    // but none is lost: every other object's line is written once.
    if (again.lines().size() != others) std::abort();
    return 0;
}
