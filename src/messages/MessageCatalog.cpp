#include "messages/MessageCatalog.h"

#include "messages/CatalogDefaults.h"

namespace ardo {

MessageCatalog& MessageCatalog::instance() {
    static MessageCatalog catalog;
    return catalog;
}

MessageCatalog::MessageCatalog() {
    for (int i = 0; i < kMessageKeyCount; ++i) texts_[size_t(i)] = kCatalogRows[i].defaultText;
}

const char* MessageCatalog::keyName(MsgKey key) { return kCatalogRows[static_cast<int>(key)].key; }

const char* MessageCatalog::defaultText(MsgKey key) { return kCatalogRows[static_cast<int>(key)].defaultText; }

}  // namespace ardo
