#pragma once
// Loads modules into the host and drives their life: load -> kInitAppMsg -> kLoadDwgMsg
// for the drawing; kUnloadAppMsg before an unload; kPreQuitMsg, kUnloadDwgMsg and
// kQuitMsg when the host quits.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cadhost/app/LoadedModule.h"

namespace cadhost {

class CadHost;

class ModuleLoader {
public:
    explicit ModuleLoader(CadHost& host) : host_(host) {}
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    // Loads and starts the module; the message for the user when it cannot.
    std::optional<std::string> load(const std::string& path);
    // Sends kUnloadAppMsg and unloads; false when no application of that name is loaded.
    bool unload(const std::string& appName);
    // Ends every module, the newest first.
    void quit();

    // The loaded applications' file names in load order.
    std::vector<std::string> appNames() const;
    const LoadedModule* find(const std::string& appName) const;

private:
    void close(std::size_t index);

    CadHost& host_;
    std::vector<std::unique_ptr<LoadedModule>> modules_;
};

}  // namespace cadhost
