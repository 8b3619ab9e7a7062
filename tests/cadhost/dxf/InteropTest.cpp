// Independent readers accept what the host writes: ezdxf's audit finds no errors and
// LibreCAD prints the drawing. Drawings made by ezdxf in every version it writes are read,
// changed and saved.
#include <gtest/gtest.h>

#include <fstream>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

using ardo::DbStatus;

// Layers, a plot style, linetypes with text and shape, as the module makes them.
void addModuleContent(Drawing& d) {
    ardo::LayerRecord r;
    r.name = "ARDO_Wände";
    r.color = ardo::HostColor::fromRgb(200, 100, 50);
    r.lineweight = 50;
    r.isPlottable = false;
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    const bool r12 = d.acadVersion() < "AC1012";
    if (!r12) {
        ASSERT_EQ(d.addPlaceHolder("ACAD_PLOTSTYLENAME", "Dick"), DbStatus::Ok);
        ASSERT_EQ(d.setLayerPlotStyleName("ARDO_Wände", "Dick"), DbStatus::Ok);
    }
    for (const char* lt : {"DASHDOT_T", "PIPE_T", "BOUNDARY_T"})
        ASSERT_EQ(d.loadLinetype(lt, test::fixture("test.lin")), DbStatus::Ok) << lt;
    r.name = "ARDO_PIPE";
    r.linetype = "PIPE_T";
    r.color = ardo::HostColor::fromIndex(3);
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    ASSERT_EQ(d.setVar("CLAYER", ardo::ResBuf::str("ARDO_PIPE")), DbStatus::Ok);
}

class Interop : public ::testing::Test {
protected:
    void SetUp() override {
        python_ = test::pythonWithEzdxf();
        if (!python_) GTEST_SKIP() << ardo::test::kNoEzdxf;
    }
    void expectAccepted(const std::filesystem::path& file) {
        EXPECT_EQ(test::ezdxfAuditErrors(*python_, file), "") << file;
        if (!test::hasLibreCad()) return;   // ezdxf alone still checked the file
        std::string log;
        EXPECT_TRUE(test::libreCadRenders(file, log)) << file << "\n" << log;
    }
    std::optional<std::string> python_;
    test::TempFolder dir_;
};

TEST_F(Interop, NewDrawingsOfTheHostPassAuditAndOpen) {
    Drawing empty;
    ASSERT_TRUE(empty.save(dir_.file("empty.dxf")));
    expectAccepted(dir_.file("empty.dxf"));

    Drawing d;
    addModuleContent(d);
    ASSERT_TRUE(d.save(dir_.file("module.dxf")));
    expectAccepted(dir_.file("module.dxf"));
}

TEST_F(Interop, EzdxfDrawingsOfEveryVersionAreReadChangedAndSaved) {
    const char* script =
        "import sys, ezdxf\n"
        "doc = ezdxf.new(sys.argv[1])\n"
        "doc.layers.add('Mauer', color=3)\n"
        "msp = doc.modelspace()\n"
        "msp.add_line((0, 0), (10, 5), dxfattribs={'layer': 'Mauer'})\n"
        "msp.add_circle((5, 5), 2)\n"
        "msp.add_arc((0, 0), 1, 0, 90)\n"
        "msp.add_text('Größe', dxfattribs={'height': 2})\n"
        "msp.add_polyline2d([(0, 0), (3, 0), (3, 3)])\n"
        "blk = doc.blocks.new('BOX')\n"
        "blk.add_line((0, 0), (2, 1))\n"
        "msp.add_blockref('BOX', (10, 10), dxfattribs={'rotation': 90})\n"
        "if doc.dxfversion > 'AC1009':\n"
        "    msp.add_lwpolyline([(0, 0), (4, 4)])\n"
        "    msp.add_mtext('zwei\\\\PZeilen')\n"
        "    msp.add_ellipse((0, 0), (2, 0), 0.5)\n"
        "doc.saveas(sys.argv[2])\n";
    for (const char* version : {"R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"}) {
        SCOPED_TRACE(version);
        const auto source = dir_.file(std::string("ezdxf_") + version + ".dxf");
        const auto result = test::runPython(*python_, script, {version, source});
        ASSERT_EQ(result.exitCode, 0) << result.output;
        const std::string bytes = test::readBytes(source);

        Drawing d = test::openOrFail(source);
        EXPECT_TRUE(d.toDxf() == bytes) << "unchanged drawing not written back as read";
        ASSERT_TRUE(d.findLayer("MAUER"));
        std::vector<std::string> types;
        d.forEachEntity([&](const EntityInfo& e) { types.push_back(e.type); return true; });
        ASSERT_GE(types.size(), 6u);
        EXPECT_EQ(types[0], "LINE");
        bool textFound = false;
        d.forEachEntity([&](const EntityInfo& e) {
            if (e.type == "TEXT")
                for (const auto& t : d.entityTags(e.handle))
                    textFound |= t.code == 1 && t.value == "Größe";
            return true;
        });
        EXPECT_TRUE(textFound) << "text not decoded to UTF-8";

        addModuleContent(d);
        const auto saved = dir_.file(std::string("host_") + version + ".dxf");
        ASSERT_TRUE(d.save(saved));
        expectAccepted(saved);
        Drawing back = test::openOrFail(saved);
        EXPECT_TRUE(back.findLayer("ARDO_Wände"));
        EXPECT_TRUE(back.hasLinetype("boundary_t"));
        EXPECT_EQ(back.getVar("CLAYER")->text, "ARDO_PIPE");
    }
}

}  // namespace
}  // namespace cadhost

namespace cadhost {
namespace {

TEST(InteropCheck, TheAuditCatchesAFaultyFile) {
    const auto python = test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    // A line on a linetype the drawing lacks: the check the other tests rely on must object.
    Drawing d;
    std::string dxf = d.toDxf();
    const std::string line =
        "  0\nLINE\n  5\n99\n330\n17\n100\nAcDbEntity\n  8\n0\n  6\nMISSING\n100\nAcDbLine\n"
        " 10\n0\n 20\n0\n 30\n0\n 11\n1\n 21\n1\n 31\n0\n";
    dxf.insert(dxf.find("  0\nENDSEC", dxf.find("ENTITIES")), line);
    test::TempFolder dir;
    std::ofstream(dir.file("faulty.dxf")) << dxf;
    EXPECT_NE(test::ezdxfAuditErrors(*python, dir.file("faulty.dxf")), "");
}

}  // namespace
}  // namespace cadhost
