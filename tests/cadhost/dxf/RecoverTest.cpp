// Recovery of damaged and truncated drawings: each fault is mended where it stands and listed
// with its line, every record that can be read is kept, and the result is a sound file.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

struct Recovered {
    Drawing drawing;
    std::vector<DxfRepair> repairs;
    std::string written;
};

std::string repairsText(const std::vector<DxfRepair>& repairs) {
    std::string s;
    for (const auto& r : repairs) s += std::to_string(r.line) + ": " + r.what + "\n";
    return s;
}

Recovered recoverOrFail(const std::string& bytes) {
    auto r = Drawing::recoverFromBytes(bytes, "damaged.dxf");
    if (!r) {
        ADD_FAILURE() << r.error();
        return {};
    }
    auto& rec = *r;
    std::string written = rec.drawing.toDxf();
    // Whatever was mended, the drawing written afterwards opens without recovery.
    auto again = Drawing::fromBytes(written);
    EXPECT_TRUE(again) << (again ? "" : again.error()) << "\n" << repairsText(rec.drawing.document().repairs());
    return {std::move(rec.drawing), std::move(rec.repairs), std::move(written)};
}

const std::string kLine = "  0\nLINE\n  8\n0\n 10\n1.0\n 20\n2.0\n";

TEST(Recover, StrayEndsecAndTagsAfterItAreLeftOut) {
    const std::string bytes = "  0\nSECTION\n  2\nENTITIES\n" + kLine + "  0\nENDSEC\n  9\n$EXTMIN\n 10\n0.0\n" +
                              "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n" + kLine + "  0\nENDSEC\n  0\nEOF\n";
    ASSERT_FALSE(Drawing::fromBytes(bytes));
    const Recovered r = recoverOrFail(bytes);
    ASSERT_EQ(r.repairs.size(), 2u) << repairsText(r.repairs);
    EXPECT_EQ(r.repairs[0].line, 13u);
    EXPECT_NE(r.repairs[0].what.find("2 tags after ENDSEC"), std::string::npos);
    EXPECT_EQ(r.repairs[1].line, 19u);
    EXPECT_NE(r.repairs[1].what.find("ENDSEC outside any section"), std::string::npos);
    EXPECT_EQ(r.drawing.entityCount(), 2u);
    EXPECT_EQ(r.written.find("$EXTMIN"), std::string::npos);
}

TEST(Recover, RecordsOutsideTablesAndSectionsGetTheirContainers) {
    const std::string bytes =
        "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLTYPE\n  0\nLTYPE\n  2\nCONTINUOUS\n 70\n0\n  0\nENDTAB\n"
        "  0\nLAYER\n  2\nWALLS\n 70\n0\n 62\n3\n  6\nCONTINUOUS\n  0\nENDTAB\n  0\nENDSEC\n" + kLine +
        "  0\nEOF\n";
    const Recovered r = recoverOrFail(bytes);
    ASSERT_EQ(r.repairs.size(), 3u) << repairsText(r.repairs);
    EXPECT_EQ(r.repairs[0].line, 17u);
    EXPECT_NE(r.repairs[0].what.find("table LAYER was opened"), std::string::npos);
    EXPECT_EQ(r.repairs[1].line, 31u);
    EXPECT_NE(r.repairs[1].what.find("section ENTITIES was opened"), std::string::npos);
    EXPECT_EQ(r.repairs[2].line, 39u);
    EXPECT_NE(r.repairs[2].what.find("closed with ENDSEC"), std::string::npos);
    ASSERT_TRUE(r.drawing.findLayer("walls"));
    EXPECT_EQ(r.drawing.findLayer("walls")->color.index, 3);
    EXPECT_EQ(r.drawing.entityCount(), 1u);
}

