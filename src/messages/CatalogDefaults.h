#pragma once
// The catalog's key names and German default texts, in key order.
#include "messages/MsgKey.h"

namespace ardo {

struct CatalogRow {
    const char* key;
    const char* defaultText;
};

extern const CatalogRow kCatalogRows[kMessageKeyCount];

}  // namespace ardo
