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
constexpr long long kMaxAperture = 50;

bool isInteger(short type) { return type == ardo::RTSHORT || type == ardo::RTLONG; }

}  // namespace

HostVariables::HostVariables() {
    held_ = {
        {"ACADVER", {ResBuf::str("18.0")}},
        {"PRODUCT", {ResBuf::str("ardo-cad")}},
        {"PLATFORM", {ResBuf::str("Linux")}},
        {"LOGINNAME", {ResBuf::str(loginName())}},
        {"TEMPPREFIX", {ResBuf::str(tempPrefix())}},
        {"SDI", {ResBuf::shortInt(0)}},
        {"ERRNO", {ResBuf::shortInt(0), true}},
    };
    // SAVETIME: minutes between automatic saves of changed drawings, 0 for none.
    held_.emplace_back("SAVETIME", Held{ResBuf::shortInt(10), true});
    // APERTURE: pixels around the cursor in which object snaps are looked for.
    held_.emplace_back("APERTURE", Held{ResBuf::shortInt(10), true});
    for (char n = '1'; n <= '5'; ++n) held_.emplace_back(std::string("USERS") + n, Held{ResBuf::str(""), true});
}

std::size_t HostVariables::indexOf(const std::string& name) const {
    if (name.empty()) return held_.size();
    // The first letter rules out nearly every name before a whole comparison.
    std::size_t i = 0;
    while (i < held_.size() && (held_[i].first.front() != name.front() || held_[i].first != name)) ++i;
    return i;
}

bool HostVariables::holds(const std::string& name) const { return indexOf(name) < held_.size(); }

std::optional<ResBuf> HostVariables::get(const std::string& name) const {
    const std::size_t i = indexOf(name);
    if (i == held_.size()) return std::nullopt;
    return held_[i].second.value;
}

bool HostVariables::set(const std::string& name, const ResBuf& value) {
    const std::size_t i = indexOf(name);
    if (i == held_.size() || !held_[i].second.writable) return false;
    ResBuf& held = held_[i].second.value;
    if (held.restype == ardo::RTSTR) {
        if (value.restype != ardo::RTSTR) return false;
        held.text = value.text;
        return true;
    }
    if (!isInteger(value.restype)) return false;
    if (name == "SAVETIME" && (value.integer < 0 || value.integer > kMaxSaveTime)) return false;
    if (name == "APERTURE" && (value.integer < 1 || value.integer > kMaxAperture)) return false;
    held.integer = value.integer;
    return true;
}

}  // namespace cadhost
