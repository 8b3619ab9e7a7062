#pragma once
// The library that reads compiled help files (chmlib), loaded on first use. Its file is
// looked up where Windows registers its help control: the in-process server of the help
// control's class in HKEY_CLASSES_ROOT (environment variables expanded), and by its usual
// name when nothing is registered. A failure is remembered, so it is not tried again.
#include <cstdint>
#include <string>

struct chmFile;
struct chmUnitInfo;

namespace ardo {

struct ChmLibrary {
    chmFile* (*open)(const char* path);
    void (*close)(chmFile* file);
    int (*resolveObject)(chmFile* file, const char* path, chmUnitInfo* info);
    long long (*retrieveObject)(chmFile* file, chmUnitInfo* info, unsigned char* buffer, unsigned long long address,
                                long long length);
    int (*enumerate)(chmFile* file, int what, int (*callback)(chmFile*, chmUnitInfo*, void*), void* context);
};

// The registry key whose default value names the library.
inline constexpr const char* kHelpControlServerKey =
    "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
// The name tried when the registry names none or names one that does not load.
inline constexpr const char* kHelpControlFallback = "libchm.so.1";

// The registered library file, environment variables expanded, at most 260 characters;
// empty when none is registered.
std::string registeredHelpLibrary();

// None when the library cannot be loaded.
const ChmLibrary* helpLibrary();

}  // namespace ardo
