#pragma once
// The per-user file that holds this user's registry, in REGEDIT4 text. Every change is
// written at once and atomically (a killed write leaves the previous file), under a lock
// that keeps a second session from losing the change between its read and its write.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/FileLock.h"
#include "settings/registry/RegistryTree.h"

namespace ardo {

// Result codes of registry calls, as the registry numbers them.
inline constexpr std::uint32_t kRegOk = 0;
inline constexpr std::uint32_t kRegFileNotFound = 2;
inline constexpr std::uint32_t kRegAccessDenied = 5;
inline constexpr std::uint32_t kRegInvalidHandle = 6;
inline constexpr std::uint32_t kRegWriteFault = 29;
inline constexpr std::uint32_t kRegBadPathname = 161;
inline constexpr std::uint32_t kRegBadDatabase = 1009;
inline constexpr std::uint32_t kRegKeyDeleted = 1018;
inline constexpr std::uint32_t kRegInvalidDatatype = 1804;

class RegistryFile {
public:
    // XDG_CONFIG_HOME (else ~/.config), folder "ardo", file "registry.reg".
    static std::string userPath();
    // The file of the user the process runs for, following userPath() when it changes.
    static RegistryFile& user();

    explicit RegistryFile(std::string path) : path_(std::move(path)) {}
    const std::string& path() const { return path_; }

    // Calls `look` with the registry as the file holds it now; a file that cannot be read
    // gives kRegBadDatabase without calling it.
    std::uint32_t read(const std::function<std::uint32_t(const RegistryTree&)>& look);
    // Calls `change` on the current registry and writes the file when it returns kRegOk.
    // A damaged file is never overwritten: the user's values in it stay for repair.
    std::uint32_t write(const std::function<std::uint32_t(RegistryTree&)>& change);

    // Why the last read or write failed, for messages; empty after success.
    const std::string& problem() const { return problem_; }

private:
    bool refresh();

    std::string path_;
    RegistryTree tree_;
    std::optional<FileStamp> stamp_;
    bool loaded_ = false;
    std::string problem_;
};

}  // namespace ardo
