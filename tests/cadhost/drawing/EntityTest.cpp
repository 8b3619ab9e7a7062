// Entities: order, lookup by handle, entity lists, extents, viewports.
#include <gtest/gtest.h>

#include <set>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

using ardo::Point3;

void expectBox(const std::optional<Extents>& e, Point3 min, Point3 max, const char* what) {
    ASSERT_TRUE(e) << what;
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(e->min[i], min[i], 1e-6) << what << " min " << i;
        EXPECT_NEAR(e->max[i], max[i], 1e-6) << what << " max " << i;
    }
}

class Entities : public ::testing::Test {
protected:
    Drawing d = test::openOrFail(test::fixture("geometry.dxf"));
};

TEST_F(Entities, VisitedInFileOrderWithoutVerticesOrBlockContents) {
    std::vector<Handle> order;
    for (auto h = d.firstEntity(); h; h = d.nextEntity(*h)) order.push_back(*h);
    EXPECT_EQ(order, (std::vector<Handle>{0x20, 0x21, 0x22, 0x23, 0x24, 0x28, 0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x2F}));
    EXPECT_EQ(d.entityCount(), order.size());
    const auto line = d.entity(0x20);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->type, "LINE");
    EXPECT_EQ(line->layer, "Wände");
    EXPECT_EQ(line->space, Space::Model);
    EXPECT_EQ(d.entity(0x29)->space, Space::Paper);
    const auto inBlock = d.entity(0x31);
    ASSERT_TRUE(inBlock);
    EXPECT_EQ(inBlock->space, Space::Block);
    EXPECT_EQ(inBlock->block, "BOX");
    EXPECT_FALSE(d.entity(0x999));
    EXPECT_FALSE(d.nextEntity(0x31));   // block contents are not part of the chain
}

TEST_F(Entities, EntityListJoinsPointsAndTypesValues) {
    const ardo::ResBufChain list = d.entityList(0x20);
    ASSERT_EQ(list.size(), 6u);   // -1, 0, 5, 8, 10, 11
    EXPECT_EQ(list[0].restype, -1);
    EXPECT_EQ(list[0].integer, 0x20);
    EXPECT_EQ(list[1].text, "LINE");
    EXPECT_EQ(list[3].restype, 8);
    EXPECT_EQ(list[3].text, "Wände");
    EXPECT_EQ(list[5].restype, 11);
    EXPECT_EQ(list[5].point, (Point3{10, 5, 0}));
    const ardo::ResBufChain circle = d.entityList(0x21);
    EXPECT_EQ(circle.back().restype, 40);
    EXPECT_DOUBLE_EQ(circle.back().real, 2.0);
    const auto tags = d.entityTags(0x2C);
    EXPECT_EQ(tags.back(), (EntityTag{1, "ABCDE"}));
}

TEST_F(Entities, ExtentsOfEachSupportedType) {
    expectBox(d.extents(0x20), {0, 0, 0}, {10, 5, 0}, "LINE");
    expectBox(d.extents(0x21), {3, 3, 0}, {7, 7, 0}, "CIRCLE");
    expectBox(d.extents(0x22), {0, 0, 0}, {1, 1, 0}, "ARC");
    // Block line (1,1)-(3,2) about base (1,1), scaled 2, turned 90 degrees, at (10,10).
    expectBox(d.extents(0x23), {8, 10, 0}, {10, 14, 0}, "INSERT");
    expectBox(d.extents(0x24), {1, -2, 0}, {4, 1, 0}, "POLYLINE");
    expectBox(d.extents(0x28), {-2, -1, 0}, {2, 1, 0}, "ELLIPSE");
    expectBox(d.extents(0x29), {7, 8, 9}, {7, 8, 9}, "POINT");
    expectBox(d.extents(0x2A), {0, 0, 0}, {1, 1, 0}, "SOLID");
    expectBox(d.extents(0x2B), {0, 0, 0}, {2, 3, 0}, "SPLINE");
    expectBox(d.extents(0x2C), {0, 0, 0}, {6, 2, 0}, "TEXT");
    EXPECT_FALSE(d.extents(0x2D)) << "3DSOLID has no extents here";
    expectBox(d.extents(0x2E), {0, 0, 0}, {3, 3, 0}, "HATCH without its seed point");
    expectBox(d.extents(0x2F), {-1, -3, 1.5}, {6, 2, 1.5}, "LWPOLYLINE at its elevation");
}

