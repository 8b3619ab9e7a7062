// INSERT of a block of the drawing and of a DXF file: the prompts and options, attributes
// asked in order, bad input answered with a message and the same prompt, and the saved
// drawing read back by ezdxf with a clean audit.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "BlockTestSupport.h"
#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

using ardo::RTNORM;

class InsertCommand : public ::testing::Test {
protected:
    ardo::test::TempFolder folder;
    std::string table = folder.file("Tisch.dxf");
    CommandLine cl;
    void SetUp() override {
        writeTableDrawing(table);
        addColouredLayer(cl.drawing, "Moebel", 1);   // the drawing's own layer is kept
        cl.addLayer("Wand");
        ASSERT_EQ(cl.drawing.setVar("CLAYER", S("Wand")), ardo::DbStatus::Ok);
        cl.echo(0);
    }
    std::vector<std::vector<EntityTag>> attributes(Handle insert) const { return cl.drawing.entityParts(insert); }
};

}  // namespace

TEST_F(InsertCommand, DrawingFileBecomesABlockWithWhatItUses) {
    ASSERT_EQ(cl.feed({S("-INSERT"), S(table), S("20,10"), S("2"), S(""), S("90"), S("A-7"), S("")}), RTNORM)
        << cl.printed;
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "");

    const auto block = cl.drawing.blockContents("Tisch");
    ASSERT_TRUE(block);
    EXPECT_EQ(block->base, (ardo::Point3{5, 0, 0}));
    std::vector<std::string> types;
    for (Handle h : block->entities) types.push_back(cl.drawing.entity(h)->type);
    EXPECT_EQ(types, (std::vector<std::string>{"LINE", "INSERT", "ATTDEF", "ATTDEF", "ATTDEF"}));
    ASSERT_TRUE(cl.drawing.blockContents("Bein"));
    EXPECT_EQ(cl.layer("Moebel").color.index, 1);
    EXPECT_EQ(cl.layer("Bein-Layer").color.index, 5);

    const Handle insert = newestEntity(cl.drawing);
    const auto tags = cl.drawing.entityTags(insert);
    EXPECT_EQ(tagOf(tags, 0), "INSERT");
    EXPECT_EQ(tagOf(tags, 8), "Wand");
    EXPECT_EQ(tagOf(tags, 2), "Tisch");
    EXPECT_EQ(tagOf(tags, 66), "1");
    EXPECT_EQ(pointOf(tags, 10), "20,10");
    EXPECT_EQ(tagOf(tags, 41) + " " + tagOf(tags, 42) + " " + tagOf(tags, 50), "2.0 2.0 90.0");
    // Asked in order, the constant one left in the block; Enter kept the default.
    const auto parts = attributes(insert);
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(tagOf(parts[0], 2) + "=" + tagOf(parts[0], 1), "NR=A-7");
    EXPECT_EQ(tagOf(parts[1], 2) + "=" + tagOf(parts[1], 1), "RAUM=Kueche");
    // (1,1) of the block: 2 times (-4,1) from the base, turned a quarter, at 20,10.
    EXPECT_EQ(pointOf(parts[0], 10), "18,2");
    EXPECT_EQ(tagOf(parts[0], 40) + " " + tagOf(parts[0], 50), "1.0 90.0");
    EXPECT_EQ(tagOf(parts[0], 8), "Wand");   // defined on layer 0: the insert's layer

    // A second insert uses the block already defined; the file is not read again.
    std::filesystem::remove(table);
    ASSERT_EQ(cl.feed({S("_.INSERT"), S("tisch"), S("0,0"), S(""), S(""), S(""), S(""), S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "");
    EXPECT_EQ(tagOf(cl.drawing.entityTags(newestEntity(cl.drawing)), 2), "Tisch");
}

TEST_F(InsertCommand, OptionsBeforeThePointCornerAndXyz) {
    ASSERT_EQ(cl.drawing.setVar("ATTREQ", ardo::ResBuf::shortInt(0)), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.feed({S("-INSERT"), S(table), S("_S"), S("3"), S("_R"), S("45"), S("1,1")}), RTNORM);
    auto tags = cl.drawing.entityTags(newestEntity(cl.drawing));
    EXPECT_EQ(tagOf(tags, 41) + " " + tagOf(tags, 42) + " " + tagOf(tags, 43) + " " + tagOf(tags, 50),
              "3.0 3.0 3.0 45.0");
    // ATTREQ 0: the defaults, nothing asked.
    const auto parts = attributes(newestEntity(cl.drawing));
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(tagOf(parts[0], 1) + " " + tagOf(parts[1], 1), "1 Kueche");

    // A point at the X prompt is the opposite corner: X and Y from its offsets.
    ASSERT_EQ(cl.feed({S("-INSERT"), S("Tisch"), S("10,10"), ardo::ResBuf::point3({12, 7, 0}), S("")}), RTNORM);
    tags = cl.drawing.entityTags(newestEntity(cl.drawing));
    EXPECT_EQ(tagOf(tags, 41) + " " + tagOf(tags, 42) + " " + tagOf(tags, 50), "2.0 -3.0 -");

    ASSERT_EQ(cl.feed({S("-INSERT"), S("Tisch"), S("0,0"), S("_XYZ"), S("2"), S("3"), S("4"), S("")}), RTNORM);
    tags = cl.drawing.entityTags(newestEntity(cl.drawing));
    EXPECT_EQ(tagOf(tags, 41) + " " + tagOf(tags, 42) + " " + tagOf(tags, 43), "2.0 3.0 4.0");
    EXPECT_FALSE(cl.processor.active());
}

TEST_F(InsertCommand, BadInputGetsTheMessageAndThePromptAgain) {
    ASSERT_EQ(cl.feed({S("-INSERT"), S("Nirgends")}), RTNORM);
    EXPECT_EQ(cl.printed, "\"Nirgends.dxf\": Can't find file in search path.\n*Invalid*\n");
    EXPECT_EQ(cl.processor.prompt(), "Enter block name: ");
    cl.printed.clear();
    ASSERT_EQ(cl.feed({S(table), S("nowhere"), S("0,0"), S("0"), S("x"), S("-1"), S("0"), S(""), S("sideways"),
                       S("30")}),
              RTNORM);
    EXPECT_EQ(cl.printed, "Point or option keyword required.\n"
                          "Value must be nonzero.\n"
                          "Requires numeric value or point.\n"
                          "Value must be nonzero.\n"
                          "Requires valid numeric angle or second point.\n");
    EXPECT_EQ(cl.processor.prompt(), "Nummer <1>: ");
    ASSERT_EQ(cl.feed({S("7"), S("Bad")}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
    const auto tags = cl.drawing.entityTags(newestEntity(cl.drawing));
    EXPECT_EQ(tagOf(tags, 41) + " " + tagOf(tags, 42) + " " + tagOf(tags, 50), "-1.0 -1.0 30.0");

    // A file that is no drawing names the problem and asks again.
    const std::string junk = folder.file("Junk.dxf");
    std::ofstream(junk) << "no drawing here\n";
    cl.printed.clear();
    ASSERT_EQ(cl.feed({S("-INSERT"), S(junk)}), RTNORM);
    EXPECT_NE(cl.printed.find("*Invalid*"), std::string::npos) << cl.printed;
    EXPECT_EQ(cl.processor.prompt(), "Enter block name: ");
    EXPECT_FALSE(cl.drawing.hasBlock("Junk"));
    cl.processor.cancel();
}

TEST_F(InsertCommand, FoundOnTheSupportPath) {
    CommandLine other;
    CommandProcessor processor{{&other.drawing, [&](const std::string& t) { other.printed += t; }, {}, {}, nullptr,
                                nullptr, {}, [&](const std::string& name) -> std::optional<std::string> {
                                    if (name == "Tisch.dxf") return table;
                                    return std::nullopt;
                                }}};
    ASSERT_EQ(processor.feed({S("-INSERT"), S("Tisch"), S("0,0"), S(""), S(""), S(""), S(""), S("")}), RTNORM)
        << other.printed;
    EXPECT_TRUE(other.drawing.hasBlock("Tisch"));
}

TEST_F(InsertCommand, SavedDrawingPassesEzdxfAudit) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    ASSERT_EQ(cl.feed({S("-INSERT"), S(table), S("20,10"), S("2"), S(""), S("90"), S("A-7"), S("")}), RTNORM);
    const std::string saved = folder.file("saved.dxf");
    ASSERT_TRUE(cl.drawing.save(saved));
    const char* report = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
print('errors', len(doc.audit().errors))
for e in doc.modelspace():
    print(e.dxftype(), e.dxf.name, e.dxf.layer, '%g %g' % tuple(e.dxf.insert)[:2], e.dxf.xscale, e.dxf.rotation)
    for a in e.attribs:
        print(' ', a.dxf.tag, a.dxf.text, a.dxf.layer, '%g %g' % (round(a.dxf.insert[0], 6), round(a.dxf.insert[1], 6)))
    print(' ', sorted(x.dxftype() for x in e.block()))
print(doc.layers.get('Moebel').color, doc.layers.get('Bein-Layer').color, len(doc.blocks.get('Bein')))
)";
    const auto r = ardo::test::runPython(*python, report, {saved});
    EXPECT_EQ(r.output, "errors 0\n"
                        "INSERT Tisch Wand 20 10 2.0 90.0\n"
                        "  NR A-7 Wand 18 2\n"
                        "  RAUM Kueche Wand 10 2\n"
                        "  ['ATTDEF', 'ATTDEF', 'ATTDEF', 'INSERT', 'LINE']\n"
                        "1 5 1\n");
}

// A file with a dimension and a nested block: the dimension's anonymous block comes along,
// numbered anew when the drawing has one of that name already; named blocks are kept.
TEST_F(InsertCommand, BlocksTheFilesEntitiesNeedComeAlongDimensionsNumberedAnew) {
    const std::string plan = fixturePath("plan_with_dimension.dxf");
    const std::string again = folder.file("Plan2.dxf");
    std::filesystem::copy_file(plan, again);
    ASSERT_EQ(cl.feed({S("-INSERT"), S(plan), S("0,0"), S(""), S(""), S("")}), RTNORM) << cl.printed;
    ASSERT_EQ(cl.feed({S("-INSERT"), S(again), S("0,50"), S(""), S(""), S("")}), RTNORM) << cl.printed;
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.printed, "");

    // The dimension of each inserted drawing and the block it shows.
    const auto dimensionBlock = [&](const std::string& block) {
        const auto contents = cl.drawing.blockContents(block);
        EXPECT_TRUE(contents) << block;
        for (Handle h : contents ? contents->entities : std::vector<Handle>{})
            if (cl.drawing.entity(h)->type == "DIMENSION") return tagOf(cl.drawing.entityTags(h), 2);
        return std::string("none");
    };
    EXPECT_EQ(dimensionBlock("plan_with_dimension"), "*D1");
    EXPECT_EQ(dimensionBlock("Plan2"), "*D2");
    const auto first = cl.drawing.blockContents("*D1"), second = cl.drawing.blockContents("*D2");
    ASSERT_TRUE(first && second);
    EXPECT_GT(first->entities.size(), 2u);
    EXPECT_EQ(first->entities.size(), second->entities.size());
    ASSERT_TRUE(cl.drawing.blockContents("Fenster"));
    ASSERT_TRUE(cl.drawing.blockContents("Rahmen"));
    EXPECT_FALSE(cl.drawing.hasBlock("Rahmen1"));
    EXPECT_EQ(cl.layer("Bemassung").color.index, 2);

    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    const std::string saved = folder.file("saved.dxf");
    ASSERT_TRUE(cl.drawing.save(saved));
    const char* report = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
print('errors', len(doc.audit().errors))
for name in ('plan_with_dimension', 'Plan2'):
    for d in doc.blocks.get(name).query('DIMENSION'):
        shown = doc.blocks.get(d.dxf.geometry)
        print(name, d.dxf.geometry, shown.block.dxf.flags & 1, sorted(set(e.dxftype() for e in shown)))
print(sorted(e.dxf.name for e in doc.blocks.get('Fenster').query('INSERT')))
)";
    const auto r = ardo::test::runPython(*python, report, {saved});
    EXPECT_EQ(r.output.substr(0, 9), "errors 0\n") << r.output;
    EXPECT_NE(r.output.find("plan_with_dimension *D1 1 "), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Plan2 *D2 1 "), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("['Rahmen']"), std::string::npos) << r.output;
}

}  // namespace cadhost::test
