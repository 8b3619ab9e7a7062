#pragma once
// The message file: keyed texts by section, read from the file beside the module.
// Lookups remember the section found last, so runs of lookups in one section are cheap.
#include <memory>
#include <string>

#include "settings/SettingsStore.h"

namespace ardo {

class MessageFile {
public:
    // The module-wide message file.
    static MessageFile& instance();

    void attach(std::unique_ptr<SettingsStore> store);
    void release();
    bool loaded() const { return store_ != nullptr; }
    SettingsStore* store() { return store_.get(); }

    // Finds a section, searching from the remembered one when its name is the same to
    // the letter; the found section (or none) is remembered. end() when missing.
    SettingsStore::Position findSection(const std::string& section);

    // The raw value of a key, found through the remembered section; empty when the key is
    // missing or has no value. False, silently, when the section is missing.
    bool lookup(const std::string& section, const std::string& key, std::string& value);

    // The text of a key with every backslash-n turned into a line feed. A missing key
    // prints the "MsgNotFound" text of section "LCINIT"; a missing section is silent.
    int text(const std::string& section, const std::string& key, std::string& result);
    // The same, giving the text or an empty one.
    std::string text(const std::string& section, const std::string& key);

private:
    std::unique_ptr<SettingsStore> store_;
    SettingsStore::Position current_{};
    bool hasCurrent_ = false;
};

// Every backslash-n turned into a line feed, as message texts are shown.
std::string expandLineFeeds(const std::string& text);

}  // namespace ardo
