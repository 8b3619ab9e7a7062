// Undo at the drawing's records: every kind of change, in text and binary files, taken
// back to the same bytes and made again.
#include <gtest/gtest.h>

#include "DxfTestSupport.h"
#include "cadhost/drawing/UndoHistory.h"

namespace cadhost::test {
namespace {

// Changes of every kind the drawing makes, one step each; the file after each step.
std::vector<std::string> changeEverything(Drawing& d, UndoHistory& history) {
    std::vector<std::string> states{d.toDxf()};
    auto step = [&](const char* label) {
        history.closeStep(label);
        states.push_back(d.toDxf());
    };
    const auto made = d.makeEntity({{0, "LINE"}, {8, "0"}, {10, "1.0"}, {20, "2.0"}, {11, "3.0"}, {21, "4.0"}});
    EXPECT_TRUE(made);
    step("ENTMAKE");
    ardo::LayerRecord layer;
    layer.name = "Neu";
    layer.color = ardo::HostColor::fromIndex(3);
    EXPECT_EQ(d.addLayer(layer), ardo::DbStatus::Ok);
    EXPECT_EQ(d.setEntityLayer(*made, "Neu"), ardo::DbStatus::Ok);
    step("LAYER");
    EXPECT_EQ(d.setVar("CLAYER", ardo::ResBuf::str("Neu")), ardo::DbStatus::Ok);
    layer.isFrozen = false;
    layer.isOff = true;
    EXPECT_EQ(d.updateLayer(layer), ardo::DbStatus::Ok);
    step("SETVAR");
    std::vector<Handle> all;
    d.forEachEntity([&](const EntityInfo& e) { return all.push_back(e.handle), true; });
    EXPECT_EQ(d.eraseEntities(all), all.size());
    step("ERASE");
    return states;
}

void undoAndRedo(Drawing d) {
    UndoHistory history(d);
    const std::vector<std::string> states = changeEverything(d, history);
    ASSERT_EQ(history.steps(), states.size() - 1);
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        ASSERT_EQ(history.undo(1).size(), 1u);
        ASSERT_EQ(d.toDxf(), states[i]) << "undoing step " << i + 1;
    }
    EXPECT_TRUE(history.undo(1).empty());
    for (std::size_t i = 1; i < states.size(); ++i) {
        ASSERT_TRUE(history.redo());
        ASSERT_EQ(d.toDxf(), states[i]) << "redoing step " << i;
    }
    EXPECT_FALSE(history.redo());
    // A change after an undo drops what could have been redone.
    history.undo(2);
    d.makeEntity({{0, "POINT"}, {8, "0"}, {10, "0.0"}, {20, "0.0"}});
    history.closeStep("POINT");
    EXPECT_FALSE(history.redo());
}

TEST(UndoHistory, TakesBackEveryChangeToTheSameBytesInTextFiles) { undoAndRedo(openOrFail(fixture("geometry.dxf"))); }

TEST(UndoHistory, TakesBackEveryChangeToTheSameBytesInBinaryFiles) {
    Drawing text = openOrFail(fixture("viewport_frozen_layers.dxf"));
    const TempFolder folder;
    const std::string binary = folder.file("binary.dxf");
    ASSERT_TRUE(text.save(binary, DxfForm::Binary));
    undoAndRedo(openOrFail(binary));
}

TEST(UndoHistory, EntitiesBroughtBackByUndoAreFoundAgain) {
    Drawing d = openOrFail(fixture("geometry.dxf"));
    UndoHistory history(d);
    std::vector<Handle> all;
    d.forEachEntity([&](const EntityInfo& e) { return all.push_back(e.handle), true; });
    ASSERT_FALSE(all.empty());
    d.eraseEntities(all);
    history.closeStep("ERASE");
    EXPECT_EQ(d.entityCount(), 0u);
    history.undo(1);
    std::vector<Handle> back;
    d.forEachEntity([&](const EntityInfo& e) { return back.push_back(e.handle), true; });
    EXPECT_EQ(back, all);
    EXPECT_TRUE(d.entity(all.front()));
}

}  // namespace
}  // namespace cadhost::test
