// Merging against the CAD host's drawing database, read from and written to DXF.
#include <gtest/gtest.h>

#include <variant>

#include "cadhost/drawing/Drawing.h"
#include "layers/CentralLayerFile.h"
#include "support/TempFolder.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

class LayerMergeDrawingTest : public ::testing::Test {
protected:
    void addLayer(const std::string& name, HostColor colour, bool off = false, bool frozen = false,
                  bool locked = false, const std::string& linetype = "Continuous") {
        LayerRecord r;
        r.name = name;
        r.color = colour;
        r.isOff = off;
        r.isFrozen = frozen;
        r.isLocked = locked;
        r.linetype = linetype;
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok) << name;
    }
    // The drawing as another session reads it: saved as DXF and opened again.
    cadhost::Drawing reopened() {
        const std::string path = tmp.file("Zeichnung.dxf");
        EXPECT_TRUE(drawing.save(path));
        auto opened = cadhost::Drawing::open(path);
        EXPECT_TRUE(opened) << opened.error();
        return opened ? std::move(opened).value() : cadhost::Drawing();
    }
    const LayerEntry& byName(const std::string& name) {
        FoundEntry f = file.findByName(name);
        EXPECT_TRUE(f) << name;
        static const LayerEntry none;
        return f ? *f.entry : none;
    }

    test::ScriptedHost host;
    test::TempFolder tmp;
    cadhost::Drawing drawing;
    CentralLayerFile file;
};

TEST_F(LayerMergeDrawingTest, LayersOfASavedDrawingMergeWithTheFileEntries) {
    ASSERT_TRUE(file.loadFileImage(tmp.write("Ardo.ini", "[LAYER]\nK1=Mauer,1,Continuous,,0\nK2=Wand,3,C,,0\n")));
    file.loadEntries();
    ASSERT_TRUE(drawing.hasLinetype("Continuous"));
    addLayer("MAUER", HostColor::fromIndex(5), true, false, true);
    addLayer("Neu", HostColor::fromRgb(10, 20, 30), false, true);
    addLayer("Blau", HostColor::fromIndex(170));
    const cadhost::Drawing again = reopened();

    ASSERT_TRUE(file.mergeDrawingLayers(again));
    const LayerEntry& mauer = byName("Mauer");
    EXPECT_EQ(mauer.flags, entryflag::kFromFile | entryflag::kInDrawing);
    EXPECT_EQ(mauer.dwgColor, 5);
    EXPECT_EQ(mauer.dwgStates, 1u | 4u);
    EXPECT_EQ(mauer.dwgLinetype, "CONTINUOUS");
    EXPECT_EQ(byName("Wand").flags, entryflag::kFromFile);

    const LayerEntry& neu = byName("Neu");
    EXPECT_EQ(neu.flags, entryflag::kInDrawing);
    EXPECT_TRUE(neu.key.empty());
    EXPECT_EQ(neu.dwgColor, 0x020A141E);
    EXPECT_EQ(neu.dwgStates, 2u);
    EXPECT_EQ(byName("0").dwgColor, 7) << "the template's layer 0";

    file.sortByName();
    std::vector<std::string> names;
    for (const auto& e : file.entries()) names.push_back(e->name);
    EXPECT_EQ(names, (std::vector<std::string>{"0", "Blau", "Mauer", "Neu", "Wand"}));
}

}  // namespace
}  // namespace ardo
