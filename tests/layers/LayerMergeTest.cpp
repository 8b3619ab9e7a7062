// Merging the drawing's layer table into the central file's entries, on the CAD host's
// drawing database made from its built-in template (which holds layer "0" only).
#include <gtest/gtest.h>

#include "cadhost/drawing/Drawing.h"
#include "layers/CentralLayerFile.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

LayerRecord layer(const std::string& name, HostColor colour = HostColor::byLayer()) {
    LayerRecord r;
    r.name = name;
    r.color = colour;
    return r;
}

// The drawing database with a layer table that fails part-way, which a real drawing only
// does when it is damaged or closed under the module; everything else is the real drawing's.
class FailingLayerTable : public HostDrawing {
public:
    FailingLayerTable(const HostDrawing& drawing, int failAfterRecords)
        : drawing_(drawing), failAfterRecords_(failAfterRecords) {}

    DbStatus forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const override {
        int visited = 0;
        const DbStatus status = drawing_.forEachLayer([&](const LayerRecord& r) {
            return visited++ < failAfterRecords_ && visit(r);
        });
        return visited > failAfterRecords_ ? DbStatus::InvalidOpenState : status;
    }
    std::optional<LayerRecord> findLayer(const std::string& name) const override { return drawing_.findLayer(name); }
    DbStatus addLayer(const LayerRecord&) override { return DbStatus::NotInDatabase; }
    DbStatus updateLayer(const LayerRecord&) override { return DbStatus::NotInDatabase; }
    DbStatus mergeLayer(const std::string&, const std::string&) override { return DbStatus::NotInDatabase; }
    DbStatus setLayerPlotStyleName(const std::string&, const std::string&) override { return DbStatus::NotInDatabase; }
    bool hasLinetype(const std::string& name) const override { return drawing_.hasLinetype(name); }
    DbStatus loadLinetype(const std::string&, const std::string&) override { return DbStatus::NotInDatabase; }
    bool isContinuousLinetype(const std::string& name) const override { return drawing_.isContinuousLinetype(name); }
    bool usesNamedPlotStyles() const override { return drawing_.usesNamedPlotStyles(); }
    bool hasDictionary(const std::string& name) const override { return drawing_.hasDictionary(name); }
    DbStatus addDictionary(const std::string&) override { return DbStatus::NotInDatabase; }
    DbStatus addPlaceHolder(const std::string&, const std::string&) override { return DbStatus::NotInDatabase; }
    bool hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const override {
        return drawing_.hasDictionaryEntry(dictionary, entry);
    }

private:
    const HostDrawing& drawing_;
    const int failAfterRecords_;
};

class LayerMergeTest : public ::testing::Test {
protected:
    void addLayers(const std::vector<LayerRecord>& records) {
        for (const LayerRecord& r : records) ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok) << r.name;
    }
    void loadFile(const std::string& text) {
        ASSERT_TRUE(file.loadFileImage(tmp.write("Ardo.ini", text)));
        file.loadEntries();
    }
    const LayerEntry& byName(const std::string& name) {
        FoundEntry f = file.findByName(name);
        EXPECT_TRUE(f) << name;
        return *f.entry;
    }

    test::ScriptedHost host;
    test::TempFolder tmp;
    cadhost::Drawing drawing;
    CentralLayerFile file;
};

TEST_F(LayerMergeTest, DrawingHalfIsFilledForFileEntriesAndDrawingOnlyLayersAreAppended) {
    loadFile("[LAYER]\nK1=Mauer,1,Continuous,,0\nK2=Wand,3,DASHED,,6\n");
    LayerRecord mauer = layer("MAUER", HostColor::fromIndex(5));
    mauer.isOff = true;
    mauer.isLocked = true;
    mauer.frozenInNewViewports = true;
    mauer.linetype = "continuous";
    mauer.lineweight = 35;
    mauer.isPlottable = false;
    LayerRecord neu = layer("Neu", HostColor::fromRgb(1, 2, 3));
    neu.isFrozen = true;
    neu.linetype = "DASHDOT_T";
    ASSERT_EQ(drawing.loadLinetype("DASHDOT_T", ARDO_TEST_DATA "/dxf/test.lin"), DbStatus::Ok);
    addLayers({mauer, neu});

    ASSERT_TRUE(file.mergeDrawingLayers(drawing));
    ASSERT_EQ(file.entries().size(), 4u);
    const LayerEntry& m = byName("Mauer");
    EXPECT_EQ(m.flags, entryflag::kFromFile | entryflag::kInDrawing);
    EXPECT_EQ(m.dwgColor, 5);
    EXPECT_EQ(m.dwgStates, 1u | 4u | 16u);
    EXPECT_EQ(m.dwgLinetype, "CONTINUOUS");
    EXPECT_EQ(m.dwgLineweight, 35);
    EXPECT_FALSE(m.dwgPlottable);
    EXPECT_EQ(m.dwgPlotStyle, "") << "colour-dependent plot styles give no name";
    EXPECT_EQ(m.fileColor, 1) << "the file half stays";

    EXPECT_EQ(byName("Wand").flags, entryflag::kFromFile);

    EXPECT_EQ(file.entries()[2]->name, "0") << "drawing-only layers follow in table order";
    const LayerEntry& n = *file.entries()[3];
    EXPECT_EQ(n.name, "Neu");
    EXPECT_EQ(n.flags, entryflag::kInDrawing);
    EXPECT_TRUE(n.key.empty());
    EXPECT_EQ(n.dwgColor, 0x02010203);
    EXPECT_EQ(n.dwgStates, 2u);
    EXPECT_EQ(n.dwgLinetype, "DASHDOT_T");
}

