#pragma once
// Texts for the widgets: the module's UTF-8 strings and the catalog's texts by key as
// QStrings.
#include <QString>
#include <string>

#include "messages/MessageCatalog.h"

namespace ardo {

inline QString qText(const std::string& utf8) { return QString::fromStdString(utf8); }
inline QString qCatalog(MsgKey key) { return qText(catalogText(key)); }

}  // namespace ardo
