#include "settings/cSetup.h"

#include <cstdlib>

#include "base/CaseFold.h"
#include "base/Printf.h"
#include "settings/ProfileString.h"

namespace ardo {

namespace {

// Reads a number as scanf's integer conversions do: the C library's conversion of the
// longest leading number, narrowed to the caller's type. False when no number is there.
template <class T, class Convert>
bool scanNumber(const std::string& text, T& value, Convert convert) {
    const char* begin = text.c_str();
    char* end = nullptr;
    auto n = convert(begin, &end, 10);
    if (end == begin) return false;
    value = static_cast<T>(n);
    return true;
}

// The rest of a recorded "key=value" string after its key: blanks, then equals signs,
// then blanks removed.
std::string recordedValue(std::string_view rest) {
    rest = trimWhiteLeft(rest);
    while (!rest.empty() && rest.front() == '=') rest.remove_prefix(1);
    return std::string(trimWhiteLeft(rest));
}

}  // namespace

void cSetup::bind(const std::string& filePath, const std::string& /*notKept*/, const std::string& name,
                  const std::string& section, bool recordValues, bool useFile) {
    filePath_ = filePath;
    name_ = name;
    section_ = section;
    recordValues_ = recordValues;
    useFile_ = useFile;
    clearRecord();
}

cSetup::~cSetup() = default;

void cSetup::clearRecord() { recordList_.clear(); }

void cSetup::clearRecordIfRecording() {
    if (recordValues_) clearRecord();
}

void cSetup::getString(const std::string& key, const std::string& defaultValue, std::string& result) const {
    result = defaultValue;
    if (useFile_) result = GetPrivateProfileStringW(section_, key, defaultValue, kValueBuffer, filePath_).text;
    if (!recordValues_) return;
    // A prefix match, case-sensitive: a recorded longer key that begins with this one
    // matches too, as callers have come to expect.
    for (const ResBuf& node : recordList_) {
        if (node.text.compare(0, key.size(), key) == 0 && node.text.size() >= key.size()) {
            result = recordedValue(std::string_view(node.text).substr(key.size()));
            return;
        }
    }
}

void cSetup::setString(const std::string& key, const std::string& value, bool writeToFile) {
    if (useFile_ && writeToFile) WritePrivateProfileStringW(section_, key, value, filePath_);
    if (recordValues_) recordList_.push_back(ResBuf::str(format("%s=%s", key, value)));
}

void cSetup::getInt(const std::string& key, int& value) const {
    std::string text;
    getString(key, "", text);
    scanNumber(text, value, std::strtol);
}

void cSetup::setInt(const std::string& key, int value, bool writeToFile) {
    setString(key, format("%d", value), writeToFile);
}

void cSetup::getBool(const std::string& key, bool& value) const {
    int number = 0;
    std::string text;
    getString(key, "", text);
    if (scanNumber(text, number, std::strtol)) value = number != 0;
}

void cSetup::setBool(const std::string& key, bool value, bool writeToFile) {
    setString(key, format("%d", value ? 1 : 0), writeToFile);
}

void cSetup::getInteger(const std::string& key, int& value) const {
    std::string text;
    getString(key, "", text);
    scanNumber(text, value, std::strtol);
}

void cSetup::setInteger(const std::string& key, int value, bool writeToFile) {
    setString(key, format("%d", value), writeToFile);
}

void cSetup::getUnsigned(const std::string& key, unsigned& value) const {
    std::string text;
    getString(key, "", text);
    scanNumber(text, value, std::strtoul);
}

void cSetup::setUnsigned(const std::string& key, unsigned value, bool writeToFile) {
    setString(key, format("%u", value), writeToFile);
}

void cSetup::getReal(const std::string& key, double& value) const {
    std::string text;
    getString(key, "", text);
    parseReal(value, text);
}

void cSetup::setReal(const std::string& key, double value, bool writeToFile) {
    setString(key, format("%.5lf", value), writeToFile);
}

void cSetup::getLong(const std::string& key, long& value) const {
    std::string text;
    getString(key, "", text);
    scanNumber(text, value, std::strtol);
}

void cSetup::setLong(const std::string& key, long value, bool writeToFile) {
    setString(key, format("%ld", value), writeToFile);
}

void cSetup::getUnsignedLong(const std::string& key, unsigned long& value) const {
    std::string text;
    getString(key, "", text);
    scanNumber(text, value, std::strtoul);
}

void cSetup::setUnsignedLong(const std::string& key, unsigned long value, bool writeToFile) {
    setString(key, format("%lu", value), writeToFile);
}

bool cSetup::parseReal(double& result, const std::string& text) const {
    const char* begin = text.c_str();
    char* end = nullptr;
    const double n = std::strtod(begin, &end);
    if (end == begin) return false;
    result = n;
    return true;
}

}  // namespace ardo
