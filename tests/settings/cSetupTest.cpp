#include "settings/cSetup.h"

#include <gtest/gtest.h>

#include <climits>

#include "support/TempFolder.h"
#include "settings/ProfileString.h"

namespace ardo {
namespace {

using test::readBytes;
using test::TempFolder;

std::vector<std::string> recorded(const cSetup& setup) {
    std::vector<std::string> out;
    for (const auto& node : setup.recordList()) {
        EXPECT_EQ(node.restype, RTSTR);
        out.push_back(node.text);
    }
    return out;
}

using Strings = std::vector<std::string>;

class cSetupFile : public ::testing::Test {
protected:
    void SetUp() override { setup.bind(path, "unused", "Dialog", "CONFIG", false, true); }

    TempFolder dir;
    std::string path = dir.file("ArdoSetup.ini");
    cSetup setup;
};

TEST_F(cSetupFile, BindKeepsItsFieldsAndDropsTheRecord) {
    cSetup s;
    s.bind(path, "x", "Name", "CONFIG", true, false);
    s.setString("a", "1", true);
    ASSERT_EQ(s.recordList().size(), 1u);
    s.bind(path, "x", "Zweit", "HIGHLIGHT", true, true);
    EXPECT_EQ(s.filePath(), path);
    EXPECT_EQ(s.name(), "Zweit");
    EXPECT_EQ(s.section(), "HIGHLIGHT");
    EXPECT_TRUE(s.recordValues());
    EXPECT_TRUE(s.useFile());
    EXPECT_TRUE(s.recordList().empty());
}

TEST_F(cSetupFile, TypedValuesAreWrittenInTheirTextForms) {
    setup.setInt("Int", -42, true);
    setup.setBool("Bool", true, true);
    setup.setInteger("Integer", 7, true);
    setup.setUnsigned("Unsigned", 4000000000u, true);
    setup.setReal("Real", 1.5, true);
    setup.setLong("Long", LONG_MIN, true);
    setup.setUnsignedLong("UnsignedLong", ULONG_MAX, true);
    EXPECT_EQ(readBytes(path),
              "[CONFIG]\nInt=-42\nBool=1\nInteger=7\nUnsigned=4000000000\nReal=1.50000\n"
              "Long=-9223372036854775808\nUnsignedLong=18446744073709551615\n");

    int i = 0, integer = 0;
    bool b = false;
    unsigned u = 0;
    double r = 0;
    long l = 0;
    unsigned long ul = 0;
    setup.getInt("int", i);
    setup.getBool("BOOL", b);
    setup.getInteger("Integer", integer);
    setup.getUnsigned("Unsigned", u);
    setup.getReal("Real", r);
    setup.getLong("Long", l);
    setup.getUnsignedLong("UnsignedLong", ul);
    EXPECT_EQ(i, -42);
    EXPECT_TRUE(b);
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(u, 4000000000u);
    EXPECT_EQ(r, 1.5);
    EXPECT_EQ(l, LONG_MIN);
    EXPECT_EQ(ul, ULONG_MAX);
}

TEST_F(cSetupFile, AGetThatFindsNoNumberLeavesTheCallersValue) {
    ASSERT_TRUE(WritePrivateProfileStringW("CONFIG", "Text", "abc", path));
    ASSERT_TRUE(WritePrivateProfileStringW("CONFIG", "Leer", "", path));
    int i = 11;
    bool b = true;
    unsigned u = 12;
    double r = 2.25;
    long l = 13;
    unsigned long ul = 14;
    for (const char* key : {"Text", "Leer", "Fehlt"}) {
        setup.getInt(key, i);
        setup.getInteger(key, i);
        setup.getBool(key, b);
        setup.getUnsigned(key, u);
        setup.getReal(key, r);
        setup.getLong(key, l);
        setup.getUnsignedLong(key, ul);
    }
    EXPECT_EQ(i, 11);
    EXPECT_TRUE(b);
    EXPECT_EQ(u, 12u);
    EXPECT_EQ(r, 2.25);
    EXPECT_EQ(l, 13);
    EXPECT_EQ(ul, 14u);
}

TEST_F(cSetupFile, NumbersAreTakenAsFarAsTheyGo) {
    ASSERT_TRUE(WritePrivateProfileStringW("CONFIG", "A", "12abc", path));
    ASSERT_TRUE(WritePrivateProfileStringW("CONFIG", "B", "7", path));
    ASSERT_TRUE(WritePrivateProfileStringW("CONFIG", "C", "0", path));
    ASSERT_TRUE(WritePrivateProfileStringW("CONFIG", "D", "-2.5e1x", path));
    int i = 0;
    setup.getInt("A", i);
    EXPECT_EQ(i, 12);
    bool b = false;
    setup.getBool("B", b);
    EXPECT_TRUE(b);
    setup.getBool("C", b);
    EXPECT_FALSE(b);
    double r = 0;
    setup.getReal("D", r);
    EXPECT_EQ(r, -25.0);
}

TEST_F(cSetupFile, StringsComeFromTheFileOrTheDefault) {
    std::string s = "alt";
    setup.getString("Fehlt", "vorgabe", s);
    EXPECT_EQ(s, "vorgabe");
    setup.setString("Pfad", "C:\\Ardo\\Wände", true);
    setup.getString("pfad", "vorgabe", s);
    EXPECT_EQ(s, "C:\\Ardo\\Wände");
    setup.setString("Nicht", "geschrieben", false);
    setup.getString("Nicht", "vorgabe", s);
    EXPECT_EQ(s, "vorgabe");
    EXPECT_TRUE(setup.recordList().empty());
}

TEST_F(cSetupFile, FileValuesAreReadThroughA512CharacterBuffer) {
    setup.setString("Lang", std::string(600, 'x'), true);
    std::string s;
    setup.getString("Lang", "", s);
    EXPECT_EQ(s, std::string(511, 'x'));
}

TEST(cSetupRecord, RecordedValuesOverrideTheFileWithACaseSensitivePrefixMatch) {
    TempFolder dir;
    const auto path = dir.file("s.ini");
    ASSERT_TRUE(WritePrivateProfileStringW("S", "Breite", "1", path));
    cSetup setup;
    setup.bind(path, "", "", "S", true, true);
    setup.setString("BreiteMax", "9", false);
    setup.setInt("Hoehe", 3, false);
    EXPECT_EQ(recorded(setup), (Strings{"BreiteMax=9", "Hoehe=3"}));

    // "Breite" is the beginning of "BreiteMax": the rest after it is taken as the value.
    std::string s;
    setup.getString("Breite", "", s);
    EXPECT_EQ(s, "Max=9");
    int breite = 5;
    setup.getInt("Breite", breite);
    EXPECT_EQ(breite, 5);
    setup.getString("BreiteMax", "", s);
    EXPECT_EQ(s, "9");
    setup.getString("breite", "", s);
    EXPECT_EQ(s, "1");
    int h = 0;
    setup.getInt("Hoehe", h);
    EXPECT_EQ(h, 3);
    EXPECT_EQ(readBytes(path), "[S]\nBreite=1\n");
}

TEST(cSetupRecord, BlanksAndEqualsSignsAfterTheKeyAreSkipped) {
    cSetup setup;
    setup.bind("", "", "", "S", true, false);
    setup.setString("Key ", "=  x y ", false);
    setup.setString("Zwei", "= = z", false);
    std::string s;
    setup.getString("Key", "vorgabe", s);
    EXPECT_EQ(s, "x y ");
    // One run each of blanks, equals signs and blanks.
    setup.getString("Zwei", "vorgabe", s);
    EXPECT_EQ(s, "= z");
    setup.getString("Anders", "vorgabe", s);
    EXPECT_EQ(s, "vorgabe");
}

TEST(cSetupRecord, ClearingTheRecord) {
    cSetup setup;
    setup.bind("", "", "", "S", true, false);
    setup.setReal("R", 1.5, false);
    EXPECT_EQ(recorded(setup), Strings{"R=1.50000"});
    setup.clearRecordIfRecording();
    EXPECT_TRUE(setup.recordList().empty());

    setup.setBool("B", false, false);
    setup.bind("", "", "", "S", false, false);
    setup.setBool("B", true, false);
    EXPECT_TRUE(setup.recordList().empty());
    bool b = false;
    setup.getBool("B", b);
    EXPECT_FALSE(b);
}

TEST(cSetupRecord, ClearIfRecordingKeepsTheListWhenNotRecording) {
    // Counts the releases: every bind releases once, clear-if-recording only when recording.
    struct Probe : cSetup {
        void clearRecord() override { ++clears; }
        int clears = 0;
    } probe;
    probe.bind("", "", "", "S", false, false);
    probe.clearRecordIfRecording();
    EXPECT_EQ(probe.clears, 1);  // the bind's own
    probe.bind("", "", "", "S", true, false);
    probe.clearRecordIfRecording();
    EXPECT_EQ(probe.clears, 3);
}

TEST(cSetupRecord, TypedOperationsGoThroughTheStringSlots) {
    struct Probe : cSetup {
        void getString(const std::string& key, const std::string&, std::string& result) const override {
            keys.push_back(key);
            result = " 17.25";
        }
        void setString(const std::string& key, const std::string& value, bool toFile) override {
            sets.push_back(key + ":" + value + (toFile ? ":file" : ":memory"));
        }
        mutable Strings keys;
        Strings sets;
    } probe;
    int i = 0;
    double r = 0;
    unsigned long ul = 0;
    probe.getInt("a", i);
    probe.getReal("b", r);
    probe.getUnsignedLong("c", ul);
    EXPECT_EQ(probe.keys, (Strings{"a", "b", "c"}));
    EXPECT_EQ(i, 17);
    EXPECT_EQ(r, 17.25);
    EXPECT_EQ(ul, 17u);
    probe.setUnsigned("u", 5, true);
    probe.setLong("l", -5, false);
    EXPECT_EQ(probe.sets, (Strings{"u:5:file", "l:-5:memory"}));
}

TEST(cSetupRecord, ParseRealTellsWhetherANumberWasTaken) {
    cSetup setup;
    double r = 4.0;
    EXPECT_TRUE(setup.parseReal(r, "  1.5e3mm"));
    EXPECT_EQ(r, 1500.0);
    EXPECT_FALSE(setup.parseReal(r, "mm"));
    EXPECT_FALSE(setup.parseReal(r, ""));
    EXPECT_EQ(r, 1500.0);
    EXPECT_TRUE(setup.parseReal(r, "-.5"));
    EXPECT_EQ(r, -0.5);
}

}  // namespace
}  // namespace ardo
