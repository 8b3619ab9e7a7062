// MOVE, COPY, ROTATE, SCALE and MIRROR of an insert with attributes: the attributes go
// with it and keep their place in the block, checked on the drawing and on the saved file
// as ezdxf reads and audits it.
#include <gtest/gtest.h>

#include "BlockTestSupport.h"
#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

using ardo::RTNORM;

class AttributedInsert : public ::testing::Test {
protected:
    ardo::test::TempFolder folder;
    CommandLine cl;
    Handle insert = 0;
    void SetUp() override {
        const std::string table = folder.file("Tisch.dxf");
        writeTableDrawing(table);
        cl.addLayer("Wand");
        cl.echo(0);
        // Scale 2, turned a quarter, at 20,10: the attribute NR (1,1 in the block, base 5,0)
        // stands at 18,2.
        ASSERT_EQ(cl.feed({S("-INSERT"), S(table), S("20,10"), S("2"), S(""), S("90"), S("A-7"), S("")}), RTNORM)
            << cl.printed;
        insert = newestEntity(cl.drawing);
        ASSERT_EQ(cl.drawing.entityParts(insert).size(), 2u);
    }
    void edit(std::initializer_list<const char*> answers) {
        ardo::ResBufChain tokens;
        for (const char* a : answers) tokens.push_back(S(a));
        ASSERT_EQ(cl.feed(tokens), RTNORM) << cl.printed;
        EXPECT_FALSE(cl.processor.active()) << cl.processor.prompt();
        EXPECT_EQ(cl.printed.find("cannot change"), std::string::npos) << cl.printed;
    }
    // The insert's point, scale and rotation, and each attribute's tag, point, height and rotation.
    std::string shown(Handle h) const {
        const auto tags = cl.drawing.entityTags(h);
        std::string out = pointOf(tags, 10) + " x" + tagOf(tags, 41) + " r" + tagOf(tags, 50);
        for (const auto& part : cl.drawing.entityParts(h))
            out += " | " + tagOf(part, 2) + " " + pointOf(part, 10) + " h" + tagOf(part, 40) + " r" + tagOf(part, 50);
        return out;
    }
};

TEST_F(AttributedInsert, EachEditTakesTheAttributesAlong) {
    edit({"_.MOVE", "L", "", "0,0", "5,5"});
    EXPECT_EQ(shown(insert), "25,15 x2.0 r90.0 | NR 23,7 h1.0 r90.0 | RAUM 15,7 h1.0 r90.0");
    edit({"_.MOVE", "L", "", "-5,-5", ""});
    edit({"_.ROTATE", "L", "", "20,10", "90"});
    EXPECT_EQ(shown(insert), "20,10 x2.0 r180.0 | NR 28,8 h1.0 r180.0 | RAUM 28,0 h1.0 r180.0");
    edit({"_.ROTATE", "L", "", "20,10", "-90"});
    edit({"_.SCALE", "L", "", "20,10", "0.5"});
    EXPECT_EQ(shown(insert), "20,10 x1.0 r90.0 | NR 19,6 h0.5 r90.0 | RAUM 15,6 h0.5 r90.0");
    edit({"_.SCALE", "L", "", "20,10", "2"});

    // A copy has attributes of its own; the original keeps its place.
    const std::string before = shown(insert);
    edit({"_.COPY", "L", "", "0,0", "0,100", ""});
    const Handle copy = newestEntity(cl.drawing);
    ASSERT_NE(copy, insert);
    EXPECT_EQ(shown(insert), before);
    EXPECT_EQ(shown(copy), "20,110 x2.0 r90.0 | NR 18,102 h1.0 r90.0 | RAUM 10,102 h1.0 r90.0");
    EXPECT_EQ(tagOf(cl.drawing.entityParts(copy)[0], 1), "A-7");
    EXPECT_NE(tagOf(cl.drawing.entityParts(copy)[0], 5), tagOf(cl.drawing.entityParts(insert)[0], 5));
    // Owned by the copy, not by the original.
    for (const auto& part : cl.drawing.entityParts(copy)) EXPECT_EQ(tagOf(part, 330), tagOf(cl.drawing.entityTags(copy), 5));

    // Mirrored in x = 20, the block turns half round on a negative x scale and its
    // attribute texts stay readable.
    edit({"_.MIRROR", "L", "", "20,0", "20,1", "_Yes"});
    EXPECT_EQ(shown(copy), "20,110 x-2.0 r270.0 | NR 22,102 h1.0 r90.0 | RAUM 30,102 h1.0 r90.0");
}

TEST_F(AttributedInsert, SavedEditsPassEzdxfAuditWithAttributesWhereTheBlockPutsThem) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    edit({"_.MOVE", "L", "", "0,0", "7,-3"});
    edit({"_.COPY", "L", "", "0,0", "40,0", ""});
    edit({"_.ROTATE", "L", "", "0,0", "33"});
    edit({"_.SCALE", "L", "", "1,1", "1.5"});
    edit({"_.MIRROR", "L", "", "0,0", "1,2", ""});
    const std::string saved = folder.file("edited.dxf");
    ASSERT_TRUE(cl.drawing.save(saved));
    // ezdxf places each ATTDEF of the block through the insert's own matrix: the attribute
    // must stand there.
    const char* report = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
print('errors', len(doc.audit().errors))
for e in doc.modelspace().query('INSERT'):
    m = e.matrix44()
    defs = {d.dxf.tag: d for d in e.block().query('ATTDEF')}
    for a in e.attribs:
        want = m.transform(defs[a.dxf.tag].dxf.insert)
        off = (want - a.dxf.insert).magnitude
        print(a.dxf.tag, 'ok' if off < 1e-6 else 'off by %g' % off)
    print('seqend', e.seqend is not None)
)";
    const auto r = ardo::test::runPython(*python, report, {saved});
    EXPECT_EQ(r.output, "errors 0\n"
                        "NR ok\nRAUM ok\nseqend True\n"
                        "NR ok\nRAUM ok\nseqend True\n"
                        "NR ok\nRAUM ok\nseqend True\n")
        << r.output;
}

}  // namespace
}  // namespace cadhost::test
