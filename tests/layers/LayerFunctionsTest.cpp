#include <gtest/gtest.h>

#include "layers/LayerFunctions.h"
#include "layers/LayerFunctionsEntry.h"
#include "LayerFunctionsTestFiles.h"

namespace ardo::test {

namespace {

const char* kCentralFile =
    "[CONFIG]\n"
    "Farbe=1\n"
    "[LAYER]\n"
    "K1=WALL,1,Continuous,,0,,,-3,Normal,,1\n"
    "K2=Mauer,3,DASHED,acad.lin,6\n"
    "K3=Dach,3,DASHED\n"
    "K4=Wall,5,Continuous,,1,,,25,Stil,Feld 10,0\n"
    "K5=\n"
    "K6=,2,Continuous,,0\n";

const ResBufChain kNil{ResBuf::marker(RTNIL)};

}  // namespace

class LayerFunctions : public LayerCoreTest {
protected:
    void SetUp() override {
        LayerCoreTest::SetUp();
        useCentralFile(kCentralFile);
    }
};

TEST_F(LayerFunctions, NewLayerCreatesTheDecoratedName) {
    host.call(handlers::kemb_newlayer, {S("CMD"), S("k1")});
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::longInt(0)}));
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K1"), S("ABC")});
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K1"), S("ABC_"), S("NEU")});
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K1"), S(""), S("NEU")});
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K2"), I(12), S("X")});  // a number as prefix is ignored
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::longInt(6)}));
    EXPECT_EQ(layerNames(), (std::vector<std::string>{"0", "WALL", "ABC_WALL", "ABC_WALL_NEU", "WALL_NEU", "Mauer_X"}));
    EXPECT_TRUE(host.commands.empty());
}

TEST_F(LayerFunctions, NewLayerOfAnExistingLayerReturnsItsBitsAndChangesNothing) {
    addLayer("WALL");
    addLayer("Mauer", true, true);
    ASSERT_EQ(host.setVar("CLAYER", ResBuf::str("WALL")), RTNORM);
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K1")});
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::longInt(32)}));
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K2")});
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::longInt(3)}));
    EXPECT_EQ(layerNames().size(), 3u);
    EXPECT_FALSE(drawing.findLayer("WALL")->isFrozen);
    EXPECT_TRUE(host.commands.empty());
    EXPECT_EQ(host.printed, "");
}

TEST_F(LayerFunctions, FailuresGiveNilQuietly) {
    for (const char* key : {"K3", "K5", "NOKEY"}) {
        host.call(handlers::kemb_newlayer, {S("CMD"), S(key)});
        EXPECT_EQ(host.result, kNil) << key;
    }
    host.drawing = nullptr;
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K1")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(host.printed, "");
    EXPECT_EQ(layerNames(), std::vector<std::string>{"0"});
}

TEST_F(LayerFunctions, ArgumentErrors) {
    host.call(handlers::kemb_newlayer, {S("CMD")});
    EXPECT_EQ(host.printed, "\nWrong number of arguments");
    host.clearOutput();
    host.call(handlers::kemb_setlayer, {S("CMD"), S("K1"), S("7")});
    EXPECT_EQ(host.printed, "\nWrong type of argument");
    host.clearOutput();
    host.call(handlers::Kemb_MakeLayer, {S("CMD"), I(1), S("x")});
    EXPECT_EQ(host.printed, "\nWrong type of argument");
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(layerNames(), std::vector<std::string>{"0"});
}

TEST_F(LayerFunctions, SetLayerNeedsTheLayerInTheDrawing) {
    host.call(handlers::kemb_setlayer, {S("CMD"), S("K2"), I(1)});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(layerNames(), std::vector<std::string>{"0"});
    EXPECT_TRUE(host.commands.empty());

    addLayer("Mauer", false, true);
    host.call(handlers::kemb_setlayer, {S("CMD"), S("K2"), I(1)});
    ASSERT_EQ(host.commands.size(), 1u);
    EXPECT_EQ(host.commands[0][0], S("_.LAYER"));
    EXPECT_EQ(host.commands[0][5], S("_OFF"));
    // The record as read back after the command: thawed and off.
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::longInt(1)}));
    EXPECT_TRUE(drawing.findLayer("Mauer")->isOff);
    EXPECT_FALSE(drawing.findLayer("Mauer")->isFrozen);
}

