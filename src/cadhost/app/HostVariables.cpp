#include "cadhost/app/HostVariables.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace cadhost {

using ardo::ResBuf;

namespace {

std::string loginName() {
    if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_name) return pw->pw_name;
    if (const char* name = std::getenv("LOGNAME")) return name;
    return {};
}

// The host's TEMPPREFIX ends with the separator, as the module joins file names to it.
std::string tempPrefix() {
    std::string folder = "/tmp";
    if (const char* tmp = std::getenv("TMPDIR"); tmp && *tmp) folder = tmp;
    if (folder.back() != '/') folder += '/';
    return folder;
}

constexpr long long kMaxSaveTime = 600;

bool isInteger(short type) { return type == ardo::RTSHORT || type == ardo::RTLONG; }

}  // namespace

HostVariables::HostVariables() {
    fixed_ = {
        {"ACADVER", ResBuf::str("18.0")},
        {"PRODUCT", ResBuf::str("ardo-cad")},
        {"PLATFORM", ResBuf::str("Linux")},
        {"LOGINNAME", ResBuf::str(loginName())},
        {"TEMPPREFIX", ResBuf::str(tempPrefix())},
        {"SDI", ResBuf::shortInt(0)},
    };
    // SAVETIME: minutes between automatic saves of changed drawings, 0 for none.
    writable_ = {{"ERRNO", ResBuf::shortInt(0)}, {"SAVETIME", ResBuf::shortInt(10)}};
    for (char n = '1'; n <= '5'; ++n) writable_.emplace(std::string("USERS") + n, ResBuf::str(""));
}

bool HostVariables::holds(const std::string& name) const {
    return fixed_.contains(name) || writable_.contains(name);
}

std::optional<ResBuf> HostVariables::get(const std::string& name) const {
    if (auto it = fixed_.find(name); it != fixed_.end()) return it->second;
    if (auto it = writable_.find(name); it != writable_.end()) return it->second;
    return std::nullopt;
}

bool HostVariables::set(const std::string& name, const ResBuf& value) {
    auto it = writable_.find(name);
    if (it == writable_.end()) return false;
    ResBuf& held = it->second;
    if (held.restype == ardo::RTSTR) {
        if (value.restype != ardo::RTSTR) return false;
        held.text = value.text;
        return true;
    }
    if (!isInteger(value.restype)) return false;
    if (name == "SAVETIME" && (value.integer < 0 || value.integer > kMaxSaveTime)) return false;
    held.integer = value.integer;
    return true;
}

}  // namespace cadhost
