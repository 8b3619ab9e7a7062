#include "layers/ActiveKeyMap.h"

#include <filesystem>

#include "base/CaseFold.h"
#include "settings/ProfileString.h"

namespace ardo {

namespace {

constexpr char kEscape = '\\';
constexpr char kPairSeparator = '|';
constexpr char kKeySeparator = '=';

void appendEscaped(std::string& out, const std::string& text) {
    for (char c : text) {
        if (c == kEscape || c == kPairSeparator || c == kKeySeparator) out += kEscape;
        out += c;
    }
}

}  // namespace

std::string ActiveKeyMap::keyOf(const std::string& object) const {
    for (const auto& [name, key] : pairs_)
        if (equalsNoCase(name, object)) return key;
    return {};
}

void ActiveKeyMap::set(const std::string& object, const std::string& key) {
    for (auto& [name, k] : pairs_) {
        if (equalsNoCase(name, object)) {
            k = key;
            return;
        }
    }
    pairs_.emplace_back(object, key);
}

std::string ActiveKeyMap::encode() const {
    std::string out;
    for (const auto& [name, key] : pairs_) {
        if (!out.empty()) out += kPairSeparator;
        appendEscaped(out, name);
        out += kKeySeparator;
        appendEscaped(out, key);
    }
    return out;
}

ActiveKeyMap ActiveKeyMap::decode(const std::string& text) {
    ActiveKeyMap map;
    std::string name, key;
    bool inKey = false;
    auto finishPair = [&] {
        if (inKey && !name.empty()) map.set(name, key);
        name.clear();
        key.clear();
        inKey = false;
    };
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == kEscape && i + 1 < text.size()) {
            (inKey ? key : name) += text[++i];
        } else if (c == kPairSeparator) {
            finishPair();
        } else if (c == kKeySeparator && !inKey) {
            inKey = true;
        } else {
            (inKey ? key : name) += c;
        }
    }
    finishPair();
    return map;
}

std::string activeKeyValueName(const std::string& objectFilePath) {
    // The file may be named with Windows separators by LISP callers.
    std::string name = objectFilePath.substr(objectFilePath.find_last_of("/\\") + 1);
    return "ACTIVE_" + std::filesystem::path(name).stem().string();
}

// A value may be as long as the map grows; the buffer does not cut it.
constexpr size_t kValueBuffer = 1 << 20;

std::string SetupFileActiveKeys::read(const std::string& valueName) const {
    return GetPrivateProfileStringW(std::string(kSection), valueName, "", kValueBuffer, path_).text;
}

void SetupFileActiveKeys::write(const std::string& valueName, const std::string& value) {
    WritePrivateProfileStringW(std::string(kSection), valueName, value, path_);
}

}  // namespace ardo
