#include "cadhost/app/ModuleLoader.h"

#include "cadhost/app/Application.h"
#include "cadhost/app/ModuleLisp.h"
#include "base/CaseFold.h"

namespace cadhost {

ardo::Status ModuleLoader::load(const std::string& path) {
    if (find(path))
        return ardo::Error{"application \"" + appNameOf(path) + "\" is already loaded; unload it first with (arxunload)"};
    auto opened = LoadedModule::open(path);
    if (!opened) return ardo::Error{opened.error()};
    modules_.push_back(std::move(opened).value());
    const LoadedModule& module = *modules_.back();
    host_.send(module, kInitAppMsg);
    for (const auto& document : host_.documents()) host_.send(module, kLoadDwgMsg, *document);
    return {};
}

void ModuleLoader::documentLoaded(Document& document) {
    for (const auto& module : modules_) host_.send(*module, kLoadDwgMsg, document);
}

void ModuleLoader::documentClosing(Document& document) {
    for (const auto& module : modules_) host_.send(*module, kUnloadDwgMsg, document);
}

bool ModuleLoader::unload(const std::string& appName) {
    const std::string wanted = appNameOf(appName);
    for (std::size_t i = 0; i < modules_.size(); ++i)
        if (ardo::equalsNoCase(modules_[i]->appName(), wanted)) {
            host_.send(*modules_[i], kUnloadAppMsg);
            close(i);
            return true;
        }
    return false;
}

void ModuleLoader::quit() {
    while (!modules_.empty()) {
        const LoadedModule& module = *modules_.back();
        host_.send(module, kPreQuitMsg);
        for (const auto& document : host_.documents()) host_.send(module, kUnloadDwgMsg, *document);
        host_.send(module, kQuitMsg);
        close(modules_.size() - 1);
    }
}

void ModuleLoader::close(std::size_t index) {
    // The module's functions and handlers must go before its code does.
    host_.forgetModule(*modules_[index]);
    modules_.erase(modules_.begin() + static_cast<std::ptrdiff_t>(index));
}

std::vector<std::string> ModuleLoader::appNames() const {
    std::vector<std::string> names;
    for (const auto& m : modules_) names.push_back(m->appName());
    return names;
}

const LoadedModule* ModuleLoader::find(const std::string& appName) const {
    const std::string wanted = appNameOf(appName);
    for (const auto& m : modules_)
        if (ardo::equalsNoCase(m->appName(), wanted)) return m.get();
    return nullptr;
}

}  // namespace cadhost
