#pragma once
// The two ways settings are dumped for inspection: single trace lines on the host's command
// line, each after a caller-given prefix, and an INI text of sections and typed values.
#include <string>

#include "boundary/ResBuf.h"

namespace ardo {

void traceString(const std::string& prefix, const std::string& key, const std::string& value);
// Integers and booleans alike.
void traceInt(const std::string& prefix, const std::string& key, int value);
void traceReal(const std::string& prefix, const std::string& key, double value);
// A key that has no value.
void traceKey(const std::string& prefix, const std::string& key);
void traceBits(const std::string& prefix, const std::string& key, unsigned long bits);
void tracePoint(const std::string& prefix, const std::string& key, const Point3& point);

class IniDump {
public:
    void section(const std::string& name);
    void string(const std::string& key, const std::string& value);
    void real(const std::string& key, double value);
    void integer(const std::string& key, int value);
    void unsignedInteger(const std::string& key, unsigned value);

    const std::string& text() const { return text_; }

private:
    std::string text_;
};

}  // namespace ardo
