// Reading the tag structure of an ASCII DXF: group code and value lines, records,
// sections. Values are views of the file's bytes; nothing is copied.
#include <charconv>
#include <cstring>

#include "cadhost/dxf/DxfBinary.h"
#include "cadhost/dxf/DxfDocument.h"
#include "cadhost/dxf/GroupCode.h"

namespace cadhost {

namespace {

constexpr const char* kResave = " Open the file in the program that made it and save it again as DXF.";

DxfError errorAt(std::size_t line, const std::string& what, const char* advice = kResave) {
    return {"Line " + std::to_string(line) + ": " + what + "." + advice, line};
}

std::string_view trimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

bool parseCode(std::string_view text, int& code) {
    text = trimBlanks(text);
    if (text.empty()) return false;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), code);
    return ec == std::errc() && end == text.data() + text.size() && isValidGroupCode(code);
}

// Checks that sections, tables and blocks open and close in order and that the file ends
// with EOF, so that the drawing can rely on the structure.
std::optional<DxfError> checkStructure(const DxfDocument& doc) {
    std::string_view section;
    std::size_t sectionLine = 0, tableLine = 0;
    bool inTable = false;
    for (RecordId id = doc.first(); id != kNoRecord; id = doc.next(id)) {
        const auto tags = doc.tags(id);
        const std::string_view type = tags[0].value;
        const std::size_t line = tags[0].line;
        if (type == "EOF") {
            if (!section.empty())
                return errorAt(sectionLine, "section " + std::string(section) + " is not closed with ENDSEC");
            return std::nullopt;
        }
        if (type == "SECTION") {
            if (!section.empty())
                return errorAt(sectionLine, "section " + std::string(section) + " is not closed with ENDSEC");
            if (tags.size() < 2 || tags[1].code != 2)
                return errorAt(line, "a SECTION must be followed by its name (group 2)");
            section = tags[1].value;
            sectionLine = line;
            continue;
        }
        if (section.empty())
            return errorAt(line, "\"" + std::string(type) + "\" stands outside any section");
        if (type == "ENDSEC") {
            if (inTable) return errorAt(tableLine, "a TABLE is not closed with ENDTAB");
            section = {};
        } else if (type == "TABLE") {
            if (inTable) return errorAt(tableLine, "a TABLE is not closed with ENDTAB");
            inTable = true;
            tableLine = line;
        } else if (type == "ENDTAB") {
            if (!inTable) return errorAt(line, "ENDTAB without TABLE");
            inTable = false;
        }
    }
    return errorAt(doc.first() == kNoRecord ? 1 : doc.tags(doc.first())[0].line,
                   "the file has no end-of-file marker (0 EOF); it is truncated",
                   " Use a complete copy of the drawing.");
}

}  // namespace

std::variant<DxfDocument, DxfError> DxfDocument::parse(std::string bytes) {
    DxfDocument doc;
    if (isBinaryDxf(bytes)) {
        auto text = binaryDxfToText(bytes);
        if (auto* e = std::get_if<DxfError>(&text)) return *e;
        bytes = std::move(std::get<std::string>(text));
        doc.wasBinary_ = true;
    }
    if (bytes.size() >= 2 && ((bytes[0] == '\xff' && bytes[1] == '\xfe') || (bytes[0] == '\xfe' && bytes[1] == '\xff')))
        return DxfError{"The file is UTF-16 text, which DXF never is. Save it again as DXF in the program that made it.", 0};
    if (bytes.compare(0, 3, "\xef\xbb\xbf") == 0) doc.preamble_ = 3;

    doc.bytes_ = std::make_unique<std::string>(std::move(bytes));
    const char* data = doc.bytes_->data();
    const std::size_t n = doc.bytes_->size();
    doc.tags_.reserve(n / 14);
    std::size_t pos = doc.preamble_;
    std::uint32_t line = 1;
    bool sawEof = false;
    {
        const void* nl = std::memchr(data + pos, '\n', n - pos);
        doc.crlf_ = nl && static_cast<const char*>(nl) > data + pos && static_cast<const char*>(nl)[-1] == '\r';
    }
    auto nextLine = [&](std::string_view& text) {
        if (pos >= n) return false;
        const void* nl = std::memchr(data + pos, '\n', n - pos);
        const std::size_t end = nl ? static_cast<const char*>(nl) - data : n;
        text = std::string_view(data + pos, end - pos);
        if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
        pos = nl ? end + 1 : n;
        return true;
    };
    while (pos < n && !sawEof) {
        const std::size_t tagStart = pos;
        const std::uint32_t codeLine = line;
        std::string_view codeText, value;
        nextLine(codeText);
        if (doc.records_.empty() && trimBlanks(codeText).empty() && pos >= n) break;
        int code = 0;
        if (!parseCode(codeText, code))
            return errorAt(codeLine, "a DXF group code (a whole number from -5 to 1071) was expected, but the line reads \"" +
                                         std::string(codeText.substr(0, 40)) + "\"");
        if (!nextLine(value))
            return errorAt(codeLine, "group code " + std::to_string(code) + " has no value line; the file is truncated",
                           " Use a complete copy of the drawing.");
        line += 2;
        if (code != 0 && doc.records_.empty()) {
            if (code != 999) return errorAt(codeLine, "the file must begin with 0 SECTION");
            doc.preamble_ = pos;   // leading comments are kept as bytes
            continue;
        }
        if (code == 0) {
            if (!doc.records_.empty()) doc.records_.back().byteEnd = tagStart;
            Record r;
            r.firstTag = static_cast<std::uint32_t>(doc.tags_.size());
            r.byteBegin = tagStart;
            r.prev = doc.records_.empty() ? kNoRecord : static_cast<RecordId>(doc.records_.size() - 1);
            if (!doc.records_.empty()) doc.records_.back().next = static_cast<RecordId>(doc.records_.size());
            doc.records_.push_back(std::move(r));
            sawEof = value == "EOF";
        }
        doc.tags_.push_back({value, code, codeLine});
        ++doc.records_.back().tagCount;
    }
    if (!doc.records_.empty()) {
        doc.records_.back().byteEnd = n;   // whatever follows EOF stays with it
        doc.first_ = 0;
    }
    if (auto e = checkStructure(doc)) return *e;
    return doc;
}

}  // namespace cadhost
