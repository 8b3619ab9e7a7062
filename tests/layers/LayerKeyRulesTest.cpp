#include <gtest/gtest.h>

#include "layers/LayerKeyFunctions.h"
#include "layers/LayerKeyRules.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

TEST(LayerKeyRules, KeyAndNameCharacters) {
    EXPECT_TRUE(isValidLayerKey("Mauer-alt"));
    EXPECT_TRUE(isValidLayerKey("Mauer alt_ä.1"));
    for (char c : std::string("<>\"?*|,=`;[]")) {
        EXPECT_FALSE(isValidLayerKey(std::string("Mauer") + c + "alt")) << c;
        EXPECT_FALSE(isValidLayerName(std::string(1, c))) << c;
    }
    EXPECT_TRUE(isValidLayerName("Wand / Decke"));
}

TEST(LayerKeyRules, ObjectTypeNameCharacters) {
    EXPECT_TRUE(isValidObjectTypeName("Mauer_alt"));
    EXPECT_TRUE(isValidObjectTypeName("Wand-2"));
    EXPECT_FALSE(isValidObjectTypeName(""));
    for (char c : std::string("~*[]`#@.?,' !%^&()+={}|\\:;\"<>/"))
        EXPECT_FALSE(isValidObjectTypeName(std::string("Mauer") + c + "alt")) << c;
}

class AcceptEditTest : public ::testing::Test {
protected:
    AcceptEditTest() {
        for (auto [key, name] : {std::pair{"k1", "Mauer"}, std::pair{"K2", "Wand"}}) {
            LayerEntry e;
            e.key = key;
            e.name = name;
            list.append(e);
        }
    }
    LayerEntry& first() { return *list.entries()[0]; }
    void expectRefused(const std::string& message) {
        ASSERT_EQ(host.boxes.size(), 1u);
        EXPECT_EQ(host.boxes[0].text, message);
        EXPECT_EQ(host.boxes[0].caption, "Fehler");
        EXPECT_EQ(host.boxes[0].buttons, MbButtons::Ok);
        EXPECT_EQ(host.boxes[0].icon, MbIcon::Error);
        EXPECT_EQ(first().key, "k1");
        EXPECT_EQ(first().name, "Mauer");
    }

    test::ScriptedHost host;
    CentralLayerFile list;
};

TEST_F(AcceptEditTest, KeyOfBlanksIsMissing) {
    EXPECT_FALSE(acceptEditedKey(list, first(), "   "));
    expectRefused("Der Layer-Schlüssel fehlt.");
}

TEST_F(AcceptEditTest, KeyWithSemicolonIsRefused) {
    EXPECT_FALSE(acceptEditedKey(list, first(), "Mauer;alt"));
    expectRefused("Unzulässiges Zeichen in Layer-Schlüssel");
}

TEST_F(AcceptEditTest, KeyOfAnotherEntryIsRefused) {
    EXPECT_FALSE(acceptEditedKey(list, first(), " k2 "));
    expectRefused("Dieser Layer-Schlüssel ist schon vorhanden.");
}

TEST_F(AcceptEditTest, SameKeyDoesNothing) {
    EXPECT_FALSE(acceptEditedKey(list, first(), " k1\t"));
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(AcceptEditTest, CaseChangeOfOwnKeyAsksAndYesApplies) {
    host.answers = {MbAnswer::Yes};
    EXPECT_TRUE(acceptEditedKey(list, first(), "K1"));
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "A c h t u n g !\n\nDie Änderung eines Layerschlüssels kann zu Inkonsistenzen führen.\n\n"
              "Wollen Sie den Layerschlüssel wirklich ändern ?");
    EXPECT_EQ(host.boxes[0].caption, "Rückfrage");
    EXPECT_EQ(host.boxes[0].buttons, MbButtons::YesNo);
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Exclamation);
    EXPECT_EQ(first().key, "K1");
}

TEST_F(AcceptEditTest, NoKeepsTheKey) {
    host.answers = {MbAnswer::No};
    EXPECT_FALSE(acceptEditedKey(list, first(), "Mauer-alt"));
    EXPECT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(first().key, "k1");
}

TEST_F(AcceptEditTest, NameRulesUseTheNameLookupAndTexts) {
    EXPECT_FALSE(acceptEditedName(list, first(), ""));
    EXPECT_FALSE(acceptEditedName(list, first(), "Wa[nd"));
    EXPECT_FALSE(acceptEditedName(list, first(), "WAND"));
    EXPECT_FALSE(acceptEditedName(list, first(), "K2")) << "a key is no name";
    ASSERT_EQ(host.boxes.size(), 4u);
    EXPECT_EQ(host.boxes[0].text, "Der Layer-Name fehlt.");
    EXPECT_EQ(host.boxes[1].text, "Unzulässiges Zeichen in Layer-Name");
    EXPECT_EQ(host.boxes[2].text, "Dieser Layer-Name ist schon vorhanden.");
    EXPECT_EQ(host.boxes[3].caption, "Rückfrage");
    EXPECT_EQ(host.boxes[3].text,
              "A c h t u n g !\n\nDie Änderung eines Layernamens kann zu Inkonsistenzen führen.\n\n"
              "Wollen Sie den Layernamen wirklich ändern ?");
    host.answers = {MbAnswer::Yes};
    EXPECT_TRUE(acceptEditedName(list, first(), " Mauer alt "));
    EXPECT_EQ(first().name, "Mauer alt");
}

TEST(MkLayerKey, FormatsCdateWithNineDecimals) {
    test::ScriptedHost host;
    host.variables["CDATE"] = ResBuf::realNum(20240315.143059123);
    host.result = {ResBuf::str("alt")};
    host.call(handlers::kemb_mkLayerKey, {});
    ASSERT_EQ(host.result.size(), 1u);
    EXPECT_EQ(host.result[0].restype, RTSTR);
    const std::string key = host.result[0].text;
    EXPECT_EQ(key.substr(0, 15), "20240315.143059");
    EXPECT_EQ(key.size(), 18u);
    host.call(handlers::kemb_mkLayerKey, {ResBuf::str("ignored")});
    EXPECT_EQ(host.result[0].text, key) << "the same clock reading gives the same key";
    EXPECT_TRUE(host.printed.empty());
}

}  // namespace
}  // namespace ardo
