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

// What reading in recover mode changed to make a damaged file whole.
struct DxfRepair {
    std::size_t line = 0;    // line of the file the repair was made at
    std::string what;        // a complete sentence
};

// Strict refuses a damaged file; Recover rebuilds the section and table structure around
// what it finds, keeps every record it can and lists each repair.
enum class DxfReadMode { Strict, Recover };

// The two forms of a DXF file: text, or the binary form with its sentinel.
enum class DxfForm { Ascii, Binary };

class DxfDocument {
public:
    // Reads ASCII DXF; binary DXF is converted to ASCII tags first. Only the tag
    // structure is checked here (group codes, pairs, sections, end of file).
    static std::variant<DxfDocument, DxfError> parse(std::string bytes, DxfReadMode mode = DxfReadMode::Strict);
    // The repairs a recovering read made, in file order; empty for a sound file.
    const std::vector<DxfRepair>& repairs() const { return repairs_; }

    RecordId first() const { return first_; }
    RecordId next(RecordId id) const { return records_[id].next; }
    RecordId previous(RecordId id) const { return records_[id].prev; }
    std::size_t recordCapacity() const { return records_.size(); }

    // The record's tags. A record read from the file is split into tags on first use.
    std::span<const DxfTag> tags(RecordId id) const;
    // The first two tags (the type and, for most records, the handle), read without the
    // rest of the record; `second` is empty for a record of one tag.
    struct Head {
        DxfTag type;
        std::optional<DxfTag> second;
    };
    Head head(RecordId id) const;
    std::string_view type(RecordId id) const;
    // The record's tags as owned copies, for editing and writing back with replace().
    std::vector<OwnedTag> copyTags(RecordId id) const;

    void replace(RecordId id, std::vector<OwnedTag> tags);
    // Links a new record in front of `before` (for instance before a table's ENDTAB).
    RecordId insertBefore(RecordId before, std::vector<OwnedTag> tags);
    // Links a new record at the end.
    RecordId append(std::vector<OwnedTag> tags);
    void erase(RecordId id);
    // Brings an erased record back where it was.
    void restore(RecordId id);
    bool isErased(RecordId id) const { return records_[id].erased; }
    // How often the record was replaced or erased: what was read from it is still true
    // while this stays the same (ids are never used twice).
    std::uint32_t revision(RecordId id) const { return records_[id].revision; }
    // Every replace, insertion and erasure counts: unchanged since a moment while this
    // stays the same.
    std::uint64_t changeCount() const { return changes_; }

    // Undo: while recording, every replace, insertion and erasure is kept so that it can be
    // taken back and made again. Each kept edit holds what it replaced, so reverting swaps
    // the record back and reapplying swaps it forward; records are never freed or moved,
    // which keeps the swaps valid in strict reverse order.
private:
    struct Edited;
public:
    class Edits {
    public:
        bool empty() const { return edits_.empty(); }
        // Memory the kept edits hold, for the undo budget.
        std::size_t bytes() const { return bytes_; }
        // The records the edits touched, oldest first (a record may come more than once).
        std::vector<RecordId> records() const;

    private:
        friend class DxfDocument;
        struct Edit {
            RecordId id = kNoRecord;
            bool toggle = false;               // an insertion or erasure: flips the erased flag
            std::unique_ptr<Edited> other;     // a replace: the record's other content
        };
        std::vector<Edit> edits_;
        std::size_t bytes_ = 0;
    };
    void setRecording(bool on) { recording_ = on; }
    // The edits made since the last call.
    Edits takeEdits();
    void revert(Edits& edits);
    void reapply(Edits& edits);

    // Line ending of the file ("\r\n" or "\n"); new records are written with it.
    std::string_view lineEnding() const { return crlf_ ? "\r\n" : "\n"; }
    bool wasBinary() const { return wasBinary_; }
    DxfForm form() const { return wasBinary_ ? DxfForm::Binary : DxfForm::Ascii; }
    std::size_t byteSize() const { return source().size(); }

    // The file in the form it was read in: untouched records are copied as they were.
    std::string serialize() const { return serialize(form()); }
    // The file in the given form; records are copied as bytes when the form is the one
    // read, and written from their tags otherwise. `oneByteCodes` chooses the group codes
    // of Release 12 when text is turned into binary.
    // `in place of` writes one record from other tags without changing the document (a
    // value kept outside the records until saving, such as the next handle).
    struct Substitute {
        RecordId id = kNoRecord;
        const std::vector<OwnedTag>* tags = nullptr;
    };
    std::string serialize(DxfForm form, bool oneByteCodes = false) const;
    std::string serialize(DxfForm form, bool oneByteCodes, Substitute inPlaceOf) const;

private:
    struct Edited {
        std::vector<OwnedTag> owned;
        std::vector<DxfTag> views;   // over `owned`, so edited records read like loaded ones
    };
    // One allocation-free entry per record while loading; its tags are read when asked for.
    struct Record {
        std::string_view type;                   // value of the group 0 tag, kept as it is asked often
        std::size_t textBegin = 0;               // first tag in the text bytes
        std::size_t byteBegin = 0, byteEnd = 0;  // the record's bytes in source()
        std::uint32_t line = 0, tagCount = 0;    // line of the first tag
        RecordId prev = kNoRecord, next = kNoRecord;
        bool erased = false;
        std::uint32_t revision = 0;
        std::unique_ptr<Edited> edited;
        mutable std::unique_ptr<std::vector<DxfTag>> parsed;
    };
    template <class Visit>
    void readTags(const Record& r, std::uint32_t count, Visit&& visit) const;

    static std::unique_ptr<Edited> makeEdited(std::vector<OwnedTag> tags);
    template <class Tag>
    void appendTags(std::string& out, std::span<const Tag> tags, DxfForm form, bool oneByteCodes) const;
    // The bytes the records' byte ranges refer to: the binary file for a binary drawing.
    const std::string& source() const { return binary_ ? *binary_ : *bytes_; }
    std::optional<DxfError> settleStructure(DxfReadMode mode);
    void repaired(std::size_t line, std::string what) { repairs_.push_back({line, std::move(what)}); }

    std::unique_ptr<std::string> bytes_;
    std::unique_ptr<std::string> binary_;   // the file as read, when it was binary
    std::size_t preamble_ = 0;   // bytes before the first tag (a byte order mark)
    std::vector<Record> records_;
    RecordId first_ = kNoRecord;
    bool crlf_ = false;
    bool wasBinary_ = false;
    bool oneByteCodes_ = false;   // a binary file of Release 12
    bool padCodes_ = true;        // group codes right-aligned in three columns, as most writers do
    std::uint32_t lastLine_ = 0;   // number of the file's last line
    std::vector<DxfRepair> repairs_;
    std::uint64_t changes_ = 0;
    bool recording_ = false;
    Edits pending_;
    void keepToggle(RecordId id);
    void swapEdit(Edits::Edit& edit);
};

}  // namespace cadhost
