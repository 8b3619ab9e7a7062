// The drawing's layouts and the space new entities go to: CTAB and TILEMODE, the file's
// active layout in the ENTITIES section and the others in their blocks, and saving after
// switching.
#include <gtest/gtest.h>

#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost::test {

using ardo::DbStatus;
using ardo::RTNORM;

namespace {

std::string tab(const Drawing& d) { return d.getVar("CTAB")->text; }
long long tilemode(const Drawing& d) { return d.getVar("TILEMODE")->integer; }

// The value of the entity's first tag with the code.
std::string group(const Drawing& d, Handle h, int code) {
    for (const EntityTag& t : d.entityTags(h))
        if (t.code == code) return t.value;
    return "";
}

Handle lastMade(CommandLine& cl, const ardo::ResBufChain& tokens) {
    EXPECT_EQ(cl.feed(tokens), RTNORM) << cl.printed;
    Handle last = 0;
    cl.drawing.forEachEntity([&](const EntityInfo& info) {
        last = std::max(last, info.handle);
        return true;
    });
    for (const Layout& layout : cl.drawing.layouts())
        if (const auto block = cl.drawing.blockContents(layout.block))
            for (Handle h : block->entities) last = std::max(last, h);
    return last;
}

}  // namespace

TEST(Layouts, AreListedInTabOrderWithTheirSheets) {
    const Drawing d = openFixture("layout_viewports.dxf");
    const auto layouts = d.layouts();
    ASSERT_EQ(layouts.size(), 2u);
    EXPECT_EQ(layouts[0].name, "Layout1");
    EXPECT_EQ(layouts[0].block, "*Paper_Space");
    EXPECT_EQ(layouts[1].name, "Layout2");
    EXPECT_EQ(layouts[1].block, "*Paper_Space0");
    // A3 landscape with 10 mm margins: the plot origin is the printable corner.
    EXPECT_DOUBLE_EQ(layouts[0].paper.x0, -10);
    EXPECT_DOUBLE_EQ(layouts[0].paper.y0, -10);
    EXPECT_DOUBLE_EQ(layouts[0].paper.x1, 410);
    EXPECT_DOUBLE_EQ(layouts[0].paper.y1, 287);
    EXPECT_DOUBLE_EQ(layouts[0].printable.x1, 400);
    EXPECT_DOUBLE_EQ(layouts[0].printable.y1, 277);
    // Layout2 is the A3 sheet turned a quarter: 297 wide, the 20 mm margins at the sides.
    EXPECT_DOUBLE_EQ(layouts[1].paper.x1 - layouts[1].paper.x0, 297);
    EXPECT_DOUBLE_EQ(layouts[1].paper.y1 - layouts[1].paper.y0, 420);
    EXPECT_DOUBLE_EQ(layouts[1].paper.x0, -20);
    EXPECT_DOUBLE_EQ(layouts[1].paper.y0, -7.5);

    // The template has no layout objects but its own; a drawing without any has no tabs.
    EXPECT_TRUE(Drawing().layouts().size() <= 1);
}

TEST(Layouts, CtabChoosesTheSpaceAndTilemodeFollows) {
    Drawing d = openFixture("layout_viewports.dxf");
    EXPECT_EQ(tab(d), "Layout1");
    ASSERT_EQ(d.setVar("CTAB", ardo::ResBuf::str("model")), DbStatus::Ok);
    EXPECT_EQ(tab(d), "Model");
    EXPECT_EQ(tilemode(d), 1);
    ASSERT_EQ(d.setVar("CTAB", ardo::ResBuf::str("LAYOUT2")), DbStatus::Ok);
    EXPECT_EQ(tab(d), "Layout2");
    EXPECT_EQ(tilemode(d), 0);
    EXPECT_EQ(d.currentLayout()->block, "*Paper_Space0");
    // TILEMODE 1 shows the model; back at 0 the layout chosen before is current again.
    ASSERT_EQ(d.setVar("TILEMODE", ardo::ResBuf::shortInt(1)), DbStatus::Ok);
    EXPECT_EQ(tab(d), "Model");
    ASSERT_EQ(d.setVar("TILEMODE", ardo::ResBuf::shortInt(0)), DbStatus::Ok);
    EXPECT_EQ(tab(d), "Layout2");
    // Unknown names and other types are refused and change nothing.
    EXPECT_EQ(d.setVar("CTAB", ardo::ResBuf::str("Layout9")), DbStatus::InvalidInput);
    EXPECT_EQ(d.setVar("CTAB", ardo::ResBuf::shortInt(1)), DbStatus::InvalidInput);
    EXPECT_EQ(tab(d), "Layout2");
}

