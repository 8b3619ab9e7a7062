#include <gtest/gtest.h>

#include <filesystem>

#include "layers/ObjectLayerFile.h"
#include "support/TempFolder.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

using test::TempFolder;

// The settings file of the user in the test's folder.
class ObjectLayerFileTest : public ::testing::Test {
protected:
    ObjectLayerFileTest() : settings(tmp.file("ArdoSetup.ini")), object(&settings) {}

    void addEntry(const std::string& key, std::uint32_t flags = entryflag::kFromFile) {
        LayerEntry e;
        e.key = key;
        e.name = "Layer " + key;
        e.flags = flags;
        list.append(e);
    }

    test::ScriptedHost host;
    TempFolder tmp;
    SetupFileActiveKeys settings;
    ObjectLayerFile object;
    CentralLayerFile list;
};

TEST_F(ObjectLayerFileTest, LinesAreTrimmedAndSplitIntoObjectKeyAndActive) {
    const std::string path = tmp.write("Wand.ini",
                                       "[Allgemein]\n  Name=Wand  \n\n[layer]\n"
                                       "Mauer = K1 , 1\nWand=K2\n:Dach=K3\n::Dach=K4,0\nohne Gleichheitszeichen\n"
                                       "; Kommentar\n=K9\nA=,1\n");
    ASSERT_TRUE(object.read(path));
    EXPECT_FALSE(object.empty());
    const auto& l = object.lines();
    ASSERT_EQ(l.size(), 5u);
    EXPECT_EQ(l[0].objectName, "Mauer");
    EXPECT_EQ(l[0].key, "K1");
    EXPECT_TRUE(l[0].active);
    EXPECT_EQ(l[1].key, "K2");
    EXPECT_FALSE(l[1].active);
    EXPECT_TRUE(l[2].colonMark);
    EXPECT_EQ(l[2].objectName, "Dach");
    EXPECT_EQ(l[3].objectName, "Dach");
    EXPECT_FALSE(l[3].active);
    // A comma before index 3 does not split: the key is everything after the equals sign.
    EXPECT_EQ(l[4].key, ",1");
    EXPECT_FALSE(l[4].active);
    EXPECT_EQ(object.otherLines(), (std::vector<std::string>{"[Allgemein]", "Name=Wand", "", "; Kommentar"}));
}

// Object names with a comma: the line's first comma decides, not the first after '='.
TEST_F(ObjectLayerFileTest, OnlyTheLinesFirstCommaAtIndexThreeOrLaterSplitsKeyAndFlag) {
    const std::string path = tmp.write("Wand.ini", "[Layer]\nA,B=K1,1\nWand,alt=K2\nWand=K3,1\n");
    ASSERT_TRUE(object.read(path));
    const auto& l = object.lines();
    ASSERT_EQ(l.size(), 3u);
    EXPECT_EQ(l[0].objectName, "A,B");
    EXPECT_EQ(l[0].key, "K1,1");
    EXPECT_FALSE(l[0].active);
    EXPECT_EQ(l[1].objectName, "Wand,alt");
    EXPECT_EQ(l[1].key, "K2");
    EXPECT_FALSE(l[1].active);
    EXPECT_EQ(l[2].key, "K3");
    EXPECT_TRUE(l[2].active);
}

TEST_F(ObjectLayerFileTest, MissingFileChangesNothing) {
    ASSERT_TRUE(object.read(tmp.write("a.ini", "[Layer]\nX=K1\n")));
    EXPECT_FALSE(object.read(tmp.file("fehlt.ini")));
    EXPECT_EQ(object.lines().size(), 1u);
    object.reset();
    EXPECT_TRUE(object.empty());
    EXPECT_TRUE(object.lines().empty());
}

