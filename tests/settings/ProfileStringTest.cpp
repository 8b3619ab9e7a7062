#include "settings/ProfileString.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ardo {
namespace {

using test::readBytes;
using test::TempFolder;

using Names = std::vector<std::string>;

// A settings file as users keep it on Windows: CRLF, Windows-1252, comments and odd lines.
const std::string kWindowsFile =
    "; Einstellungen\r\n"
    "[W\xE4nde]\r\n"
    "  Farbe  =  gr\xFCn  \r\n"
    "Zitat=\"  mit Blanks  \"\r\n"
    "Einfach='x'\r\n"
    "Halb=\"offen\r\n"
    "Gemischt=\"x'\r\n"
    "Leer=\r\n"
    "ohne Gleichheitszeichen\r\n"
    "[offen\r\n"
    "\r\n"
    "[Zweite]\r\n"
    "Farbe=rot\r\n";

class ProfileStringTest : public ::testing::Test {
protected:
    std::string get(const std::string& section, const std::string& key, const std::string& def = "-",
                    size_t size = 512) {
        return GetPrivateProfileStringW(section, key, def, size, path).text;
    }

    TempFolder dir;
    std::string path = dir.write("setup.ini", kWindowsFile);
};

TEST_F(ProfileStringTest, SectionsAndKeysAreFoundWithoutRegardToCaseAndBlanks) {
    EXPECT_EQ(get("WÄNDE", "farbe"), "grün");
    EXPECT_EQ(get(" wände ", " FARBE "), "grün");
    EXPECT_EQ(get("zweite", "Farbe"), "rot");
    EXPECT_EQ(get("Wände", "Leer"), "");
}

TEST_F(ProfileStringTest, AMatchingPairOfQuotesIsRemoved) {
    EXPECT_EQ(get("Wände", "Zitat"), "  mit Blanks  ");
    EXPECT_EQ(get("Wände", "Einfach"), "x");
    EXPECT_EQ(get("Wände", "Halb"), "\"offen");
    EXPECT_EQ(get("Wände", "Gemischt"), "\"x'");
}

TEST_F(ProfileStringTest, MissingSectionKeyOrFileGivesTheDefaultWithoutTrailingBlanks) {
    EXPECT_EQ(get("Wände", "Fehlt", "vorgabe  "), "vorgabe");
    EXPECT_EQ(get("Fehlt", "Farbe", "  v"), "  v");
    EXPECT_EQ(get("Wände", "ohne Gleichheitszeichen"), "-");
    EXPECT_EQ(GetPrivateProfileStringW("Wände", "Fehlt", std::nullopt, 512, path).text, "");
    EXPECT_EQ(GetPrivateProfileStringW("A", "B", "d", 512, dir.file("none.ini")).text, "d");
    EXPECT_FALSE(std::filesystem::exists(dir.file("none.ini")));
}

TEST_F(ProfileStringTest, ValuesAreCutToTheBufferSizeLessOne) {
    auto r = GetPrivateProfileStringW("Wände", "Farbe", "", 4, path);
    EXPECT_EQ(r.text, "grü");
    EXPECT_EQ(r.length, 3u);
    r = GetPrivateProfileStringW("Wände", "Farbe", "", 5, path);
    EXPECT_EQ(r.text, "grün");
    EXPECT_EQ(r.length, 4u);
    r = GetPrivateProfileStringW("Wände", "Fehlt", "abcdef", 3, path);
    EXPECT_EQ(r.text, "ab");
    EXPECT_EQ(r.length, 2u);
    EXPECT_EQ(GetPrivateProfileStringW("Wände", "Farbe", "", 1, path).text, "");
    EXPECT_EQ(GetPrivateProfileStringW("Wände", "Farbe", "", 0, path).length, 0u);
}

TEST_F(ProfileStringTest, NoSectionListsTheSectionsAndNoKeyTheKeys) {
    auto sections = GetPrivateProfileStringW(std::nullopt, std::nullopt, "x", 512, path);
    EXPECT_EQ(sections.names, (Names{"Wände", "Zweite"}));
    EXPECT_EQ(sections.length, 5u + 1 + 6 + 1);
    EXPECT_EQ(sections.text, "");

    auto keys = GetPrivateProfileStringW("WÄNDE", std::nullopt, "x", 512, path);
    EXPECT_EQ(keys.names, (Names{"Farbe", "Zitat", "Einfach", "Halb", "Gemischt", "Leer"}));
    EXPECT_TRUE(GetPrivateProfileStringW("Fehlt", std::nullopt, "x", 512, path).names.empty());
    EXPECT_TRUE(GetPrivateProfileStringW(std::nullopt, "k", "x", 512, dir.file("none.ini")).names.empty());
}

TEST_F(ProfileStringTest, ListsThatDoNotFitAreCutToTheBufferSizeLessTwo) {
    // "Wände\0Zweite\0\0" needs 14 characters.
    auto r = GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 14, path);
    EXPECT_EQ(r.names, (Names{"Wände", "Zweite"}));
    EXPECT_EQ(r.length, 13u);
    r = GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 13, path);
    EXPECT_EQ(r.names, (Names{"Wände", "Zweit"}));
    EXPECT_EQ(r.length, 11u);
    r = GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 8, path);
    EXPECT_EQ(r.names, (Names{"Wände"}));
    EXPECT_EQ(r.length, 6u);
    r = GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 5, path);
    EXPECT_EQ(r.names, (Names{"Wän"}));
    EXPECT_EQ(r.length, 3u);
    EXPECT_TRUE(GetPrivateProfileStringW(std::nullopt, std::nullopt, "", 2, path).names.empty());
}

