#include "cadhost/dxf/DxfDocument.h"

#include <charconv>
#include <utility>

#include "cadhost/dxf/DxfBinary.h"
#include "cadhost/dxf/DxfLines.h"
#include "cadhost/dxf/DxfText.h"

namespace cadhost {

template <class Visit>
void DxfDocument::readTags(const Record& r, std::uint32_t count, Visit&& visit) const {
    // The first reading checked every line, so the lines are known to be whole tags.
    dxflines::LineCursor lines(*bytes_, r.textBegin);
    std::string_view codeText, value;
    for (std::uint32_t k = 0; k < count && lines.next(codeText) && lines.next(value); ++k) {
        int code = 0;
        dxflines::parseCode(codeText, code);
        visit(DxfTag{value, code, r.line + 2 * k});
    }
}

std::span<const DxfTag> DxfDocument::tags(RecordId id) const {
    const Record& r = records_[id];
    if (r.edited) return r.edited->views;
    if (!r.parsed) {
        auto parsed = std::make_unique<std::vector<DxfTag>>();
        parsed->reserve(r.tagCount);
        readTags(r, r.tagCount, [&](const DxfTag& t) { parsed->push_back(t); });
        r.parsed = std::move(parsed);
    }
    return *r.parsed;
}

std::string_view DxfDocument::type(RecordId id) const {
    const Record& r = records_[id];
    return r.edited ? r.edited->views.front().value : r.type;
}

DxfDocument::Head DxfDocument::head(RecordId id) const {
    const Record& r = records_[id];
    if (r.edited || r.parsed) {
        const auto all = tags(id);
        return {all[0], all.size() > 1 ? std::optional<DxfTag>(all[1]) : std::nullopt};
    }
    Head h;
    std::uint32_t k = 0;
    readTags(r, std::min<std::uint32_t>(2, r.tagCount), [&](const DxfTag& t) {
        if (k++ == 0)
            h.type = t;
        else
            h.second = t;
    });
    return h;
}

std::vector<OwnedTag> DxfDocument::copyTags(RecordId id) const {
    std::vector<OwnedTag> out;
    for (const DxfTag& t : tags(id)) out.push_back({t.code, std::string(t.value)});
    return out;
}

namespace {

// What a kept record content costs: its tags and their texts beyond the small-string buffer.
template <class Edited>
std::size_t editedBytes(const Edited* e) {
    if (!e) return 0;
    std::size_t bytes = sizeof(Edited) + e->owned.capacity() * sizeof(e->owned[0]) + e->views.capacity() * sizeof(e->views[0]);
    for (const auto& t : e->owned)
        if (t.value.capacity() > sizeof(std::string)) bytes += t.value.capacity();
    return bytes;
}

}  // namespace

std::unique_ptr<DxfDocument::Edited> DxfDocument::makeEdited(std::vector<OwnedTag> tags) {
    auto e = std::make_unique<Edited>();
    e->owned = std::move(tags);
    e->views.reserve(e->owned.size());
    for (const OwnedTag& t : e->owned) e->views.push_back({t.value, t.code, 0});
    return e;
}

void DxfDocument::replace(RecordId id, std::vector<OwnedTag> tags) {
    auto edited = makeEdited(std::move(tags));
    if (recording_) {
        Edits::Edit edit{id, false, std::move(edited)};
        swapEdit(edit);
        pending_.bytes_ += sizeof(Edits::Edit) + editedBytes(edit.other.get());
        pending_.edits_.push_back(std::move(edit));
        return;
    }
    records_[id].edited = std::move(edited);
    ++records_[id].revision;
    ++changes_;
}

void DxfDocument::keepToggle(RecordId id) {
    if (!recording_) return;
    pending_.edits_.push_back({id, true, nullptr});
    pending_.bytes_ += sizeof(Edits::Edit);
}

void DxfDocument::swapEdit(Edits::Edit& edit) {
    Record& r = records_[edit.id];
    if (edit.toggle)
        r.erased = !r.erased;
    else
        std::swap(r.edited, edit.other);
    ++r.revision;
    ++changes_;
}

DxfDocument::Edits DxfDocument::takeEdits() { return std::exchange(pending_, Edits{}); }

void DxfDocument::revert(Edits& edits) {
    for (auto it = edits.edits_.rbegin(); it != edits.edits_.rend(); ++it) swapEdit(*it);
}

void DxfDocument::reapply(Edits& edits) {
    for (Edits::Edit& edit : edits.edits_) swapEdit(edit);
}

std::vector<RecordId> DxfDocument::Edits::records() const {
    std::vector<RecordId> out;
    out.reserve(edits_.size());
    for (const Edit& edit : edits_) out.push_back(edit.id);
    return out;
}

RecordId DxfDocument::insertBefore(RecordId before, std::vector<OwnedTag> tags) {
    const auto id = static_cast<RecordId>(records_.size());
    Record r;
    r.edited = makeEdited(std::move(tags));
    r.next = before;
    r.prev = records_[before].prev;
    records_.push_back(std::move(r));
    if (records_[id].prev == kNoRecord)
        first_ = id;
    else
        records_[records_[id].prev].next = id;
    records_[before].prev = id;
    ++changes_;
    keepToggle(id);
    return id;
}

RecordId DxfDocument::append(std::vector<OwnedTag> tags) {
    const auto id = static_cast<RecordId>(records_.size());
    Record r;
    r.edited = makeEdited(std::move(tags));
    RecordId last = first_;
    while (last != kNoRecord && records_[last].next != kNoRecord) last = records_[last].next;
    r.prev = last;
    records_.push_back(std::move(r));
    if (last == kNoRecord)
        first_ = id;
    else
        records_[last].next = id;
    ++changes_;
    keepToggle(id);
    return id;
}

void DxfDocument::restore(RecordId id) {
    if (!records_[id].erased) return;
    records_[id].erased = false;
    ++records_[id].revision;
    ++changes_;
    keepToggle(id);
}

void DxfDocument::erase(RecordId id) {
    if (records_[id].erased) return;
    records_[id].erased = true;
    ++records_[id].revision;
    ++changes_;
    keepToggle(id);
}

template <class Tag>
void DxfDocument::appendTags(std::string& out, std::span<const Tag> tags, DxfForm form, bool oneByteCodes) const {
    if (form == DxfForm::Binary) {
        for (const Tag& t : tags) appendBinaryTag(out, t.code, t.value, oneByteCodes);
        return;
    }
    const std::string_view eol = lineEnding();
    for (const Tag& t : tags) {
        // Group codes are written as the file writes them: right-aligned in three columns
        // as CAD programs do, or without blanks as some libraries do.
        char code[8];
        const auto end = std::to_chars(code, code + sizeof code, t.code).ptr;
        if (padCodes_ && end - code < 3) out.append(static_cast<std::size_t>(3 - (end - code)), ' ');
        out.append(code, end);
        out += eol;
        // A line break inside a value would end it early and leave a file no reader can
        // read again; control characters are written in caret form.
        if (std::string_view(t.value).find_first_of("\r\n") == std::string_view::npos)
            out += t.value;
        else
            out += caretEncode(t.value);
        out += eol;
    }
}

std::string DxfDocument::serialize(DxfForm form, bool oneByteCodes) const { return serialize(form, oneByteCodes, Substitute{}); }

std::string DxfDocument::serialize(DxfForm form, bool oneByteCodes, Substitute inPlaceOf) const {
    const std::string& source = this->source();
    const bool asRead = form == this->form();
    if (wasBinary_) oneByteCodes = oneByteCodes_;
    std::string out;
    out.reserve(source.size() + 4096);
    if (asRead)
        out.append(source, 0, preamble_);
    else if (form == DxfForm::Binary)
        out += binaryDxfSentinel();
    // Untouched records that follow each other in the file are copied in one piece.
    std::size_t runBegin = 0, runEnd = 0;
    auto flush = [&] {
        out.append(source.data() + runBegin, runEnd - runBegin);
        runBegin = runEnd = 0;
    };
    for (RecordId id = first_; id != kNoRecord; id = records_[id].next) {
        const Record& r = records_[id];
        if (r.erased) continue;
        const bool substituted = id == inPlaceOf.id;
        if (asRead && !r.edited && !substituted && runEnd == r.byteBegin && runEnd != 0) {
            runEnd = r.byteEnd;
            continue;
        }
        flush();
        // A file cut off inside a line leaves its last record without a line end.
        if (form == DxfForm::Ascii && !out.empty() && out.back() != '\n' && out.size() > preamble_) out += lineEnding();
        if (substituted) {
            appendTags(out, std::span<const OwnedTag>(*inPlaceOf.tags), form, oneByteCodes);
        } else if (r.edited) {
            appendTags(out, std::span<const OwnedTag>(r.edited->owned), form, oneByteCodes);
        } else if (asRead) {
            runBegin = r.byteBegin;
            runEnd = r.byteEnd;
        } else {
            appendTags(out, tags(id), form, oneByteCodes);
        }
    }
    flush();
    return out;
}

}  // namespace cadhost