TEST_F(ObjectLayerFileTest, LongLinesAreReadInPiecesOf511) {
    const std::string name(600, 'x');
    ASSERT_TRUE(object.read(tmp.write("lang.ini", "[Layer]\n" + name + "=K1\n")));
    // The first piece holds no equals sign and is dropped; the rest makes one line.
    ASSERT_EQ(object.lines().size(), 1u);
    EXPECT_EQ(object.lines()[0].objectName, std::string(600 - 511, 'x'));
}

TEST_F(ObjectLayerFileTest, MarkReferencesSetsFlagsEightAndOne) {
    addEntry("K1");
    addEntry("K2");
    addEntry("K3");
    ASSERT_TRUE(object.read(tmp.write("o.ini", "[Layer]\nMauer=k1\nWand=K2\nMauer=K9\n")));
    object.lines()[1].deleted = true;
    object.markReferences(list, "MAUER");
    EXPECT_EQ(list.entries()[0]->flags, entryflag::kFromFile | entryflag::kInObjectFile | entryflag::kCurrentObject);
    EXPECT_EQ(list.entries()[1]->flags, entryflag::kFromFile) << "deleted lines name nothing";
    EXPECT_EQ(list.entries()[2]->flags, entryflag::kFromFile);
}

TEST_F(ObjectLayerFileTest, FindLineTakesFirstActiveThenRememberedKey) {
    const std::string path = tmp.write("o.ini", "[Layer]\n:Mauer=K0,1\nMauer=K1\nMauer=K2,1\nMauer=K3\nWand=K4\n");
    ASSERT_TRUE(object.read(path));
    ObjectLayerLine* line = object.findLine("mauer");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->key, "K2");
    EXPECT_EQ(object.findLine("Wand")->key, "K4");
    EXPECT_EQ(object.findLine("Dach"), nullptr);

    settings.write(activeKeyValueName(path), "MAUER=k3");
    ASSERT_TRUE(object.read(path));
    line = object.findLine("Mauer");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->key, "K3");
    EXPECT_TRUE(line->active);
    EXPECT_FALSE(object.lines()[2].active) << "the first active line loses its mark";

    object.lines()[1].deleted = true;
    object.lines()[2].active = false;
    settings.write(activeKeyValueName(path), "Mauer=K0");
    ASSERT_TRUE(object.read(path));
    EXPECT_EQ(object.findLine("Mauer")->key, "K2") << "a colon-marked line is never chosen";
}

TEST_F(ObjectLayerFileTest, WriteKeepsOtherLinesAndObjectsAndWritesCurrentFromEntries) {
    const std::string path = tmp.write("Mauer.ini",
                                       "; Kopf\n[Layer]\n; in der Section\nWand=K2,1\n:Mauer=K1\nDach=K9\n"
                                       "Mauer=K3\n");
    ASSERT_TRUE(object.read(path));
    object.lines()[2].deleted = true;   // Dach
    const std::uint32_t own = entryflag::kFromFile | entryflag::kInObjectFile | entryflag::kCurrentObject;
    addEntry("K1", own);
    addEntry("K3", own);
    addEntry("K5", own);
    addEntry("K6", entryflag::kFromFile | entryflag::kInObjectFile);
    addEntry("", own);
    list.entries()[2]->state = kStateDeleted;
    ASSERT_TRUE(object.write(list, path, "mauer", "k3"));
    EXPECT_EQ(test::readBytes(path),
              "; Kopf\n; in der Section\n[LAYER]\nWand=K2,1\n:mauer=K1\n:mauer=K3,1\n");
    EXPECT_EQ(object.activeKeys().keyOf("MAUER"), "K3");
    EXPECT_EQ(settings.read("ACTIVE_Mauer"), "mauer=K3");

    // Read back: the remembered key and the written lines agree.
    ObjectLayerFile again(&settings);
    ASSERT_TRUE(again.read(path));
    EXPECT_EQ(again.activeKeys().keyOf("mauer"), "K3");
    EXPECT_EQ(again.lines().size(), 3u);
}

