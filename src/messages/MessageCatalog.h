#pragma once
// The dialog text catalog: 292 keyed texts with German defaults, replaceable by the
// dialog text file (".dlg") beside the module.
#include <array>
#include <string>

#include "messages/MsgKey.h"

namespace ardo {

class MessageCatalog {
public:
    // The module-wide catalog, holding the defaults until a file is loaded.
    static MessageCatalog& instance();

    MessageCatalog();

    // Reads every key from section "Ardo" of the file; true when at most one was missing.
    bool load(const std::string& path);

    const std::string& text(MsgKey key) const { return texts_[static_cast<int>(key)]; }
    static const char* keyName(MsgKey key);
    static const char* defaultText(MsgKey key);

    const std::string& filePath() const { return filePath_; }
    int missingCount() const { return missingCount_; }

private:
    std::string filePath_;
    int missingCount_ = 0;
    std::array<std::string, kMessageKeyCount> texts_;
};

// Short form for the module's code paths.
inline const std::string& catalogText(MsgKey key) { return MessageCatalog::instance().text(key); }

}  // namespace ardo
