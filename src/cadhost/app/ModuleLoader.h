#pragma once
// Loads modules into the host and drives their life: load -> kInitAppMsg -> kLoadDwgMsg
// for each open document; kLoadDwgMsg and kUnloadDwgMsg as documents open and close;
// kUnloadAppMsg before an unload; kPreQuitMsg, kUnloadDwgMsg for each document and
// kQuitMsg when the host quits.
#include <memory>
#include <string>
#include <vector>

#include "base/Result.h"
#include "cadhost/app/LoadedModule.h"

namespace cadhost {

class Application;
class Document;

class ModuleLoader {
public:
    explicit ModuleLoader(Application& host) : host_(host) {}
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    // Loads and starts the module; fails with a message for the user when it cannot.
    ardo::Status load(const std::string& path);
    // Sends kUnloadAppMsg and unloads; false when no application of that name is loaded.
    bool unload(const std::string& appName);
    // Ends every module, the newest first.
    void quit();
    // Every module gets kLoadDwgMsg, or kUnloadDwgMsg, for the document.
    void documentLoaded(Document& document);
    void documentClosing(Document& document);

    // The loaded applications' file names in load order.
    std::vector<std::string> appNames() const;
    const LoadedModule* find(const std::string& appName) const;

private:
    void close(std::size_t index);

    Application& host_;
    std::vector<std::unique_ptr<LoadedModule>> modules_;
};

}  // namespace cadhost