TEST(Recover, TruncatedFilesKeepWhatIsThereAndSayWhereTheyEnded) {
    const std::string bytes = test::readBytes(test::fixture("geometry.dxf"));
    ASSERT_GT(bytes.size(), 1000u);
    const Drawing whole = test::parseOrFail(bytes);
    std::size_t previousEntities = 0;
    for (std::size_t cut = bytes.size() / 2; cut + 8 < bytes.size(); cut += 97) {
        const std::string part = bytes.substr(0, cut);
        const std::string refusal = Drawing::fromBytes(part, "cut.dxf").error();
        const auto lines = static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n')) + (part.ends_with('\n') ? 0 : 1);
        // The refusal names the last line there is (or the tag cut off there), never line 1.
        EXPECT_TRUE(refusal.find("Line " + std::to_string(lines) + ":") != std::string::npos ||
                    refusal.find("Line " + std::to_string(lines - 1) + ":") != std::string::npos)
            << refusal << " (" << lines << " lines)";
        const Recovered r = recoverOrFail(part);
        ASSERT_FALSE(r.repairs.empty());
        EXPECT_NE(repairsText(r.repairs).find("without 0 EOF"), std::string::npos) << repairsText(r.repairs);
        EXPECT_GE(r.drawing.entityCount(), previousEntities) << "cut at " << cut;
        EXPECT_LE(r.drawing.entityCount(), whole.entityCount());
        previousEntities = r.drawing.entityCount();
    }
    EXPECT_GT(previousEntities, 0u);
}

TEST(Recover, UnreadableLinesAreSkippedToTheNextRecord) {
    const std::string bytes = "  0\nSECTION\n  2\nENTITIES\n" + kLine + "  0\nLINE\n  8\n0\nxx\ngarbage\n 10\n1.0\n" +
                              kLine + "  0\nENDSEC\n  0\nEOF\n";
    const std::string refusal = Drawing::fromBytes(bytes).error();
    EXPECT_NE(refusal.find("Line 17:"), std::string::npos) << refusal;
    const Recovered r = recoverOrFail(bytes);
    ASSERT_EQ(r.repairs.size(), 1u) << repairsText(r.repairs);
    EXPECT_NE(r.repairs[0].what.find("lines 17 to 20 were left out"), std::string::npos) << repairsText(r.repairs);
    // The damaged line keeps the tags before the damage; the one after it is whole.
    EXPECT_EQ(r.drawing.entityCount(), 3u);
}

TEST(Recover, InvisibleCharactersAreShownInMessages) {
    const std::string nul = Drawing::fromBytes(std::string("  0\nSECTION\n\0\x01x\nEOF\n", 20)).error();
    EXPECT_NE(nul.find("\"\\0\\x01x\""), std::string::npos) << nul;
    std::string utf16;
    for (const char c : std::string("  0\nSECTION\n  2\nENTITIES\n")) utf16 += {c, '\0'};
    const std::string wide = Drawing::fromBytes(utf16).error();
    EXPECT_NE(wide.find("UTF-16"), std::string::npos) << wide;
    EXPECT_EQ(wide.find('\0'), std::string::npos);
}

TEST(Recover, CorpusDrawingsOpenThroughRecoveryWithTheirRepairsListed) {
    for (const char* name : {"integration_tests_data_recover01.dxf", "integration_tests_data_recover02.dxf"}) {
        const auto path = test::corpusDir() / name;
        if (!std::filesystem::exists(path)) GTEST_SKIP() << "no DXF corpus beside the source tree";
        const std::string refusal = Drawing::open(path.string()).error();
        EXPECT_NE(refusal.find("--recover"), std::string::npos) << refusal;
        auto r = Drawing::recover(path.string());
        ASSERT_TRUE(r) << r.error();
        const auto& rec = *r;
        EXPECT_FALSE(rec.repairs.empty());
        for (const auto& repair : rec.repairs) EXPECT_GT(repair.line, 1u) << repair.what;
        EXPECT_GT(rec.drawing.entityCount(), 90u) << name;
    }
}

TEST(DrawingFiles, OnlyRegularFilesAreRead) {
    test::TempFolder dir;
    const std::string fifo = dir.file("pipe.dxf");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    // A named pipe without a writer would block a plain open for ever.
    for (const auto& [path, kind] : {std::pair{fifo, "a named pipe"}, std::pair{std::string("/dev/zero"), "a device"},
                                     std::pair{dir.path().string(), "a folder"}}) {
        auto r = Drawing::open(path);
        ASSERT_FALSE(r) << path;
        EXPECT_NE(r.error().find(kind), std::string::npos) << r.error();
        EXPECT_FALSE(Drawing::recover(path)) << path;
    }
    EXPECT_NE(Drawing::open(dir.file("missing.dxf")).error().find("No such file"), std::string::npos);
}

}  // namespace
}  // namespace cadhost
