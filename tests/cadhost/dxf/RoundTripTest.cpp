// Unchanged drawings come back byte for byte, ASCII and binary alike; changed ones differ
// only where they changed.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/dxf/DxfBinary.h"
#include "cadhost/dxf/DxfText.h"

namespace cadhost {
namespace {

using test::readBytes;

TEST(RoundTrip, EveryCorpusFileComesBackUnchanged) {
    const auto files = test::corpusFiles();
    if (files.empty()) GTEST_SKIP() << "no DXF corpus beside the source tree";
    for (const auto& path : files) {
        const std::string bytes = readBytes(path);
        Drawing d = test::openCorpusFile(path);
        const std::string out = d.toDxf();
        if (test::isDamagedCorpusFile(path)) {
            // A recovered drawing is written whole: it opens without recovery and stays as it is.
            Drawing again = test::parseOrFail(out);
            EXPECT_TRUE(again.toDxf() == out) << path;
            EXPECT_EQ(again.entityCount(), d.entityCount()) << path;
            EXPECT_GT(again.entityCount(), 0u) << path;
        } else {
            EXPECT_EQ(isBinaryDxf(out), isBinaryDxf(bytes)) << path;
            EXPECT_TRUE(out == bytes) << path << " changed on a round trip without edits";
        }
    }
}

TEST(RoundTrip, FixturesWithoutCorpusStillRoundTrip) {
    for (const char* name : {"r12_minimal.dxf", "r2000_crlf.dxf"}) {
        const std::string bytes = readBytes(test::fixture(name));
        ASSERT_FALSE(bytes.empty()) << name;
        EXPECT_TRUE(test::parseOrFail(bytes).toDxf() == bytes) << name;
    }
}

// The text with line feeds for line ends and the value of $HANDSEED left out, which a new
// record with a handle changes.
std::string withoutHandseed(std::string s) {
    std::erase(s, '\r');
    const auto var = s.find("$HANDSEED");
    if (var == std::string::npos) return s;
    const auto valueLine = s.find('\n', s.find('\n', var) + 1) + 1;
    s.erase(valueLine, s.find('\n', valueLine) - valueLine);
    return s;
}

// The bytes of the layer table (from its TABLE line to its ENDTAB line), if the file has one.
std::optional<std::pair<std::size_t, std::size_t>> layerTable(const std::string& s) {
    for (auto at = s.find("\nLAYER\n"); at != std::string::npos; at = s.find("\nLAYER\n", at + 1)) {
        const auto codeLine = s.rfind('\n', at - 1);
        const auto typeLine = s.rfind('\n', codeLine - 1);
        if (s.compare(typeLine + 1, 5, "TABLE") != 0) continue;
        const auto start = s.rfind('\n', typeLine - 1);
        return std::pair{start, s.find('\n', s.find("ENDTAB", at))};
    }
    return std::nullopt;
}

// Only the layer table (its head's count and the new record), $HANDSEED and what the host
// had to add for the layer (a missing section, table or linetype) changed.
void expectOnlyTheLayerTableChanged(const std::string& bytes, const std::string& out, const std::string& name) {
    const std::string before = withoutHandseed(bytes), after = withoutHandseed(out);
    std::size_t prefix = 0, suffix = 0;
    while (prefix < before.size() && prefix < after.size() && before[prefix] == after[prefix]) ++prefix;
    while (suffix + prefix < before.size() && suffix + prefix < after.size() &&
           before[before.size() - 1 - suffix] == after[after.size() - 1 - suffix])
        ++suffix;
    EXPECT_NE(after.substr(prefix, after.size() - suffix - prefix).find("ARDO_NEW"), std::string::npos) << name;
    const std::size_t changedFrom = prefix, changedTo = before.size() - suffix;
    if (const auto table = layerTable(before)) {
        EXPECT_GE(changedFrom, table->first) << name;
        EXPECT_LE(changedTo, table->second) << name;
    } else {
        EXPECT_EQ(changedFrom, changedTo) << name << ": more than an insertion";
    }
}

TEST(RoundTrip, AddingALayerChangesOnlyTheLayerTableAndHandseed) {
    const auto files = test::corpusFiles();
    if (files.empty()) GTEST_SKIP() << "no DXF corpus beside the source tree";
    for (const auto& path : files) {
        const std::string bytes = readBytes(path);
        if (isBinaryDxf(bytes) || test::isDamagedCorpusFile(path)) continue;
        Drawing d = test::openOrFail(path.string());
        ardo::LayerRecord layer;
        layer.name = "ARDO_NEW";
        ASSERT_EQ(d.addLayer(layer), ardo::DbStatus::Ok) << path;
        const std::string out = d.toDxf();
        expectOnlyTheLayerTableChanged(bytes, out, path.string());
        if (HasFailure()) return;
        Drawing again = test::parseOrFail(out);
        EXPECT_TRUE(again.findLayer("ardo_new").has_value()) << path;
        EXPECT_TRUE(again.hasLinetype("CONTINUOUS")) << path;
    }
}

TEST(RoundTrip, EveryCorpusDrawingTakesANewLayer) {
    const auto files = test::corpusFiles();
    if (files.empty()) GTEST_SKIP() << "no DXF corpus beside the source tree";
    for (const auto& path : files) {
        Drawing d = test::openCorpusFile(path);
        ardo::LayerRecord layer;
        layer.name = "HOLDOUT_NEU";
        ASSERT_EQ(d.addLayer(layer), ardo::DbStatus::Ok) << path;
        const std::string out = d.toDxf();
        EXPECT_EQ(isBinaryDxf(out), isBinaryDxf(readBytes(path))) << path;
        Drawing again = test::parseOrFail(out);
        EXPECT_TRUE(again.findLayer("HOLDOUT_NEU").has_value()) << path;
    }
}

TEST(RoundTrip, BinaryAndTextFormsConvertBothWays) {
    const auto path = test::corpusDir() / "integration_tests_data_bin_dxf_r2000.dxf";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "no DXF corpus beside the source tree";
    test::TempFolder dir;
    Drawing binary = test::openOrFail(path.string());
    ASSERT_TRUE(binary.save(dir.file("text.dxf"), DxfForm::Ascii));
    const std::string text = readBytes(dir.file("text.dxf"));
    ASSERT_FALSE(isBinaryDxf(text));
    Drawing fromText = test::openOrFail(dir.file("text.dxf"));
    EXPECT_EQ(fromText.entityCount(), binary.entityCount());
    EXPECT_EQ(fromText.form(), DxfForm::Ascii);
    // And back: the text drawing saved in binary form gives the original file again.
    ASSERT_TRUE(fromText.save(dir.file("binary.dxf"), DxfForm::Binary));
    EXPECT_TRUE(readBytes(dir.file("binary.dxf")) == readBytes(path));
    // The form chosen last is the one a plain save keeps.
    ASSERT_TRUE(fromText.save(dir.file("again.dxf")));
    EXPECT_TRUE(isBinaryDxf(readBytes(dir.file("again.dxf"))));
}

TEST(RoundTrip, TheWriterNeverBreaksAValueLine) {
    const std::string bytes = "  0\nSECTION\n  2\nENTITIES\n  0\nTEXT\n  8\n0\n  0\nENDSEC\n  0\nEOF\n";
    for (const DxfForm form : {DxfForm::Ascii, DxfForm::Binary}) {
        auto doc = std::get<DxfDocument>(DxfDocument::parse(bytes));
        const RecordId text = doc.next(doc.first());
        doc.replace(text, {{0, "TEXT"}, {8, "a\nb"}, {1, "c\r\nd^J"}});
        auto again = DxfDocument::parse(doc.serialize(form));
        ASSERT_TRUE(std::holds_alternative<DxfDocument>(again)) << std::get<DxfError>(again).message;
        const auto& read = std::get<DxfDocument>(again);
        const auto tags = read.tags(read.next(read.first()));
        ASSERT_EQ(tags.size(), 3u);
        EXPECT_EQ(caretDecode(tags[1].value), "a\nb");
        if (form == DxfForm::Ascii) {
            EXPECT_EQ(tags[2].value, "c^M^Jd^ J");
        }
        EXPECT_EQ(caretDecode(tags[2].value), "c\r\nd^J");
    }
}

// A caret just before a control character: the control character is written with a caret
// of its own, so the first must be marked as a plain caret or the two would read as one pair.
TEST(RoundTrip, ACaretBeforeAControlCharacterComesBackAsItWas) {
    for (const std::string& value : {std::string("HEADE^\0R", 8), std::string("a^\nb"), std::string("^^\r"),
                                    std::string("x^ y^@")}) {
        EXPECT_EQ(caretDecode(caretEncode(value)), value) << caretEncode(value);
    }
    const std::string bytes = std::string("  0\nSECTION\n  2\nHEADE^\0R\n  0\nENDSEC\n  0\nEOF\n", 44);
    for (const DxfForm form : {DxfForm::Ascii, DxfForm::Binary}) {
        auto doc = std::get<DxfDocument>(DxfDocument::parse(bytes));
        doc.replace(doc.first(), {{0, "SECTION"}, {2, std::string("Neu\nHEADE^\0R", 12)}});
        auto again = DxfDocument::parse(doc.serialize(form));
        ASSERT_TRUE(std::holds_alternative<DxfDocument>(again)) << std::get<DxfError>(again).message;
        const auto& read = std::get<DxfDocument>(again);
        EXPECT_EQ(caretDecode(read.tags(read.first())[1].value), std::string("Neu\nHEADE^\0R", 12));
    }
}

// A binary string ends at its first NUL; a value holding one must not cut the record, and
// a section name cut to nothing would make the whole file unreadable.
TEST(RoundTrip, ABinaryFileKeepsAValueWithANulByte) {
    const std::string bytes = std::string("  0\nSECTION\n  2\n\0\0ENTITIES\n  0\nTEXT\n  1\nx\0y\n  0\nENDSEC\n  0\nEOF\n", 63);
    auto doc = std::get<DxfDocument>(DxfDocument::parse(bytes));
    ASSERT_EQ(doc.serialize(), bytes);
    auto again = DxfDocument::parse(doc.serialize(DxfForm::Binary));
    ASSERT_TRUE(std::holds_alternative<DxfDocument>(again)) << std::get<DxfError>(again).message;
    const auto& read = std::get<DxfDocument>(again);
    EXPECT_EQ(caretDecode(read.tags(read.first())[1].value), std::string("\0\0ENTITIES", 10));
    EXPECT_EQ(caretDecode(read.tags(read.next(read.first()))[1].value), std::string("x\0y", 3));
}

}  // namespace
}  // namespace cadhost
