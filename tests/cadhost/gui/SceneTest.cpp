// The view's cached geometry, spatial index, picking and selection against real drawings.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "cadhost/gui/EntityShapes.h"
#include "cadhost/gui/Scene.h"

namespace cadhost::gui {
namespace {

Handle addLine(Drawing& d, double x0, double y0, double x1, double y1, const std::string& layer = "0") {
    auto h = d.makeEntity({{0, "LINE"}, {8, layer}, {10, std::to_string(x0)}, {20, std::to_string(y0)},
                           {11, std::to_string(x1)}, {21, std::to_string(y1)}});
    EXPECT_TRUE(h);
    return h.value_or(0);
}

// Every linetype solid: these tests look at geometry only.
const std::vector<double>& solid(const std::string&) {
    static const std::vector<double> none;
    return none;
}

void addLayer(Drawing& d, const std::string& name, int color) {
    ardo::LayerRecord r;
    r.name = name;
    r.color = ardo::HostColor::fromIndex(color);
    ASSERT_EQ(d.addLayer(r), ardo::DbStatus::Ok);
}

TEST(EntityShapes, MTextCodesAreDroppedAndParagraphsBreak) {
    EXPECT_EQ(plainMText("{\\fArial|b1;Raum}\\PB\\H2.5;ü\\~1 \\S1^2;"), "Raum\nBü 1 1/2");
    EXPECT_EQ(plainMText("a\\\\b\\{c\\}"), "a\\b{c}");
}

TEST(EntityShapes, MTextWrapsAtSpacesWithinItsWidth) {
    EXPECT_EQ(wrapLines("one two three four", 9), "one two\nthree\nfour");
    // Paragraph breaks start the count again; a word longer than the width stays whole.
    EXPECT_EQ(wrapLines("ab cd\nefghijklmnop qr", 5), "ab cd\nefghijklmnop\nqr");
    // Characters, not bytes, are counted.
    EXPECT_EQ(wrapLines("ää öö üü", 5), "ää öö\nüü");
    EXPECT_EQ(wrapLines("", 3), "");
}

TEST(EntityShapes, BlockContentsArePlacedScaledRotatedAndTakeTheReferenceLayerAndColor) {
    Drawing d;
    addLayer(d, "Walls", 1);
    // A block is read from a file; one square box of side 1 with a line on layer 0 and a
    // ByBlock line.
    std::string dxf = d.toDxf();
    const std::string block =
        "  0\nBLOCK\n  5\nF00\n  8\n0\n  2\nBOX\n 70\n0\n 10\n1.0\n 20\n1.0\n 30\n0.0\n  3\nBOX\n"
        "  0\nLINE\n  5\nF01\n  8\n0\n 10\n1.0\n 20\n1.0\n 30\n0.0\n 11\n2.0\n 21\n1.0\n 31\n0.0\n"
        "  0\nLINE\n  5\nF02\n  8\n0\n 62\n0\n 10\n1.0\n 20\n1.0\n 30\n0.0\n 11\n1.0\n 21\n2.0\n 31\n0.0\n"
        "  0\nENDBLK\n  5\nF03\n  8\n0\n";
    const auto blocks = dxf.find("ENDSEC", dxf.find("BLOCKS"));
    ASSERT_NE(blocks, std::string::npos);
    dxf.insert(dxf.rfind("  0\n", blocks), block);
    auto read = Drawing::fromBytes(dxf);
    ASSERT_TRUE(read) << read.error();
    Drawing& drawing = *read;
    auto insert = drawing.makeEntity({{0, "INSERT"}, {8, "Walls"}, {62, "3"}, {2, "BOX"}, {10, "10"}, {20, "20"},
                                      {41, "2"}, {42, "2"}, {50, "90"}});
    ASSERT_TRUE(insert);

    int walls = -1;
    EntityShapes shapes(drawing, [&](const std::string& name) { return name == "Walls" ? (walls = 7) : 0; }, solid);
    const auto pieces = shapes.shapes(*insert);
    ASSERT_EQ(pieces.size(), 2u);
    // Base (1,1) lands on (10,20); x along the block turns to y, doubled.
    EXPECT_NEAR(pieces[0].points[0].x, 10, 1e-9);
    EXPECT_NEAR(pieces[0].points[0].y, 20, 1e-9);
    EXPECT_NEAR(pieces[0].points[1].x, 10, 1e-9);
    EXPECT_NEAR(pieces[0].points[1].y, 22, 1e-9);
    // Layer 0 inside the block takes the reference's layer; ByBlock takes its colour.
    EXPECT_EQ(pieces[0].layer, 7);
    EXPECT_TRUE(pieces[0].color.byLayer);
    EXPECT_FALSE(pieces[1].color.byLayer);
    EXPECT_EQ(pieces[1].color.rgb, 0x00FF00u);
    EXPECT_NEAR(pieces[1].points[1].x, 8, 1e-9);
}

TEST(EntityShapes, WidePolylineSpansAreBandsAndSpansWithoutWidthStayLines) {
    Drawing d;
    // Constant width 2 on the first span, a taper from 0 to 4 on the second, none on the third.
    auto h = d.makeEntity({{0, "LWPOLYLINE"}, {8, "0"}, {90, "4"}, {70, "0"}, {10, "0"}, {20, "0"}, {40, "2"}, {41, "2"},
                           {10, "10"}, {20, "0"}, {40, "0"}, {41, "4"}, {10, "10"}, {20, "10"}, {10, "0"}, {20, "10"}});
    ASSERT_TRUE(h);
    EntityShapes shapes(d, [](const std::string&) { return 0; }, solid);
    const auto pieces = shapes.shapes(*h);
    ASSERT_EQ(pieces.size(), 3u);
    ASSERT_EQ(pieces[0].kind, Piece::Kind::Fill);
    Box2 band;
    for (Vec2 v : pieces[0].points) band.add(v);
    EXPECT_NEAR(band.y0, -1, 1e-9);
    EXPECT_NEAR(band.y1, 1, 1e-9);
    EXPECT_NEAR(band.x1 - band.x0, 10, 1e-9);
    ASSERT_EQ(pieces[1].kind, Piece::Kind::Fill);
    Box2 taper;
    for (Vec2 v : pieces[1].points) taper.add(v);
    // Narrow at (10,0), 4 wide at (10,10).
    EXPECT_NEAR(taper.x0, 8, 1e-9);
    EXPECT_NEAR(taper.x1, 12, 1e-9);
    EXPECT_NEAR(taper.y0, 0, 1e-9);
    EXPECT_EQ(pieces[2].kind, Piece::Kind::Stroke);
}

class SceneTest : public ::testing::Test {
protected:
    void SetUp() override {
        addLayer(drawing, "A", 1);
        addLayer(drawing, "B", 5);
        left = addLine(drawing, 0, 0, 10, 0, "A");
        right = addLine(drawing, 20, 0, 30, 0, "B");
        diagonal = addLine(drawing, 0, 5, 30, 25, "A");
    }
    Drawing drawing;
    Handle left = 0, right = 0, diagonal = 0;
};

TEST_F(SceneTest, PickFindsTheNearestEntityWithinTheTolerance) {
    Scene scene(drawing, Space::Model);
    EXPECT_EQ(scene.pick({5, 0.1}, 0.5), left);
    EXPECT_EQ(scene.pick({25, -0.2}, 0.5), right);
    EXPECT_FALSE(scene.pick({15, 0}, 0.5));
    EXPECT_EQ(scene.pick({15, 15}, 0.5), diagonal);
}

TEST_F(SceneTest, WindowTakesWhatIsInsideCrossingWhatItMeets) {
    Scene scene(drawing, Space::Model);
    const Box2 area{-1, -1, 12, 8};
    EXPECT_EQ(scene.select(area, false), std::vector<Handle>{left});
    // The diagonal starts inside the crossing box.
    EXPECT_EQ(scene.select(area, true), (std::vector<Handle>{left, diagonal}));
    // A crossing box between the ends of the diagonal, away from its box corners, meets it.
    EXPECT_EQ(scene.select(Box2{14, 14, 16, 16}, true), std::vector<Handle>{diagonal});
    EXPECT_TRUE(scene.select(Box2{2, 20, 4, 24}, true).empty());
}

TEST_F(SceneTest, LayersOffOrFrozenAreNeitherDrawnNorPickedAndFollowChanges) {
    Scene scene(drawing, Space::Model);
    int repaints = 0;
    scene.setChanged([&] { ++repaints; });
    auto layer = *drawing.findLayer("A");
    layer.isOff = true;
    ASSERT_EQ(drawing.updateLayer(layer), ardo::DbStatus::Ok);
    EXPECT_GT(repaints, 0);
    EXPECT_FALSE(scene.pick({5, 0}, 0.5));
    std::vector<Handle> drawn;
    scene.visit(Box2{-100, -100, 100, 100}, [&](const SceneItem& item, Look) { drawn.push_back(item.handle); });
    EXPECT_EQ(drawn, std::vector<Handle>{right});
    EXPECT_NEAR(scene.extents().x0, 20, 1e-9);

    layer.isOff = false;
    layer.isFrozen = true;
    ASSERT_EQ(drawing.updateLayer(layer), ardo::DbStatus::Ok);
    EXPECT_FALSE(scene.pick({5, 0}, 0.5));
    layer.isFrozen = false;
    ASSERT_EQ(drawing.updateLayer(layer), ardo::DbStatus::Ok);
    EXPECT_EQ(scene.pick({5, 0}, 0.5), left);
}

TEST_F(SceneTest, NewAndErasedEntitiesAreFollowedBeyondTheFirstExtents) {
    Scene scene(drawing, Space::Model);
    const Handle far = addLine(drawing, 1000, 1000, 1010, 1000, "B");
    EXPECT_EQ(scene.pick({1005, 1000}, 0.5), far);
    EXPECT_EQ(scene.select(Box2{990, 990, 1020, 1010}, false), std::vector<Handle>{far});
    ASSERT_EQ(drawing.eraseEntity(left), ardo::DbStatus::Ok);
    EXPECT_FALSE(scene.pick({5, 0}, 0.5));
    EXPECT_EQ(scene.extents().x1, 1010);
}

TEST_F(SceneTest, LooksHideAndHighlightUntilCleared) {
    Scene scene(drawing, Space::Model);
    EXPECT_TRUE(scene.setLook(left, Look::Hidden));
    EXPECT_TRUE(scene.setLook(right, Look::Highlighted));
    EXPECT_FALSE(scene.setLook(999999, Look::Hidden));
    std::vector<std::pair<Handle, Look>> drawn;
    scene.visit(Box2{-100, -100, 100, 100}, [&](const SceneItem& item, Look look) { drawn.push_back({item.handle, look}); });
    std::sort(drawn.begin(), drawn.end());
    EXPECT_EQ(drawn, (std::vector<std::pair<Handle, Look>>{{right, Look::Highlighted}, {diagonal, Look::Normal}}));
    EXPECT_FALSE(scene.pick({5, 0}, 0.5));
    scene.clearLooks();
    EXPECT_EQ(scene.pick({5, 0}, 0.5), left);
}

// A blink phase unhighlights what it highlighted, and no more; entities erased or moved
// between phases are drawn as they now are, never from the geometry they had.
TEST_F(SceneTest, UnhighlightLeavesHiddenEntitiesAndHighlightsFollowEdits) {
    Scene scene(drawing, Space::Model);
    ASSERT_TRUE(scene.setLook(left, Look::Hidden));
    ASSERT_TRUE(scene.setLook(right, Look::Highlighted));
    ASSERT_TRUE(scene.setLook(diagonal, Look::Highlighted));
    scene.unhighlight(left);
    scene.unhighlight(999999);
    EXPECT_EQ(scene.look(left), Look::Hidden);

    ASSERT_EQ(drawing.eraseEntity(right), ardo::DbStatus::Ok);
    ASSERT_EQ(drawing.modifyEntity(diagonal, {{0, "LINE"}, {8, "A"}, {10, "100"}, {20, "100"}, {11, "110"}, {21, "100"}}),
              ardo::DbStatus::Ok);
    std::vector<std::pair<Handle, double>> highlighted;
    scene.visitHighlighted(Box2{-1000, -1000, 1000, 1000},
                           [&](const SceneItem& item) { highlighted.push_back({item.handle, item.box.x0}); });
    EXPECT_EQ(highlighted, (std::vector<std::pair<Handle, double>>{{diagonal, 100}}));
    scene.unhighlight(diagonal);
    scene.unhighlight(right);
    EXPECT_EQ(scene.look(diagonal), Look::Normal);
    EXPECT_EQ(scene.look(right), Look::Normal);
}

TEST(SceneHatch, SolidHatchIsPickedInsideButNotInItsHole) {
    Drawing d;
    std::vector<EntityTag> tags{{0, "HATCH"}, {8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {2, "SOLID"}, {70, "1"},
                                {71, "0"}, {91, "2"}, {92, "2"}, {72, "0"}, {73, "1"}, {93, "4"}};
    for (auto [x, y] : {std::pair{0, 0}, {10, 0}, {10, 10}, {0, 10}})
        tags.insert(tags.end(), {{10, std::to_string(x)}, {20, std::to_string(y)}});
    tags.insert(tags.end(), {{97, "0"}, {92, "2"}, {72, "0"}, {73, "1"}, {93, "4"}});
    for (auto [x, y] : {std::pair{4, 4}, {6, 4}, {6, 6}, {4, 6}})
        tags.insert(tags.end(), {{10, std::to_string(x)}, {20, std::to_string(y)}});
    tags.insert(tags.end(), {{97, "0"}, {75, "0"}, {76, "1"}, {98, "0"}});
    const auto hatch = d.makeEntity(tags);
    ASSERT_TRUE(hatch);
    Scene scene(d, Space::Model);
    EXPECT_EQ(scene.pick({2, 2}, 0.1), hatch);
    EXPECT_FALSE(scene.pick({5, 5}, 0.1));
    EXPECT_EQ(scene.pick({5, 4.05}, 0.1), hatch);   // near the hole's edge
    // A crossing window wholly inside the hatch meets it; one inside the hole does not.
    EXPECT_EQ(scene.select(Box2{1, 1, 2, 2}, true), std::vector<Handle>{*hatch});
    EXPECT_TRUE(scene.select(Box2{4.5, 4.5, 5.5, 5.5}, true).empty());
}

TEST(GridIndex, FindsExactlyWhatABruteForceSearchFinds) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> at(-500, 1500), size(0, 40);
    std::vector<Box2> boxes;
    GridIndex grid;
    grid.reset(Box2{0, 0, 1000, 1000}, 2000);
    for (std::uint32_t i = 0; i < 2000; ++i) {
        const double x = at(random), y = at(random);
        // Every tenth box is huge, so the list of large items is used as well.
        const double grow = i % 10 == 0 ? 20 : 1;
        boxes.push_back({x, y, x + size(random) * grow, y + size(random) * grow});
        grid.insert(i, boxes.back());
    }
    for (int q = 0; q < 200; ++q) {
        const double x = at(random), y = at(random);
        const Box2 area{x, y, x + size(random) * 5, y + size(random) * 5};
        std::vector<std::uint32_t> expected, found;
        for (std::uint32_t i = 0; i < boxes.size(); ++i)
            if (boxes[i].intersects(area)) expected.push_back(i);
        grid.query(area, [&](std::uint32_t i) {
            if (boxes[i].intersects(area)) found.push_back(i);
        });
        std::sort(found.begin(), found.end());
        ASSERT_EQ(found, expected) << "query " << q;
    }
}

TEST(SceneOffice, ExampleDrawingIsDrawnWhole) {
    auto drawing = Drawing::open(ARDO_SOURCE_DIR "/examples/drawings/office.dxf");
    ASSERT_TRUE(drawing) << drawing.error();
    Scene scene(*drawing, Space::Model);
    std::size_t modelEntities = 0;
    drawing->forEachEntity([&](const EntityInfo& e) {
        modelEntities += e.space == Space::Model;
        return true;
    });
    EXPECT_EQ(scene.size(), modelEntities);
    // The outer wall is a 14 by 9 rectangle at the origin; everything else lies around it.
    const Box2 box = scene.extents();
    EXPECT_LE(box.x0, 0);
    EXPECT_LE(box.y0, 0);
    EXPECT_GE(box.x1, 14);
    EXPECT_GE(box.y1, 9);
    std::size_t withPieces = 0, texts = 0;
    scene.visit(box, [&](const SceneItem& item, Look) {
        withPieces += !item.pieces.empty();
        for (const Piece& p : item.pieces) texts += p.kind == Piece::Kind::Text;
    });
    EXPECT_EQ(withPieces, modelEntities);
    EXPECT_GE(texts, 9u);
}

}  // namespace
}  // namespace cadhost::gui
