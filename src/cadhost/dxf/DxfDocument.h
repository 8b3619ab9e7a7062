#pragma once
// A DXF file as a sequence of records (a group 0 tag and the tags up to the next one).
// Records the host does not touch keep their original bytes and are written back as they
// were, so an unchanged file is saved byte for byte; changed and new records are written
// from their tags. The document knows nothing about what the records mean.
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cadhost/dxf/DxfTag.h"

namespace cadhost {

using RecordId = std::uint32_t;
inline constexpr RecordId kNoRecord = UINT32_MAX;

struct DxfError {
    std::string message;     // complete sentence naming the line and what to do
    std::size_t line = 0;    // 0 when no line applies
};

class DxfDocument {
public:
    // Reads ASCII DXF; binary DXF is converted to ASCII tags first. Only the tag
    // structure is checked here (group codes, pairs, sections, end of file).
    static std::variant<DxfDocument, DxfError> parse(std::string bytes);

    RecordId first() const { return first_; }
    RecordId next(RecordId id) const { return records_[id].next; }
    RecordId previous(RecordId id) const { return records_[id].prev; }
    std::size_t recordCapacity() const { return records_.size(); }

    std::span<const DxfTag> tags(RecordId id) const;
    std::string_view type(RecordId id) const { return tags(id).front().value; }
    // The record's tags as owned copies, for editing and writing back with replace().
    std::vector<OwnedTag> copyTags(RecordId id) const;

    void replace(RecordId id, std::vector<OwnedTag> tags);
    // Links a new record in front of `before` (for instance before a table's ENDTAB).
    RecordId insertBefore(RecordId before, std::vector<OwnedTag> tags);
    void erase(RecordId id);
    bool isErased(RecordId id) const { return records_[id].erased; }

    // Line ending of the file ("\r\n" or "\n"); new records are written with it.
    std::string_view lineEnding() const { return crlf_ ? "\r\n" : "\n"; }
    bool wasBinary() const { return wasBinary_; }
    std::size_t byteSize() const { return bytes_->size(); }

    std::string serialize() const;

private:
    struct Edited {
        std::vector<OwnedTag> owned;
        std::vector<DxfTag> views;   // over `owned`, so edited records read like loaded ones
    };
    struct Record {
        std::uint32_t firstTag = 0, tagCount = 0;
        std::size_t byteBegin = 0, byteEnd = 0;
        RecordId prev = kNoRecord, next = kNoRecord;
        bool erased = false;
        std::unique_ptr<Edited> edited;
    };

    static std::unique_ptr<Edited> makeEdited(std::vector<OwnedTag> tags);
    void appendTags(std::string& out, std::span<const OwnedTag> tags) const;

    std::unique_ptr<std::string> bytes_;
    std::size_t preamble_ = 0;   // bytes before the first tag (a byte order mark)
    std::vector<DxfTag> tags_;
    std::vector<Record> records_;
    RecordId first_ = kNoRecord;
    bool crlf_ = false;
    bool wasBinary_ = false;

};

}  // namespace cadhost
