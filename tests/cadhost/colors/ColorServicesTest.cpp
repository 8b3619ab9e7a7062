#include <gtest/gtest.h>

#include <set>
#include <string>

#include "cadhost/colors/AciPalette.h"
#include "cadhost/colors/ColorBook.h"
#include "cadhost/colors/ColorServices.h"

using ardo::HostColor;
using cadhost::ColorNameLanguage;
using cadhost::ColorServices;

TEST(AciPalette, KnownEntriesOfTheStandardPalette) {
    EXPECT_EQ(cadhost::aciRgb(1), 0xFF0000u);
    EXPECT_EQ(cadhost::aciRgb(5), 0x0000FFu);
    EXPECT_EQ(cadhost::aciRgb(7), 0xFFFFFFu);
    EXPECT_EQ(cadhost::aciRgb(8), 0x808080u);
    EXPECT_EQ(cadhost::aciRgb(9), 0xC0C0C0u);
    EXPECT_EQ(cadhost::aciRgb(10), 0xFF0000u);
    EXPECT_EQ(cadhost::aciRgb(11), 0xFF7F7Fu);
    EXPECT_EQ(cadhost::aciRgb(20), 0xFF3F00u);
    EXPECT_EQ(cadhost::aciRgb(22), 0xA52900u);
    EXPECT_EQ(cadhost::aciRgb(33), 0xA57C52u);   // 165,124,82
    EXPECT_EQ(cadhost::aciRgb(43), 0xA59152u);   // 165,145,82
    EXPECT_EQ(cadhost::aciRgb(94), 0x007F00u);
    EXPECT_EQ(cadhost::aciRgb(130), 0x00FFFFu);
    EXPECT_EQ(cadhost::aciRgb(147), 0x26424Cu);  // 38,66,76
    EXPECT_EQ(cadhost::aciRgb(170), 0x0000FFu);
    EXPECT_EQ(cadhost::aciRgb(210), 0xFF00FFu);
    EXPECT_EQ(cadhost::aciRgb(249), 0x261317u);  // 38,19,23
    EXPECT_EQ(cadhost::aciRgb(250), 0x333333u);
    EXPECT_EQ(cadhost::aciRgb(255), 0xFFFFFFu);
    EXPECT_EQ(cadhost::aciRgb(0), 0u);
    EXPECT_EQ(cadhost::aciRgb(256), 0u);
}

TEST(AciPalette, EveryHueRowIsAFullSaturatedColourThenDarkerShades) {
    for (int hue = 0; hue < 24; ++hue) {
        const std::uint32_t full = cadhost::aciRgb(10 + hue * 10);
        const int maxChannel = std::max({int(full >> 16), int((full >> 8) & 0xFF), int(full & 0xFF)});
        EXPECT_EQ(maxChannel, 255) << "hue row " << hue;
        EXPECT_EQ(std::min({int(full >> 16), int((full >> 8) & 0xFF), int(full & 0xFF)}), 0) << hue;
    }
}

TEST(ColorNames, EnglishHostKnowsEnglishNamesNumbersAndByWords) {
    ColorServices english(ColorNameLanguage::English);
    HostColor c;
    ASSERT_TRUE(english.fromAciName("Red", c));
    EXPECT_EQ(c, HostColor::fromIndex(1));
    ASSERT_TRUE(english.fromAciName("  WHITE ", c));
    EXPECT_EQ(c, HostColor::fromIndex(7));
    ASSERT_TRUE(english.fromAciName("bylayer", c));
    EXPECT_EQ(c, HostColor::byLayer());
    ASSERT_TRUE(english.fromAciName("BYBLOCK", c));
    EXPECT_EQ(c, HostColor::byBlock());
    ASSERT_TRUE(english.fromAciName("255", c));
    EXPECT_EQ(c, HostColor::fromIndex(255));
    EXPECT_FALSE(english.fromAciName("0", c));
    EXPECT_FALSE(english.fromAciName("256", c));
    EXPECT_FALSE(english.fromAciName("-1", c));
    EXPECT_FALSE(english.fromAciName("rot", c));
    EXPECT_FALSE(english.fromAciName("VONLAYER", c));
    EXPECT_FALSE(english.fromAciName("", c));
}

TEST(ColorNames, GermanHostKnowsGermanNamesAndNotTheEnglishByWords) {
    ColorServices german(ColorNameLanguage::German);
    HostColor c;
    ASSERT_TRUE(german.fromAciName("GRÜN", c));
    EXPECT_EQ(c.index, 3);
    ASSERT_TRUE(german.fromAciName("weiß", c));
    EXPECT_EQ(c.index, 7);
    ASSERT_TRUE(german.fromAciName("WEISS", c));
    EXPECT_EQ(c.index, 7);
    ASSERT_TRUE(german.fromAciName("vonlayer", c));
    EXPECT_EQ(c, HostColor::byLayer());
    ASSERT_TRUE(german.fromAciName("VONBLOCK", c));
    EXPECT_EQ(c, HostColor::byBlock());
    ASSERT_TRUE(german.fromAciName("cyan", c));
    EXPECT_EQ(c.index, 4);
    EXPECT_FALSE(german.fromAciName("BYLAYER", c));
    EXPECT_FALSE(german.fromAciName("red", c));
}

TEST(RgbName, ThreeNumbersUpTo255) {
    ColorServices s;
    HostColor c;
    ASSERT_TRUE(s.fromRgbName("255,128,0", c));
    EXPECT_EQ(c, HostColor::fromRgb(255, 128, 0));
    ASSERT_TRUE(s.fromRgbName(" 1 , 2 ,3 ", c));
    EXPECT_EQ(c.rgb(), 0x010203u);
    for (const char* bad : {"256,0,0", "1,2", "1,2,3,4", "1,,3", "a,b,c", "1;2;3", "", "-1,2,3"})
        EXPECT_FALSE(s.fromRgbName(bad, c)) << bad;
}

TEST(ColorBook, RalClassicColoursByNameInAnyCase) {
    ColorServices s;
    HostColor c;
    ASSERT_TRUE(s.fromColorBookName("ral classic", "ral 1000", c));
    EXPECT_EQ(c.method, HostColor::Method::ColorBook);
    EXPECT_EQ(c.bookName, "RAL CLASSIC");
    EXPECT_EQ(c.colorName, "RAL 1000");
    EXPECT_EQ(c.rgb(), 0xBEBD7Fu);  // 190,189,127
    ASSERT_TRUE(s.fromColorBookName("RAL CLASSIC", "RAL 9005", c));
    EXPECT_EQ(c.rgb(), 0x0A0A0Du);
    ASSERT_TRUE(s.fromColorBookName("", "RAL 3000", c));
    EXPECT_EQ(c.bookName, "RAL CLASSIC");
    EXPECT_FALSE(s.fromColorBookName("RAL CLASSIC", "RAL 1008", c));
    EXPECT_FALSE(s.fromColorBookName("PANTONE", "RAL 1000", c));
    EXPECT_FALSE(s.fromColorBookName("", "RED", c));
}

TEST(ColorBook, RalClassicNamesAreUniqueAndWellFormed) {
    const auto& book = cadhost::ralClassicBook();
    std::set<std::string> names;
    for (const auto& c : book.colors) {
        const std::string name = c.name;
        ASSERT_EQ(name.size(), 8u) << name;
        EXPECT_EQ(name.substr(0, 4), "RAL ");
        EXPECT_TRUE(name[4] >= '1' && name[4] <= '9') << name;
        EXPECT_TRUE(names.insert(name).second) << "twice: " << name;
    }
    EXPECT_EQ(names.size(), 213u);
}
