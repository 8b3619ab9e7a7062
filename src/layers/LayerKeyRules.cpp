#include "layers/LayerKeyRules.h"

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "base/Printf.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

constexpr std::string_view kForbiddenInKey = "<>\"?*|,=`;[]";
// The characters of this text one by one, not a pattern: it becomes a file name.
constexpr std::string_view kForbiddenInObjectType = R"(~*[]`#`@`.`?`*`~`[`,`' !%^&()+={}|`\:;\"<>/]*)";

bool holdsNone(std::string_view text, std::string_view forbidden) {
    return text.find_first_of(forbidden) == std::string_view::npos;
}

// The texts and lookup of one editable field: the key or the layer name.
struct EditedField {
    MsgKey missing, invalidChar, alreadyUsed, usedElsewhere, question1, question2, question3;
    std::string LayerEntry::*member;
    FoundEntry (CentralLayerFile::*find)(const std::string&, const LayerEntry*) const;
};

constexpr EditedField kKeyField{MsgKey::EtLayerKeyMissing, MsgKey::EtLayerKeyInvalidChar,
                                MsgKey::EtLayerKeyAlreadyUsed, MsgKey::EtLayerKeyUsedElseWhere, MsgKey::QuChangeLayerKey1,
                                MsgKey::QuChangeLayerKey2, MsgKey::QuChangeLayerKey3,
                                &LayerEntry::key, &CentralLayerFile::findByKey};
constexpr EditedField kNameField{MsgKey::EtLayerNameMissing, MsgKey::EtLayerNameInvalidChar,
                                 MsgKey::EtLayerNameAlreadyUsed, MsgKey::EtLayerNameUsedElseWhere, MsgKey::QuChangeLayerName1,
                                 MsgKey::QuChangeLayerName2, MsgKey::QuChangeLayerName3,
                                 &LayerEntry::name, &CentralLayerFile::findByName};

bool refuse(MsgKey message) {
    host().messageBox(catalogText(message), catalogText(MsgKey::TiMsgBoxError), MbButtons::Ok, MbIcon::Error);
    return false;
}

bool userConfirms(const EditedField& field) {
    const std::string question = format("%s\n\n%s\n\n%s", catalogText(field.question1),
                                        catalogText(field.question2), catalogText(field.question3));
    return host().messageBox(question, catalogText(MsgKey::TiMsgBoxQuestion), MbButtons::YesNo,
                             MbIcon::Exclamation) == MbAnswer::Yes;
}

bool acceptEdited(const EditedField& field, const CentralLayerFile& list, LayerEntry& entry,
                  const std::string& edited) {
    const std::string text(trimWhite(edited));
    if (text.empty()) return refuse(field.missing);
    if (!holdsNone(text, kForbiddenInKey)) return refuse(field.invalidChar);
    std::string& current = entry.*field.member;
    if (text == current) return false;
    // Only the first entry of the text counts, so a change of case of the entry's own text passes.
    const FoundEntry first = (list.*field.find)(text, nullptr);
    if (first && first.entry != &entry) return refuse(field.alreadyUsed);
    if (!userConfirms(field)) return false;
    current = text;
    return true;
}

bool identityPasses(const EditedField& field, const CentralLayerFile& list, const std::string& text,
                    const LayerEntry* self) {
    if (text.empty()) return refuse(field.missing);
    if (!holdsNone(text, kForbiddenInKey)) return refuse(field.invalidChar);
    const FoundEntry other = (list.*field.find)(text, self);
    if (other && !other.entry->isDeleted())
        return refuse(other.entry->has(entryflag::kFromFile) ? field.alreadyUsed : field.usedElsewhere);
    return true;
}

}  // namespace

bool identificationAccepted(const CentralLayerFile& list, const std::string& key, const std::string& name,
                            const LayerEntry* self) {
    return identityPasses(kKeyField, list, key, self) && identityPasses(kNameField, list, name, self);
}

bool isValidLayerKey(std::string_view text) { return holdsNone(text, kForbiddenInKey); }

bool isValidLayerName(std::string_view text) { return holdsNone(text, kForbiddenInKey); }

bool isValidObjectTypeName(std::string_view text) {
    return !text.empty() && holdsNone(text, kForbiddenInObjectType);
}

bool acceptEditedKey(const CentralLayerFile& list, LayerEntry& entry, const std::string& text) {
    return acceptEdited(kKeyField, list, entry, text);
}

bool acceptEditedName(const CentralLayerFile& list, LayerEntry& entry, const std::string& text) {
    return acceptEdited(kNameField, list, entry, text);
}

std::string makeLayerKey(double cdate) { return format("%.9f", cdate); }

}  // namespace ardo
