#include "cadhost/app/LoadedModule.h"

#include <dlfcn.h>

#include <filesystem>

namespace cadhost {

ardo::Result<std::unique_ptr<LoadedModule>> LoadedModule::open(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec))
        return ardo::Error{"cannot load module \"" + path + "\": no such file; check the name and folder"};
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        return ardo::Error{"cannot load module \"" + path + "\": " + dlerror() +
                           "; it must be a shared library built for this system"};
    void* symbol = dlsym(handle, "acrxEntryPoint");
    if (!symbol) {
        dlclose(handle);
        return ardo::Error{"module \"" + path + "\" has no entry point acrxEntryPoint; a module exports " +
                           "extern \"C\" int acrxEntryPoint(int message, void* appId)"};
    }
    auto entry = reinterpret_cast<EntryPoint>(symbol);
    return std::unique_ptr<LoadedModule>(new LoadedModule(handle, entry, path));
}

LoadedModule::LoadedModule(void* handle, EntryPoint entry, std::string path)
    : handle_(handle), entry_(entry), path_(std::move(path)),
      appName_(std::filesystem::path(path_).filename().string()) {}

void* LoadedModule::symbol(const char* name) const { return dlsym(handle_, name); }

LoadedModule::~LoadedModule() { dlclose(handle_); }

std::string LoadedModule::version() const {
    using VersionFunction = const char* (*)();
    auto function = reinterpret_cast<VersionFunction>(dlsym(handle_, "ardoModuleVersion"));
    const char* text = function ? function() : nullptr;
    return text ? text : "";
}

}  // namespace cadhost
