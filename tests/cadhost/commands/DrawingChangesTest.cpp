// Listeners hear every change of the drawing once: made through the database, by the
// LAYER and VPLAYER commands, and never for a change that was refused.
#include <gtest/gtest.h>

#include <sstream>

#include "CommandTestSupport.h"

namespace cadhost::test {
namespace {

using ardo::DbStatus;

// layout_viewports.dxf: Layout1 is active with the floating viewports 37 and 38.
constexpr Handle kViewport = 0x37;

std::string word(Change change) {
    switch (change) {
        case Change::Created: return "created";
        case Change::Modified: return "modified";
        case Change::Erased: break;
    }
    return "erased";
}

std::string hex(std::uint64_t handle) {
    std::ostringstream out;
    out << std::uppercase << std::hex << handle;
    return out.str();
}

// Writes down what it hears, in order.
struct Recorder final : DrawingListener {
    std::vector<std::string> heard;
    void layerChanged(Change c, const std::string& name) override { heard.push_back("layer " + word(c) + " " + name); }
    void linetypeChanged(Change c, const std::string& name) override {
        heard.push_back("linetype " + word(c) + " " + name);
    }
    void entityChanged(Change c, std::uint64_t handle) override { heard.push_back("entity " + word(c) + " " + hex(handle)); }
    void variableChanged(const std::string& name) override { heard.push_back("setvar " + name); }
};

using Heard = std::vector<std::string>;

class DrawingChanges : public ::testing::Test {
protected:
    void SetUp() override {
        cl.echo(0);
        cl.drawing.addListener(recorder);
    }
    void TearDown() override { cl.drawing.removeListener(recorder); }
    Heard heard() { return std::exchange(recorder.heard, {}); }
    std::optional<Handle> line(const std::string& layer) {
        return cl.drawing.makeEntity({{0, "LINE"}, {100, "AcDbEntity"}, {8, layer}, {100, "AcDbLine"}, {10, "0"},
                                      {20, "0"}, {30, "0"}, {11, "5"}, {21, "5"}, {31, "0"}});
    }

    CommandLine cl{openFixture("layout_viewports.dxf")};
    Recorder recorder;
};

TEST_F(DrawingChanges, EveryKindOfChangeIsHeardOnce) {
    Drawing& d = cl.drawing;
    ardo::LayerRecord neu;
    neu.name = "Neu";
    neu.color = ardo::HostColor::fromIndex(3);
    ASSERT_EQ(d.addLayer(neu), DbStatus::Ok);
    neu.isLocked = true;
    ASSERT_EQ(d.updateLayer(neu), DbStatus::Ok);
    ASSERT_EQ(d.loadLinetype("dashdot_t", ARDO_TEST_DATA "/dxf/test.lin"), DbStatus::Ok);
    const std::optional<Handle> made = line("Neu");
    ASSERT_TRUE(made);
    ASSERT_EQ(d.setViewportFrozenLayers(kViewport, {"Neu"}), DbStatus::Ok);
    ASSERT_EQ(d.setVar("clayer", ardo::ResBuf::str("Neu")), DbStatus::Ok);
    ASSERT_EQ(d.eraseEntity(*made), DbStatus::Ok);
    ASSERT_EQ(d.eraseLinetype("DASHDOT_T"), DbStatus::Ok);
    ASSERT_EQ(d.setVar("CLAYER", ardo::ResBuf::str("0")), DbStatus::Ok);
    ASSERT_EQ(d.eraseLayer("neu"), DbStatus::Ok);
    const std::string entity = hex(*made);
    EXPECT_EQ(heard(), (Heard{"layer created Neu", "layer modified Neu", "linetype created DASHDOT_T",
                              "entity created " + entity, "entity modified 37", "setvar CLAYER",
                              "entity erased " + entity, "linetype erased DASHDOT_T", "setvar CLAYER",
                              // the viewport that froze it loses it from its list first
                              "entity modified 37", "layer erased Neu"}));
    // What was erased is gone from the drawing and from a saved copy.
    EXPECT_FALSE(d.findLayer("Neu"));
    EXPECT_FALSE(d.hasLinetype("DASHDOT_T"));
    EXPECT_FALSE(d.entity(*made));
    auto reread = Drawing::fromBytes(d.toDxf());
    ASSERT_TRUE(reread) << reread.error();
    EXPECT_FALSE(reread->findLayer("Neu"));
    EXPECT_EQ(reread->entityCount(), d.entityCount());
}

TEST_F(DrawingChanges, RefusedChangesAreNotAnnounced) {
    Drawing& d = cl.drawing;
    const std::optional<Handle> made = line("Wand");
    ASSERT_TRUE(made);
    heard();
    ardo::LayerRecord wand;
    wand.name = "WAND";
    EXPECT_EQ(d.addLayer(wand), DbStatus::DuplicateRecordName);
    EXPECT_EQ(d.eraseLayer("0"), DbStatus::InvalidInput);
    EXPECT_EQ(d.eraseLayer("Wand"), DbStatus::InvalidInput);   // a line is on it
    EXPECT_EQ(d.eraseLayer("no such layer"), DbStatus::KeyNotFound);
    EXPECT_EQ(d.eraseLinetype("Continuous"), DbStatus::InvalidInput);
    EXPECT_EQ(d.setVar("CLAYER", ardo::ResBuf::str("no such layer")), DbStatus::InvalidInput);
    EXPECT_FALSE(line("no such layer"));
    EXPECT_EQ(d.eraseEntity(0xFFFFF), DbStatus::KeyNotFound);
    // A layer set to what it is already has not changed.
    EXPECT_EQ(d.updateLayer(*d.findLayer("wand")), DbStatus::Ok);
    EXPECT_EQ(heard(), Heard{});
    ASSERT_EQ(d.eraseEntity(*made), DbStatus::Ok);
    EXPECT_EQ(d.eraseEntity(*made), DbStatus::KeyNotFound);
    EXPECT_EQ(heard(), Heard{"entity erased " + hex(*made)});
}

TEST_F(DrawingChanges, TheLayerAndVplayerCommandsAreHeardOncePerLayerChanged) {
    EXPECT_EQ(cl.feed({S("_.LAYER"), S("_NEW"), S("Eins,Zwei"), S("_COLOR"), S("1"), S("Eins,Zwei"), S("_SET"),
                       S("Zwei"), S("")}),
              ardo::RTNORM);
    EXPECT_EQ(heard(), (Heard{"layer created Eins", "layer created Zwei", "layer modified Eins",
                              "layer modified Zwei", "setvar CLAYER"}));
    EXPECT_EQ(cl.feed({S("_VPLAYER"), S("_FREEZE"), S("Eins"), S("_Current"), S("")}), ardo::RTNORM);
    EXPECT_EQ(heard(), Heard{"entity modified 37"});
    // A listener that was removed hears nothing more.
    cl.drawing.removeListener(recorder);
    EXPECT_EQ(cl.feed({S("_.LAYER"), S("_OFF"), S("Eins"), S("")}), ardo::RTNORM);
    EXPECT_EQ(heard(), Heard{});
    cl.drawing.addListener(recorder);
}

}  // namespace
}  // namespace cadhost::test
