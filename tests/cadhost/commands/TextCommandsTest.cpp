// TEXT and MTEXT at the command line: placement by every justification, height and rotation
// defaults, plain text kept plain, and bad input answered at the same prompt.
#include <gtest/gtest.h>

#include "CommandTestSupport.h"
#include "NewestEntity.h"

namespace cadhost::test {

using ardo::RTNORM;

namespace {

class TextCommands : public ::testing::Test {
protected:
    CommandLine cl;
    void SetUp() override { cl.echo(0); }
    std::string text() { return newestGroups(cl.drawing, {0, 10, 20, 40, 1, 50, 7, 72, 11, 21, 73}); }
    std::string mtext() { return newestGroups(cl.drawing, {0, 10, 20, 40, 41, 71, 3, 1, 11, 21}); }
};

}  // namespace

TEST_F(TextCommands, TextByStartPointAndEveryKindOfJustification) {
    ASSERT_EQ(cl.feed({S("_.TEXT"), S("1,2"), S("3.5"), S("30"), S("Hello world")}), RTNORM);
    EXPECT_EQ(text(), "0=TEXT 10=1 20=2 40=3.5 1=Hello world 50=30 7=Standard");
    // The height given is the next default.
    ASSERT_EQ(cl.feed({S("TEXT"), S("_J"), S("MC"), S("5,5"), S(""), S(""), S("Mitte")}), RTNORM);
    EXPECT_EQ(text(), "0=TEXT 10=5 20=5 40=3.5 1=Mitte 7=Standard 72=1 11=5 21=5 73=2");
    ASSERT_EQ(cl.feed({S("TEXT"), S("j"), S("tr"), S("5,5"), S("1"), S("-90"), S("Oben")}), RTNORM);
    EXPECT_EQ(text(), "0=TEXT 10=5 20=5 40=1 1=Oben 50=270 7=Standard 72=2 11=5 21=5 73=3");
    // Align takes its rotation from the baseline and asks no height; Fit asks the height.
    ASSERT_EQ(cl.feed({S("TEXT"), S("J"), S("A"), S("0,0"), S("10,10"), S("Schräg")}), RTNORM);
    EXPECT_EQ(text(), "0=TEXT 10=0 20=0 40=1 1=Schräg 50=45 7=Standard 72=3 11=10 21=10");
    ASSERT_EQ(cl.feed({S("TEXT"), S("J"), S("F"), S("0,0"), S("0,0"), S("10,0"), S("2"), S("Fit")}), RTNORM);
    EXPECT_EQ(text(), "0=TEXT 10=0 20=0 40=2 1=Fit 7=Standard 72=5 11=10 21=0");
    EXPECT_EQ(cl.printed, "The baseline needs two different points.\n");
    EXPECT_EQ(cl.drawing.getVar("TEXTSIZE")->real, 2.0);
}

TEST_F(TextCommands, TextRefusesBadInputAndDrawsNothingWithoutText) {
    ASSERT_EQ(cl.feed({S("TEXT"), S("J"), S("XX"), S("R"), S("x"), S("10,0"), S("-1"), S("2"), S("abc"), S("90")}),
              RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Enter text: ");
    ASSERT_EQ(cl.feed({S("")}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.drawing.entityCount(), 0u);
    EXPECT_EQ(cl.printed, "Invalid option keyword.\nInvalid point.\nValue must be positive and nonzero.\n"
                          "Requires valid numeric angle or second point.\n");
}

TEST_F(TextCommands, MtextBoxAttachmentRotationAndWidth) {
    ASSERT_EQ(cl.feed({S("_.MTEXT"), S("0,10"), S("H"), S("5"), S("J"), S("MC"), S("20,0"), S("Erste {Zeile}"),
                       S("C:\\tmp"), S("")}),
              RTNORM);
    EXPECT_EQ(mtext(), "0=MTEXT 10=10 20=5 40=5 41=20 71=5 1=Erste \\{Zeile\\}\\PC:\\\\tmp 11=1 21=0");
    // Rotated a quarter turn: the box's top left corner lies left of the first corner.
    ASSERT_EQ(cl.feed({S("MTEXT"), S("0,0"), S("R"), S("90"), S("-5,10"), S("Hoch"), S("")}), RTNORM);
    EXPECT_EQ(mtext(), "0=MTEXT 10=-5 20=0 40=5 41=10 71=1 1=Hoch 11=0 21=1");
    ASSERT_EQ(cl.feed({S("MTEXT"), S("1,1"), S("W"), S("30"), S("a"), S("b"), S("")}), RTNORM);
    EXPECT_EQ(mtext(), "0=MTEXT 10=1 20=1 40=5 41=30 71=1 1=a\\Pb 11=1 21=0");
    // Bad input and an empty text.
    ASSERT_EQ(cl.feed({S("MTEXT"), S("0,0"), S("J"), S("XY"), S(""), S("H"), S("0"), S("4"), S("q"), S("3,3"), S("")}),
              RTNORM);
    EXPECT_EQ(cl.drawing.entityCount(), 3u);
    EXPECT_EQ(cl.printed, "Invalid option keyword.\nValue must be positive and nonzero.\n"
                          "Point or option keyword required.\n");
}

TEST_F(TextCommands, LongMtextIsCutBetweenCharacters) {
    std::string line = "x";
    for (int i = 0; i < 300; ++i) line += "ä";
    ASSERT_EQ(cl.feed({S("MTEXT"), S("0,0"), S("10,-10"), S(line), S("")}), RTNORM);
    std::optional<Handle> newest;
    cl.drawing.forEachEntity([&](const EntityInfo& e) { return newest = e.handle, true; });
    ASSERT_TRUE(newest);
    std::string joined;
    std::vector<std::size_t> sizes;
    for (const EntityTag& t : cl.drawing.entityTags(*newest)) {
        if (t.code != 3 && t.code != 1) continue;
        ASSERT_FALSE(t.value.empty());
        EXPECT_NE(static_cast<unsigned char>(t.value.front()) & 0xC0, 0x80) << "piece starts inside a character";
        sizes.push_back(t.value.size());
        joined += t.value;
    }
    EXPECT_EQ(joined, line);
    EXPECT_EQ(sizes, (std::vector<std::size_t>{249, 250, 102}));
}

}  // namespace cadhost::test
