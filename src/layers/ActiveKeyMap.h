#pragma once
// The remembered active key per object of one object-type layer file, and where it is kept:
// in the user's settings, section "KEMB_ARDOARX", value "ACTIVE_" plus the file's title.
//
// Encoding of the value: "object=key" pairs joined by '|'; a '\', '|' or '=' inside an object
// name or a key is written with a '\' before it. Example: "Mauer=K1|Wand=K\=2".
#include <string>
#include <utility>
#include <vector>

namespace ardo {

class ActiveKeyMap {
public:
    // Object names compare without regard to case; empty when the object has no key.
    std::string keyOf(const std::string& object) const;
    void set(const std::string& object, const std::string& key);
    void clear() { pairs_.clear(); }
    bool empty() const { return pairs_.empty(); }

    std::string encode() const;
    // Pairs without an equals sign are skipped.
    static ActiveKeyMap decode(const std::string& text);

private:
    std::vector<std::pair<std::string, std::string>> pairs_;
};

// Where the map's settings value is read and written.
class ActiveKeySettings {
public:
    static constexpr const char* kSection = "KEMB_ARDOARX";

    virtual ~ActiveKeySettings() = default;
    virtual std::string read(const std::string& valueName) const = 0;
    virtual void write(const std::string& valueName, const std::string& value) = 0;
};

// The value name for an object-type layer file: "ACTIVE_" and the file's title.
std::string activeKeyValueName(const std::string& objectFilePath);

// The values in a settings file of the user ("ArdoSetup.ini"), through the profile-string
// functions, so the file's other lines and comments stay as they are.
class SetupFileActiveKeys : public ActiveKeySettings {
public:
    explicit SetupFileActiveKeys(std::string settingsFilePath) : path_(std::move(settingsFilePath)) {}
    std::string read(const std::string& valueName) const override;
    void write(const std::string& valueName, const std::string& value) override;

private:
    std::string path_;
};

}  // namespace ardo
