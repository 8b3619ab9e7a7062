#include "messages/LocalProfileString.h"

#include "host/CaseFold.h"
#include "host/Utf8.h"
#include "settings/SettingsStore.h"

namespace ardo {

namespace {

std::string unquoted(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        return std::string(value.substr(1, value.size() - 2));
    return std::string(value);
}

// The text cut after the given number of characters (code points, as a wide buffer counts).
std::string firstChars(const std::string& text, size_t count) {
    size_t pos = 0;
    for (size_t n = 0; n < count && pos < text.size(); ++n) decodeUtf8At(text, pos);
    return text.substr(0, pos);
}

}  // namespace

std::string readProfileString(const std::string& section, const std::string& key,
                              const std::string& defaultValue, const std::string& path,
                              size_t bufferChars) {
    auto store = SettingsStore::load(path);
    if (!store) return defaultValue;
    auto record = store->findKey(store->findSection(section), key);
    if (record == store->end()) return defaultValue;
    return firstChars(unquoted(trimWhite(record->value)), bufferChars - 1);
}

}  // namespace ardo
