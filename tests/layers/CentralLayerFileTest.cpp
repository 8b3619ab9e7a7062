#include <gtest/gtest.h>

#include <filesystem>

#include "layers/CentralLayerFile.h"
#include "support/TempFolder.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

using test::TempFolder;

class CentralLayerFileTest : public ::testing::Test {
protected:
    std::string copyFixture() {
        return tmp.write("Ardo.ini", test::readBytes(std::string(ARDO_TEST_DATA) + "/layers/Ardo.ini"));
    }
    std::vector<std::string> keys() const {
        std::vector<std::string> out;
        for (const auto& e : file.entries()) out.push_back(e->key);
        return out;
    }

    test::ScriptedHost host;
    TempFolder tmp;
    CentralLayerFile file;
};

TEST_F(CentralLayerFileTest, LoadsValidEntriesAfterLayerHeaderIncludingLaterSections) {
    ASSERT_TRUE(file.loadFileImage(copyFixture()));
    file.loadEntries();
    EXPECT_EQ(keys(), (std::vector<std::string>{"K1", "K2", "K4", "K5"})) << "K3 has three fields";
    EXPECT_TRUE(host.printed.empty());

    const LayerEntry& k1 = *file.entries()[0];
    EXPECT_EQ(k1.flags, entryflag::kFromFile);
    EXPECT_EQ(k1.name, "Mauer");
    EXPECT_EQ(k1.fileColor, 1);
    EXPECT_EQ(k1.fileLinetype, "Continuous");
    EXPECT_EQ(k1.fileLineweight, -3);
    EXPECT_EQ(k1.filePlotStyle, "Normal");
    EXPECT_TRUE(k1.filePlottable);

    const LayerEntry& k4 = *file.entries()[2];
    EXPECT_EQ(k4.fileColor, 0x01FF0000);
    EXPECT_EQ(k4.fileLinetypeFile, "acad.lin");
    EXPECT_EQ(k4.fileLineweight, 25);
    EXPECT_EQ(k4.fileTextField10, "Feld zehn");
    EXPECT_FALSE(k4.filePlottable);
}

TEST_F(CentralLayerFileTest, MissingFileIsReportedBetweenLineFeeds) {
    const std::string path = tmp.file("fehlt.ini");
    EXPECT_FALSE(file.loadFileImage(path));
    EXPECT_EQ(host.printed, "\nDatei '" + path + "' nicht gefunden\n");
    file.loadEntries();
    EXPECT_TRUE(file.entries().empty());
}

TEST_F(CentralLayerFileTest, MissingLayerSectionIsReportedAndGivesNoEntries) {
    const std::string path = tmp.write("ohne.ini", "[GENERAL]\nK1=Mauer,1,Continuous,,0\n");
    EXPECT_FALSE(file.loadFileImage(path));
    EXPECT_EQ(host.printed, "\nSection 'LAYER' in Datei\n    '" + path + "'\nnicht gefunden\n");
    file.loadEntries();
    EXPECT_TRUE(file.entries().empty());
}

TEST_F(CentralLayerFileTest, LayerSectionIsFoundInAnyCase) {
    ASSERT_TRUE(file.loadFileImage(tmp.write("klein.ini", "[Layer]\nA=Eins,1,Continuous,,0\n")));
    file.loadEntries();
    EXPECT_EQ(keys(), std::vector<std::string>{"A"});
}

