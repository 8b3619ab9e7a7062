// The named-object dictionary, its sub-dictionaries and place-holders (plot style names).
#include <algorithm>

#include "base/CaseFold.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagEdit.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

using ardo::DbStatus;

namespace {
bool isEntryHandle(int code) { return code == 350 || code == 360; }
bool isDictionary(std::string_view type) { return type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT"; }
}  // namespace

std::optional<RecordId> Drawing::rootDictionary() const {
    for (RecordId id : objects_)
        if (!doc_.isErased(id)) return isDictionary(doc_.type(id)) ? std::optional(id) : std::nullopt;
    return std::nullopt;
}

std::optional<RecordId> Drawing::dictionaryEntry(RecordId dictionary, std::string_view name) const {
    const auto tags = doc_.tags(dictionary);
    // Every layer read looks its plot style up here: plain ASCII entries are compared as
    // they stand in the file, without decoding or folding a copy.
    const auto sameName = [&](std::string_view fileValue) {
        const bool plain = std::all_of(fileValue.begin(), fileValue.end(),
                                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\\'; });
        return plain ? ardo::equalsNoCase(fileValue, name) : ardo::equalsNoCase(text(fileValue), name);
    };
    for (std::size_t i = 0; i + 1 < tags.size(); ++i)
        if (tags[i].code == 3 && isEntryHandle(tags[i + 1].code) && sameName(tags[i].value))
            return recordByHandle(tags[i + 1].value);
    return std::nullopt;
}

std::optional<std::string> Drawing::dictionaryEntryName(RecordId dictionary, std::string_view handle) const {
    const auto tags = doc_.tags(dictionary);
    const Handle wanted = toHandle(handle);
    for (std::size_t i = 1; i < tags.size(); ++i)
        if (isEntryHandle(tags[i].code) && tags[i - 1].code == 3 && toHandle(tags[i].value) == wanted)
            return text(tags[i - 1].value);
    return std::nullopt;
}

std::optional<RecordId> Drawing::namedDictionary(std::string_view name) const {
    const auto root = rootDictionary();
    if (!root) return std::nullopt;
    const auto id = dictionaryEntry(*root, name);
    if (!id || !isDictionary(doc_.type(*id))) return std::nullopt;
    return id;
}

std::optional<RecordId> Drawing::plotStyleDictionary() const {
    if (!plotStyleDictionary_) plotStyleDictionary_ = namedDictionary("ACAD_PLOTSTYLENAME");
    return *plotStyleDictionary_;
}

RecordId Drawing::addObject(std::vector<OwnedTag> tags) {
    plotStyleDictionary_.reset();
    const RecordId id = doc_.insertBefore(objectsEnd_, std::move(tags));
    objects_.push_back(id);
    indexHandle(id);
    return id;
}

void Drawing::addDictionaryEntry(RecordId dictionary, std::string_view name, std::string_view handle) {
    plotStyleDictionary_.reset();
    std::vector<OwnedTag> tags = doc_.copyTags(dictionary);
    // Entries belong to the AcDbDictionary subclass: after the last entry, or after the
    // subclass marker and its flags when the dictionary is empty.
    std::size_t at = 0;
    const std::size_t end = ownTagsEnd(tags);
    for (std::size_t i = 0; i < end; ++i) {
        if (isEntryHandle(tags[i].code) && i > 0 && tags[i - 1].code == 3) at = i + 1;
        if (at == 0 && tags[i].code == 100 && tags[i].value == "AcDbDictionary") {
            at = i + 1;
            while (at < end && (tags[at].code == 280 || tags[at].code == 281)) ++at;
        }
    }
    if (at == 0) at = end;
    const std::vector<OwnedTag> entry{{3, fileText(name)}, {350, std::string(handle)}};
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(at), entry.begin(), entry.end());
    doc_.replace(dictionary, std::move(tags));
}

bool Drawing::usesNamedPlotStyles() const {
    const auto mode = headerVar("$PSTYLEMODE");
    return mode && mode->size() > 1 && toInteger((*mode)[1].value, 1) == 0;
}

bool Drawing::hasDictionary(const std::string& name) const { return namedDictionary(name).has_value(); }

DbStatus Drawing::addDictionary(const std::string& name) {
    const auto root = rootDictionary();
    if (!root || objectsEnd_ == kNoRecord || !hasHandles()) return DbStatus::NotInDatabase;
    if (dictionaryEntry(*root, name)) return DbStatus::DuplicateRecordName;
    const std::string owner(tagValue(doc_.tags(*root), 5).value_or("0"));
    const std::string handle = handleText(takeHandle());
    addObject({{0, "DICTIONARY"}, {5, handle}, {102, "{ACAD_REACTORS"}, {330, owner}, {102, "}"},
               {330, owner}, {100, "AcDbDictionary"}, {281, "1"}});
    addDictionaryEntry(*root, name, handle);
    return DbStatus::Ok;
}

DbStatus Drawing::addPlaceHolder(const std::string& dictionary, const std::string& entry) {
    const auto dict = namedDictionary(dictionary);
    if (!dict) return DbStatus::KeyNotFound;
    if (dictionaryEntry(*dict, entry)) return DbStatus::Ok;
    const std::string owner(tagValue(doc_.tags(*dict), 5).value_or("0"));
    const std::string handle = handleText(takeHandle());
    addObject({{0, "ACDBPLACEHOLDER"}, {5, handle}, {102, "{ACAD_REACTORS"}, {330, owner}, {102, "}"},
               {330, owner}});
    addDictionaryEntry(*dict, entry, handle);
    return DbStatus::Ok;
}

bool Drawing::hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const {
    const auto dict = namedDictionary(dictionary);
    return dict && dictionaryEntry(*dict, entry).has_value();
}

}  // namespace cadhost