TEST_F(LayerFunctions, MakeLayerCreatesThenAppliesTheBits) {
    host.call(handlers::Kemb_MakeLayer, {S("CMD"), S("K2"), I(32), S("ABC")});
    // Read back after the layer command made it current: 32.
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::shortInt(32), S("ABC_Mauer")}));
    ASSERT_TRUE(drawing.findLayer("ABC_Mauer"));
    ASSERT_EQ(host.commands.size(), 1u);
    EXPECT_EQ(host.commands[0].back(), S(""));
    EXPECT_EQ(host.commands[0][host.commands[0].size() - 3], S("_SET"));
    // Created frozen and locked (states 6), then made usable and current.
    EXPECT_EQ(host.commands[0][1], S("_THAW"));
    EXPECT_EQ(drawing.getVar("CLAYER")->text, "ABC_Mauer");
    EXPECT_FALSE(drawing.findLayer("ABC_Mauer")->isFrozen);
    EXPECT_FALSE(drawing.findLayer("ABC_Mauer")->isLocked);

    host.clearOutput();
    host.call(handlers::Kemb_MakeLayer, {S("CMD"), S("K2"), I(0), S("ABC")});
    EXPECT_EQ(layerNames().size(), 2u);
    EXPECT_EQ(host.commands.size(), 1u);
}

TEST_F(LayerFunctions, NamesKeysAndData) {
    host.call(handlers::kemb_getlayername, {S("CMD"), S("k2")});
    EXPECT_EQ(host.result, (ResBufChain{S("Mauer")}));
    host.call(handlers::kemb_getlayerkey, {S("CMD"), S("Wall")});
    EXPECT_EQ(host.result, (ResBufChain{S("K4")}));
    host.call(handlers::kemb_getlayerkey, {S("CMD"), S("WALL")});
    EXPECT_EQ(host.result, (ResBufChain{S("K1")}));
    host.call(handlers::kemb_getlayerkey, {S("CMD"), S("wall")});
    EXPECT_EQ(host.result, kNil);
    host.call(handlers::kemb_getLayerData, {S("CMD"), S("K2")});
    EXPECT_EQ(host.result, (ResBufChain{S("Mauer"), ResBuf::longInt(3), S("DASHED"), S("acad.lin"), I(6)}));
    host.call(handlers::Kemb_GetLayerDataEx, {S("CMD"), S("K4")});
    EXPECT_EQ(host.result, (ResBufChain{S("Wall"), ResBuf::longInt(5), S("Continuous"), S(""), I(1), S(""), S(""),
                                        I(25), S("Stil"), S("Feld 10"), I(0)}));
    host.call(handlers::kemb_getlayername, {S("CMD"), S("K3")});
    EXPECT_EQ(host.result, kNil);
}

TEST_F(LayerFunctions, LayerFileIsThePathInUse) {
    host.call(handlers::Kemb_GetLayerFile, {S("CMD")});
    EXPECT_EQ(host.result, (ResBufChain{S(moduleFiles().centralLayerFilePath)}));
    moduleFiles().centralLayerFilePath.clear();
    host.call(handlers::Kemb_GetLayerFile, {S("CMD")});
    EXPECT_EQ(host.result, kNil);
}

// An entry whose layer name is empty: only a prefix or suffix gives the layer a name.
TEST_F(LayerFunctions, DecoratedNameOfAnEntryWithoutALayerName) {
    EXPECT_EQ(decoratedLayerName("", "ABC", ""), "ABC_");
    EXPECT_EQ(decoratedLayerName("", "", "NEU"), "NEU");
    EXPECT_EQ(decoratedLayerName("", "ABC", "NEU"), "ABC__NEU");
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K6")});
    EXPECT_EQ(host.result, kNil);
    host.call(handlers::kemb_newlayer, {S("CMD"), S("K6"), S(""), S("NEU")});
    EXPECT_EQ(host.result, (ResBufChain{ResBuf::longInt(0)}));
    EXPECT_EQ(layerNames(), (std::vector<std::string>{"0", "NEU"}));
    EXPECT_EQ(drawing.findLayer("NEU")->color, HostColor::fromIndex(2));
}

}  // namespace ardo::test
