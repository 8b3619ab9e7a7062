// The profile-string functions on arbitrary file content. The input's first byte picks the
// call; the file content follows. Reading never fails; a value written reads back as set,
// the other sections keep their values, and deleting takes the key's first line away.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "base/CaseFold.h"
#include "settings/ProfileString.h"
#include "../tests/support/TempFolder.h"

namespace {

size_t countSections(const std::string& path, const std::string& name) {
    size_t n = 0;
    for (const auto& s : ardo::GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 1 << 24, path).names)
        if (ardo::equalsNoCase(s, name)) ++n;
    return n;
}

size_t countKeys(const std::string& section, const std::string& key, const std::string& path) {
    size_t n = 0;
    for (const auto& k : ardo::GetPrivateProfileStringW(section, std::nullopt, "", 1 << 24, path).names)
        if (ardo::equalsNoCase(k, key)) ++n;
    return n;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    using ardo::GetPrivateProfileStringW;
    using ardo::WritePrivateProfileStringW;
    static const ardo::test::TempFolder folder;
    static const std::string path = folder.file("fuzz.ini");
    if (size == 0) return 0;
    const unsigned pick = data[0];
    const std::string content(reinterpret_cast<const char*>(data + 1), size - 1);
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out << content;
    }
    const size_t buffer = 1 + pick % 64;

    // Every section and key the file shows can be read, within the buffer.
    auto sections = GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 4096, path);
    for (const auto& section : sections.names) {
        auto keys = GetPrivateProfileStringW(section, std::nullopt, "", 4096, path);
        for (const auto& key : keys.names) {
            auto value = GetPrivateProfileStringW(section, key, "", buffer, path);
            if (value.length >= buffer) std::abort();
        }
    }
    auto cut = GetPrivateProfileStringW(std::nullopt, std::nullopt, "", buffer, path);
    if (cut.length + 1 > buffer && !(buffer < 2 && cut.length == 0)) std::abort();

    const std::string section = sections.names.empty() ? "Neu" : sections.names[pick % sections.names.size()];
    if (section.find_first_of(std::string("\n\r\0]", 4)) != std::string::npos) return 0;
    const std::string other = "Andere Sektion";
    const std::string before = GetPrivateProfileStringW(other, "k", "-", 512, path).text;

    switch (pick % 4) {
        case 0: {  // deleting a key that is not there: the file stays byte-identical
            if (GetPrivateProfileStringW(section, "Fehlt", "-", 512, path).text != "-") return 0;
            const std::string old = ardo::test::readBytes(path);
            if (!WritePrivateProfileStringW(section, "Fehlt", std::nullopt, path)) std::abort();
            if (ardo::test::readBytes(path) != old) std::abort();
            break;
        }
        case 1: {  // set: reads back as set
            if (!WritePrivateProfileStringW(section, "Wert", "gesetzt", path)) std::abort();
            if (GetPrivateProfileStringW(section, "WERT", "", 512, path).text != "gesetzt") std::abort();
            break;
        }
        case 2: {  // delete a key: gone afterwards, unless the section held it twice
            // Reading and deleting both take a key's first line, so a second one remains.
            const size_t had = countKeys(section, "Wert", path);
            if (!WritePrivateProfileStringW(section, "Wert", std::nullopt, path)) std::abort();
            if (had <= 1 && GetPrivateProfileStringW(section, "Wert", "-", 512, path).text != "-") std::abort();
            if (had > 1 && countKeys(section, "Wert", path) != had - 1) std::abort();
            break;
        }
        default: {  // delete a section: one header of that name fewer
            const size_t had = countSections(path, section);
            if (!WritePrivateProfileStringW(section, std::nullopt, std::nullopt, path)) std::abort();
            if (had > 0 && countSections(path, section) != had - 1) std::abort();
            break;
        }
    }
    if (pick % 4 != 3 && GetPrivateProfileStringW(other, "k", "-", 512, path).text != before) std::abort();
    return 0;
}