TEST(Viewports, FrozenLayerListsAreRead) {
    Drawing d = test::openOrFail(test::fixture("viewport_frozen_layers.dxf"));
    const auto viewports = d.viewports();
    ASSERT_FALSE(viewports.empty());
    std::size_t frozen = 0;
    for (Handle vp : viewports) {
        for (const auto& layer : d.viewportFrozenLayers(vp)) {
            EXPECT_TRUE(d.findLayer(layer)) << layer;
            ++frozen;
        }
    }
    EXPECT_GT(frozen, 0u);
}

}  // namespace
}  // namespace cadhost

namespace cadhost {
namespace {

TEST(BlockExtents, BlocksThatInsertThemselvesEndQuickly) {
    // Block A holds a line and two references to itself, a pattern that would branch
    // without end if followed.
    std::string block = "  0\nBLOCK\n  5\n10\n  8\n0\n  2\nA\n 10\n0\n 20\n0\n 30\n0\n"
                        "  0\nLINE\n  5\n11\n  8\n0\n 10\n0\n 20\n0\n 30\n0\n 11\n1\n 21\n1\n 31\n0\n";
    for (int i = 0; i < 2; ++i) block += "  0\nINSERT\n  5\n1" + std::to_string(2 + i) + "\n  8\n0\n  2\nA\n 10\n5\n 20\n0\n 30\n0\n";
    const std::string dxf = "  0\nSECTION\n  2\nBLOCKS\n" + block + "  0\nENDBLK\n  5\n19\n  8\n0\n  0\nENDSEC\n"
                            "  0\nSECTION\n  2\nENTITIES\n  0\nINSERT\n  5\n20\n  8\n0\n  2\nA\n 10\n100\n 20\n0\n 30\n0\n"
                            "  0\nENDSEC\n  0\nEOF\n";
    Drawing d = test::parseOrFail(dxf);
    const auto e = d.extents(0x20);
    ASSERT_TRUE(e);
    EXPECT_DOUBLE_EQ(e->min[0], 100);   // the line of A; the self references add nothing
    EXPECT_DOUBLE_EQ(e->max[0], 101);
}

// An old R12 file has no handles, a damaged one gives two entities the same: every entity is
// still listed and editable, and a save keeps the file's own bytes.
TEST(UnnamedEntities, AreListedAndEditableAndTheFileKeepsItsBytes) {
    const std::string line = "  0\nLINE\n  8\n0\n 10\n0.0\n 20\n0.0\n 11\n1.0\n 21\n0.0\n";
    const std::string twin = "  0\nLINE\n  5\nA1\n  8\n0\n 10\n0.0\n 20\n0.0\n 11\n2.0\n 21\n0.0\n";
    const std::string file = "  0\nSECTION\n  2\nENTITIES\n" + line + line + twin + twin + "  0\nENDSEC\n  0\nEOF\n";
    Drawing d = test::parseOrFail(file);
    std::vector<Handle> listed;
    for (auto h = d.firstEntity(); h; h = d.nextEntity(*h)) listed.push_back(*h);
    ASSERT_EQ(listed.size(), 4u);
    EXPECT_EQ(std::set<Handle>(listed.begin(), listed.end()).size(), 4u) << "every entity has a name of its own";
    EXPECT_EQ(listed[2], 0xA1u) << "the first of two takes the handle";
    EXPECT_EQ(d.toDxf(), file);

    // The names hold through an edit and its undo.
    d.recordChanges(true);
    ASSERT_EQ(d.modifyEntity(listed[1], {{0, "LINE"}, {10, "0"}, {20, "0"}, {11, "5"}, {21, "0"}}),
              ardo::DbStatus::Ok);
    const auto endX = [&](Handle h) {
        for (const EntityTag& t : d.entityTags(h))
            if (t.code == 11) return std::stod(t.value);
        return -1.0;
    };
    EXPECT_EQ(endX(listed[1]), 5);
    EXPECT_EQ(endX(listed[0]), 1) << "the other unnamed line is untouched";
    DrawingChanges step = d.takeChanges();
    d.undo(step);
    std::vector<Handle> again;
    for (auto h = d.firstEntity(); h; h = d.nextEntity(*h)) again.push_back(*h);
    EXPECT_EQ(again, listed);
    EXPECT_EQ(endX(listed[1]), 1);
    EXPECT_EQ(d.toDxf(), file);
}

}  // namespace
}  // namespace cadhost
