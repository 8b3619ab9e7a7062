#include "cadhost/dxf/DxfDocument.h"

namespace cadhost {

std::span<const DxfTag> DxfDocument::tags(RecordId id) const {
    const Record& r = records_[id];
    if (r.edited) return r.edited->views;
    return {tags_.data() + r.firstTag, r.tagCount};
}

std::vector<OwnedTag> DxfDocument::copyTags(RecordId id) const {
    std::vector<OwnedTag> out;
    for (const DxfTag& t : tags(id)) out.push_back({t.code, std::string(t.value)});
    return out;
}

std::unique_ptr<DxfDocument::Edited> DxfDocument::makeEdited(std::vector<OwnedTag> tags) {
    auto e = std::make_unique<Edited>();
    e->owned = std::move(tags);
    e->views.reserve(e->owned.size());
    for (const OwnedTag& t : e->owned) e->views.push_back({t.value, t.code, 0});
    return e;
}

void DxfDocument::replace(RecordId id, std::vector<OwnedTag> tags) {
    records_[id].edited = makeEdited(std::move(tags));
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
    return id;
}

void DxfDocument::erase(RecordId id) { records_[id].erased = true; }

void DxfDocument::appendTags(std::string& out, std::span<const OwnedTag> tags) const {
    const std::string_view eol = lineEnding();
    for (const OwnedTag& t : tags) {
        // Group codes are right-aligned in three columns, as CAD programs write them.
        std::string code = std::to_string(t.code);
        if (code.size() < 3) out.append(3 - code.size(), ' ');
        out += code;
        out += eol;
        out += t.value;
        out += eol;
    }
}

std::string DxfDocument::serialize() const {
    std::string out;
    out.reserve(bytes_->size() + 4096);
    out.append(*bytes_, 0, preamble_);
    for (RecordId id = first_; id != kNoRecord; id = records_[id].next) {
        const Record& r = records_[id];
        if (r.erased) continue;
        if (r.edited)
            appendTags(out, r.edited->owned);
        else
            out.append(bytes_->data() + r.byteBegin, r.byteEnd - r.byteBegin);
    }
    return out;
}

}  // namespace cadhost
