// BLOCK: selected objects become a block and leave the drawing; a name that exists asks
// before it is redefined, and every insert then shows the new definition.
#include <gtest/gtest.h>

#include "BlockTestSupport.h"
#include "CommandTestSupport.h"

namespace cadhost::test {
namespace {

using ardo::RTNORM;

class BlockCommand : public ::testing::Test {
protected:
    CommandLine cl;
    Handle line = 0, circle = 0;
    void SetUp() override {
        addColouredLayer(cl.drawing, "Moebel", 3);
        cl.echo(0);
        line = *cl.drawing.makeEntity({{0, "LINE"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbLine"}, {10, "0"},
                                       {20, "0"}, {30, "0"}, {11, "10"}, {21, "0"}, {31, "0"}});
        circle = *cl.drawing.makeEntity({{0, "CIRCLE"}, {100, "AcDbEntity"}, {8, "Moebel"}, {62, "1"},
                                         {100, "AcDbCircle"}, {10, "5"}, {20, "5"}, {30, "0"}, {40, "2"}});
    }
    std::vector<std::string> blockTypes(const std::string& name) const {
        std::vector<std::string> out;
        const auto block = cl.drawing.blockContents(name);
        if (!block) return {"no block"};
        for (Handle h : block->entities) {
            const auto tags = cl.drawing.entityTags(h);
            out.push_back(tagOf(tags, 0) + " " + tagOf(tags, 8) + " " + tagOf(tags, 62) + " " + pointOf(tags, 10));
        }
        return out;
    }
    static ardo::ResBuf named(Handle h) { return ardo::ResBuf::entityName(static_cast<std::int64_t>(h)); }
};

}  // namespace

TEST_F(BlockCommand, SelectedObjectsBecomeTheBlockAndAreErased) {
    ASSERT_EQ(cl.feed({S("-BLOCK"), S("a<b"), S("Stuhl"), S("nowhere"), S("5,0"), named(line), named(circle), S("")}),
              RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "Invalid block name.\nInvalid point.\n");
    EXPECT_EQ(blockTypes("Stuhl"), (std::vector<std::string>{"LINE 0 - 0,0", "CIRCLE Moebel 1 5,5"}));
    EXPECT_EQ(cl.drawing.blockContents("Stuhl")->base, (ardo::Point3{5, 0, 0}));
    EXPECT_EQ(cl.drawing.entityCount(), 0u);
    EXPECT_FALSE(cl.drawing.entity(line));
}

TEST_F(BlockCommand, RedefiningAsksFirstAndRefusesABlockInsideItself) {
    ASSERT_EQ(cl.feed({S("_.-BLOCK"), S("Stuhl"), S("0,0"), named(line), S("")}), RTNORM);
    ASSERT_EQ(cl.feed({S("-INSERT"), S("Stuhl"), S("100,100"), S(""), S(""), S("")}), RTNORM);
    const Handle insert = newestEntity(cl.drawing);

    ASSERT_EQ(cl.feed({S("-BLOCK"), S("stuhl")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Block \"stuhl\" already exists. Redefine it? [Yes/No] <N>: ");
    ASSERT_EQ(cl.feed({S("maybe"), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "Invalid option keyword.\n");
    EXPECT_EQ(cl.processor.prompt(), "Enter block name: ");
    ASSERT_EQ(cl.feed({S("Stuhl"), S("_Y"), S("0,0"), named(circle), S("")}), RTNORM);
    EXPECT_EQ(blockTypes("Stuhl"), (std::vector<std::string>{"CIRCLE Moebel 1 5,5"}));
    // The insert stays and shows the new definition.
    EXPECT_EQ(tagOf(cl.drawing.entityTags(insert), 2), "Stuhl");
    EXPECT_EQ(cl.drawing.blockContents("STUHL")->entities.size(), 1u);

    // Its own insert inside it would make a block contain itself.
    cl.printed.clear();
    EXPECT_NE(cl.feed({S("-BLOCK"), S("Stuhl"), S("_Yes"), S("0,0"), named(insert), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "Block \"Stuhl\" references itself.\n*Invalid*\n");
    EXPECT_TRUE(cl.drawing.entity(insert));
    EXPECT_EQ(blockTypes("Stuhl"), (std::vector<std::string>{"CIRCLE Moebel 1 5,5"}));
}

TEST_F(BlockCommand, NothingSelectedDefinesNothing) {
    ASSERT_EQ(cl.feed({S("-BLOCK"), S("Leer"), S("0,0"), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "No objects selected; block \"Leer\" was not defined.\n");
    EXPECT_FALSE(cl.drawing.hasBlock("Leer"));
    EXPECT_EQ(cl.drawing.entityCount(), 2u);
    // Enter at the name ends the command.
    ASSERT_EQ(cl.feed({S("-BLOCK"), S("")}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
}

}  // namespace cadhost::test
