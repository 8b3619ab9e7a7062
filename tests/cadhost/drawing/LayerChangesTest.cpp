// Layer reads after every kind of layer change: what findLayer and forEachLayer give must be
// the record as it stands now, however often it was read before; erased layers leave no
// trace in viewports; the drawing knows whether it has unsaved changes.
#include <gtest/gtest.h>

#include <algorithm>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

using ardo::DbStatus;
using ardo::HostColor;
using ardo::LayerRecord;

// The layer as a walk over the table gives it.
std::optional<LayerRecord> walked(const Drawing& d, const std::string& name) {
    std::optional<LayerRecord> found;
    d.forEachLayer([&](const LayerRecord& r) {
        if (foldName(r.name) == foldName(name)) found = r;
        return !found;
    });
    return found;
}

// Reads the layer both ways, so that each read after a change comes after a read before it.
LayerRecord readBothWays(const Drawing& d, const std::string& name) {
    const auto found = d.findLayer(name);
    const auto seen = walked(d, name);
    EXPECT_TRUE(found && seen) << name;
    if (!found || !seen) return {};
    EXPECT_EQ(found->name, seen->name);
    EXPECT_EQ(found->color, seen->color);
    EXPECT_EQ(found->plotStyleName, seen->plotStyleName);
    return *found;
}

LayerRecord plainLayer(const std::string& name) {
    LayerRecord r;
    r.name = name;
    r.color = HostColor::fromIndex(1);
    r.linetype = "Continuous";
    r.plotStyleName = "Normal";
    return r;
}

TEST(LayerChanges, EveryEditIsSeenByTheNextRead) {
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    ASSERT_EQ(d.addLayer(plainLayer("Achse")), DbStatus::Ok);
    const LayerRecord first = readBothWays(d, "ACHSE");
    EXPECT_EQ(first.color, HostColor::fromIndex(1));

    // Each property on its own, then several at once.
    const std::vector<std::function<void(LayerRecord&)>> edits{
        [](LayerRecord& r) { r.color = HostColor::fromIndex(5); },
        [](LayerRecord& r) { r.isOff = true; },
        [](LayerRecord& r) { r.isFrozen = true; },
        [](LayerRecord& r) { r.isLocked = true; },
        [](LayerRecord& r) { r.frozenInNewViewports = true; },
        [](LayerRecord& r) { r.lineweight = 50; },
        [](LayerRecord& r) { r.isPlottable = false; },
        [](LayerRecord& r) { r.color = HostColor::fromRgb(255, 128, 0); },
        [](LayerRecord& r) {
            r.color = HostColor::fromIndex(3);
            r.isOff = false;
            r.isFrozen = false;
            r.lineweight = 13;
        },
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        LayerRecord wanted = readBothWays(d, "Achse");
        edits[i](wanted);
        ASSERT_EQ(d.updateLayer(wanted), DbStatus::Ok) << i;
        const LayerRecord now = readBothWays(d, "achse");
        // A true colour keeps the index the layer had for readers of older files.
        EXPECT_EQ(now.color.method, wanted.color.method) << i;
        EXPECT_EQ(now.color.rgb(), wanted.color.rgb()) << i;
        if (wanted.color.method == HostColor::Method::Index) {
            EXPECT_EQ(now.color.index, wanted.color.index) << i;
        }
        EXPECT_EQ(now.isOff, wanted.isOff) << i;
        EXPECT_EQ(now.isFrozen, wanted.isFrozen) << i;
        EXPECT_EQ(now.isLocked, wanted.isLocked) << i;
        EXPECT_EQ(now.frozenInNewViewports, wanted.frozenInNewViewports) << i;
        EXPECT_EQ(now.lineweight, wanted.lineweight) << i;
        EXPECT_EQ(now.isPlottable, wanted.isPlottable) << i;
    }

    // A refused edit leaves the layer as it was.
    LayerRecord bad = readBothWays(d, "Achse");
    bad.lineweight = 7;
    EXPECT_EQ(d.updateLayer(bad), DbStatus::InvalidInput);
    EXPECT_EQ(readBothWays(d, "Achse").lineweight, 13);

}

// The plot style name lives in the dictionary the layer points into.
TEST(LayerChanges, PlotStyleNamesAreSeenByTheNextRead) {
    Drawing d;
    ASSERT_EQ(d.addLayer(plainLayer("Achse")), DbStatus::Ok);
    EXPECT_EQ(readBothWays(d, "Achse").plotStyleName, "Normal");
    ASSERT_EQ(d.addPlaceHolder("ACAD_PLOTSTYLENAME", "Dick"), DbStatus::Ok);
    EXPECT_EQ(readBothWays(d, "Achse").plotStyleName, "Normal");
    ASSERT_EQ(d.setLayerPlotStyleName("Achse", "Dick"), DbStatus::Ok);
    EXPECT_EQ(readBothWays(d, "Achse").plotStyleName, "Dick");
    EXPECT_EQ(readBothWays(d, "0").plotStyleName, "Normal");
}

