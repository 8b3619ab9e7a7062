#pragma once
// The example office drawing in the CAD host's real drawing database, held against the
// example installation's central layer file.
#include <gtest/gtest.h>

#include <string>

#include "layers/CentralLayerFile.h"
#include "layers/LayerFunctionsTestFiles.h"

namespace ardo::test {

inline std::string exampleFile(const std::string& relative) {
    return std::string(ARDO_SOURCE_DIR) + "/examples/" + relative;
}

class StandardTest : public LayerCoreTest {
protected:
    void SetUp() override {
        auto opened = cadhost::Drawing::open(exampleFile("drawings/office.dxf"));
        ASSERT_TRUE(opened) << opened.error();
        drawing = std::move(*opened);
        LayerCoreTest::SetUp();
        host.supportFiles["ardo.lin"] = exampleFile("install/ardo.lin");
    }

    // The central file loaded and merged with the drawing as it is now.
    CentralLayerFile merged(const std::string& central = exampleFile("install/DefaultIni/Ardo.ini")) {
        CentralLayerFile list;
        EXPECT_TRUE(list.loadFileImage(central));
        list.loadEntries();
        EXPECT_TRUE(list.mergeDrawingLayers(drawing));
        return list;
    }

    void addLayer(const std::string& name, HostColor colour, const std::string& linetype, int lineweight,
                  bool plottable = true) {
        LayerRecord r;
        r.name = name;
        r.color = colour;
        r.linetype = linetype;
        r.lineweight = lineweight;
        r.isPlottable = plottable;
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok) << name;
    }

    // Layers of the standard that the drawing has with other properties, and one that matches.
    void addStandardLayers() {
        addLayer("A-Wand-tragend", HostColor::fromIndex(1), "Continuous", 25);
        addLayer("a-achsen", HostColor::fromIndex(1), "Continuous", 18);
        addLayer("A-Wand-Neubau", HostColor::fromRgb(192, 0, 0), "Continuous", 50);  // as the standard has it
        addLayer("A-Wand-Dämmung", HostColor::fromIndex(8), "Continuous", 18);
        addLayer("A-Hilfslinien", HostColor::fromIndex(211), "Continuous", 0, true);
        addLayer("X-Referenzen", HostColor::fromIndex(7), "Continuous", -3);   // the file's ByLayer is no layer colour
    }
};

}  // namespace ardo::test
