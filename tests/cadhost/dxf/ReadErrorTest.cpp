// Damaged input gives a message with the line, never a crash; binary DXF is read.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/dxf/DxfDocument.h"
#include "cadhost/dxf/DxfLines.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {
namespace {

std::string errorOf(const std::string& bytes) {
    auto r = Drawing::fromBytes(bytes, "probe.dxf");
    return r ? std::string() : r.error();
}

const std::string kGood = "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n1.0\n  0\nENDSEC\n  0\nEOF\n";

TEST(ReadErrors, EachFaultIsNamedWithItsLine) {
    EXPECT_EQ(errorOf(kGood), "");
    struct Case { std::string bytes, expected; };
    const Case cases[] = {
        {"", "no end-of-file marker"},
        {"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n", "Line 7: group code 8 has no value line"},
        {"  0\nSECTION\n  2\nENTITIES\n  x\nLINE\n", "Line 5: a DXF group code"},
        {"  0\nSECTION\n  2\nENTITIES\n2000\nLINE\n", "Line 5: a DXF group code"},
        {"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  0\nEOF\n", "Line 1: section ENTITIES is not closed"},
        {"  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nLINE\n  0\nEOF\n", "Line 7: \"LINE\" stands outside any section"},
        {"  0\nSECTION\n  0\nENDSEC\n  0\nEOF\n", "Line 1: a SECTION must be followed by its name"},
        // A section with an empty name is open like any other (found by fuzzing the writer).
        {"  0\nSECTION\n  2\n\n  0\nEOF\n", "Line 1: section  is not closed"},
        {"  8\nLAYER\n  0\nEOF\n", "Line 1: the file must begin with 0 SECTION"},
        {"  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nENDSEC\n  0\nEOF\n", "Line 5: a TABLE is not closed"},
        {"\xff\xfe\x30\x00", "UTF-16"},
        {kGood.substr(0, kGood.size() - 10), "Line 12: the file ends here with no end-of-file marker"},
    };
    for (const Case& c : cases) {
        const std::string message = errorOf(c.bytes);
        EXPECT_NE(message.find(c.expected), std::string::npos) << "got: " << message;
        EXPECT_NE(message.find("probe.dxf"), std::string::npos) << message;
    }
}

// Group code lines as writers pad them, and what is no group code.
TEST(ReadErrors, GroupCodeLinesAndHandlesAreReadDigitByDigit) {
    const std::pair<const char*, int> codes[] = {
        {"0", 0}, {"  8", 8}, {"100", 100}, {"1071", 1071}, {"-5", -5}, {"\t 10 \r", 10}, {"0000000000010", 10}, {"-0", 0}};
    for (const auto& [text, expected] : codes) {
        int code = 12345;
        EXPECT_TRUE(dxflines::parseCode(text, code)) << text;
        EXPECT_EQ(code, expected) << text;
    }
    for (const char* bad : {"", "  ", "-", "+8", "1 0", "8x", "1072", "-6", "99999999999999999999", "- 5", "0x10"}) {
        int code = 0;
        EXPECT_FALSE(dxflines::parseCode(bad, code)) << "\"" << bad << "\"";
    }
    // The one-pass reading of a code line agrees with the general one, line ends included.
    const std::string lines = "  0\r\n 10\n-5\n00010\n 8 \n1072\n\t62\r\r\n999";
    dxflines::LineCursor cursor(lines, 0);
    std::vector<std::pair<std::string, int>> read;
    std::string_view text;
    int code = 0;
    bool valid = false;
    while (cursor.nextCode(text, code, valid)) read.emplace_back(std::string(text), valid ? code : 9999);
    EXPECT_EQ(read, (std::vector<std::pair<std::string, int>>{
                        {"  0", 0}, {" 10", 10}, {"-5", -5}, {"00010", 10}, {" 8 ", 8}, {"1072", 9999}, {"\t62\r", 62}, {"999", 999}}));
    EXPECT_EQ(toHandle("1F"), 0x1Fu);
    EXPECT_EQ(toHandle(" 1f\r"), 0x1Fu);
    EXPECT_EQ(toHandle("+A0"), 0xA0u);
    EXPECT_EQ(toHandle("FFFFFFFFFFFFFFFF"), 0xFFFFFFFFFFFFFFFFu);
    EXPECT_EQ(toHandle("0000000000000000001"), 1u);
    for (const char* bad : {"", "G1", "1 2", "-1", "10000000000000000", "1FX"}) EXPECT_EQ(toHandle(bad), 0u) << bad;
}

TEST(ReadErrors, EveryTruncationOfARealFileIsRefusedCleanly) {
    const std::string bytes = test::readBytes(test::fixture("geometry.dxf"));
    ASSERT_GT(bytes.size(), 1000u);
    for (std::size_t cut = 0; cut + 8 < bytes.size(); cut += 7)
        EXPECT_NE(errorOf(bytes.substr(0, cut)), "") << "cut at " << cut;
}

TEST(ReadErrors, UnknownEntitiesAndObjectsAreKeptAsTheyAre) {
    const std::string bytes =
        "  0\nSECTION\n  2\nENTITIES\n  0\nFANCY_THING\n  5\n1F\n  8\nX\n777\nodd\n  0\nENDSEC\n"
        "  0\nSECTION\n  2\nOBJECTS\n  0\nMY_OBJECT\n  5\n20\n  1\ndata\n  0\nENDSEC\n  0\nEOF\n";
    Drawing d = test::parseOrFail(bytes);
    EXPECT_EQ(d.entity(0x1F)->type, "FANCY_THING");
    EXPECT_FALSE(d.extents(0x1F));
    EXPECT_TRUE(d.toDxf() == bytes);
}

TEST(ReadErrors, BinaryDxfIsReadAsItsAsciiEquivalent) {
    // Release 12 writes one-byte group codes, later releases two bytes.
    const std::pair<const char*, const char*> files[] = {
        {"integration_tests_data_bin_dxf_r12.dxf", "AC1009"},
        {"integration_tests_data_bin_dxf_r13.dxf", "AC1012"},
        {"integration_tests_data_bin_dxf_r2000.dxf", "AC1015"},
    };
    for (const auto& [name, version] : files) {
        const auto path = test::corpusDir() / name;
        if (!std::filesystem::exists(path)) GTEST_SKIP() << "no binary DXF in the corpus";
        Drawing d = test::openOrFail(path.string());
        EXPECT_TRUE(d.document().wasBinary()) << name;
        EXPECT_EQ(d.acadVersion(), version) << name;
        EXPECT_GT(d.entityCount(), 0u) << name;
        const std::string truncated = test::readBytes(path).substr(0, 400);
        EXPECT_NE(errorOf(truncated).find("Binary DXF"), std::string::npos) << name;
    }
}

}  // namespace
}  // namespace cadhost

namespace cadhost {
namespace {

TEST(ReadErrors, DuplicateHandlesDoNotTrapTheEntityChain) {
    const std::string bytes =
        "  0\nSECTION\n  2\nENTITIES\n  0\nPOINT\n  5\nA\n  8\n0\n  0\nPOINT\n  5\nA\n  8\n0\n"
        "  0\nPOINT\n  5\nB\n  8\n0\n  0\nENDSEC\n  0\nEOF\n";
    Drawing d = test::parseOrFail(bytes);
    std::vector<Handle> chain;
    for (auto h = d.firstEntity(); h && chain.size() < 10; h = d.nextEntity(*h)) chain.push_back(*h);
    // The second A gets a name of its own rather than looping back to the first.
    ASSERT_EQ(chain.size(), 3u);
    EXPECT_EQ(chain[0], 0xAu);
    EXPECT_EQ(chain[2], 0xBu);
    EXPECT_NE(chain[1], 0xAu);
    EXPECT_NE(chain[1], 0xBu);
    EXPECT_TRUE(d.toDxf() == bytes);
}

}  // namespace
}  // namespace cadhost
