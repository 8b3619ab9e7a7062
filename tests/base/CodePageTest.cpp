#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace ardo {
namespace {

// Each test leaves the default code page behind.
class CodePageTest : public ::testing::Test {
protected:
    void TearDown() override { ASSERT_TRUE(setFileCodePage("1252")); }
};

TEST_F(CodePageTest, DefaultIsWindows1252AndEveryByteSurvivesTheRoundTrip) {
    EXPECT_EQ(fileCodePage(), "WINDOWS-1252");
    std::string all;
    for (int b = 0; b < 256; ++b) all += char(b);
    const std::string utf8 = decodeFileText(all);
    EXPECT_NE(utf8, all);
    EXPECT_EQ(encodeFileText(utf8), all);
}

TEST_F(CodePageTest, UmlautsAndTheEuroSignDecodeToUtf8) {
    EXPECT_EQ(decodeFileText("W\xE4nde \xC4\xD6\xDC\xDF \x80"), "Wände ÄÖÜß €");
    EXPECT_EQ(encodeFileText("Wände ÄÖÜß €"), "W\xE4nde \xC4\xD6\xDC\xDF \x80");
}

TEST_F(CodePageTest, CharactersTheCodePageLacksBecomeQuestionMarks) {
    EXPECT_EQ(encodeFileText("Ω≈x"), "??x");
}

TEST_F(CodePageTest, OtherCodePagesByNumberOrName) {
    ASSERT_TRUE(setFileCodePage("1250"));
    EXPECT_EQ(fileCodePage(), "WINDOWS-1250");
    EXPECT_EQ(decodeFileText("\x8A"), "Š");
    EXPECT_EQ(encodeFileText("Šä"), "\x8A\xE4");

    ASSERT_TRUE(setFileCodePage("iso-8859-15"));
    EXPECT_EQ(decodeFileText("\xA4"), "€");
}

TEST_F(CodePageTest, UnknownCodePageIsRefusedAndTheOldOneKept) {
    ASSERT_TRUE(setFileCodePage("1250"));
    EXPECT_FALSE(setFileCodePage("no-such-code-page"));
    EXPECT_EQ(fileCodePage(), "WINDOWS-1250");
}

TEST_F(CodePageTest, BytesUndefinedInTheCodePageBecomeQuestionMarks) {
    // 0xAE is not a character of ISO-8859-7.
    ASSERT_TRUE(setFileCodePage("ISO-8859-7"));
    EXPECT_EQ(decodeFileText("a\xAE" "b\xAE\xAE"), "a?b??");
}

TEST_F(CodePageTest, Utf8FilesPassThrough) {
    ASSERT_TRUE(setFileCodePage("65001"));
    EXPECT_EQ(decodeFileText("Wände\xFF"), "Wände\xFF");
    EXPECT_EQ(encodeFileText("Wände"), "Wände");
}

TEST_F(CodePageTest, NamesTheCharactersItCannotWriteOnce) {
    ASSERT_TRUE(setFileCodePage("1252"));
    EXPECT_EQ(charactersNotInFileCodePage("Tür € Ω Ω ≈"), "Ω≈");
    EXPECT_EQ(charactersNotInFileCodePage("Grün"), "");
    ASSERT_TRUE(setFileCodePage("ISO-8859-15"));
    EXPECT_EQ(charactersNotInFileCodePage("€ ¤ Ω"), "¤Ω");
    EXPECT_EQ(encodeFileText("aΩb"), "a?b") << "one '?' for one character";
    ASSERT_TRUE(setFileCodePage("UTF-8"));
    EXPECT_EQ(charactersNotInFileCodePage("Ω😀"), "");
}

}  // namespace
}  // namespace ardo
