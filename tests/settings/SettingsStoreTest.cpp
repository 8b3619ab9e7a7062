#include "settings/SettingsStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/TempFolder.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

using test::readBytes;
using test::TempFolder;

std::vector<std::string> describe(const SettingsStore& store) {
    std::vector<std::string> out;
    for (const auto& r : store.records())
        out.push_back(r.isSection() ? "[" + r.section + "]" + r.value : r.key + "|" + r.value);
    return out;
}

using Lines = std::vector<std::string>;

TEST(SettingsStore, MissingFileLoadsAsNone) {
    TempFolder dir;
    EXPECT_EQ(SettingsStore::load(dir.file("none.ini")), nullptr);
}

TEST(SettingsStore, FileOfOnlyCommentsIsEmptyAndWritesAnEmptyFile) {
    TempFolder dir;
    auto store = SettingsStore::load(dir.write("c.ini", "// Kommentar\n/Pfad=x\n\nohne Zuweisung\n"));
    ASSERT_TRUE(store);
    EXPECT_TRUE(store->records().empty());
    ASSERT_TRUE(store->write(dir.file("out.ini")));
    EXPECT_EQ(readBytes(dir.file("out.ini")), "");
}

TEST(SettingsStore, WritingDropsCommentsAndBlankLinesAndPutsAnEmptyLineBeforeSections) {
    TempFolder dir;
    auto store = SettingsStore::load(
        dir.write("a.ini", "A=1\n\n// Kommentar\n[LAYER] ; Ebenen\nWand=1,2\n\n\n[Leer]\n[x]y\nB=2"));
    ASSERT_TRUE(store);
    EXPECT_EQ(describe(*store), (Lines{"A|1", "[LAYER] ; Ebenen", "Wand|1,2", "[Leer]", "[x]y", "B|2"}));
    ASSERT_TRUE(store->write(dir.file("out.ini")));
    EXPECT_EQ(readBytes(dir.file("out.ini")), "A=1\n\n[LAYER] ; Ebenen\nWand=1,2\n\n[Leer]\n\n[x]y\nB=2\n");
}

TEST(SettingsStore, KeyLinesLoseTheBlanksAroundTheFirstEqualsSignOnly) {
    auto store = std::make_unique<SettingsStore>();
    for (const char* line : {"  Key  =  a = b  \n", "=nicht\n", "/x=nicht\n", "k\t=\t\n", " = leer\n"})
        store->appendLine(line);
    EXPECT_EQ(describe(*store), (Lines{"  Key|a = b  ", "k|", "|leer"}));
    // A key that trims to nothing is still a key record, written as one (not as a header).
    EXPECT_EQ(store->text(), "  Key=a = b  \nk=\n=leer\n");
}

TEST(SettingsStore, HeaderWithoutClosingBracketKeepsTheRestAsItsName) {
    auto store = std::make_unique<SettingsStore>();
    store->appendLine("[offen=1\n");
    store->appendLine("[]\n");
    EXPECT_EQ(describe(*store), (Lines{"[offen=1]", "[]"}));
}

TEST(SettingsStore, LinesComeIn553CharacterPieces) {
    TempFolder dir;
    const std::string first = "K=" + std::string(551, 'a');
    auto store = SettingsStore::load(dir.write("long.ini", first + "X=y\n" + std::string(600, 'z') + "\n"));
    ASSERT_TRUE(store);
    EXPECT_EQ(describe(*store), (Lines{"K|" + std::string(551, 'a'), "X|y"}));
}

TEST(SettingsStore, WindowsFileWithUmlautsReadsFoldsAndWritesBackByteIdentical) {
    TempFolder dir;
    const std::string original = "\r\n[W\xC4NDE] ;\xE4\r\nFarbe=gr\xFCn\r\nT\xFCr=1 \r\n\r\n[Zwei]\r\nA=\x80\r\n";
    auto store = SettingsStore::load(dir.write("w.ini", original));
    ASSERT_TRUE(store);
    EXPECT_EQ(store->lineEnd(), LineEnd::CRLF);
    auto header = store->findSection("wände");
    ASSERT_NE(header, store->end());
    EXPECT_EQ(header->value, " ;ä");
    auto key = store->findKey(header, "TÜR");
    ASSERT_NE(key, store->end());
    EXPECT_EQ(key->value, "1 ");
    EXPECT_EQ(store->findKey(header, "A"), store->end());
    for (const auto& r : store->records()) EXPECT_EQ(r.value.find('\r'), std::string::npos) << r.value;
    ASSERT_TRUE(store->write(dir.file("w.ini")));
    EXPECT_EQ(readBytes(dir.file("w.ini")), original);
}

TEST(SettingsStore, CarriageReturnsBeforeTheLineEndNeverReachAValue) {
    TempFolder dir;
    auto store = SettingsStore::load(dir.write("m.ini", "[S]\nA=1\r\r\nB=2\r\n"));
    ASSERT_TRUE(store);
    EXPECT_EQ(describe(*store), (Lines{"[S]", "A|1", "B|2"}));
}

TEST(SettingsStore, FindOrCreatePutsNewKeysAtTheSectionsEndAndNewSectionsLast) {
    auto store = std::make_unique<SettingsStore>();
    for (const char* line : {"[A]\n", "x=1\n", "[B]\n", "y=2\n"}) store->appendLine(line);
    auto a = store->findOrCreateSection("a");
    EXPECT_EQ(a->section, "A");
    store->findOrCreateKey(a, "neu")->value = "3";
    store->findOrCreateKey(a, "X")->value = "4";
    auto c = store->findOrCreateSection("C");
    store->findOrCreateKey(c, "z")->value = "5";
    EXPECT_EQ(describe(*store), (Lines{"[A]", "x|4", "neu|3", "[B]", "y|2", "[C]", "z|5"}));
    EXPECT_EQ(store->text(), "\n[A]\nx=4\nneu=3\n\n[B]\ny=2\n\n[C]\nz=5\n");
}

TEST(SettingsStore, SectionSearchStartsWhereItIsToldAndTheFirstKeyWins) {
    auto store = std::make_unique<SettingsStore>();
    for (const char* line : {"[S]\n", "k=1\n", "k=2\n", "[S]\n", "k=3\n"}) store->appendLine(line);
    auto first = store->findSection("s");
    EXPECT_EQ(store->findKey(first, "K")->value, "1");
    auto second = store->findSection("S", std::next(first));
    ASSERT_NE(second, store->end());
    EXPECT_EQ(store->findKey(second, "k")->value, "3");
    EXPECT_EQ(store->findSection("S", std::next(second)), store->end());
}

TEST(SettingsStore, FailedWriteShowsTheAlertAndLeavesFileAndStoreAlone) {
    test::ScriptedHost host;
    TempFolder dir;
    const auto path = dir.write("ro.ini", "[S]\n// alt\nk=1\n");
    auto store = SettingsStore::load(path);
    ASSERT_TRUE(store);
    store->findKey(store->findSection("S"), "k")->value = "2";
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_FALSE(store->write(path));
    EXPECT_EQ(host.alerts, std::vector<std::string>{"\nIch kann die Datei " + path + " nicht schreiben"});
    EXPECT_EQ(readBytes(path), "[S]\n// alt\nk=1\n");
    EXPECT_EQ(describe(*store), (Lines{"[S]", "k|2"}));
    EXPECT_EQ(dir.names(), std::vector<std::string>{"ro.ini"});
}

}  // namespace
}  // namespace ardo
