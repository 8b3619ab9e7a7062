// Loading linetypes from a .lin file, simple and complex.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/drawing/LinetypeFile.h"

namespace cadhost {
namespace {

using ardo::DbStatus;

TEST(LinetypeFile, ParsesSimpleTextAndShapeElements) {
    const std::string lin = test::readBytes(test::fixture("test.lin"));
    const auto simple = findLinetype(lin, "dashdot_t");
    ASSERT_TRUE(simple);
    EXPECT_EQ(simple->name, "DASHDOT_T");
    EXPECT_EQ(simple->elements.size(), 4u);
    EXPECT_DOUBLE_EQ(simple->patternLength(), 1.0);
    const auto pipe = findLinetype(lin, "PIPE_T");
    ASSERT_TRUE(pipe);
    ASSERT_EQ(pipe->elements.size(), 3u);
    const LinetypeElement& text = pipe->elements[1];
    EXPECT_EQ(text.kind, LinetypeElement::Kind::Text);
    EXPECT_EQ(text.content, "W");
    EXPECT_EQ(text.styleOrFile, "STANDARD");
    EXPECT_DOUBLE_EQ(text.length, -0.2);
    EXPECT_DOUBLE_EQ(text.scale, 0.1);
    EXPECT_DOUBLE_EQ(text.yOffset, -0.05);
    const auto shape = findLinetype(lin, "BOUNDARY_T");
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->elements[1].kind, LinetypeElement::Kind::Shape);
    EXPECT_EQ(shape->elements[1].content, "CIRC1");
    EXPECT_EQ(shape->elements[1].styleOrFile, "ltypeshp.shx");
    EXPECT_FALSE(findLinetype(lin, "NOPE"));
}

TEST(Linetypes, LoadedIntoTheDrawingOnce) {
    Drawing d;
    EXPECT_TRUE(d.hasLinetype("continuous"));
    EXPECT_TRUE(d.isContinuousLinetype("CONTINUOUS"));
    EXPECT_FALSE(d.isContinuousLinetype("DASHDOT_T"));
    EXPECT_EQ(d.loadLinetype("PIPE_T", test::fixture("test.lin")), DbStatus::Ok);
    EXPECT_EQ(d.loadLinetype("pipe_t", test::fixture("test.lin")), DbStatus::DuplicateRecordName);
    EXPECT_EQ(d.loadLinetype("NOPE", test::fixture("test.lin")), DbStatus::KeyNotFound);
    EXPECT_EQ(d.loadLinetype("PIPE_T", test::fixture("missing.lin")), DbStatus::FileNotFound);
    Drawing back = test::parseOrFail(d.toDxf());
    EXPECT_TRUE(back.hasLinetype("Pipe_T"));
    const auto names = back.linetypeNames();
    EXPECT_EQ(std::count(names.begin(), names.end(), "PIPE_T"), 1);
    // The text element points at the STANDARD style.
    const std::string out = back.toDxf();
    EXPECT_NE(out.find("  9\nW\n"), std::string::npos);
}

TEST(Linetypes, Release12GetsDashesAndGapsOnly) {
    Drawing d = test::openOrFail(test::fixture("r12_minimal.dxf"));
    ASSERT_EQ(d.loadLinetype("PIPE_T", test::fixture("test.lin")), DbStatus::Ok);
    const std::string out = d.toDxf();
    const auto at = out.find("PIPE_T");
    EXPECT_EQ(out.substr(at, out.find("  0\n", at) - at).find(" 74\n"), std::string::npos);
    EXPECT_TRUE(test::parseOrFail(out).hasLinetype("PIPE_T"));
}

}  // namespace
}  // namespace cadhost
