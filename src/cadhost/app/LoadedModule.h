#pragma once
// One module loaded into the host: an ObjectARX-style shared library opened with dlopen
// (RTLD_NOW | RTLD_LOCAL) and its entry point acrxEntryPoint. Closing it unloads the code.
#include <memory>
#include <string>

#include "base/Result.h"
#include "cadhost/app/AppMessages.h"

namespace cadhost {

class LoadedModule {
public:
    // Fails with a message for the user when the file cannot be loaded or has no entry point.
    static ardo::Result<std::unique_ptr<LoadedModule>> open(const std::string& path);
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    const std::string& path() const { return path_; }
    // The file name, as (arx) lists the application.
    const std::string& appName() const { return appName_; }
    int send(AppMsg message, void* appId) const { return entry_(message, appId); }
    // The version the module exports as ardoModuleVersion(), or empty when it exports none.
    std::string version() const;
    // An exported symbol of the module, or null.
    void* symbol(const char* name) const;

private:
    LoadedModule(void* handle, EntryPoint entry, std::string path);

    void* handle_;
    EntryPoint entry_;
    std::string path_;
    std::string appName_;
};

}  // namespace cadhost
