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
    EXPECT_EQ(host.variables["CMDECHO"], ResBuf::shortInt(1));
}

TEST_F(DrawingLayers, LinetypeIsLoadedFromItsFile) {
    const auto lin = writeFile("acad.lin", "*BORDER,Border __ __ . __\nA,.5,-.25,.5,-.25,0,-.25\n"
                                           "*DASHED,Dashed __ __ __\nA,.5,-.25\n");
    LayerValue v = fields("Wand,3,dashed,x,6");
    v.linetypeFile = lin;
    ASSERT_EQ(createLayer("Wand", v), RTNORM);
    const auto layer = drawing.findLayer("Wand");
    EXPECT_EQ(layer->linetype, "dashed");
    EXPECT_TRUE(drawing.hasLinetype("DASHED"));
    EXPECT_TRUE(layer->isFrozen);
    EXPECT_TRUE(layer->isLocked);
    EXPECT_FALSE(layer->isOff);
    EXPECT_EQ(host.printed, "");
}

TEST_F(DrawingLayers, NewViewportFreezeOnlyInALayout) {
    ASSERT_EQ(createLayer("A", fields("A,1,Continuous,,16")), RTNORM);
    EXPECT_FALSE(drawing.findLayer("A")->frozenInNewViewports);
    host.variables["TILEMODE"] = ResBuf::shortInt(0);
    ASSERT_EQ(createLayer("B", fields("B,1,Continuous,,17")), RTNORM);
    EXPECT_TRUE(drawing.findLayer("B")->frozenInNewViewports);
    EXPECT_TRUE(drawing.findLayer("B")->isOff);
}

TEST_F(DrawingLayers, PropertiesFromTheFields) {
    ASSERT_EQ(createLayer("P", fields("P,67207168,Continuous,,0,,,50,Normal,,0")), RTNORM);
    auto layer = drawing.findLayer("P");
    EXPECT_EQ(layer->color, HostColor::fromRgb(0x01, 0x80, 0x00));  // 0x04018000 without a book: its RGB
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

TEST_F(DrawingLayers, RefusalsAndFailuresRestoreCmdecho) {
    host.variables["CMDECHO"] = ResBuf::shortInt(1);
    EXPECT_EQ(createLayer("", fields(",1,Continuous,,0")), RTERROR);
    EXPECT_EQ(createLayer("0", fields("0,1,Continuous,,0")), RTERROR);
    EXPECT_TRUE(drawing.layers.empty());
    ASSERT_EQ(createLayer("Dup", fields("Dup,1,Continuous,,0")), RTNORM);
    EXPECT_EQ(createLayer("DUP", fields("DUP,2,Continuous,,0")), RTERROR);
    EXPECT_EQ(host.printed, "Layer operation es 7\n");
    EXPECT_EQ(host.variables["CMDECHO"], ResBuf::shortInt(1));
    host.drawing = nullptr;
    host.clearOutput();
    EXPECT_EQ(createLayer("N", fields("N,1,Continuous,,0")), RTERROR);
    EXPECT_EQ(host.printed, "No drawing\nNo drawing\n");
    EXPECT_EQ(host.variables["CMDECHO"], ResBuf::shortInt(1));
}

TEST_F(DrawingLayers, NamedPlotStylesArePreparedAndAssigned) {
    drawing.namedPlotStyles = true;
    ASSERT_EQ(createLayer("S", fields("S,1,Continuous,,0,,,-3,Stil A")), RTNORM);
    EXPECT_EQ(drawing.findLayer("S")->plotStyleName, "Stil A");
    EXPECT_TRUE(drawing.hasDictionaryEntry("ACAD_PLOTSTYLENAME", "Stil A"));
    EXPECT_TRUE(host.boxes.empty());

    drawing.plotStyleNameStatus = DbStatus::KeyNotFound;
    ASSERT_EQ(createLayer("T", fields("T,1,Continuous,,0,,,-3,Stil B")), RTNORM);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text,
              "Der Plotstil\n    Stil B\nkonnte dem Layer\n    T\nnicht zugewiesen werden.\n");
    EXPECT_EQ(host.boxes[0].caption, catalogText(MsgKey::TiMsgBoxWarn));
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Exclamation);
    EXPECT_TRUE(drawing.findLayer("T"));
}

TEST_F(DrawingLayers, StatesThroughTheLayerCommand) {
    host.variables["CLAYER"] = ResBuf::str("Wand");
    host.variables["CMDECHO"] = ResBuf::shortInt(1);
    // The current layer stays thawed, unlocked and on; bit 8 in model space sends no _VPLAYER.
    applyLayerStates("Wand", 7 | 8);
    ASSERT_EQ(host.commands.size(), 1u);
    EXPECT_EQ(host.commands[0], tokens({"_.LAYER", "_THAW", "Wand", "_UNLOCK", "Wand", "_ON", "Wand", ""}));
    EXPECT_EQ(host.variables["CMDECHO"], ResBuf::shortInt(1));

    // Current is compared exactly: "WAND" is another name here.
    host.clearOutput();
    applyLayerStates("WAND", 3 | 32);
    EXPECT_EQ(host.commands[0], tokens({"_.LAYER", "_FREEZE", "WAND", "_UNLOCK", "WAND", "_OFF", "WAND", "_UNLOCK",
                                        "WAND", "_THAW", "WAND", "_ON", "WAND", "_SET", "WAND", ""}));

    host.clearOutput();
    host.variables["TILEMODE"] = ResBuf::shortInt(0);
    applyLayerStates("Dach", 8 | 16);
    ASSERT_EQ(host.commands.size(), 2u);
    EXPECT_EQ(host.commands[1], tokens({"_VPLAYER", "_VPVISDFLT", "Dach", "_FROZEN", "_FREEZE", "Dach", "", ""}));
    host.clearOutput();
    applyLayerStates("Dach", 0);
    EXPECT_EQ(host.commands[1], tokens({"_VPLAYER", "_VPVISDFLT", "Dach", "_THAWED", "_THAW", "Dach", "", ""}));
}

TEST_F(DrawingLayers, StateBitsOfARecord) {
    LayerRecord r;
    r.name = "Wand";
    r.isOff = r.isFrozen = r.frozenInNewViewports = true;
    EXPECT_EQ(layerStateBits(r), 1 | 2 | 16);
    host.variables["CLAYER"] = ResBuf::str("Wand");
    r = LayerRecord{};
    r.name = "Wand";
    r.isLocked = true;
    EXPECT_EQ(layerStateBits(r), 4 | 32);
    r.name = "wand";
    EXPECT_EQ(layerStateBits(r), 4);
}

}  // namespace ardo::test
