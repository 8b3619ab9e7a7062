#pragma once
// Access to the registry: a textual key path with its root name, keys opened or created,
// typed values read and written, values and keys deleted, subkeys and values listed.
// Every call records its outcome (result code, value type and size) for the caller to
// ask afterwards; none shows a message. On Linux the registry is the user's
// RegistryFile; every change is saved at once.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "settings/registry/RegistryFile.h"
#include "settings/registry/RegistryTree.h"

namespace ardo {

// Access masks, as the registry numbers them.
inline constexpr std::uint32_t kKeyQueryValue = 0x0001;
inline constexpr std::uint32_t kKeySetValue = 0x0002;
inline constexpr std::uint32_t kKeyCreateSubKey = 0x0004;
inline constexpr std::uint32_t kKeyEnumerateSubKeys = 0x0008;
inline constexpr std::uint32_t kKeyRead = 0x20019;
inline constexpr std::uint32_t kKeyWrite = 0x20006;
inline constexpr std::uint32_t kKeyAllAccess = 0xF003F;

class CRegistry {
public:
    // The user's registry, or another file (the tests' own).
    CRegistry() : file_(&RegistryFile::user()) {}
    explicit CRegistry(RegistryFile& file) : file_(&file) {}
    ~CRegistry() { close(); }
    CRegistry(const CRegistry&) = delete;
    CRegistry& operator=(const CRegistry&) = delete;

    // False unless the text begins with "HKEY_". Otherwise the name before the first
    // backslash selects the root (an unknown name leaves `root` as it was) and the text
    // becomes what follows that backslash (empty without one).
    static bool parsePath(std::string& text, RegRoot& root);

    bool openForReading(RegRoot root, const std::string& subkey);
    bool openRelative(const std::string& subkey);
    bool open(RegRoot root, const std::string& subkey, std::uint32_t access);
    bool create(RegRoot root, const std::string& subkey);
    void close();

    bool valueExists(const std::string& name);
    bool setNumber(const std::string& name, std::uint32_t value);
    bool setText(const std::string& name, const std::string& text);
    bool setObject(const std::string& name, const std::vector<std::string>& texts);
    bool setObject(const std::string& name, const std::vector<std::uint32_t>& numbers);
    bool getNumber(const std::string& name, std::uint32_t& value);
    bool getText(const std::string& name, std::string& text);
    bool getObject(const std::string& name, std::vector<std::string>& texts);
    bool getObject(const std::string& name, std::vector<std::uint32_t>& numbers);
    bool deleteValue(const std::string& name);
    // A key with subkeys is not deleted (delete those first).
    bool deleteKey(const std::string& subkey);
    // Below the open key; names are appended to the list in their order.
    bool listSubkeys(const std::string& subkey, std::vector<std::string>& names);
    bool listValues(const std::string& subkey, std::vector<std::string>& names);

    std::uint32_t lastError() const { return lastError_; }
    std::uint32_t lastValueType() const { return lastType_; }
    std::uint32_t lastValueSize() const { return lastSize_; }
    bool isOpen() const { return key_.has_value(); }
    // The subkey given to open() with an access mask.
    const std::string& keyPath() const { return keyPath_; }
    // Why the registry file could not be read or written, for the user.
    const std::string& fileProblem() const { return file_->problem(); }

private:
    struct OpenKey {
        RegRoot root;
        std::vector<std::string> names;
        std::uint32_t access;
    };

    bool keyResult(std::uint32_t error);
    bool valueResult(std::uint32_t error, std::uint32_t type, size_t size);
    bool openKey(RegRoot root, std::vector<std::string> names, const std::string& subkey, std::uint32_t access,
                 bool createMissing);
    bool setValue(const std::string& name, std::uint32_t type, std::string data);
    bool getValue(const std::string& name, std::uint32_t type, std::string& data);
    bool listNames(const std::string& subkey, bool subkeys, std::vector<std::string>& names);

    RegistryFile* file_;
    std::uint32_t lastError_ = 0;
    std::uint32_t lastType_ = 0;
    std::uint32_t lastSize_ = 0;
    std::optional<OpenKey> key_;
    std::string keyPath_;
};

}  // namespace ardo
