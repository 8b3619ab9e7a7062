#include <algorithm>

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "base/Printf.h"
#include "base/TextFile.h"
#include "layers/CentralLayerFile.h"
#include "settings/CodePageWarning.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

void reportCannotWrite(const std::string& path) {
    const std::string message = format("%s\n    '%s'\n%s\n", catalogText(MsgKey::EtCantWriteLayerFile1), path,
                                       catalogText(MsgKey::EtCantWriteLayerFile2));
    host().print(message);
    host().messageBox(message, catalogText(MsgKey::TiMsgBoxError), MbButtons::Ok, MbIcon::Error);
}

bool isWritten(const LayerEntry& e) { return e.has(entryflag::kFromFile) && !e.isDeleted(); }

}  // namespace

bool CentralLayerFile::anythingToSave() const {
    return changed_ || std::any_of(entries_.begin(), entries_.end(), [](const auto& e) { return e->state != 0; });
}

std::string CentralLayerFile::fileText() const {
    std::string out;
    if (image_) {
        // Whatever followed [LAYER] in the read file is not written again: it is always last.
        for (const auto& line : image_->records()) {
            if (!line.key.empty()) {
                out += line.key + "=" + line.value + "\n";
            } else if (!line.section.empty()) {
                out += "\n[" + line.section + "]" + line.value + "\n";
                if (equalsNoCase(line.section, "LAYER")) break;
            }
        }
    }
    for (const auto& e : entries_)
        if (isWritten(*e)) out += e->key + "=" + entryValueLine(*e) + "\n";
    return out;
}

bool CentralLayerFile::save(const std::string& path) const {
    if (!anythingToSave()) return true;
    const LineEnd lineEnd = image_ ? image_->lineEnd() : lineEndOfFile(path);
    const std::string text = fileText();
    warnCharactersNotInCodePage(path, text);
    if (!writeTextFile(path, text, lineEnd)) {
        reportCannotWrite(path);
        return false;
    }
    return true;
}

}  // namespace ardo
