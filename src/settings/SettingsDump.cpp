#include "settings/SettingsDump.h"

#include "module/HostBinding.h"
#include "base/Printf.h"

namespace ardo {

void traceString(const std::string& prefix, const std::string& key, const std::string& value) {
    host().print(format("%s:'%s=%s'\n", prefix, key, value));
}

void traceInt(const std::string& prefix, const std::string& key, int value) {
    host().print(format("%s:'%s=%d'\n", prefix, key, value));
}

void traceReal(const std::string& prefix, const std::string& key, double value) {
    host().print(format("%s:'%s=%.3lf'\n", prefix, key, value));
}

void traceKey(const std::string& prefix, const std::string& key) {
    host().print(format("%s:'%s'\n", prefix, key));
}

void traceBits(const std::string& prefix, const std::string& key, unsigned long bits) {
    host().print(format("%s:'%s=0x%08lx'\n", prefix, key, bits));
}

void tracePoint(const std::string& prefix, const std::string& key, const Point3& point) {
    host().print(format("%s:'%s=(%.3lf|%.3lf|%.3lf)'\n", prefix, key, point[0], point[1], point[2]));
}

void IniDump::section(const std::string& name) { text_ += format("[%s]\n", name); }

void IniDump::string(const std::string& key, const std::string& value) { text_ += format("%s=%s\n", key, value); }

void IniDump::real(const std::string& key, double value) { text_ += format("%s=%.4lf\n", key, value); }

void IniDump::integer(const std::string& key, int value) { text_ += format("%s=%d\n", key, value); }

void IniDump::unsignedInteger(const std::string& key, unsigned value) { text_ += format("%s=%u\n", key, value); }

}  // namespace ardo
