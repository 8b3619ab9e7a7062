// Layers asked for by key in a real drawing, saved, and read back by the host and by ezdxf.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

using Method = HostColor::Method;

class LayersByKey : public ::testing::Test {
protected:
    Installation install;
    fs::path saved = install.scratch("saved.dxf");

    // Evaluates each expression with -e on the drawing and saves it; gives the output.
    std::string evaluate(const fs::path& drawing, const std::vector<std::string>& expressions) {
        std::vector<std::string> args{drawing.string()};
        for (const std::string& e : expressions) args.insert(args.end(), {"-e", e});
        args.insert(args.end(), {"-o", saved.string()});
        const RunResult r = install.run(args);
        EXPECT_EQ(r.exitCode, 0) << r.output;
        return r.output;
    }
};

TEST_F(LayersByKey, NewLayersCarryTheEntrysColourLinetypeStatesLineweightAndPlotting) {
    const std::string out = evaluate(officeDrawing(), {
        "(kemb_newlayer \"T\" \"A_ACHSE\")", "(kemb_newlayer \"T\" \"A_WAND_NEU\")",
        "(kemb_newlayer \"T\" \"A_WAND_DAEMM\")", "(kemb_newlayer \"T\" \"A_HILFSLINIE_ALT\")",
        "(kemb_newlayer \"T\" \"A_PLANKOPF\")", "(kemb_newlayer \"T\" \"X_REFERENZ\")"});
    EXPECT_EQ(out, "0\n0\n0\n7\n4\n0\n");

    const cadhost::Drawing d = openSaved(saved);
    const LayerRecord axes = layerOf(d, "A-Achsen");
    EXPECT_EQ(axes.color, HostColor::fromIndex(1));
    EXPECT_EQ(axes.linetype, "ARDO_STRICHPUNKT");
    EXPECT_TRUE(d.hasLinetype("ARDO_STRICHPUNKT")) << "the linetype is loaded from ardo.lin";
    EXPECT_EQ(axes.lineweight, 18);
    EXPECT_TRUE(axes.isPlottable);
    EXPECT_FALSE(axes.isOff || axes.isFrozen || axes.isLocked);

    const HostColor newWall = layerOf(d, "A-Wand-Neubau").color;
    EXPECT_EQ(newWall.method, Method::TrueColor);
    EXPECT_EQ(newWall.rgb(), 0xC00000u);
    const LayerRecord insulation = layerOf(d, "A-Wand-Dämmung");
    EXPECT_EQ(insulation.color.method, Method::ColorBook);
    EXPECT_EQ(insulation.color.bookName, "RAL CLASSIC");
    EXPECT_EQ(insulation.color.colorName, "RAL 7035");
    EXPECT_EQ(insulation.linetype, "ARDO_DAEMMUNG");

    const LayerRecord old = layerOf(d, "A-Hilfslinien-alt");
    EXPECT_TRUE(old.isOff && old.isFrozen && old.isLocked);
    EXPECT_FALSE(old.isPlottable);
    EXPECT_EQ(old.lineweight, 0);
    EXPECT_TRUE(layerOf(d, "A-Plankopf").isLocked);
    EXPECT_EQ(layerOf(d, "X-Referenzen").lineweight, -3);

    // The same file through an independent reader.
    if (auto read = ezdxfEval(saved, "[(l.dxf.name, l.dxf.color, l.rgb, l.dxf.linetype, l.dxf.lineweight, "
                                     "l.dxf.plot, l.is_off(), l.is_frozen(), l.is_locked()) for l in d.layers "
                                     "if l.dxf.name in ('A-Achsen', 'A-Wand-Neubau', 'A-Hilfslinien-alt')], "
                                     "len(d.audit().errors)")) {
        EXPECT_EQ(*read,
                  "[('A-Achsen', 1, None, 'ARDO_STRICHPUNKT', 18, 1, False, False, False), "
                  "('A-Wand-Neubau', 7, (192, 0, 0), 'Continuous', 50, 1, False, False, False), "
                  "('A-Hilfslinien-alt', -211, None, 'ARDO_FEIN', 0, 0, True, True, True)] 0\n");
    }
}

TEST_F(LayersByKey, ExistingLayersAreLeftAsTheyAreInTheSampleAndInACorpusDrawing) {
    // Keys whose layer names the drawings already use, with other properties.
    install.addCentralKeys({"E2E_BESTAND=Bestand-alt,1,ARDO_STRICH,ardo.lin,7,,,50,Normal,Test,0",
                            "E2E_ROT=red,2,ARDO_STRICH,ardo.lin,4,,,70,Normal,Test,0"});
    EXPECT_EQ(evaluate(officeDrawing(), {"(kemb_newlayer \"T\" \"E2E_BESTAND\")"}), "0\n");
    {
        const LayerRecord walls = layerOf(openSaved(saved), "Bestand-alt");
        EXPECT_EQ(walls.color, HostColor::fromIndex(8));
        EXPECT_EQ(walls.lineweight, 35);
        EXPECT_EQ(walls.linetype, "Continuous");
        EXPECT_FALSE(walls.isOff || walls.isFrozen || walls.isLocked);
        EXPECT_TRUE(walls.isPlottable);
    }

    EXPECT_EQ(evaluate(corpusDrawing(), {"(kemb_newlayer \"T\" \"E2E_ROT\")", "(kemb_newlayer \"T\" \"A_ACHSE\")"}),
              "0\n0\n");
    const cadhost::Drawing d = openSaved(saved);
    const LayerRecord red = layerOf(d, "RED");
    EXPECT_EQ(red.color, HostColor::fromIndex(10));
    EXPECT_FALSE(red.isLocked);
    EXPECT_EQ(red.linetype, "Continuous");
    EXPECT_EQ(layerOf(d, "A-Achsen").linetype, "ARDO_STRICHPUNKT");
    if (auto read = ezdxfEval(saved, "sorted(l.dxf.name for l in d.layers), d.layers.get('BLUE').dxf.color, "
                                     "len(d.audit().errors)")) {
        EXPECT_EQ(*read, "['0', 'A-Achsen', 'BLUE', 'Defpoints', 'RED'] 170 0\n");
    }
}

