// Arcs, polylines and texts drawn at the command line, saved and read by ezdxf: its audit
// finds nothing, and the geometry it works out (arc ends, bulge centres, text placement)
// is the one asked for.
#include <gtest/gtest.h>

#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {

namespace {

const char* kReport = R"(
import sys, ezdxf
from ezdxf.math import bulge_to_arc
doc = ezdxf.readfile(sys.argv[1])
print('errors', len(doc.audit().errors))
def n(*values): return ' '.join('%.6g' % (round(v, 6) + 0.0) for v in values)
for e in doc.modelspace():
    t = e.dxftype()
    head = '%s %s %d' % (t, e.dxf.layer, e.dxf.get('color', 256))
    if t == 'ARC':
        print(head, 'from', n(*e.start_point.vec2), 'to', n(*e.end_point.vec2), 'r', n(e.dxf.radius))
    elif t == 'LWPOLYLINE':
        points = list(e.get_points('xyseb'))
        print(head, 'closed' if e.closed else 'open', '|', ' | '.join(n(*p) for p in points))
        for a, b in zip(points, points[1:]):
            if a[4]:
                centre, _, _, radius = bulge_to_arc(a[:2], b[:2], a[4])
                print('  arc centre', n(*centre), 'r', n(radius))
    elif t == 'TEXT':
        print(head, repr(e.dxf.text), n(*e.dxf.align_point, e.dxf.height, e.dxf.rotation), e.get_align_enum().name)
    elif t == 'MTEXT':
        print(head, repr(e.plain_text()), n(*e.dxf.insert, e.dxf.char_height, e.dxf.width), e.dxf.attachment_point,
              n(*e.dxf.text_direction))
)";

}  // namespace

TEST(CurvesAndTextReadBack, EzdxfAuditsAndReadsTheGeometryAskedFor) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    CommandLine cl;
    cl.echo(0);
    cl.addLayer("Wand");
    ASSERT_EQ(cl.drawing.setVar("CLAYER", S("Wand")), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.drawing.setVar("CECOLOR", ardo::ResBuf::shortInt(1)), ardo::DbStatus::Ok);
    ASSERT_EQ(cl.feed({S("_.ARC"), S("0,0"), S("5,5"), S("10,0")}), ardo::RTNORM);
    ASSERT_EQ(cl.feed({S("_.PLINE"), S("0,0"), S("W"), S("0"), S("1"), S("10,0"), S("A"), S("10,10"), S("")}),
              ardo::RTNORM);
    ASSERT_EQ(cl.feed({S("_.TEXT"), S("J"), S("MC"), S("5,5"), S("2"), S("0"), S("Mitte")}), ardo::RTNORM);
    ASSERT_EQ(cl.feed({S("_.MTEXT"), S("0,10"), S("20,0"), S("Zwei"), S("Zeilen"), S("")}), ardo::RTNORM);
    EXPECT_EQ(cl.printed, "");

    const ardo::test::TempFolder folder;
    const std::string saved = folder.file("curves.dxf");
    ASSERT_TRUE(cl.drawing.save(saved));
    const auto report = ardo::test::runPython(*python, kReport, {saved});
    EXPECT_EQ(report.output, "errors 0\n"
                             "ARC Wand 1 from 10 0 to 0 0 r 5\n"
                             "LWPOLYLINE Wand 1 open | 0 0 0 1 0 | 10 0 1 1 1 | 10 10 1 1 0\n"
                             "  arc centre 10 5 r 5\n"
                             "TEXT Wand 1 'Mitte' 5 5 0 2 0 MIDDLE_CENTER\n"
                             "MTEXT Wand 1 'Zwei\\nZeilen' 0 10 0 2 20 1 1 0 0\n")
        << report.output;
}

}  // namespace cadhost::test
