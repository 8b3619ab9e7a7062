#pragma once
// System variables that belong to the application rather than to a drawing: release,
// product, platform, user, temporary folder, and the user string variables that are not
// saved in a drawing.
#include <optional>
#include <string>
#include <utility>
#include <vector>

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
    struct Held {
        ardo::ResBuf value;
        bool writable = false;
    };
    // A dozen names, asked first by every getvar of a drawing's variable too: a scan of
    // them is cheaper than hashing the name.
    std::vector<std::pair<std::string, Held>> held_;
    // The position of the name, or the end when the application does not hold it.
    std::size_t indexOf(const std::string& name) const;
};

}  // namespace cadhost