TEST(Layouts, SwitchingAndSwitchingBackSavesTheFileAsItWas) {
    const std::string original = ardo::test::readBytes(fixturePath("layout_viewports.dxf"));
    Drawing d = openFixture("layout_viewports.dxf");
    ASSERT_EQ(d.setVar("CTAB", ardo::ResBuf::str("Layout2")), DbStatus::Ok);
    // Between two layouts TILEMODE stays 0: nothing in the file changes.
    EXPECT_EQ(d.toDxf(), original);
    ASSERT_EQ(d.setVar("CTAB", ardo::ResBuf::str("Model")), DbStatus::Ok);
    const std::string model = d.toDxf();
    EXPECT_NE(model, original);
    // Only TILEMODE differs.
    const auto at = original.find("$TILEMODE");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(model.substr(0, at), original.substr(0, at));
    EXPECT_EQ(model.size(), original.size());
    ASSERT_EQ(d.setVar("CTAB", ardo::ResBuf::str("Layout1")), DbStatus::Ok);
    EXPECT_EQ(d.toDxf(), original);
}

TEST(Layouts, NewEntitiesGoToTheSpaceShown) {
    CommandLine cl{openFixture("layout_viewports.dxf")};
    cl.echo(0);
    // Layout1 is the file's active layout: paper space in the ENTITIES section, owned by
    // *Paper_Space, group 67 after the common subclass marker.
    const Handle onSheet = lastMade(cl, {S("_LINE"), S("0,0"), S("10,10"), S("")});
    EXPECT_EQ(cl.drawing.entity(onSheet)->space, Space::Paper);
    EXPECT_EQ(group(cl.drawing, onSheet, 330), "1B");
    const auto tags = cl.drawing.entityTags(onSheet);
    const auto marker = std::find(tags.begin(), tags.end(), EntityTag{100, "AcDbEntity"});
    ASSERT_NE(marker, tags.end());
    EXPECT_EQ(*(marker + 1), (EntityTag{67, "1"}));

    ASSERT_EQ(cl.drawing.setVar("CTAB", ardo::ResBuf::str("Model")), DbStatus::Ok);
    const Handle inModel = lastMade(cl, {S("_CIRCLE"), S("5,5"), S("2")});
    EXPECT_EQ(cl.drawing.entity(inModel)->space, Space::Model);
    EXPECT_EQ(group(cl.drawing, inModel, 67), "");
    EXPECT_EQ(group(cl.drawing, inModel, 330), "17");

    // Layout2 keeps its entities in its block, after the viewport there.
    ASSERT_EQ(cl.drawing.setVar("CTAB", ardo::ResBuf::str("Layout2")), DbStatus::Ok);
    const Handle onOther = lastMade(cl, {S("_LINE"), S("1,1"), S("2,2"), S("")});
    const auto info = cl.drawing.entity(onOther);
    EXPECT_EQ(info->space, Space::Block);
    EXPECT_EQ(info->block, "*Paper_Space0");
    EXPECT_EQ(group(cl.drawing, onOther, 330), "39");
    EXPECT_EQ(cl.drawing.blockContents("*Paper_Space0")->entities, (std::vector<Handle>{0x3D, onOther}));

    // Tags that name their space keep it, whatever is shown.
    const auto given = cl.drawing.makeEntity(
        {{0, "POINT"}, {100, "AcDbEntity"}, {67, "0"}, {8, "0"}, {100, "AcDbPoint"}, {10, "3"}, {20, "4"}, {30, "0"}});
    ASSERT_TRUE(given);
    EXPECT_EQ(cl.drawing.entity(*given)->space, Space::Model);
    EXPECT_EQ(group(cl.drawing, *given, 330), "17");

    // Saved and read again, everything is where it was put; ezdxf agrees.
    ardo::test::TempFolder folder;
    const std::string path = (folder.path() / "spaces.dxf").string();
    ASSERT_TRUE(cl.drawing.save(path));
    const Drawing back = Drawing::open(path).value();
    EXPECT_EQ(back.entity(onSheet)->space, Space::Paper);
    EXPECT_EQ(back.entity(inModel)->space, Space::Model);
    EXPECT_EQ(back.entity(onOther)->block, "*Paper_Space0");
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    const auto read = ardo::test::runPython(*python,
                                            "import sys, ezdxf\n"
                                            "doc = ezdxf.readfile(sys.argv[1])\n"
                                            "for h in sys.argv[2:]:\n"
                                            "    e = doc.entitydb[h]\n"
                                            "    print(e.get_layout().name)\n",
                                            {path, handleToText(onSheet), handleToText(inModel), handleToText(onOther)});
    EXPECT_EQ(read.output, "Layout1\nModel\nLayout2\n") << read.output;
}

}  // namespace cadhost::test
