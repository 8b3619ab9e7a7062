// Unchanged drawings come back byte for byte; changed ones differ only where they changed.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/dxf/DxfBinary.h"

namespace cadhost {
namespace {

using test::readBytes;

TEST(RoundTrip, EveryCorpusFileComesBackUnchanged) {
    const auto files = test::corpusFiles();
    if (files.empty()) GTEST_SKIP() << "no DXF corpus beside the source tree";
    for (const auto& path : files) {
        const std::string bytes = readBytes(path);
        Drawing d = test::openOrFail(path.string());
        const std::string out = d.toDxf();
        if (isBinaryDxf(bytes)) {
            // Binary files are saved as ASCII; reading that back gives the same text again.
            Drawing again = test::parseOrFail(out);
            EXPECT_TRUE(again.toDxf() == out) << path;
            EXPECT_GT(again.entityCount(), 0u) << path;
        } else {
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

TEST(RoundTrip, AddingALayerChangesOnlyTheLayerTableAndHandseed) {
    const auto files = test::corpusFiles();
    if (files.empty()) GTEST_SKIP() << "no DXF corpus beside the source tree";
    for (const auto& path : files) {
        const std::string bytes = readBytes(path);
        if (isBinaryDxf(bytes)) continue;
        Drawing d = test::openOrFail(path.string());
        ardo::LayerRecord layer;
        layer.name = "ARDO_NEW";
        ASSERT_EQ(d.addLayer(layer), ardo::DbStatus::Ok) << path;
        const std::string out = d.toDxf();
        // Before $HANDSEED (when the file keeps handles) or the layer table's head (whose
        // record count grows), and from the layer table's ENDTAB on, nothing changed.
        const auto record = out.find("\nARDO_NEW");
        ASSERT_NE(record, std::string::npos) << path;
        const auto stable = std::min(out.find("$HANDSEED"), out.find("\nLAYER\n"));
        EXPECT_TRUE(out.compare(0, stable, bytes, 0, stable) == 0) << path;
        const auto endtab = out.rfind('\n', out.find("ENDTAB", record) - 2);
        EXPECT_TRUE(bytes.ends_with(std::string_view(out).substr(endtab))) << path;
        Drawing again = test::parseOrFail(out);
        EXPECT_TRUE(again.findLayer("ardo_new").has_value()) << path;
    }
}

}  // namespace
}  // namespace cadhost
