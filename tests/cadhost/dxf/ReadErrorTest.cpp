// Damaged input gives a message with the line, never a crash; binary DXF is read.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/dxf/DxfDocument.h"

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
        {"  8\nLAYER\n  0\nEOF\n", "Line 1: the file must begin with 0 SECTION"},
        {"  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nENDSEC\n  0\nEOF\n", "Line 5: a TABLE is not closed"},
        {"\xff\xfe\x30\x00", "UTF-16"},
        {kGood.substr(0, kGood.size() - 10), "no end-of-file marker"},
    };
    for (const Case& c : cases) {
        const std::string message = errorOf(c.bytes);
        EXPECT_NE(message.find(c.expected), std::string::npos) << "got: " << message;
        EXPECT_NE(message.find("probe.dxf"), std::string::npos) << message;
    }
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
    const auto files = test::corpusFiles();
    const auto binary = std::find_if(files.begin(), files.end(), [](const auto& p) {
        return p.filename().string().find("bin_dxf") != std::string::npos;
    });
    if (binary == files.end()) GTEST_SKIP() << "no binary DXF in the corpus";
    Drawing d = test::openOrFail(binary->string());
    EXPECT_TRUE(d.document().wasBinary());
    EXPECT_EQ(d.acadVersion(), "AC1015");
    EXPECT_TRUE(d.findLayer("0"));
    EXPECT_GT(d.entityCount(), 0u);
    const std::string truncated = test::readBytes(*binary).substr(0, 400);
    EXPECT_NE(errorOf(truncated).find("Binary DXF"), std::string::npos);
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
    EXPECT_EQ(chain, (std::vector<Handle>{0xA, 0xB}));
    EXPECT_TRUE(d.toDxf() == bytes);
}

}  // namespace
}  // namespace cadhost