// The sample drawing switched to named plot styles ($PSTYLEMODE 0), as an office template would be.
fs::path namedPlotStyleDrawing(const Installation& install) {
    std::ifstream in(officeDrawing(), std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    const std::string colourDependent = "$PSTYLEMODE\n290\n1\n";
    const auto at = text.find(colourDependent);
    EXPECT_NE(at, std::string::npos) << "the sample drawing names its plot style mode";
    if (at != std::string::npos) text.replace(at, colourDependent.size(), "$PSTYLEMODE\n290\n0\n");
    const fs::path named = install.scratch("named.dxf");
    std::ofstream(named, std::ios::binary) << text;
    return named;
}

TEST_F(LayersByKey, ADrawingWithNamedPlotStylesGetsTheEntrysPlotStyle) {
    install.addCentralKeys({"E2E_PLOT=E2E-Plotstil,3,Continuous,,0,,,25,Dick,Test,1"});
    EXPECT_EQ(evaluate(namedPlotStyleDrawing(install), {"(kemb_newlayer \"T\" \"E2E_PLOT\")",
                                                        "(kemb_newlayer \"T\" \"A_ACHSE\")"}),
              "0\n0\n");
    const cadhost::Drawing d = openSaved(saved);
    EXPECT_EQ(layerOf(d, "E2E-Plotstil").plotStyleName, "Dick");
    EXPECT_EQ(layerOf(d, "A-Achsen").plotStyleName, "Normal");
    if (auto read = ezdxfEval(saved, "{e.dxf.handle: n for n, e in d.rootdict.get('ACAD_PLOTSTYLENAME').items()}"
                                     "[d.layers.get('E2E-Plotstil').dxf.plotstyle_handle], len(d.audit().errors)")) {
        EXPECT_EQ(*read, "Dick 0\n");
    }
}

TEST_F(LayersByKey, SetlayerChangesTheStatesOfLayersInTheDrawingAndCreatesNone) {
    const std::string out = evaluate(officeDrawing(), {
        "(kemb_newlayer \"T\" \"A_ACHSE\")", "(kemb_setlayer \"T\" \"A_ACHSE\" 7)",
        "(kemb_newlayer \"T\" \"A_HILFSLINIE_ALT\")", "(kemb_setlayer \"T\" \"A_HILFSLINIE_ALT\" 0)",
        "(kemb_setlayer \"T\" \"A_TREPPE\" 1)", "(Kemb_MakeLayer \"T\" \"A_ACHSE\" 4 \"\")",
        "(Kemb_MakeLayer \"T\" \"A_TUER\" 0 \"EG\" \"NEU\")"});
    EXPECT_EQ(out, "0\n7\n7\n0\nnil\n(4 \"A-Achsen\")\n(0 \"EG_A-Türen_NEU\")\n");

    const cadhost::Drawing d = openSaved(saved);
    const LayerRecord axes = layerOf(d, "A-Achsen");
    EXPECT_TRUE(axes.isLocked);
    EXPECT_FALSE(axes.isOff || axes.isFrozen);
    const LayerRecord old = layerOf(d, "A-Hilfslinien-alt");
    EXPECT_FALSE(old.isOff || old.isFrozen || old.isLocked);
    EXPECT_FALSE(d.findLayer("A-Treppen")) << "kemb_setlayer never creates a layer";
    EXPECT_TRUE(d.findLayer("EG_A-Türen_NEU"));
}

TEST_F(LayersByKey, UnknownKeysGiveNilAndChangeNothing) {
    const std::string out = evaluate(officeDrawing(), {
        "(kemb_newlayer \"T\" \"GIBT_ES_NICHT\")", "(kemb_setlayer \"T\" \"GIBT_ES_NICHT\" 1)",
        "(Kemb_MakeLayer \"T\" \"GIBT_ES_NICHT\" 0)", "(kemb_getlayername \"T\" \"GIBT_ES_NICHT\")",
        "(kemb_getLayerData \"T\" \"GIBT_ES_NICHT\")", "(kemb_getlayerkey \"T\" \"Kein Layer\")"});
    EXPECT_EQ(out, "nil\nnil\nnil\nnil\nnil\nnil\n");
    std::size_t layers = 0;
    openSaved(saved).forEachLayer([&](const LayerRecord&) { return ++layers, true; });
    EXPECT_EQ(layers, 6u) << "the sample drawing's own layers only";
}

}  // namespace
}  // namespace ardo::e2e
