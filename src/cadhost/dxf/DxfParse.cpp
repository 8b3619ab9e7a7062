// Reading the tag structure of an ASCII DXF: group code and value lines, records,
// sections. Values are views of the file's bytes; nothing is copied.
#include <charconv>
#include <cstring>

#include "cadhost/dxf/DxfBinary.h"
#include "cadhost/dxf/DxfDocument.h"
#include "cadhost/dxf/DxfLines.h"
#include "cadhost/dxf/GroupCode.h"

namespace cadhost {

namespace {

constexpr const char* kResave =
    " Open the file in the program that made it and save it again as DXF, or open it with recovery"
    " (ardo-cad --recover).";

constexpr const char* kTruncated =
    " Use a complete copy of the drawing, or open it with recovery (ardo-cad --recover) to keep what is there.";

DxfError errorAt(std::size_t line, const std::string& what, const char* advice = kResave) {
    return {"Line " + std::to_string(line) + ": " + what + "." + advice, line};
}

using dxflines::parseCode;
using dxflines::trimBlanks;

// A line quoted in a message: control characters and bytes such as NUL would be invisible
// or cut the message short, so they are shown as escapes.
std::string visible(std::string_view line) {
    std::string out;
    for (const char c : line.substr(0, 40)) {
        const auto u = static_cast<unsigned char>(c);
        if (u == 0) {
            out += "\\0";
        } else if (u < 0x20 || u == 0x7F) {
            static const char hex[] = "0123456789ABCDEF";
            out += "\\x";
            out += hex[u >> 4];
            out += hex[u & 15];
        } else {
            out += c;
        }
    }
    return out;
}

// UTF-16 without a byte order mark: every other byte of plain text is zero.
bool looksLikeUtf16(std::string_view bytes) {
    const std::size_t n = std::min<std::size_t>(bytes.size(), 64) & ~std::size_t{1};
    if (n < 4) return false;
    std::size_t evenZeros = 0, oddZeros = 0;
    for (std::size_t i = 0; i < n; i += 2) {
        evenZeros += bytes[i] == 0;
        oddZeros += bytes[i + 1] == 0;
    }
    return evenZeros * 4 >= n * 3 / 2 || oddZeros * 4 >= n * 3 / 2;
}

// A record type is a word of capitals, digits and underscores ("3DFACE", "ACAD_TABLE").
bool looksLikeRecordType(std::string_view text) {
    bool letter = false;
    for (const char c : text) {
        if (c >= 'A' && c <= 'Z') letter = true;
        else if (!(c >= '0' && c <= '9') && c != '_' && c != '\r') return false;
    }
    return letter;
}

// The section a record found outside any section belongs in.
std::string sectionFor(std::string_view type) {
    if (type == "BLOCK" || type == "ENDBLK") return "BLOCKS";
    if (type == "CLASS") return "CLASSES";
    if (type == "TABLE" || type == "LAYER" || type == "LTYPE" || type == "STYLE" || type == "VIEW" ||
        type == "UCS" || type == "VPORT" || type == "APPID" || type == "DIMSTYLE" || type == "BLOCK_RECORD")
        return "TABLES";
    if (type.starts_with("DICTIONARY") || type == "LAYOUT" || type == "XRECORD" || type == "PLOTSETTINGS" ||
        type == "ACDBPLACEHOLDER")
        return "OBJECTS";
    return "ENTITIES";
}

}  // namespace

// Checks that sections, tables and blocks open and close in order and that the file ends
// with EOF, so that the drawing can rely on the structure. In recover mode every fault is
// mended where it stands instead.
std::optional<DxfError> DxfDocument::settleStructure(DxfReadMode mode) {
    const bool recover = mode == DxfReadMode::Recover;
    std::optional<std::string> section;   // the open section; a nameless one is open too
    std::size_t sectionLine = 0, tableLine = 0;
    bool inTable = false;
    auto closeTable = [&](RecordId before, std::size_t line) {
        if (before == kNoRecord)
            append({{0, "ENDTAB"}});
        else
            insertBefore(before, {{0, "ENDTAB"}});
        repaired(line, "The table opened at line " + std::to_string(tableLine) + " was closed with ENDTAB.");
        inTable = false;
    };
    auto closeSection = [&](RecordId before, std::size_t line) {
        if (before == kNoRecord)
            append({{0, "ENDSEC"}});
        else
            insertBefore(before, {{0, "ENDSEC"}});
        repaired(line, "Section " + *section + " (line " + std::to_string(sectionLine) + ") was closed with ENDSEC.");
        section.reset();
    };
    const std::string unclosedTable = "a TABLE is not closed with ENDTAB";
    for (RecordId id = first_, next = kNoRecord; id != kNoRecord; id = next) {
        next = records_[id].next;
        // Only the type of each record is read, and the head of a section's, so that
        // checking stays light on memory and time.
        const std::string_view type = this->type(id);
        const std::size_t line = records_[id].line;
        const std::size_t tagCount = records_[id].tagCount;
        if (type == "EOF" || type == "SECTION") {
            if (inTable) {
                if (!recover) return errorAt(tableLine, unclosedTable);
                closeTable(id, line);
            }
            if (section) {
                if (!recover) return errorAt(sectionLine, "section " + *section + " is not closed with ENDSEC");
                closeSection(id, line);
            }
            if (type == "EOF") return std::nullopt;
            const Head head = this->head(id);
            if (!head.second || head.second->code != 2) {
                if (!recover) return errorAt(line, "a SECTION must be followed by its name (group 2)");
                erase(id);
                repaired(line, "A SECTION without its name (group 2) was left out.");
                continue;
            }
            section = std::string(head.second->value);
            sectionLine = line;
            continue;
        }
        if (!section) {
            if (!recover) return errorAt(line, "\"" + std::string(type) + "\" stands outside any section");
            if (type == "ENDSEC" || type == "ENDTAB") {
                erase(id);
                repaired(line, std::string(type) + " outside any section was left out.");
                continue;
            }
            section = sectionFor(type);
            sectionLine = line;
            insertBefore(id, {{0, "SECTION"}, {2, *section}});
            repaired(line, "\"" + std::string(type) + "\" stood outside any section; section " + *section + " was opened for it.");
        }
        if (type == "ENDSEC") {
            if (inTable) {
                if (!recover) return errorAt(tableLine, unclosedTable);
                closeTable(id, line);
            }
            if (recover && tagCount > 1) {
                replace(id, {{0, "ENDSEC"}});
                repaired(line, std::to_string(tagCount - 1) + " tags after ENDSEC belong to no record and were left out.");
            }
            section.reset();
        } else if (type == "TABLE") {
            if (inTable) {
                if (!recover) return errorAt(tableLine, unclosedTable);
                closeTable(id, line);
            }
            inTable = true;
            tableLine = line;
        } else if (type == "ENDTAB") {
            if (!inTable) {
                if (!recover) return errorAt(line, "ENDTAB without TABLE");
                erase(id);
                repaired(line, "ENDTAB without TABLE was left out.");
                continue;
            }
            inTable = false;
        } else if (recover && section == std::string("TABLES") && !inTable) {
            insertBefore(id, {{0, "TABLE"}, {2, std::string(type)}, {70, "0"}});
            inTable = true;
            tableLine = line;
            repaired(line, "\"" + std::string(type) + "\" stood outside any table; table " + std::string(type) + " was opened for it.");
        }
    }
    if (!recover)
        return errorAt(lastLine_, "the file ends here with no end-of-file marker (0 EOF); it is truncated", kTruncated);
    if (inTable) closeTable(kNoRecord, lastLine_);
    if (section) closeSection(kNoRecord, lastLine_);
    append({{0, "EOF"}});
    repaired(lastLine_, "The file ends at line " + std::to_string(lastLine_) + " without 0 EOF; the marker was added.");
    return std::nullopt;
}

std::variant<DxfDocument, DxfError> DxfDocument::parse(std::string bytes, DxfReadMode mode) {
    const bool recover = mode == DxfReadMode::Recover;
    DxfDocument doc;
    // A binary file is read through its text equivalent; its records keep the byte ranges
    // of the binary file, so that it is written back in the form it came in.
    std::vector<std::size_t> binaryOffsets;
    if (isBinaryDxf(bytes)) {
        auto text = binaryDxfToText(bytes);
        if (auto* e = std::get_if<DxfError>(&text)) return *e;
        auto& converted = std::get<BinaryDxfText>(text);
        doc.binary_ = std::make_unique<std::string>(std::move(bytes));
        bytes = std::move(converted.text);
        binaryOffsets = std::move(converted.tagOffsets);
        doc.oneByteCodes_ = !converted.twoByteCodes;
        doc.wasBinary_ = true;
    }
    std::size_t tagNo = 0;   // number of the tag being read, for the binary byte ranges
    auto sourceOffset = [&](std::size_t textOffset, std::size_t tag) {
        return binaryOffsets.empty() ? textOffset : binaryOffsets[std::min(tag, binaryOffsets.size() - 1)];
    };
    if (bytes.size() >= 2 && ((bytes[0] == '\xff' && bytes[1] == '\xfe') || (bytes[0] == '\xfe' && bytes[1] == '\xff')))
        return DxfError{"The file is UTF-16 text, which DXF never is. Save it again as DXF in the program that made it.", 0};
    if (looksLikeUtf16(bytes))
        return DxfError{"The file looks like UTF-16 text without a byte order mark (every other byte is NUL), which "
                        "DXF never is. Save it again as DXF in the program that made it.",
                        1};
    if (bytes.compare(0, 3, "\xef\xbb\xbf") == 0) doc.preamble_ = 3;

    doc.bytes_ = std::make_unique<std::string>(std::move(bytes));
    const std::size_t n = doc.bytes_->size();
    // Reserved room is not resident until used, so a generous guess costs nothing and
    // saves the copies of a growing vector.
    doc.records_.reserve(n / 16 + 16);
    dxflines::LineCursor lines(*doc.bytes_, doc.preamble_);
    std::uint32_t line = 1;
    bool sawEof = false, recordOpen = false, junkBefore = false;
    {
        std::string_view first;
        dxflines::LineCursor probe(*doc.bytes_, doc.preamble_);
        doc.crlf_ = probe.next(first) && probe.pos() >= 2 && (*doc.bytes_)[probe.pos() - 2] == '\r';
    }
    // Recover mode: the current record ends before `at`; reading goes on at the next line
    // that reads as group code 0 followed by a record type.
    auto skipToNextRecord = [&](std::size_t at, std::uint32_t fromLine, const std::string& why) {
        if (recordOpen) doc.records_.back().byteEnd = sourceOffset(at, tagNo);
        recordOpen = false;
        std::string_view text;
        std::size_t lineStart = lines.pos();
        std::uint32_t l = line;
        while (lines.next(text)) {
            if (trimBlanks(text) == "0") {
                std::string_view type;
                const std::size_t afterCode = lines.pos();
                if (lines.next(type) && looksLikeRecordType(type)) {
                    lines.seek(lineStart);
                    break;
                }
                lines.seek(afterCode);
            }
            ++l;
            lineStart = lines.pos();
        }
        line = l;
        doc.repaired(fromLine, why + "; lines " + std::to_string(fromLine) + " to " + std::to_string(l - 1) +
                                   " were left out.");
    };
    while (!lines.atEnd() && !sawEof) {
        const std::size_t tagStart = lines.pos();
        const std::uint32_t codeLine = line;
        std::string_view codeText, value;
        int code = 0;
        bool isCode = false;
        lines.nextCode(codeText, code, isCode);
        if (doc.records_.empty() && trimBlanks(codeText).empty() && lines.atEnd()) break;
        if (!isCode) {
            const std::string what = "a DXF group code (a whole number from -5 to 1071) was expected, but the line reads \"" +
                                     visible(codeText) + "\"";
            if (!recover) return errorAt(codeLine, what);
            ++line;
            skipToNextRecord(tagStart, codeLine, "Line " + std::to_string(codeLine) + ": " + what);
            continue;
        }
        if (!lines.next(value)) {
            const std::string what = "group code " + std::to_string(code) + " has no value line; the file is truncated";
            if (!recover) return errorAt(codeLine, what, kTruncated);
            if (recordOpen) doc.records_.back().byteEnd = sourceOffset(tagStart, tagNo);
            recordOpen = false;
            line = codeLine + 1;
            doc.repaired(codeLine, "The file ends inside a tag; group code " + std::to_string(code) + " was left out.");
            break;
        }
        line += 2;
        if (code != 0 && doc.records_.empty()) {
            if (code != 999) {
                if (!recover) return errorAt(codeLine, "the file must begin with 0 SECTION");
                if (!junkBefore) doc.repaired(codeLine, "Tags before the first record were left out.");
                junkBefore = true;
                ++tagNo;
                continue;
            }
            if (!junkBefore) doc.preamble_ = sourceOffset(lines.pos(), tagNo + 1);   // leading comments are kept as bytes
            ++tagNo;
            continue;
        }
        if (code == 0) {
            if (doc.records_.empty()) doc.padCodes_ = codeText.starts_with(' ');
            if (recordOpen) doc.records_.back().byteEnd = sourceOffset(tagStart, tagNo);
            Record& r = doc.records_.emplace_back();
            r.textBegin = tagStart;
            r.type = value;
            r.byteBegin = sourceOffset(tagStart, tagNo);
            r.line = codeLine;
            const auto id = static_cast<RecordId>(doc.records_.size() - 1);
            if (id > 0) {
                r.prev = id - 1;
                doc.records_[id - 1].next = id;
            }
            recordOpen = true;
            sawEof = value == "EOF";
        }
        ++doc.records_.back().tagCount;
        ++tagNo;
    }
    doc.lastLine_ = line > 1 ? line - 1 : 1;
    if (!doc.records_.empty()) {
        if (doc.binary_) doc.preamble_ = doc.records_.front().byteBegin;   // the sentinel and leading comments
        if (recordOpen) doc.records_.back().byteEnd = doc.source().size();   // whatever follows EOF stays with it
        doc.first_ = 0;
    }
    if (auto e = doc.settleStructure(mode)) {
        // Lines mean nothing in a binary file: name the tag (each tag is two lines of its text).
        if (doc.wasBinary_ && e->line > 0) {
            const std::string prefix = "Line " + std::to_string(e->line) + ": ";
            e->message = "Binary DXF, tag " + std::to_string((e->line + 1) / 2) + ": " + e->message.substr(prefix.size());
        }
        return *e;
    }
    return doc;
}

}  // namespace cadhost
