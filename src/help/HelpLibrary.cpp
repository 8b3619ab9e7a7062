#include "help/HelpLibrary.h"

#include <dlfcn.h>

#include <cstdlib>
#include <optional>

#include "settings/registry/CRegistry.h"

namespace ardo {

namespace {

constexpr size_t kMaxPath = 260;

// "%NAME%" becomes the variable's value, as Windows expands registry texts; unknown
// variables stay as written.
std::string expandVariables(const std::string& text) {
    std::string out;
    size_t pos = 0;
    while (pos < text.size()) {
        const size_t open = text.find('%', pos);
        const size_t close = open == std::string::npos ? open : text.find('%', open + 1);
        if (close == std::string::npos) {
            out += text.substr(pos);
            break;
        }
        out += text.substr(pos, open - pos);
        const std::string name = text.substr(open + 1, close - open - 1);
        const char* value = name.empty() ? nullptr : std::getenv(name.c_str());
        out += value ? std::string(value) : text.substr(open, close - open + 1);
        pos = close + 1;
    }
    return out;
}

template <class F>
bool bind(void* handle, const char* name, F& function) {
    function = reinterpret_cast<F>(dlsym(handle, name));
    return function != nullptr;
}

std::optional<ChmLibrary> load(const std::string& file) {
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) return std::nullopt;
    ChmLibrary lib{};
    if (bind(handle, "chm_open", lib.open) && bind(handle, "chm_close", lib.close) &&
        bind(handle, "chm_resolve_object", lib.resolveObject) &&
        bind(handle, "chm_retrieve_object", lib.retrieveObject) && bind(handle, "chm_enumerate", lib.enumerate))
        return lib;
    dlclose(handle);
    return std::nullopt;
}

}  // namespace

std::string registeredHelpLibrary() {
    CRegistry reg;
    std::string file;
    if (!reg.openForReading(RegRoot::ClassesRoot, kHelpControlServerKey) || !reg.getText("", file)) return {};
    file = expandVariables(file);
    if (file.size() > kMaxPath) file.resize(kMaxPath);
    return file;
}

const ChmLibrary* helpLibrary() {
    static const std::optional<ChmLibrary> library = [] {
        const std::string registered = registeredHelpLibrary();
        if (!registered.empty())
            if (auto lib = load(registered)) return lib;
        return load(kHelpControlFallback);
    }();
    return library ? &*library : nullptr;
}

}  // namespace ardo
