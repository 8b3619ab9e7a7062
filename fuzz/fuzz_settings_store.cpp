// The settings-file store on arbitrary file content: whatever loads must write back and
// load again to the same records.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "settings/SettingsStore.h"
#include "../tests/support/TempFolder.h"

namespace {

// A key that trims to nothing (" = x") is written as "=x", which the next load drops as a
// line that begins with an equals sign; every other record comes back as it was.
bool sameRecords(const ardo::SettingsStore& loaded, const ardo::SettingsStore& reloaded) {
    auto i = loaded.records().begin();
    auto j = reloaded.records().begin();
    for (; i != loaded.records().end(); ++i) {
        if (!i->isSection() && i->key.empty()) continue;
        if (j == reloaded.records().end()) return false;
        if (i->isSection() != j->isSection() || i->section != j->section || i->key != j->key || i->value != j->value)
            return false;
        ++j;
    }
    return j == reloaded.records().end();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static const ardo::test::TempFolder folder;
    static const std::string input = folder.file("input.ini");
    static const std::string output = folder.file("output.ini");
    {
        std::ofstream out(input, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), std::streamsize(size));
    }
    auto first = ardo::SettingsStore::load(input);
    if (!first) std::abort();
    if (!first->write(output)) std::abort();
    auto second = ardo::SettingsStore::load(output);
    if (!second || !sameRecords(*first, *second)) std::abort();
    // From then on the store's output is its fixed point.
    if (!second->write(input)) std::abort();
    auto third = ardo::SettingsStore::load(input);
    if (!third || !third->write(output) || ardo::test::readBytes(input) != ardo::test::readBytes(output)) std::abort();
    return 0;
}
