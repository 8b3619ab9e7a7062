#pragma once
// System variables that belong to the application rather than to a drawing: release,
// product, platform, user, temporary folder, and the user string variables that are not
// saved in a drawing.
#include <map>
#include <optional>
#include <string>

#include "boundary/ResBuf.h"

namespace cadhost {

class HostVariables {
public:
    HostVariables();

    // Names are upper case. The application's own names come before the drawing's
    // (ACADVER is the program's release here, not the file's version).
    bool holds(const std::string& name) const;
    // Nothing for a name the application does not hold.
    std::optional<ardo::ResBuf> get(const std::string& name) const;
    // False for an unknown or read-only name, or a value of the wrong type.
    bool set(const std::string& name, const ardo::ResBuf& value);

private:
    std::map<std::string, ardo::ResBuf> writable_;
    std::map<std::string, ardo::ResBuf> fixed_;
};

}  // namespace cadhost
