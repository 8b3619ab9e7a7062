// The central layer control file: any file content loads, merges, sorts and saves without
// fault, and what was saved loads again to the same entries.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "base/TextFile.h"
#include "layers/CentralLayerFile.h"
#include "../tests/support/QuietHost.h"
#include "../tests/support/TempFolder.h"

namespace {

std::string entriesText(const ardo::CentralLayerFile& file) {
    std::string out;
    for (const auto& e : file.entries())
        if (e->has(ardo::entryflag::kFromFile)) out += e->key + "=" + ardo::entryValueLine(*e) + "\n";
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static ardo::test::QuietHost host;
    static const ardo::test::TempFolder folder;
    static const std::string in = folder.file("in.ini");
    static const std::string out = folder.file("out.ini");
    std::ofstream(in, std::ios::binary).write(reinterpret_cast<const char*>(data), std::streamsize(size));

    ardo::CentralLayerFile file;
    const bool hasLayer = file.loadFileImage(in);
    file.loadEntries();
    file.sortByName();
    file.setChanged();
    if (!file.save(out)) std::abort();
    if (!hasLayer) return 0;
    // A line that grew past the reader's piece length by its defaults reads back as two pieces.
    const auto saved = ardo::readFileBytes(out);
    if (!saved) std::abort();
    for (size_t begin = 0, lf; begin < saved->size(); begin = lf + 1) {
        lf = saved->find('\n', begin);
        if (lf == std::string::npos) lf = saved->size();
        if (lf - begin + 1 > ardo::SettingsStore::kLinePiece) return 0;
    }

    ardo::CentralLayerFile again;
    if (!again.loadFileImage(out)) std::abort();
    again.loadEntries();
    if (entriesText(again) != entriesText(file)) std::abort();
    return 0;
}
