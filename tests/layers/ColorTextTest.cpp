#include <gtest/gtest.h>

#include "layers/ColourCode.h"
#include "layers/ColorFunctions.h"
#include "layers/ColorText.h"
#include "layers/LayerFunctions.h"
#include "LayerFunctionsTestFiles.h"

namespace ardo::test {

namespace {

ResBufChain pair(int code, ResBuf value) {
    return {ResBuf::marker(RTLB), ResBuf::shortInt(code), ResBuf::marker(RTDOTE), std::move(value),
            ResBuf::marker(RTLE)};
}

ResBufChain join(std::initializer_list<ResBufChain> pairs) {
    ResBufChain out;
    for (const auto& p : pairs) out.insert(out.end(), p.begin(), p.end());
    return out;
}

}  // namespace

class ColorText : public LayerCoreTest {
protected:
    ResBufChain colorData(const std::string& text) {
        host.call(handlers::kemb_getColorDataFromString, {S(text)});
        return host.result;
    }
};

TEST_F(ColorText, IndexNamesAndNumbers) {
    EXPECT_EQ(colorData("red"), pair(62, I(1)));
    EXPECT_EQ(colorData(" 7 "), pair(62, I(7)));
    EXPECT_EQ(colorData("bylayer"), pair(62, I(256)));
    EXPECT_EQ(colorData("ByBlock"), pair(62, I(0)));
}

TEST_F(ColorText, RgbPrefixInAnyCaseWithBlanksIsAnRgbName) {
    const ResBufChain expected = join({pair(62, I(30)), pair(420, ResBuf::longInt(0xFF8000))});
    EXPECT_EQ(colorData("  rgb:255,128,0 "), expected);
    EXPECT_EQ(colorData("RGB:255,128,0"), expected);
    EXPECT_EQ(colorData("255,128,0"), expected);
    EXPECT_EQ(colorData("RGB:"), (ResBufChain{ResBuf::marker(RTNIL)}));
}

TEST_F(ColorText, GermanHostStillUnderstandsTheEnglishByWords) {
    host.colors.setLanguage(cadhost::ColorNameLanguage::German);
    EXPECT_EQ(colorData("bylayer"), pair(62, I(256)));
    EXPECT_EQ(colorData("BYBLOCK"), pair(62, I(0)));
    EXPECT_EQ(colorData("VonLayer"), pair(62, I(256)));
    EXPECT_EQ(colorData("grün"), pair(62, I(3)));
}

TEST_F(ColorText, EnglishHostDoesNotKnowTheGermanWords) {
    EXPECT_EQ(colorData("VONLAYER"), (ResBufChain{ResBuf::marker(RTNIL)}));
    EXPECT_EQ(colorData("rot"), (ResBufChain{ResBuf::marker(RTNIL)}));
}

TEST_F(ColorText, BookColoursWithAndWithoutBookName) {
    const ResBufChain ral1000 = join({pair(62, I(53)), pair(420, ResBuf::longInt(0xBEBD7F)),
                                      pair(430, S("RAL CLASSIC$RAL 1000"))});
    EXPECT_EQ(colorData("ral classic$ral 1000"), ral1000);
    // "$" first: an empty book name, every shipped book is searched.
    EXPECT_EQ(colorData("$RAL 1000"), ral1000);
    EXPECT_EQ(colorData("$RED"), (ResBufChain{ResBuf::marker(RTNIL)}));
    EXPECT_EQ(colorData("RAL CLASSIC$RAL 0000"), (ResBufChain{ResBuf::marker(RTNIL)}));
}

TEST_F(ColorText, NearestIndexIsTheClosestPaletteEntry) {
    // Pure palette colours map onto themselves; ties go to the smaller index (7 before 255).
    HostColor c = HostColor::fromRgb(255, 255, 255);
    EXPECT_EQ(colorDataList(c), join({pair(62, I(7)), pair(420, ResBuf::longInt(0xFFFFFF))}));
    c = HostColor::fromRgb(0, 0, 250);
    EXPECT_EQ(colorDataList(c)[3], I(5));
}

TEST_F(ColorText, ArgumentErrorsGiveNil) {
    host.call(handlers::kemb_getColorDataFromString, {});
    EXPECT_EQ(host.printed, "\nWrong number of arguments");
    host.clearOutput();
    host.call(handlers::kemb_getColorDataFromString, {I(1)});
    EXPECT_EQ(host.printed, "\nWrong type of argument");
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::marker(RTNIL)}));
}

