#include "base/CaseFold.h"

#include <gtest/gtest.h>

namespace ardo {
namespace {

TEST(CaseFold, UmlautsCompareWithoutRegardToCase) {
    EXPECT_TRUE(equalsNoCase("Wände", "WÄNDE"));
    EXPECT_TRUE(equalsNoCase("öl-tür", "ÖL-TÜR"));
    EXPECT_TRUE(equalsNoCase("œuvre ÿ š ž", "ŒUVRE Ÿ Š Ž"));
    EXPECT_FALSE(equalsNoCase("Wände", "Wande"));
    EXPECT_FALSE(equalsNoCase("Wände", "Wänd"));
    EXPECT_FALSE(equalsNoCase("", "a"));
    EXPECT_TRUE(equalsNoCase("", ""));
}

TEST(CaseFold, UpperCaseFoldsAsTheWindowsCodePage) {
    EXPECT_EQ(upperCase("wände straße"), "WÄNDE STRAßE");
    EXPECT_EQ(upperCase("ÿ÷"), "Ÿ÷");
    EXPECT_EQ(upperCase("layer_1"), "LAYER_1");
}

// Lower case is the exact way back, for the letters beyond Latin-1 as well; × and ß stay.
TEST(CaseFold, LowerCaseIsTheWayBack) {
    EXPECT_EQ(lowerCase("ŠŒŽŸ ÄÖÜ ×ß ABC"), "šœžÿ äöü ×ß abc");
    for (const char* text : {"šœžÿ", "wände", "àéîõø"}) EXPECT_EQ(lowerCase(upperCase(text)), text) << text;
}

TEST(CaseFold, InvalidUtf8NeverStopsTheComparison) {
    EXPECT_TRUE(equalsNoCase("a\xE4x", "A\xE4X"));
    EXPECT_FALSE(equalsNoCase("a\xE4", "a\xC4\x80"));
    EXPECT_EQ(upperCase("a\xFF"), "A\xC5\xB8");
}

TEST(CaseFold, TrimmingRemovesBlanksTabsAndLineEnds) {
    EXPECT_EQ(trimWhite(" \t x y \r\n"), "x y");
    EXPECT_EQ(trimWhiteLeft("  x "), "x ");
    EXPECT_EQ(trimWhiteRight("  x \r"), "  x");
    EXPECT_EQ(trimWhite(" \t\r\n"), "");
}

}  // namespace
}  // namespace ardo
