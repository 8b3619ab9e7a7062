// Merging a layer into another: entities, viewport freezes and the current layer move,
// the old record goes, and the drawing reads back the same.
#include <gtest/gtest.h>

#include <algorithm>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

using ardo::DbStatus;
using ardo::LayerRecord;

size_t entitiesOn(const Drawing& d, const std::string& layer) {
    size_t n = 0;
    d.forEachEntity([&](const EntityInfo& e) { return n += e.layer == layer ? 1 : 0, true; });
    return n;
}

std::vector<std::string> layerNames(const Drawing& d) {
    std::vector<std::string> names;
    d.forEachLayer([&](const LayerRecord& r) { return names.push_back(r.name), true; });
    return names;
}

TEST(LayerMergeInto, EntitiesAndCurrentLayerMoveAndTheOldRecordGoes) {
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    LayerRecord neu;
    neu.name = "Neu";
    neu.color = ardo::HostColor::fromIndex(3);
    ASSERT_EQ(d.addLayer(neu), DbStatus::Ok);
    ASSERT_EQ(d.setVar("CLAYER", ardo::ResBuf::str("Wände")), DbStatus::Ok);
    const size_t walls = entitiesOn(d, "Wände");
    ASSERT_GT(walls, 0u);

    ASSERT_EQ(d.mergeLayer("WÄNDE", "neu"), DbStatus::Ok);
    EXPECT_EQ(layerNames(d), (std::vector<std::string>{"0", "Neu"}));
    EXPECT_EQ(entitiesOn(d, "Neu"), walls);
    EXPECT_EQ(d.getVar("CLAYER")->text, "Neu");

    const std::string dxf = d.toDxf();
    EXPECT_EQ(dxf.find("W\xE4nde"), std::string::npos);   // nothing names the old layer
    Drawing back = test::parseOrFail(dxf);
    EXPECT_EQ(layerNames(back), layerNames(d));
    EXPECT_EQ(entitiesOn(back, "Neu"), walls);
}

TEST(LayerMergeInto, ViewportFreezesMoveWithoutDoubles) {
    Drawing d = test::openOrFail(test::fixture("viewport_frozen_layers.dxf"));
    std::vector<std::pair<Handle, std::vector<std::string>>> before;
    for (Handle vp : d.viewports()) before.emplace_back(vp, d.viewportFrozenLayers(vp));
    ASSERT_EQ(d.mergeLayer("Layer1", "Layer2"), DbStatus::Ok);
    EXPECT_FALSE(d.findLayer("Layer1"));
    EXPECT_EQ(entitiesOn(d, "Layer1"), 0u);
    for (const auto& [vp, frozen] : before) {
        const auto now = d.viewportFrozenLayers(vp);
        const bool had1 = std::count(frozen.begin(), frozen.end(), "Layer1") > 0;
        const bool had2 = std::count(frozen.begin(), frozen.end(), "Layer2") > 0;
        EXPECT_EQ(std::count(now.begin(), now.end(), "Layer1"), 0);
        EXPECT_EQ(std::count(now.begin(), now.end(), "Layer2"), (had1 || had2) ? 1 : 0) << vp;
    }
}

TEST(LayerMergeInto, RefusesWhatCannotBeMerged) {
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    EXPECT_EQ(d.mergeLayer("0", "Wände"), DbStatus::InvalidInput);
    EXPECT_EQ(d.mergeLayer("Wände", "wände"), DbStatus::InvalidInput);
    EXPECT_EQ(d.mergeLayer("Wände", "Nirgends"), DbStatus::KeyNotFound);
    EXPECT_EQ(d.mergeLayer("Nirgends", "0"), DbStatus::KeyNotFound);
    EXPECT_TRUE(d.findLayer("Wände"));
}

}  // namespace
}  // namespace cadhost
