#pragma once
// The LISP functions modules have defined in any document: name, defining module and
// function code, and the handlers registered for codes. Codes are each module's own, so two modules may use
// the same numbers; a function belongs to the module that defined it.
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "boundary/Host.h"

namespace cadhost {

class LoadedModule;

struct DefinedFunction {
    std::string name;
    const LoadedModule* owner = nullptr;   // none for functions defined outside a module
    int code = 0;
};

class FunctionRegistry {
public:
    // Defines or redefines the name (case-insensitive) for the owner and code.
    void define(const std::string& name, const LoadedModule* owner, int code);
    // True when that owner defined the name with that code. A name undefined in one
    // document stays known here, since other documents may still have it.
    bool defined(const std::string& name, const LoadedModule* owner, int code) const;
    // A null handler removes the registration.
    void setHandler(const LoadedModule* owner, int code, ardo::LispHandler handler);
    ardo::LispHandler handler(const LoadedModule* owner, int code) const;
    // Forgets everything of the module; returns the names it had defined.
    std::vector<std::string> forget(const LoadedModule* owner);

private:
    std::map<std::string, DefinedFunction> functions_;   // folded name
    std::map<std::pair<const LoadedModule*, int>, ardo::LispHandler> handlers_;
};

}  // namespace cadhost