TEST(LayerChanges, ErasedMergedAndMadeAgainLayersReadAsTheyAreNow) {
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    ASSERT_EQ(d.addLayer(plainLayer("Alt")), DbStatus::Ok);
    readBothWays(d, "Alt");
    ASSERT_EQ(d.eraseLayer("Alt"), DbStatus::Ok);
    EXPECT_FALSE(d.findLayer("Alt"));
    EXPECT_FALSE(walked(d, "Alt"));

    // A new record under the old name has only its own values.
    LayerRecord again = plainLayer("ALT");
    again.color = HostColor::fromIndex(6);
    again.isLocked = true;
    ASSERT_EQ(d.addLayer(again), DbStatus::Ok);
    const LayerRecord back = readBothWays(d, "alt");
    EXPECT_EQ(back.name, "ALT");
    EXPECT_EQ(back.color, HostColor::fromIndex(6));
    EXPECT_TRUE(back.isLocked);

    readBothWays(d, "Wände");
    ASSERT_EQ(d.mergeLayer("ALT", "Wände"), DbStatus::Ok);
    EXPECT_FALSE(d.findLayer("ALT"));
    EXPECT_FALSE(walked(d, "ALT"));
    EXPECT_EQ(readBothWays(d, "Wände").name, "Wände");

    // A drawing moved elsewhere reads the same.
    Drawing moved = std::move(d);
    EXPECT_EQ(readBothWays(moved, "Wände").color.rgb(), 0xFF00FFu);
    EXPECT_FALSE(moved.findLayer("ALT"));
}

// Frozen-layer entries, counted in the viewport's own tags, where a handle that names no
// layer any more would stay unseen by viewportFrozenLayers.
std::size_t frozenEntries(const Drawing& d, Handle viewport) {
    const auto tags = d.entityTags(viewport);
    return static_cast<std::size_t>(std::count_if(tags.begin(), tags.end(), [](const EntityTag& t) {
        return t.code == 331 || t.code == 341;
    }));
}

TEST(LayerChanges, AnErasedLayerLeavesEveryViewportsFrozenList) {
    Drawing d = test::openOrFail(test::fixture("viewport_frozen_layers.dxf"));
    const std::vector<Handle> viewports = d.viewports();
    ASSERT_GE(viewports.size(), 2u);
    ASSERT_EQ(d.addLayer(plainLayer("Nur im Ansichtsfenster")), DbStatus::Ok);
    std::vector<std::size_t> before;
    for (const Handle vp : viewports) {
        std::vector<std::string> frozen = d.viewportFrozenLayers(vp);
        before.push_back(frozenEntries(d, vp));
        frozen.push_back("nur im ansichtsfenster");
        ASSERT_EQ(d.setViewportFrozenLayers(vp, frozen), DbStatus::Ok);
        ASSERT_EQ(frozenEntries(d, vp), before.back() + 1);
    }
    ASSERT_EQ(d.eraseLayer("Nur im Ansichtsfenster"), DbStatus::Ok);
    for (std::size_t i = 0; i < viewports.size(); ++i) {
        EXPECT_EQ(frozenEntries(d, viewports[i]), before[i]) << viewports[i];
        const auto frozen = d.viewportFrozenLayers(viewports[i]);
        EXPECT_EQ(std::count(frozen.begin(), frozen.end(), "Nur im Ansichtsfenster"), 0);
    }
    // The other layers stay frozen where they were, also after saving.
    Drawing back = test::parseOrFail(d.toDxf());
    for (std::size_t i = 0; i < viewports.size(); ++i)
        EXPECT_EQ(frozenEntries(back, viewports[i]), before[i]);
}

TEST(LayerChanges, UnsavedChangesAreKnownUntilSaved) {
    test::TempFolder folder;
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
    EXPECT_FALSE(d.hasUnsavedChanges());
    // Reading, and setting what is set already, changes nothing.
    readBothWays(d, "Wände");
    d.forEachEntity([](const EntityInfo&) { return true; });
    ASSERT_EQ(d.updateLayer(*d.findLayer("Wände")), DbStatus::Ok);
    EXPECT_FALSE(d.hasUnsavedChanges());

    ASSERT_EQ(d.addLayer(plainLayer("Neu")), DbStatus::Ok);
    EXPECT_TRUE(d.hasUnsavedChanges());
    const auto path = (folder.path() / "saved.dxf").string();
    ASSERT_TRUE(d.save(path));
    EXPECT_FALSE(d.hasUnsavedChanges());
    ASSERT_EQ(d.setVar("CLAYER", ardo::ResBuf::str("Neu")), DbStatus::Ok);
    EXPECT_TRUE(d.hasUnsavedChanges());

    EXPECT_FALSE(Drawing().hasUnsavedChanges());
}

}  // namespace
}  // namespace cadhost