// A file found under another spelling is written back in its own place.
TEST_F(ObjectLayerFileTest, WriteGoesToTheFileThatWasFoundUnderAnotherSpelling) {
    std::filesystem::create_directory(tmp.file("Objekte"));
    const std::string real = tmp.write("Objekte/Wand.ini", "[Layer]\nMauer=K1\n");
    const std::string asWindowsNamesIt = tmp.file("OBJEKTE\\WAND.INI");
    ASSERT_TRUE(object.read(asWindowsNamesIt));
    addEntry("K1", entryflag::kFromFile | entryflag::kInObjectFile | entryflag::kCurrentObject);
    ASSERT_TRUE(object.write(list, asWindowsNamesIt, "Mauer", "K1"));
    EXPECT_FALSE(std::filesystem::exists(asWindowsNamesIt)) << "no second file";
    EXPECT_NE(test::readBytes(real).find("Mauer=K1"), std::string::npos);
}

TEST_F(ObjectLayerFileTest, WriteWithoutActiveEntryLeavesSettingsAlone) {
    const std::string path = tmp.write("X.ini", "[Layer]\n");
    ASSERT_TRUE(object.read(path));
    addEntry("K1", entryflag::kFromFile | entryflag::kInObjectFile | entryflag::kCurrentObject);
    ASSERT_TRUE(object.write(list, path, "Obj", "K7"));
    EXPECT_EQ(test::readBytes(path), "[LAYER]\nObj=K1\n");
    EXPECT_FALSE(std::filesystem::exists(tmp.file("ArdoSetup.ini")));
}

TEST_F(ObjectLayerFileTest, UnwritableFileIsReportedAndNothingChanges) {
    const std::string blocked = tmp.file("Ordner.ini");
    std::filesystem::create_directory(blocked);
    addEntry("K1", entryflag::kFromFile | entryflag::kInObjectFile | entryflag::kCurrentObject);
    EXPECT_FALSE(object.write(list, blocked, "Obj", "K1"));
    const std::string message =
        "Die Objektart-Ini-Datei\n    '" + blocked + "'\nkann nicht zum Schreiben geöffnet werden.\n";
    EXPECT_EQ(host.printed, message);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption, "Fehler");
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Error);
    EXPECT_TRUE(object.activeKeys().empty());
}

TEST(ObjectLayerFilePath, SeparatorIsAddedOnlyWhenMissing) {
    EXPECT_EQ(objectLayerFilePath("daten", "Mauer"), "daten/Mauer.ini");
    EXPECT_EQ(objectLayerFilePath("daten/", "Mauer"), "daten/Mauer.ini");
    EXPECT_EQ(objectLayerFilePath("C:\\daten\\", "Mauer"), "C:\\daten\\Mauer.ini");
    EXPECT_EQ(activeKeyValueName("C:\\daten\\Mauer.ini"), "ACTIVE_Mauer");
    EXPECT_EQ(activeKeyValueName("daten/Wand.alt.ini"), "ACTIVE_Wand.alt");
}

TEST(ActiveKeyMap, EncodingEscapesSeparatorsAndRoundTrips) {
    ActiveKeyMap map;
    map.set("Mauer", "K1");
    map.set("Wand|alt", "K=2");
    map.set("Back\\slash", "K3");
    map.set("MAUER", "K4");
    EXPECT_EQ(map.encode(), "Mauer=K4|Wand\\|alt=K\\=2|Back\\\\slash=K3");
    const ActiveKeyMap back = ActiveKeyMap::decode(map.encode());
    EXPECT_EQ(back.keyOf("mauer"), "K4");
    EXPECT_EQ(back.keyOf("wand|alt"), "K=2");
    EXPECT_EQ(back.keyOf("Back\\slash"), "K3");
    EXPECT_EQ(back.encode(), map.encode());
    EXPECT_TRUE(ActiveKeyMap::decode("ohne|=leer|").empty());
}

}  // namespace
}  // namespace ardo
