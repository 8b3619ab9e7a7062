// A drawing changed by the layer commands and saved is read back by ezdxf, an independent
// DXF reader, with the same layer states and viewport lists.
#include <gtest/gtest.h>

#include "CommandTestSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {

namespace {

// One line per layer: name, off, frozen, locked, VPDFLT, colour, lineweight, plot; then one
// line per viewport with its frozen layers.
const char* kReport = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
for l in doc.layers:
    print(l.dxf.name, int(l.is_off()), int(l.is_frozen()), int(l.is_locked()), int(bool(l.dxf.flags & 2)),
          l.color, l.dxf.get('lineweight', -3), l.dxf.get('plot', 1))
for v in doc.entitydb.query('VIEWPORT'):
    print('VP', v.dxf.handle, ','.join(v.frozen_layers))
)";

}  // namespace

TEST(EzdxfReadBack, LayerStatesAndViewportListsAfterSaving) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    const ardo::test::TempFolder folder;
    const std::string saved = folder.file("states.dxf");

    CommandLine cl{openFixture("layout_viewports.dxf")};
    cl.echo(0);
    ASSERT_EQ(cl.feed({S("_.LAYER"), S("_OFF"), S("Wand"), S("_LOCK"), S("Dach"), S("_THAW"), S("Mauer"),
                       S("_FREEZE"), S("Wand-alt"), S("_COLOR"), S("4"), S("Dach"), S("_LWEIGHT"), S("0.5"),
                       S("Dach"), S("_PLOT"), S("_No"), S("Wand"), S("")}),
              ardo::RTNORM);
    ASSERT_EQ(cl.feed({S("_VPLAYER"), S("_VPVISDFLT"), S("Mauer"), S("_FROZEN"), S("_FREEZE"), S("Mauer"), S(""),
                       S("_THAW"), S("Dach"), S("_ALL"), S("")}),
              ardo::RTNORM);
    ASSERT_EQ(cl.feed({S("_SAVEAS"), S("DXF"), S(saved)}), ardo::RTNORM) << cl.printed;

    const std::string report = ardo::test::runPython(*python, kReport, {saved}).output;
    EXPECT_EQ(report, "0 0 0 0 0 7 -3 1\n"
                      "Defpoints 0 0 0 0 7 -3 0\n"
                      "Wand 1 0 0 0 1 -3 0\n"
                      "Dach 0 0 1 0 4 50 1\n"
                      "Mauer 0 0 0 1 5 -3 1\n"
                      "Wand-alt 0 1 0 0 2 -3 1\n"
                      "VP 36 \n"
                      "VP 37 Mauer\n"
                      "VP 38 \n"
                      "VP 3D \n");
}

}  // namespace cadhost::test
