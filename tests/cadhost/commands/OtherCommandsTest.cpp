#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "CommandTestSupport.h"
#include "support/TempFolder.h"

namespace cadhost::test {

using ardo::ResBuf;
using ardo::RTERROR;
using ardo::RTNORM;

using ardo::test::TempFolder;

namespace {

// Model-space entities of layout_viewports.dxf: two lines and a circle.
constexpr std::int64_t kLine1 = 0x33, kLine2 = 0x34, kCircle = 0x35;

}  // namespace

TEST(Select, AsksForObjectsWhileActive) {
    CommandLine cl;
    // A window offers picks while objects are asked for, and nothing once the command ended.
    using Kind = commands::InputRequest::Kind;
    EXPECT_EQ(cl.processor.request().kind, Kind::Text);
    EXPECT_EQ(cl.feed({S("_select")}), RTNORM);
    EXPECT_EQ(cl.processor.request().kind, Kind::Objects);
    EXPECT_EQ(cl.feed({S("")}), RTNORM);
    EXPECT_EQ(cl.processor.request().kind, Kind::Text);
}

TEST(Select, EntitiesSetsAndKeywordsMakeThePreviousSet) {
    CommandLine cl{openFixture("layout_viewports.dxf")};
    ASSERT_EQ(cl.drawing.entity(kCircle)->type, "CIRCLE");
    cl.selectionSets[7] = {kLine2, kCircle};
    cl.echo(0);
    EXPECT_EQ(cl.feed({S("_select"), ResBuf::entityName(kLine1), ResBuf::selectionSet(7), S("")}), RTNORM);
    EXPECT_EQ(cl.processor.previousSelection(), (std::vector<std::int64_t>{kLine1, kLine2, kCircle}));
    EXPECT_EQ(cl.feed({S("_select"), S("_P"), S("_R"), ResBuf::entityName(kLine2), S("")}), RTNORM);
    EXPECT_EQ(cl.processor.previousSelection(), (std::vector<std::int64_t>{kLine1, kCircle}));
    cl.echo(1);
    cl.printed.clear();
    EXPECT_EQ(cl.feed({S("_select"), S("L"), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "Command: _select\nSelect objects: L\n1 found, 1 total\nSelect objects: \n");
    EXPECT_EQ(cl.processor.previousSelection().size(), 1u);
    EXPECT_EQ(cl.feed({S("_select"), S("ALL"), S("")}), RTNORM);
    std::size_t all = 0;
    cl.drawing.forEachEntity([&](const EntityInfo&) { return ++all, true; });
    EXPECT_EQ(cl.processor.previousSelection().size(), all);
    EXPECT_GE(all, 5u);   // the lines, the circle and the layout's viewports
}

TEST(Select, UnknownEntitiesAndInputAreRefused) {
    CommandLine cl;
    cl.echo(0);
    EXPECT_EQ(cl.feed({S("_select"), ResBuf::entityName(0xFFFF)}), RTERROR);
    EXPECT_EQ(cl.printed.rfind("*Invalid selection*\n", 0), 0u) << cl.printed;
    EXPECT_EQ(cl.feed({S("_select"), S("1,2,3,4")}), RTERROR);
    EXPECT_EQ(cl.feed({S("_select"), S("_W"), S("1,x")}), RTERROR);
    EXPECT_NE(cl.printed.find("Invalid point.\n"), std::string::npos) << cl.printed;
    EXPECT_TRUE(cl.processor.previousSelection().empty());
}

TEST(Regenall, ReportsModelOrLayoutAndRepaints) {
    CommandLine model;
    model.echo(0);
    EXPECT_EQ(model.feed({S("_regenall")}), RTNORM);
    EXPECT_EQ(model.printed, "Regenerating model.\n");
    EXPECT_EQ(model.regenerations, 1);
    EXPECT_FALSE(model.processor.active());
    CommandLine layout{openFixture("layout_viewports.dxf")};
    layout.echo(0);
    EXPECT_EQ(layout.feed({S("_.REGENALL")}), RTNORM);
    EXPECT_EQ(layout.printed, "Regenerating layout.\nRegenerating model - caching viewports.\n");
}

TEST(Save, SaveasWritesDxfAndQsaveWritesItAgain) {
    TempFolder folder;
    CommandLine cl;
    cl.echo(0);
    EXPECT_EQ(cl.feed({S("_QSAVE")}), RTERROR);
    EXPECT_EQ(cl.printed, "The drawing has no file name yet.  Use SAVEAS to give it one.\n");
    const std::string path = folder.file("plan");
    EXPECT_EQ(cl.feed({S("_.SAVEAS"), S("DXF"), S(path)}), RTNORM);
    ASSERT_TRUE(std::filesystem::exists(path + ".dxf"));
    EXPECT_EQ(cl.drawing.getVar("DWGNAME")->text, "plan.dxf");

    cl.feed({S("_.LAYER"), S("_NEW"), S("Wand"), S("")});
    EXPECT_EQ(cl.feed({S("_QSAVE")}), RTNORM);
    auto reread = Drawing::open(path + ".dxf");
    ASSERT_TRUE(reread) << reread.error();
    EXPECT_TRUE(reread->findLayer("Wand"));
}

TEST(Save, SaveasWithoutFileTypeAndOverTheTopOfAFile) {
    TempFolder folder;
    CommandLine cl;
    cl.echo(0);
    const std::string other = folder.file("other.dxf");
    std::ofstream(other) << "not a drawing";
    EXPECT_EQ(cl.feed({S("_SAVEAS"), S(other), S("")}), RTNORM);   // Enter: do not replace
    EXPECT_EQ(cl.drawing.getVar("DWGPREFIX")->text, "");
    EXPECT_EQ(cl.feed({S("_SAVEAS"), S(other), S("_Y")}), RTNORM);
    EXPECT_EQ(cl.drawing.getVar("DWGNAME")->text, "other.dxf");
    EXPECT_EQ(cl.feed({S("_SAVEAS"), S("DXF"), S(folder.file("plan.dwg"))}), RTERROR);
    EXPECT_EQ(cl.printed, "ardo-cad saves DXF only.  Give a file name ending in \".dxf\".\n");
    cl.printed.clear();
    EXPECT_EQ(cl.feed({S("_SAVEAS"), S("DXF"), S(folder.file("missing/plan.dxf"))}), RTERROR);
    EXPECT_NE(cl.printed, "");
}

TEST(Menu, LoadKeepsTheGroupsAndRefusesMissingFiles) {
    TempFolder folder;
    CommandLine cl;
    cl.echo(0);
    const std::string mnu = folder.file("ardo.mnu");
    std::ofstream(mnu) << "//  menu\n***MENUGROUP=ARDO\n***POP1\n";
    const std::string cuix = folder.file("Extra.cuix");
    std::ofstream(cuix) << "x";
    EXPECT_EQ(cl.feed({S("_MENULOAD"), S(mnu), S("_menuload"), S(cuix)}), RTNORM);
    EXPECT_EQ(cl.processor.menuGroups(), (std::vector<std::string>{"ARDO", "Extra"}));
    EXPECT_EQ(cl.feed({S("_MENULOAD"), S(mnu)}), RTERROR);
    EXPECT_EQ(cl.printed, "Menu group \"ARDO\" is loaded already.  Unload it first with MENUUNLOAD.\n");
    cl.printed.clear();
    EXPECT_EQ(cl.feed({S("_MENULOAD"), S(folder.file("none.mnu"))}), RTERROR);
    EXPECT_EQ(cl.printed, "Menu file \"" + folder.file("none.mnu") +
                              "\" not found.  Check the name and the folder and load it again.\n");
    EXPECT_EQ(cl.feed({S("_MENUUNLOAD"), S("ardo")}), RTNORM);
    EXPECT_EQ(cl.processor.menuGroups(), (std::vector<std::string>{"Extra"}));
    EXPECT_EQ(cl.feed({S("_MENUUNLOAD"), S("ardo")}), RTERROR);
}

}  // namespace cadhost::test
