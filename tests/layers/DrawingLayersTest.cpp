#include <gtest/gtest.h>

#include "layers/DrawingLayers.h"
#include "messages/MessageCatalog.h"
#include "LayerFunctionsTestFiles.h"

namespace ardo::test {

namespace {

LayerValue fields(const std::string& line) {
    LayerValue v;
    EXPECT_TRUE(parseLayerValue(line, v)) << line;
    return v;
}

ResBufChain tokens(std::initializer_list<const char*> texts) {
    ResBufChain out;
    for (const char* t : texts) out.push_back(ResBuf::str(t));
    return out;
}

}  // namespace

class DrawingLayers : public LayerCoreTest {};

TEST_F(DrawingLayers, UnknownLinetypeWithoutFileGivesContinuous) {
    ASSERT_EQ(createLayer("Mauer", fields("Mauer,1,DASHED,,0")), RTNORM);
    const auto layer = drawing.findLayer("Mauer");
    ASSERT_TRUE(layer);
    EXPECT_EQ(layer->linetype, "Continuous");
    EXPECT_EQ(layer->color, HostColor::fromIndex(1));
    EXPECT_EQ(host.printed, "Linetype table es 9\nUsing Continuous\n");
    EXPECT_EQ(variable("CMDECHO"), 1);
}

TEST_F(DrawingLayers, LinetypeIsLoadedFromItsFile) {
    const auto lin = writeFile("acad.lin", "*BORDER,Border __ __ . __\nA,.5,-.25,.5,-.25,0,-.25\n"
                                           "*DASHED,Dashed __ __ __\nA,.5,-.25\n");
    LayerValue v = fields("Wand,3,dashed,x,6");
    v.linetypeFile = lin;
    ASSERT_EQ(createLayer("Wand", v), RTNORM);
    // The layer names its linetype as the record is spelled, not as the entry typed it.
    const auto layer = drawing.findLayer("Wand");
    EXPECT_EQ(layer->linetype, "DASHED");
    EXPECT_TRUE(drawing.hasLinetype("DASHED"));
    EXPECT_TRUE(layer->isFrozen);
    EXPECT_TRUE(layer->isLocked);
    EXPECT_FALSE(layer->isOff);
    EXPECT_EQ(host.printed, "");
}

TEST_F(DrawingLayers, NewViewportFreezeOnlyInALayout) {
    ASSERT_EQ(createLayer("A", fields("A,1,Continuous,,16")), RTNORM);
    EXPECT_FALSE(drawing.findLayer("A")->frozenInNewViewports);
    ASSERT_EQ(host.setVar("TILEMODE", ResBuf::shortInt(0)), RTNORM);
    ASSERT_EQ(createLayer("B", fields("B,1,Continuous,,17")), RTNORM);
    EXPECT_TRUE(drawing.findLayer("B")->frozenInNewViewports);
    EXPECT_TRUE(drawing.findLayer("B")->isOff);
}

TEST_F(DrawingLayers, PropertiesFromTheFields) {
    ASSERT_EQ(createLayer("P", fields("P,67207168,Continuous,,0,,,50,Normal,,0")), RTNORM);
    auto layer = drawing.findLayer("P");
    // 0x04018000 without a book: its RGB (the drawing keeps an index colour beside it).
    EXPECT_EQ(layer->color.method, HostColor::Method::TrueColor);
    EXPECT_EQ(layer->color.rgb(), 0x018000u);
    EXPECT_EQ(layer->lineweight, 50);
    EXPECT_FALSE(layer->isPlottable);
    ASSERT_EQ(createLayer("R", fields("R,79609215,Continuous,,0,RAL CLASSIC,RAL 1000")), RTNORM);
    layer = drawing.findLayer("R");
    EXPECT_EQ(layer->color.method, HostColor::Method::ColorBook);
    EXPECT_EQ(layer->color.bookName, "RAL CLASSIC");
    EXPECT_EQ(layer->lineweight, -3);
    EXPECT_TRUE(layer->isPlottable);
    ASSERT_EQ(createLayer("X", fields("X,50331649,Continuous,,0")), RTNORM);  // top byte 3: no colour
    EXPECT_EQ(drawing.findLayer("X")->color, HostColor::fromIndex(7));
}

// A new layer's colour from every kind of code: by block, by layer and codes without a colour
// leave the new record's own colour 7; top byte 0 takes only the low 16 bits as the index.
TEST_F(DrawingLayers, ColourCodesOnCreation) {
    const struct {
        const char* line;
        int index;
    } cases[] = {{"C0,0,Continuous,,0", 7},        {"C256,256,Continuous,,0", 7}, {"Cneg,-1,Continuous,,0", 7},
                 {"Cneg5,-5,Continuous,,0", 7},     {"C65541,65541,Continuous,,0", 5}, {"C300,300,Continuous,,0", 7},
                 {"Ctext,rot,Continuous,,0", 7}};
    for (const auto& c : cases) {
        const std::string name = std::string(c.line).substr(0, std::string(c.line).find(','));
        ASSERT_EQ(createLayer(name, fields(c.line)), RTNORM) << c.line;
        const auto layer = drawing.findLayer(name);
        ASSERT_TRUE(layer) << c.line;
        EXPECT_EQ(layer->color, HostColor::fromIndex(c.index)) << c.line;
    }
    EXPECT_EQ(host.printed, "");
}

// A book the host does not ship: the layer keeps the names, and the drawing file the colour
// book group beside the RGB.
TEST_F(DrawingLayers, AnUnknownColourBookKeepsItsNamesOnTheLayer) {
    ASSERT_EQ(createLayer("U", fields("U,67305985,Continuous,,0,MEINBUCH,Farbe 7")), RTNORM);
    const auto layer = drawing.findLayer("U");
    EXPECT_EQ(layer->color.method, HostColor::Method::ColorBook);
    EXPECT_EQ(layer->color.rgb(), 0x030201u);
    EXPECT_EQ(layer->color.bookName, "MEINBUCH");
    EXPECT_EQ(layer->color.colorName, "Farbe 7");
    EXPECT_NE(drawing.toDxf().find("430\nMEINBUCH$Farbe 7\n"), std::string::npos);
}

// Only a plottable text whose first character is '0' makes the layer not plottable.
TEST_F(DrawingLayers, PlottableTextOnCreation) {
    LayerValue v = fields("P,1,Continuous,,0");
    for (const auto& [text, plottable] : std::vector<std::pair<std::string, bool>>{
             {"0", false}, {"00", false}, {" 0", true}, {"x", true}, {"", true}, {"1", true}}) {
        const std::string name = "P" + std::to_string(layerNames().size());
        v.plottableText = text;
        ASSERT_EQ(createLayer(name, v), RTNORM);
        EXPECT_EQ(drawing.findLayer(name)->isPlottable, plottable) << "'" << text << "'";
    }
}

TEST_F(DrawingLayers, RefusalsAndFailuresRestoreCmdecho) {
    host.setVar("CMDECHO", ResBuf::shortInt(1));
    EXPECT_EQ(createLayer("", fields(",1,Continuous,,0")), RTERROR);
    EXPECT_EQ(createLayer("0", fields("0,1,Continuous,,0")), RTERROR);
    EXPECT_EQ(layerNames(), std::vector<std::string>{"0"});
    ASSERT_EQ(createLayer("Dup", fields("Dup,1,Continuous,,0")), RTNORM);
    EXPECT_EQ(createLayer("DUP", fields("DUP,2,Continuous,,0")), RTERROR);
    EXPECT_EQ(host.printed, "Layer operation es 7\n");
    EXPECT_EQ(variable("CMDECHO"), 1);
    host.drawing = nullptr;
    host.clearOutput();
    EXPECT_EQ(createLayer("N", fields("N,1,Continuous,,0")), RTERROR);
    EXPECT_EQ(host.printed, "No drawing\nNo drawing\n");
    EXPECT_EQ(variable("CMDECHO"), 1);
}

// What the host refuses for a layer is reported as a failed layer operation, and nothing
// reaches the drawing.
TEST_F(DrawingLayers, ValuesTheHostRefusesAreReportedAndNotWritten) {
    for (const char* line : {"A,1,Continuous,,0,,,7", "B,1,Continuous,,0,,,999", "C,1,Continuous,,0,,,-1",
                             "D,1,Continuous,,0,,,-2", "E,1,ByLayer,,0", "F,1,BYBLOCK,,0"}) {
        host.clearOutput();
        const std::string name(1, line[0]);
        EXPECT_EQ(createLayer(name, fields(line)), RTERROR) << line;
        EXPECT_EQ(host.printed, "Layer operation es 3\n") << line;
    }
    for (const std::string& name : std::vector<std::string>{"a\nb", "a\rb", "tab\there", std::string("nul\0x", 5), "a,b"}) {
        host.clearOutput();
        EXPECT_EQ(createLayer(name, fields("X,1,Continuous,,0")), RTERROR) << name;
        EXPECT_EQ(host.printed, "Layer operation es 3\n");
    }
    EXPECT_EQ(layerNames(), std::vector<std::string>{"0"});
    // The standard weights and the default pass.
    ASSERT_EQ(createLayer("G", fields("G,1,Continuous,,0,,,211")), RTNORM);
    ASSERT_EQ(createLayer("H", fields("H,1,Continuous,,0,,,-3")), RTNORM);
    EXPECT_EQ(drawing.findLayer("G")->lineweight, 211);
}

// One layer is meant when the module changes a layer's states: wildcard characters in its
// name match only themselves.
TEST_F(DrawingLayers, StatesReachTheNamedLayerWhateverCharactersItsNameHolds) {
    for (const char* name : {"Plan#1", "Plan51", "A.B", "A-B", "@x", "ax", "[Q]", "Q", "~N", "M"}) addLayer(name);
    for (const char* name : {"Plan#1", "A.B", "@x", "[Q]", "~N"}) {
        host.clearOutput();
        applyLayerStates(name, LayerFrozen | LayerLocked);
        EXPECT_EQ(host.printed, "") << name;
        EXPECT_TRUE(drawing.findLayer(name)->isFrozen) << name;
        EXPECT_TRUE(drawing.findLayer(name)->isLocked) << name;
    }
    for (const char* untouched : {"Plan51", "A-B", "ax", "Q", "M"}) {
        EXPECT_FALSE(drawing.findLayer(untouched)->isFrozen) << untouched;
        EXPECT_FALSE(drawing.findLayer(untouched)->isLocked) << untouched;
    }
    // Made current by its plain name.
    applyLayerStates("Plan#1", LayerCurrent);
    EXPECT_EQ(drawing.getVar("CLAYER")->text, "Plan#1");
}

// The host keeps the current layer in the layer's own spelling, so the module's exact
// comparison finds it whatever case a user typed.
TEST_F(DrawingLayers, CurrentLayerIsKnownWhateverCaseItWasSetIn) {
    addLayer("Eins");
    ASSERT_EQ(host.setVar("CLAYER", S("eins")), RTNORM);
    EXPECT_EQ(drawing.getVar("CLAYER")->text, "Eins");
    EXPECT_EQ(layerStateBits(*drawing.findLayer("Eins")), LayerCurrent);
    // Locking or freezing the current layer is not attempted.
    host.clearOutput();
    applyLayerStates("Eins", LayerFrozen | LayerLocked);
    EXPECT_EQ(host.printed, "");
    EXPECT_FALSE(drawing.findLayer("Eins")->isFrozen);
    EXPECT_FALSE(drawing.findLayer("Eins")->isLocked);
    // Values no variable may hold are refused.
    EXPECT_NE(host.setVar("CLAYER", S("Ei\nns")), RTNORM);
    EXPECT_NE(host.setVar("TEXTSTYLE", S("c\nd")), RTNORM);
    EXPECT_EQ(host.setVar("TEXTSTYLE", S("cd")), RTNORM);
    EXPECT_EQ(drawing.getVar("CLAYER")->text, "Eins");
}

TEST_F(DrawingLayers, NamedPlotStylesArePreparedAndAssigned) {
    ASSERT_EQ(host.setVar("PSTYLEMODE", ResBuf::shortInt(0)), RTNORM);
    ASSERT_TRUE(drawing.usesNamedPlotStyles());
    ASSERT_EQ(createLayer("S", fields("S,1,Continuous,,0,,,-3,Stil A")), RTNORM);
    EXPECT_EQ(drawing.findLayer("S")->plotStyleName, "Stil A");
    EXPECT_TRUE(drawing.hasDictionaryEntry("ACAD_PLOTSTYLENAME", "Stil A"));
    EXPECT_TRUE(host.boxes.empty());

    // Without the document lock the place-holder is not made, so the name cannot be assigned.
    host.lockFails = true;
    ASSERT_EQ(createLayer("T", fields("T,1,Continuous,,0,,,-3,Stil B")), RTNORM);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Der Plotstil\n    Stil B\nkonnte dem Layer\n    T\nnicht zugewiesen werden.\n");
    EXPECT_EQ(host.boxes[0].caption, catalogText(MsgKey::TiMsgBoxWarn));
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Exclamation);
    EXPECT_TRUE(drawing.findLayer("T"));
}

