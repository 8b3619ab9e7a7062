#pragma once
// The registry's keys and values in memory, and their REGEDIT4 text: the file a Windows
// registry editor imports, so settings kept here can move to a Windows installation.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"

namespace ardo {

// The predefined keys a path can start with, in the order of their names' table.
enum class RegRoot { ClassesRoot, CurrentUser, LocalMachine, Users, CurrentConfig };
inline constexpr int kRegRootCount = 5;
const char* regRootName(RegRoot root);

// Value types as the registry numbers them.
inline constexpr std::uint32_t kRegNone = 0;
inline constexpr std::uint32_t kRegSz = 1;
inline constexpr std::uint32_t kRegExpandSz = 2;
inline constexpr std::uint32_t kRegBinary = 3;
inline constexpr std::uint32_t kRegDword = 4;

// A value's data is kept as the registry keeps it: texts in UTF-16LE with their
// terminating zero, numbers as four little-endian bytes.
struct RegistryValue {
    std::string name;  // empty: the key's default value
    std::uint32_t type = kRegNone;
    std::string data;
};

struct RegistryKey {
    std::string name;
    std::vector<RegistryValue> values;
    std::vector<RegistryKey> subkeys;

    // Names compare without regard to case, as the registry's do.
    RegistryKey* subkey(std::string_view name);
    const RegistryKey* subkey(std::string_view name) const;
    RegistryValue* value(std::string_view name);
    const RegistryValue* value(std::string_view name) const;
    void setValue(RegistryValue v);
    bool removeValue(std::string_view name);
};

// A key path split into its names; none for a path with an empty name in it (a doubled or
// leading backslash). One trailing backslash is allowed.
bool splitKeyPath(std::string_view path, std::vector<std::string>& names);

class RegistryTree {
public:
    RegistryKey& root(RegRoot r) { return roots_[static_cast<int>(r)]; }
    const RegistryKey& root(RegRoot r) const { return roots_[static_cast<int>(r)]; }

    RegistryKey* find(RegRoot r, const std::vector<std::string>& names);
    const RegistryKey* find(RegRoot r, const std::vector<std::string>& names) const;
    // Creates the missing keys along the path, keeping the spelling of those that exist.
    RegistryKey& create(RegRoot r, const std::vector<std::string>& names);

    std::string toRegedit4() const;
    // The whole text or an error naming the line; "[-key]" and "name=-" lines delete.
    static Result<RegistryTree> fromRegedit4(std::string_view text);

private:
    RegistryKey roots_[kRegRootCount];
};

// Texts to and from the registry's UTF-16LE data, terminating zero included.
std::string textToRegData(std::string_view utf8);
std::string regDataToText(std::string_view data);

}  // namespace ardo
