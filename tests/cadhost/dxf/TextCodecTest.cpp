// File text to UTF-8 and back, by drawing version and code page.
#include <gtest/gtest.h>

#include "cadhost/drawing/DxfTestSupport.h"
#include "cadhost/dxf/DxfText.h"

namespace cadhost {
namespace {

TEST(TextCodec, CodePagesBeforeR2007AndUtf8After) {
    const auto ansi = DxfTextCodec::forDrawing("AC1015", "ANSI_1252");
    EXPECT_EQ(ansi.decode("W\xe4nde \x80"), "Wände €");
    EXPECT_EQ(ansi.encode("Wände €"), "W\xe4nde \x80");
    EXPECT_EQ(ansi.decode("\\U+0436"), "ж");
    EXPECT_EQ(ansi.encode("ж"), "\\U+0436");   // not in Windows-1252
    EXPECT_EQ(ansi.decode("\x81"), "\xc2\x81");  // undefined byte survives the round trip
    EXPECT_EQ(ansi.encode(ansi.decode("\x81")), "\x81");

    const auto cyrillic = DxfTextCodec::forDrawing("AC1018", "ansi_1251");
    EXPECT_EQ(cyrillic.decode("\xe6"), "ж");
    EXPECT_EQ(cyrillic.encode("ж"), "\xe6");

    const auto utf8 = DxfTextCodec::forDrawing("AC1021", "ANSI_1252");
    EXPECT_TRUE(utf8.isUtf8());
    EXPECT_EQ(utf8.decode("Wände"), "Wände");

    const auto unknown = DxfTextCodec::forDrawing("AC1015", "ANSI_9999");
    EXPECT_FALSE(unknown.knewCodePage());
    EXPECT_EQ(unknown.decode("\xe4"), "ä");
}

TEST(TextCodec, CharactersBeyondTheBasicPlaneTravelAsSurrogatePairs) {
    const auto ansi = DxfTextCodec::forDrawing("AC1015", "ANSI_1252");
    EXPECT_EQ(ansi.encode("a\U0001F600b"), "a\\U+D83D\\U+DE00b");
    EXPECT_EQ(ansi.decode("a\\U+D83D\\U+DE00b"), "a\U0001F600b");
    EXPECT_EQ(ansi.decode(ansi.encode("\U00010000\U0010FFFF")), "\U00010000\U0010FFFF");
    // A surrogate without its partner is no character: the escape stays as it was.
    EXPECT_EQ(ansi.decode("\\U+D83Dx"), "\\U+D83Dx");
    EXPECT_EQ(ansi.decode("\\U+DE00"), "\\U+DE00");
}

TEST(TextCodec, ControlCharactersTravelInCaretForm) {
    for (const char* version : {"AC1015", "AC1032"}) {
        const auto codec = DxfTextCodec::forDrawing(version, "ANSI_1252");
        EXPECT_EQ(codec.encode("a\nb\r\tc"), "a^Jb^M^Ic");
        EXPECT_EQ(codec.decode("a^Jb^M^Ic"), "a\nb\r\tc");
        // A caret that would read as a control character is written as "^ ".
        for (const std::string text : {"x^Jy", "^ ", "a^b", "^", "2^3", "^@^_"})
            EXPECT_EQ(codec.decode(codec.encode(text)), text) << text;
        EXPECT_EQ(codec.encode("x^Jy"), "x^ Jy");
        EXPECT_EQ(codec.encode("a^b"), "a^b");
    }
}

TEST(TextCodec, CorpusUnicodeFileDecodesEscapes) {
    const auto path = test::corpusDir() / "integration_tests_data_dxf_unicode.dxf";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "no DXF corpus beside the source tree";
    Drawing d = test::openOrFail(path.string());
    bool nonAscii = false;
    d.forEachLayer([&](const ardo::LayerRecord& r) {
        nonAscii |= std::any_of(r.name.begin(), r.name.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
        EXPECT_EQ(r.name.find("\\U+"), std::string::npos) << r.name;
        return true;
    });
    EXPECT_TRUE(nonAscii);
}

}  // namespace
}  // namespace cadhost