TEST_F(ColorText, ColourDialogOpensOnTheGivenColourAndGivesTheChosenOneAsColourData) {
    host.chosenColors = {HostColor::fromIndex(1), HostColor::byLayer()};
    host.call(handlers::kemb_ColorDialog, {});
    EXPECT_EQ(host.result, pair(62, I(1)));
    host.call(handlers::kemb_ColorDialog, {S("RGB:10,20,30"), ResBuf::marker(RTT)});
    EXPECT_EQ(host.result, pair(62, I(256)));
    ASSERT_EQ(host.colorDialogsOpened.size(), 2u);
    EXPECT_EQ(host.colorDialogsOpened[0], std::make_pair(HostColor::fromIndex(7), true));
    EXPECT_EQ(host.colorDialogsOpened[1].first.rgb(), 0x0A141Eu);
    // nil as the second argument keeps BYLAYER and BYBLOCK out; cancelling gives nil.
    host.call(handlers::kemb_ColorDialog, {I(3), ResBuf::marker(RTNIL)});
    EXPECT_EQ(host.result, ResBufChain{ResBuf::marker(RTNIL)});
    EXPECT_EQ(host.colorDialogsOpened.back(), std::make_pair(HostColor::fromIndex(3), false));
    // A colour the module cannot read is refused before any dialog opens.
    host.call(handlers::kemb_ColorDialog, {S("kein Farbname")});
    EXPECT_EQ(host.result, ResBufChain{ResBuf::marker(RTNIL)});
    EXPECT_EQ(host.colorDialogsOpened.size(), 3u);
}

TEST_F(ColorText, ColourCodesByTopByte) {
    EXPECT_EQ(colorFromCode(1, "", ""), HostColor::fromIndex(1));
    EXPECT_EQ(colorFromCode(0, "", ""), HostColor::byBlock());
    EXPECT_EQ(colorFromCode(256, "", ""), HostColor::byLayer());
    EXPECT_EQ(colorFromCode(0x01102030, "", ""), HostColor::fromRgb(0x10, 0x20, 0x30));
    EXPECT_EQ(colorFromCode(0x02FF8000, "", ""), HostColor::fromRgb(255, 128, 0));
    const auto book = colorFromCode(0x04BEBD7F, "RAL CLASSIC", "RAL 1000");
    ASSERT_TRUE(book);
    EXPECT_EQ(book->method, HostColor::Method::ColorBook);
    EXPECT_EQ(book->colorName, "RAL 1000");
    // A book the host does not ship keeps the code's own RGB and its names as labels; without
    // names it is the code's true colour.
    const auto unknown = colorFromCode(0x04010203, "NOBOOK", "X");
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->method, HostColor::Method::ColorBook);
    EXPECT_EQ(unknown->rgb(), 0x010203u);
    EXPECT_EQ(unknown->bookName, "NOBOOK");
    EXPECT_EQ(unknown->colorName, "X");
    EXPECT_EQ(colorFromCode(0x04010203, "NOBOOK", ""), HostColor::fromRgb(1, 2, 3));
    EXPECT_FALSE(colorFromCode(0x03000001, "", ""));
    EXPECT_FALSE(colorFromCode(-1, "", ""));
    EXPECT_FALSE(colorFromCode(300, "", ""));
}

}  // namespace ardo::test