// A layer table handing out colours that a DXF layer record cannot hold (by layer, by
// block), as the host's colour value may still carry them.
class HandedOutLayers : public FailingLayerTable {
public:
    HandedOutLayers(const HostDrawing& drawing, std::vector<LayerRecord> records)
        : FailingLayerTable(drawing, 0), records_(std::move(records)) {}
    DbStatus forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const override {
        for (const LayerRecord& r : records_)
            if (!visit(r)) break;
        return DbStatus::Ok;
    }

private:
    std::vector<LayerRecord> records_;
};

TEST_F(LayerMergeTest, ByLayerAndByBlockColoursGiveTheLowBitsOfTheHostColour) {
    ASSERT_TRUE(file.mergeDrawingLayers(
        HandedOutLayers(drawing, {layer("L1", HostColor::byLayer()), layer("L2", HostColor::byBlock())})));
    EXPECT_EQ(byName("L1").dwgColor, 256);
    EXPECT_EQ(byName("L2").dwgColor, 0);
}

TEST_F(LayerMergeTest, ColourCodesOfEveryKind) {
    HostColor book = HostColor::fromRgb(0xAA, 0xBB, 0xCC);
    book.method = HostColor::Method::ColorBook;
    book.bookName = "RAL";
    book.colorName = "RAL 1000";
    addLayers({layer("L3", HostColor::fromIndex(200)), layer("L4", book)});
    ASSERT_TRUE(file.mergeDrawingLayers(drawing));
    EXPECT_EQ(byName("L3").dwgColor, 200);
    const LayerEntry& l4 = byName("L4");
    EXPECT_EQ(l4.dwgColor, 0x04AABBCC);
    EXPECT_EQ(l4.dwgColorBookName, "RAL");
    EXPECT_EQ(l4.dwgColorName, "RAL 1000");
    EXPECT_TRUE(byName("L3").dwgColorBookName.empty());
}

TEST_F(LayerMergeTest, PlotStyleOnlyWithNamedPlotStyles) {
    ASSERT_EQ(drawing.setVar("PSTYLEMODE", ResBuf::shortInt(0)), DbStatus::Ok);
    ASSERT_TRUE(drawing.usesNamedPlotStyles());
    ASSERT_EQ(drawing.addPlaceHolder("ACAD_PLOTSTYLENAME", "Stil1"), DbStatus::Ok);
    LayerRecord r = layer("A");
    r.plotStyleName = "Stil1";
    addLayers({r});
    ASSERT_TRUE(file.mergeDrawingLayers(drawing));
    EXPECT_EQ(byName("A").dwgPlotStyle, "Stil1");
}

TEST_F(LayerMergeTest, FirstEntryOfDuplicateNameGetsTheDrawingHalf) {
    loadFile("[LAYER]\nK1=Wand,1,C,,0\nK2=WAND,2,C,,0\n");
    addLayers({layer("wand", HostColor::fromIndex(9))});
    ASSERT_TRUE(file.mergeDrawingLayers(drawing));
    ASSERT_EQ(file.entries().size(), 3u);
    EXPECT_EQ(file.entries()[0]->dwgColor, 9);
    EXPECT_EQ(file.entries()[1]->flags, entryflag::kFromFile);
    EXPECT_EQ(file.entries()[2]->name, "0");
}

TEST_F(LayerMergeTest, FailingLayerTableKeepsWhatWasMerged) {
    addLayers({layer("A"), layer("B"), layer("C")});
    EXPECT_FALSE(file.mergeDrawingLayers(FailingLayerTable(drawing, 3)));
    ASSERT_EQ(file.entries().size(), 3u);
    EXPECT_EQ(file.entries()[0]->name, "0");
    EXPECT_EQ(file.entries()[2]->name, "B");
}

TEST_F(LayerMergeTest, MergedAndSortedListIsSavedInNameOrder) {
    const std::string path = tmp.write("Ardo.ini", "[LAYER]\nK1=Zaun,1,C,,0\nK2=mauer,2,C,,0\nK3=Dach,3,C,,0\n");
    ASSERT_TRUE(file.loadFileImage(path));
    file.loadEntries();
    addLayers({layer("Baum"), layer("ZAUN")});
    ASSERT_TRUE(file.mergeDrawingLayers(drawing));
    file.sortByName();
    file.setChanged();
    ASSERT_TRUE(file.save(path));
    EXPECT_EQ(test::readBytes(path),
              "\n[LAYER]\n"
              "K3=Dach,3,C,,0,,,-3,Normal,,1\n"
              "K2=mauer,2,C,,0,,,-3,Normal,,1\n"
              "K1=Zaun,1,C,,0,,,-3,Normal,,1\n");
}

}  // namespace
}  // namespace ardo