TEST_F(ProfileStringTest, WritingCreatesFileSectionAndKeyWithLineFeeds) {
    const auto fresh = dir.file("fresh.ini");
    ASSERT_TRUE(WritePrivateProfileStringW("Öl", "Tür", "zu", fresh));
    ASSERT_TRUE(WritePrivateProfileStringW("Öl", "Fenster", "auf", fresh));
    ASSERT_TRUE(WritePrivateProfileStringW("Zwei", "A", "1", fresh));
    EXPECT_EQ(readBytes(fresh), "[\xD6l]\nT\xFCr=zu\nFenster=auf\n[Zwei]\nA=1\n");
}

TEST_F(ProfileStringTest, WritingChangesOnlyItsOwnLineAndKeepsCrlf) {
    ASSERT_TRUE(WritePrivateProfileStringW("wände", "FARBE", "blau", path));
    std::string expected = kWindowsFile;
    const std::string line = "  Farbe  =  gr\xFCn  ";
    expected.replace(expected.find(line), line.size(), "Farbe=blau");
    EXPECT_EQ(readBytes(path), expected);
    EXPECT_EQ(get("Wände", "Farbe"), "blau");
}

TEST_F(ProfileStringTest, NewKeysFollowTheSectionsLastKeyNewSectionsEndTheFile) {
    ASSERT_TRUE(WritePrivateProfileStringW("Wände", "Neu", "1", path));
    ASSERT_TRUE(WritePrivateProfileStringW("Dritte", "K", "v", path));
    std::string expected = kWindowsFile;
    expected.insert(expected.find("ohne Gleichheitszeichen"), "Neu=1\r\n");
    expected += "[Dritte]\r\nK=v\r\n";
    EXPECT_EQ(readBytes(path), expected);
}

TEST_F(ProfileStringTest, ALastLineWithoutLineEndGetsOneBeforeANewLine) {
    const auto p = dir.write("open.ini", "[A]\r\nx=1");
    ASSERT_TRUE(WritePrivateProfileStringW("A", "y", "2", p));
    EXPECT_EQ(readBytes(p), "[A]\r\nx=1\r\ny=2\r\n");
}

TEST_F(ProfileStringTest, SettingTheValueAKeyHasLeavesTheFileByteIdentical) {
    ASSERT_TRUE(WritePrivateProfileStringW("Wände", "Farbe", "grün", path));
    ASSERT_TRUE(WritePrivateProfileStringW("Wände", "Leer", "", path));
    EXPECT_EQ(readBytes(path), kWindowsFile);
}

TEST_F(ProfileStringTest, NoValueDeletesTheKeyNoKeyTheSection) {
    ASSERT_TRUE(WritePrivateProfileStringW("Wände", "Zitat", std::nullopt, path));
    EXPECT_EQ(get("Wände", "Zitat"), "-");
    ASSERT_TRUE(WritePrivateProfileStringW("WÄNDE", std::nullopt, std::nullopt, path));
    EXPECT_EQ(readBytes(path), "; Einstellungen\r\n[Zweite]\r\nFarbe=rot\r\n");
}

TEST_F(ProfileStringTest, DeletingWhatIsNotThereTouchesNothing) {
    EXPECT_TRUE(WritePrivateProfileStringW("Wände", "Fehlt", std::nullopt, path));
    EXPECT_TRUE(WritePrivateProfileStringW("Fehlt", std::nullopt, std::nullopt, path));
    EXPECT_EQ(readBytes(path), kWindowsFile);
    EXPECT_TRUE(WritePrivateProfileStringW("A", "B", std::nullopt, dir.file("none.ini")));
    EXPECT_FALSE(std::filesystem::exists(dir.file("none.ini")));
}

TEST_F(ProfileStringTest, RefusedWritesLeaveTheFileAlone) {
    EXPECT_FALSE(WritePrivateProfileStringW(std::nullopt, "k", "v", path));
    EXPECT_FALSE(WritePrivateProfileStringW("A", "k", "zwei\nZeilen", path));
    EXPECT_FALSE(WritePrivateProfileStringW("A", "k", "zwei\rZeilen", path));
    EXPECT_FALSE(WritePrivateProfileStringW("A", "k", std::string("mit\0Null", 8), path));
    EXPECT_FALSE(WritePrivateProfileStringW("A", "k\n", "v", path));
    EXPECT_FALSE(WritePrivateProfileStringW("A]", "k", "v", path));
    EXPECT_FALSE(WritePrivateProfileStringW("A", "k=x", "v", path));
    EXPECT_FALSE(WritePrivateProfileStringW("A", " ", "v", path));
    EXPECT_EQ(readBytes(path), kWindowsFile);
    EXPECT_FALSE(WritePrivateProfileStringW("A", "k", "v", dir.file("no/folder.ini")));

    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_FALSE(WritePrivateProfileStringW("Wände", "Farbe", "blau", path));
    EXPECT_EQ(readBytes(path), kWindowsFile);
    EXPECT_EQ(dir.names(), Names{"setup.ini"});
}

TEST_F(ProfileStringTest, GarbageLinesNeverHideTheValidOnes) {
    std::string garbage("\0\xFF\x80[=]=\r\r\n", 10);
    const auto p = dir.write("bad.ini", garbage + "[S]\n" + garbage + "k = v\r\r\n" + std::string(70000, 'x') + "\n");
    EXPECT_EQ(GetPrivateProfileStringW("S", "k", "", 512, p).text, "v");
    ASSERT_TRUE(WritePrivateProfileStringW("S", "k", "w", p));
    EXPECT_EQ(GetPrivateProfileStringW("S", "k", "", 512, p).text, "w");
    EXPECT_EQ(readBytes(p).substr(0, 10), garbage);
}

}  // namespace
}  // namespace ardo