TEST_F(CentralLayerFileTest, UnchangedListWritesNothing) {
    const std::string path = copyFixture();
    ASSERT_TRUE(file.loadFileImage(path));
    file.loadEntries();
    std::filesystem::remove(path);
    EXPECT_TRUE(file.save(path));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(CentralLayerFileTest, SaveCopiesImageUpToLayerThenWritesFileEntries) {
    const std::string path = copyFixture();
    ASSERT_TRUE(file.loadFileImage(path));
    file.loadEntries();
    file.entries()[1]->state = kStateDeleted;   // K2
    LayerEntry drawingOnly;
    drawingOnly.flags = entryflag::kInDrawing;
    drawingOnly.name = "NurZeichnung";
    file.append(drawingOnly);
    file.entries()[0]->state = 1;
    file.entries()[0]->fileColorBookName = "Buch";
    ASSERT_TRUE(file.save(path));
    EXPECT_EQ(test::readBytes(path),
              "\n[GENERAL]  ; kept after the bracket\n"
              "Version=3\n"
              ";Remark=kept as key line\n"
              "\n[LAYER]\n"
              "K1=Mauer,1,Continuous,,0,Buch,,-3,Normal,,1\n"
              "K4=Decke,33488896,HIDDEN,acad.lin,1,,,25,Normal,Feld zehn,0\n"
              "K5=Boden,7,Continuous,,0,,,-3,Normal,,1\n");
}

TEST_F(CentralLayerFileTest, FileWithoutLayerSectionGetsEntriesAfterCopiedLines) {
    const std::string path = tmp.write("ohne.ini", "[GENERAL]\nA=1\n");
    file.loadFileImage(path);
    LayerEntry e;
    e.flags = entryflag::kFromFile;
    e.key = "N1";
    e.name = "Neu";
    file.append(e);
    file.setChanged();
    ASSERT_TRUE(file.save(path));
    EXPECT_EQ(test::readBytes(path), "\n[GENERAL]\nA=1\nN1=Neu,0,,,0,,,-3,,,1\n");
}

TEST_F(CentralLayerFileTest, CrLfFileStaysCrLf) {
    const std::string path = tmp.write("crlf.ini", "[LAYER]\r\nA=Eins,1,Continuous,,0\r\n");
    ASSERT_TRUE(file.loadFileImage(path));
    file.loadEntries();
    file.setChanged();
    ASSERT_TRUE(file.save(path));
    EXPECT_EQ(test::readBytes(path), "\r\n[LAYER]\r\nA=Eins,1,Continuous,,0,,,-3,Normal,,1\r\n");
}

TEST_F(CentralLayerFileTest, UnwritableFileIsReportedAndKeepsChangeMarksAndOldFile) {
    const std::string path = copyFixture();
    const std::string before = test::readBytes(path);
    ASSERT_TRUE(file.loadFileImage(path));
    file.loadEntries();
    file.entries()[0]->state = 1;
    // A folder of that name cannot be replaced by a file.
    const std::string blocked = tmp.file("Ordner.ini");
    std::filesystem::create_directory(blocked);
    EXPECT_FALSE(file.save(blocked));
    const std::string message = "Die Layer-Datei\n    '" + blocked + "'\nkann nicht zum Schreiben geöffnet werden.\n";
    EXPECT_EQ(host.printed, message);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, message);
    EXPECT_EQ(host.boxes[0].caption, "Fehler");
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Error);
    EXPECT_EQ(file.entries()[0]->state, 1);
    EXPECT_TRUE(std::filesystem::is_directory(blocked));
    // A retry to a writable place succeeds; the original file was never touched.
    EXPECT_TRUE(file.save(tmp.file("neu.ini")));
    EXPECT_EQ(test::readBytes(path), before);
}

TEST_F(CentralLayerFileTest, ReloadAfterSaveClearsChanged) {
    const std::string path = copyFixture();
    file.loadFileImage(path);
    file.loadEntries();
    file.setChanged();
    ASSERT_TRUE(file.save(path));
    file.releaseFileImage();
    EXPECT_EQ(file.fileImage(), nullptr);
    ASSERT_TRUE(file.loadFileImage(path));
    EXPECT_FALSE(file.changed());
    file.loadEntries();
    // The key line of [AFTER] was an entry and is now under [LAYER]; the header itself is gone.
    EXPECT_EQ(keys(), (std::vector<std::string>{"K1", "K2", "K4", "K5"}));
    EXPECT_EQ(test::readBytes(path).find("[AFTER]"), std::string::npos);
}

TEST_F(CentralLayerFileTest, FindByKeyAndNameIgnoreCaseAndCanSkipAnEntry) {
    file.loadFileImage(tmp.write("dup.ini", "[LAYER]\nka=\xC4pfel,1,C,,0\nKA=zwei,1,C,,0\nkb=\xE4PFEL,1,C,,0\n"));
    file.loadEntries();
    // The file is in the 8-bit code page; names are UTF-8 in memory.
    FoundEntry k = file.findByKey("KA");
    ASSERT_TRUE(k);
    EXPECT_EQ(k.index, 0);
    EXPECT_EQ(k.entry->name, "Äpfel");
    FoundEntry second = file.findByKey("ka", k.entry);
    EXPECT_EQ(second.index, 1);
    EXPECT_EQ(file.findByName("ÄPFEL").index, 0);
    EXPECT_EQ(file.findByName("äpfel", file.entries()[0].get()).index, 2);
    EXPECT_FALSE(file.findByKey("kc"));
    EXPECT_EQ(file.findByKey("kc").index, -1);
}

TEST_F(CentralLayerFileTest, SortIsStableByUpperCaseNameInByteOrder) {
    for (const char* name : {"b", "a", "B", "Zaun", "Äste", "A", "_x", "10"}) {
        LayerEntry e;
        e.name = name;
        file.append(e);
    }
    file.sortByName();
    std::vector<std::string> names;
    for (const auto& e : file.entries()) names.push_back(e->name);
    // Upper-case names compare as "10" < "A" = "A" < "B" = "B" < "ZAUN" < "_X" < "ÄSTE"; equal ones keep their order.
    EXPECT_EQ(names, (std::vector<std::string>{"10", "a", "A", "b", "B", "Zaun", "_x", "Äste"}));
    EXPECT_EQ(file.entries()[1]->sortName, "A");
}

TEST_F(CentralLayerFileTest, ClearEmptiesListAndChanged) {
    file.append(LayerEntry{});
    file.setChanged();
    file.clear();
    EXPECT_TRUE(file.entries().empty());
    EXPECT_FALSE(file.changed());
}

}  // namespace
}  // namespace ardo