TEST_F(DrawingLayers, StatesThroughTheLayerCommand) {
    // Layout1 of this drawing has two floating viewports; the first (handle 37) counts as current.
    auto opened = cadhost::Drawing::open(std::string(ARDO_TEST_DATA) + "/commands/layout_viewports.dxf");
    ASSERT_TRUE(opened) << opened.error();
    drawing = std::move(opened).value();
    ASSERT_EQ(host.setVar("TILEMODE", ResBuf::shortInt(1)), RTNORM);
    LayerRecord wand = *drawing.findLayer("Wand");
    wand.isOff = wand.isLocked = true;
    ASSERT_EQ(drawing.updateLayer(wand), DbStatus::Ok);
    ASSERT_EQ(host.setVar("CLAYER", S("Wand")), RTNORM);
    host.setVar("CMDECHO", ResBuf::shortInt(1));
    // The current layer stays thawed, unlocked and on; bit 8 in model space sends no _VPLAYER.
    applyLayerStates("Wand", 7 | 8);
    ASSERT_EQ(host.commands.size(), 1u);
    EXPECT_EQ(host.commands[0], tokens({"_.LAYER", "_THAW", "Wand", "_UNLOCK", "Wand", "_ON", "Wand", ""}));
    EXPECT_EQ(variable("CMDECHO"), 1);
    EXPECT_EQ(layerStateBits(*drawing.findLayer("Wand")), 32);
    EXPECT_EQ(host.printed, "");

    // Current is compared exactly: "WAND" is another name here. The host's layer names ignore
    // case, so its LAYER command refuses to freeze it and asks before turning it off; the
    // next token is no answer, and the command is cancelled with the layer unchanged.
    host.clearOutput();
    applyLayerStates("WAND", 3 | 32);
    EXPECT_EQ(host.commands[0], tokens({"_.LAYER", "_FREEZE", "WAND", "_UNLOCK", "WAND", "_OFF", "WAND", "_UNLOCK",
                                        "WAND", "_THAW", "WAND", "_ON", "WAND", "_SET", "WAND", ""}));
    EXPECT_EQ(host.printed, "Cannot freeze the current layer.\nInvalid option keyword.\n");
    EXPECT_EQ(layerStateBits(*drawing.findLayer("Wand")), 32);
    EXPECT_FALSE(processor.active());

    host.clearOutput();
    ASSERT_EQ(host.setVar("TILEMODE", ResBuf::shortInt(0)), RTNORM);
    applyLayerStates("Dach", 8 | 16);
    ASSERT_EQ(host.commands.size(), 2u);
    EXPECT_EQ(host.commands[1], tokens({"_VPLAYER", "_VPVISDFLT", "Dach", "_FROZEN", "_FREEZE", "Dach", "", ""}));
    EXPECT_EQ(layerStateBits(*drawing.findLayer("Dach")), 16);
    EXPECT_EQ(drawing.viewportFrozenLayers(0x37), std::vector<std::string>{"Dach"});
    host.clearOutput();
    applyLayerStates("Dach", 0);
    EXPECT_EQ(host.commands[1], tokens({"_VPLAYER", "_VPVISDFLT", "Dach", "_THAWED", "_THAW", "Dach", "", ""}));
    EXPECT_EQ(layerStateBits(*drawing.findLayer("Dach")), 0);
    EXPECT_TRUE(drawing.viewportFrozenLayers(0x37).empty());
    EXPECT_EQ(host.printed, "");
}

TEST_F(DrawingLayers, StateBitsOfARecord) {
    LayerRecord r;
    r.name = "Wand";
    r.isOff = r.isFrozen = r.frozenInNewViewports = true;
    EXPECT_EQ(layerStateBits(r), 1 | 2 | 16);
    addLayer("Wand");
    ASSERT_EQ(host.setVar("CLAYER", ResBuf::str("Wand")), RTNORM);
    r = LayerRecord{};
    r.name = "Wand";
    r.isLocked = true;
    EXPECT_EQ(layerStateBits(r), 4 | 32);
    r.name = "wand";
    EXPECT_EQ(layerStateBits(r), 4);
}

}  // namespace ardo::test
