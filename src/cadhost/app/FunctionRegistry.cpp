#include "cadhost/app/FunctionRegistry.h"

#include "base/CaseFold.h"

namespace cadhost {

void FunctionRegistry::define(const std::string& name, const LoadedModule* owner, int code) {
    functions_[ardo::upperCase(name)] = DefinedFunction{name, owner, code};
}

bool FunctionRegistry::defined(const std::string& name, const LoadedModule* owner, int code) const {
    auto it = functions_.find(ardo::upperCase(name));
    return it != functions_.end() && it->second.owner == owner && it->second.code == code;
}

void FunctionRegistry::setHandler(const LoadedModule* owner, int code, ardo::LispHandler handler) {
    if (handler)
        handlers_[{owner, code}] = handler;
    else
        handlers_.erase({owner, code});
}

ardo::LispHandler FunctionRegistry::handler(const LoadedModule* owner, int code) const {
    auto it = handlers_.find({owner, code});
    return it == handlers_.end() ? nullptr : it->second;
}

std::vector<std::string> FunctionRegistry::forget(const LoadedModule* owner) {
    std::vector<std::string> names;
    std::erase_if(functions_, [&](const auto& entry) {
        if (entry.second.owner != owner) return false;
        names.push_back(entry.second.name);
        return true;
    });
    std::erase_if(handlers_, [&](const auto& entry) { return entry.first.first == owner; });
    return names;
}

}  // namespace cadhost
