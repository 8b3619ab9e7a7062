// The DXF writer: a file that reads is changed (a layer's name, a value and a handle),
// written in both forms and read again; the second reading must give exactly the tags the
// changed file had, record for record.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "cadhost/dxf/DxfDocument.h"
#include "cadhost/dxf/DxfText.h"

namespace {

using cadhost::DxfDocument;
using cadhost::kNoRecord;
using cadhost::OwnedTag;
using cadhost::RecordId;

std::vector<std::vector<OwnedTag>> allTags(const DxfDocument& doc) {
    std::vector<std::vector<OwnedTag>> out;
    for (RecordId id = doc.first(); id != kNoRecord; id = doc.next(id))
        if (!doc.isErased(id)) out.push_back(doc.copyTags(id));
    return out;
}

// Text values come back as they were; a value that had to be written with a line break in
// caret form comes back in that form. A value read with a lone carriage return is written
// as it was, so it comes back unchanged. A binary file keeps numbers as numbers, whose text
// comes back in its shortest form, so only the codes are compared there.
bool sameValue(const std::string& written, const std::string& read) {
    if (written == read) return true;
    return written.find_first_of("\r\n") != std::string::npos && cadhost::caretDecode(read) == written;
}

bool sameRecords(const DxfDocument& a, const DxfDocument& b, bool exactText) {
    const auto x = allTags(a), y = allTags(b);
    if (x.size() != y.size()) return false;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (x[i].size() != y[i].size()) return false;
        for (std::size_t k = 0; k < x[i].size(); ++k)
            if (x[i][k].code != y[i][k].code || (exactText && !sameValue(x[i][k].value, y[i][k].value))) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    auto parsed = DxfDocument::parse(bytes);
    auto* doc = std::get_if<DxfDocument>(&parsed);
    if (!doc) return 0;
    // Unchanged, the file is written back as it was read.
    if (doc->serialize() != bytes) __builtin_trap();
    // The edits: the first record with a name gets a new one with a line break in it, the
    // first with a handle a new handle, the first with a colour a new colour.
    bool named = false, handled = false, coloured = false;
    for (RecordId id = doc->first(); id != kNoRecord; id = doc->next(id)) {
        std::vector<OwnedTag> tags = doc->copyTags(id);
        bool changed = false;
        for (OwnedTag& t : tags) {
            if (t.code == 2 && !named) { t.value = "Neu\n" + t.value; named = changed = true; }
            else if (t.code == 5 && !handled) { t.value = "FFFE"; handled = changed = true; }
            else if (t.code == 62 && !coloured) { t.value = "3"; coloured = changed = true; }
        }
        if (changed) doc->replace(id, std::move(tags));
    }
    for (const auto form : {cadhost::DxfForm::Ascii, cadhost::DxfForm::Binary}) {
        auto again = DxfDocument::parse(doc->serialize(form));
        auto* read = std::get_if<DxfDocument>(&again);
        if (!read) __builtin_trap();   // what we write must read back
        if (!sameRecords(*doc, *read, form == cadhost::DxfForm::Ascii)) __builtin_trap();
    }
    return 0;
}
