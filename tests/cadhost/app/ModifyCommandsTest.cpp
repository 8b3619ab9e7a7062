// OFFSET, STRETCH, TRIM and EXTEND typed and through (command ...): the geometry as our
// reader and ezdxf read the saved file, the commands' own Undo, undo of the whole command
// to the same bytes, and bad input asked again.
#include <cmath>
#include <cstdio>

#include "AppTestSupport.h"

#include "cadhost/app/CommandLine.h"
#include "cadhost/geometry/Paths.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

std::string rounded(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", std::round(v * 1e6) / 1e6 + 0.0);
    return text;
}

// One line per entity: type, layer and its geometry, angles in degrees as in the file.
// The ezdxf script below prints the same.
std::string describe(const Drawing& drawing) {
    std::string out;
    drawing.forEachEntity([&](const EntityInfo& e) {
        const auto tags = drawing.entityTags(e.handle);
        const geometry::Groups g(tags);
        out += e.type + " " + e.layer;
        std::vector<int> codes;
        if (e.type == "LINE") codes = {10, 20, 11, 21};
        if (e.type == "CIRCLE") codes = {10, 20, 40};
        if (e.type == "ARC") codes = {10, 20, 40, 50, 51};
        for (int code : codes) out += " " + rounded(g.get(code));
        if (e.type == "LWPOLYLINE")
            for (const EntityTag& t : tags)
                if (t.code == 10 || t.code == 20) out += " " + rounded(std::stod(t.value));
        out += "\n";
        return true;
    });
    return out;
}

constexpr const char* kEzdxfDescription = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
if doc.audit().has_errors: print('audit errors')
def r(v): return '%g' % (round(v * 1e6) / 1e6 + 0.0)
for e in doc.modelspace():
    t = e.dxftype(); d = e.dxf
    if t == 'LINE': v = [d.start.x, d.start.y, d.end.x, d.end.y]
    elif t == 'CIRCLE': v = [d.center.x, d.center.y, d.radius]
    elif t == 'ARC': v = [d.center.x, d.center.y, d.radius, d.start_angle, d.end_angle]
    elif t == 'LWPOLYLINE': v = [c for p in e.get_points('xy') for c in p]
    else: v = []
    print(' '.join([t, d.layer] + [r(x) for x in v]))
)";

class ModifyInput : public HostTest {
protected:
    CommandLine line{host};
    void enter(std::initializer_list<const char*> lines) {
        for (const char* l : lines) line.enter(l);
    }
    void draw(const std::string& what) { ASSERT_EQ(run(what).rfind("ERR:", 0), std::string::npos) << what; }
    void lineFrom(double x0, double y0, double x1, double y1) {
        draw("(entmake (list '(0 . \"LINE\") (list 10 " + rounded(x0) + " " + rounded(y0) + ") (list 11 " + rounded(x1) +
             " " + rounded(y1) + ")))");
    }
    // Angles in degrees here, in radians for entmake.
    void arc(double cx, double cy, double r, double from, double to) {
        draw("(entmake (list '(0 . \"ARC\") (list 10 " + rounded(cx) + " " + rounded(cy) + ") (cons 40 " + rounded(r) +
             ") (cons 50 (* pi (/ " + rounded(from) + " 180.0))) (cons 51 (* pi (/ " + rounded(to) + " 180.0)))))");
    }
    std::string now() { return describe(first.drawing()); }
};

TEST_F(ModifyInput, TrimCutsLinesArcsAndCirclesAtTheEdges) {
    lineFrom(0, 0, 10, 0);
    lineFrom(3, -5, 3, 5);
    draw("(setq left (entlast))");
    lineFrom(7, -5, 7, 5);
    draw("(setq right (entlast))");
    // Typed: the two upright lines are the edges; the pick between them cuts the middle out.
    enter({"TRIM", "(ssadd left (ssadd right))", "", "5,0"});
    EXPECT_EQ(now(), "LINE 0 0 0 3 0\n"
                     "LINE 0 3 -5 3 5\n"
                     "LINE 0 7 -5 7 5\n"
                     "LINE 0 7 0 10 0\n");
    // The piece ends at an edge: nothing more to cut there.
    output.clear();
    enter({"1,0"});
    EXPECT_NE(output.find("Object does not intersect an edge."), std::string::npos) << output;
    // The upright line's lower end goes, from LISP.
    line.enter("");
    draw("(command \"_.TRIM\" \"\" '(3 -4) \"\")");
    EXPECT_NE(now().find("LINE 0 3 0 3 5\n"), std::string::npos) << now();

    // A circle cut by a line across it keeps the half away from the pick.
    draw("(command \"_.ERASE\" (ssget \"_X\") \"\")");
    lineFrom(0, 10, 10, 10);
    draw("(command \"_.CIRCLE\" '(5 10) 3)");
    draw("(command \"_.TRIM\" \"\" '(5 13) \"\")");
    EXPECT_EQ(now(), "LINE 0 0 10 10 10\n"
                     "ARC 0 5 10 3 180 0\n");
    // An arc keeps the part from its start to the edge.
    draw("(command \"_.ERASE\" (ssget \"_X\") \"\")");
    arc(0, 0, 5, 0, 180);
    lineFrom(0, 0, 0, 10);
    draw("(command \"_.TRIM\" \"\" '(-3 4) \"\")");
    EXPECT_EQ(now(), "ARC 0 0 0 5 0 90\n"
                     "LINE 0 0 0 0 10\n");
}

TEST_F(ModifyInput, ExtendReachesTheNearestBoundaryFromThePickedEnd) {
    lineFrom(0, 0, 5, 0);
    lineFrom(8, -5, 8, 5);
    lineFrom(12, -5, 12, 5);
    arc(0, 20, 5, 0, 45);
    lineFrom(0, 20, 0, 30);
    enter({"EXTEND", "", "4,0"});
    // The nearer boundary wins; picked again, the line reaches the next one.
    EXPECT_NE(now().find("LINE 0 0 0 8 0\n"), std::string::npos) << now();
    enter({"7,0"});
    EXPECT_NE(now().find("LINE 0 0 0 12 0\n"), std::string::npos) << now();
    output.clear();
    enter({"1,0"});   // nothing lies to the left
    EXPECT_NE(output.find("Object does not intersect an edge."), std::string::npos) << output;
    // The arc's end at 45 degrees runs on to the upright line at 90.
    const ardo::Point3 nearEnd{5 * std::cos(0.7), 20 + 5 * std::sin(0.7), 0};
    enter({(rounded(nearEnd[0]) + "," + rounded(nearEnd[1])).c_str(), ""});
    EXPECT_NE(now().find("ARC 0 0 20 5 0 90\n"), std::string::npos) << now();
    // A circle has no end to extend.
    draw("(command \"_.CIRCLE\" '(50 50) 1)");
    output.clear();
    draw("(command \"_.EXTEND\" \"\" '(51 50) \"\")");
    EXPECT_NE(output.find("Cannot EXTEND this object."), std::string::npos) << output;
}

TEST_F(ModifyInput, FenceAndTheCommandsOwnUndo) {
    for (int y = 0; y < 3; ++y) lineFrom(0, y, 10, y);
    lineFrom(5, -1, 5, 3);
    const std::string before = now();
    enter({"TRIM", "L", "", "_Fence", "7,-1", "7,3", ""});
    EXPECT_EQ(now(), "LINE 0 0 0 5 0\nLINE 0 0 1 5 1\nLINE 0 0 2 5 2\nLINE 0 5 -1 5 3\n");
    enter({"_Undo"});
    EXPECT_EQ(now(), before);
    output.clear();
    enter({"_Undo"});
    EXPECT_NE(output.find("Nothing to undo."), std::string::npos);
    // Bad input at each prompt is refused and asked again.
    output.clear();
    enter({"north"});
    EXPECT_NE(output.find("Point or option keyword required."), std::string::npos) << output;
    enter({"_F", "x"});
    EXPECT_NE(output.find("Invalid point."), std::string::npos) << output;
    EXPECT_EQ(host.commands().prompt(), "Specify first fence point: ");
    enter({"3,-1", "3,3", "", ""});
    EXPECT_EQ(line.prompt(), "Command: ");
    EXPECT_NE(now().find("LINE 0 5 0 10 0\n"), std::string::npos) << now();
}

TEST_F(ModifyInput, LockedObjectsAreLeftAloneAndCounted) {
    draw("(command \"_.-LAYER\" \"_New\" \"Fest\" \"_LOck\" \"Fest\" \"\")");
    draw("(entmake '((0 . \"LINE\") (8 . \"Fest\") (10 0 0) (11 10 0)))");
    lineFrom(5, -1, 5, 1);
    output.clear();
    draw("(command \"_.TRIM\" \"\" '(7 0) \"\")");
    EXPECT_NE(output.find("1 was on a locked layer."), std::string::npos) << output;
    EXPECT_EQ(now(), "LINE Fest 0 0 10 0\nLINE 0 5 -1 5 1\n");
    draw("(command \"_.STRETCH\" \"_C\" '(4 -2) '(11 2) \"\" '(0 0) '(5 0))");
    EXPECT_EQ(now(), "LINE Fest 0 0 10 0\nLINE 0 10 -1 10 1\n");
}

TEST_F(ModifyInput, OffsetByDistanceAndThroughAPoint) {
    lineFrom(0, 0, 10, 0);
    draw("(command \"_.CIRCLE\" '(30 0) 3)");
    arc(60, 0, 5, 0, 90);
    draw("(command \"_.RECTANG\" '(100 0) '(104 2))");
    output.clear();
    enter({"OFFSET", "abc", "-2", "2", "5,0", "0,5", "30,3", "30,0", "65,0", "65,6", "102,0", "102,5", ""});
    EXPECT_NE(output.find("Requires numeric distance, two points, or option keyword."), std::string::npos) << output;
    EXPECT_NE(output.find("Value must be positive and nonzero."), std::string::npos) << output;
    EXPECT_EQ(now(), "LINE 0 0 0 10 0\n"
                     "CIRCLE 0 30 0 3\n"
                     "ARC 0 60 0 5 0 90\n"
                     "LWPOLYLINE 0 100 0 104 0 104 2 100 2\n"
                     "LINE 0 0 2 10 2\n"
                     "CIRCLE 0 30 0 1\n"
                     "ARC 0 60 0 7 0 90\n"
                     "LWPOLYLINE 0 98 -2 106 -2 106 4 98 4\n");
    // Through a point, onto the current layer, erasing the source; from LISP.
    draw("(command \"_.-LAYER\" \"_Make\" \"Neu\" \"\")");
    draw("(command \"_.OFFSET\" \"_Erase\" \"_Yes\" \"_Layer\" \"_Current\" \"_Through\" '(5 2) '(5 7) \"\")");
    EXPECT_EQ(now().find("LINE 0 0 2 10 2\n"), std::string::npos) << now();
    EXPECT_NE(now().find("LINE Neu 0 7 10 7\n"), std::string::npos) << now();
    // Multiple steps on from each copy; Undo takes back the last one.
    draw("(command \"_.OFFSET\" 1 '(5 0) \"_Multiple\" '(5 -10) '(5 -10) '(5 -10) \"_Undo\" \"\")");
    EXPECT_NE(now().find("LINE 0 0 -2 10 -2\n"), std::string::npos) << now();
    EXPECT_EQ(now().find("LINE 0 0 -3 10 -3\n"), std::string::npos) << now();
    // An inner offset larger than the radius has nothing to give.
    output.clear();
    draw("(command \"_.OFFSET\" 5 '(30 3) '(30 0) \"\")");
    EXPECT_NE(output.find("Cannot offset that object."), std::string::npos) << output;
}

TEST_F(ModifyInput, OffsetOfPolylinesWithSmoothArcs) {
    // A slot: two straight sides joined by half circles at the ends.
    draw("(entmake '((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 4) (70 . 1)"
         " (10 0 0) (10 10 0) (42 . 1.0) (10 10 4) (10 0 4) (42 . 1.0)))");
    draw("(command \"_.OFFSET\" 1 '(5 0) '(5 -3) \"\")");
    EXPECT_NE(now().find("LWPOLYLINE 0 0 -1 10 -1 10 5 0 5\n"), std::string::npos) << now();
    draw("(command \"_.OFFSET\" 1 '(5 0) '(5 1) \"\")");
    EXPECT_NE(now().find("LWPOLYLINE 0 0 1 10 1 10 3 0 3\n"), std::string::npos) << now();
}

TEST_F(ModifyInput, StretchMovesWhatLiesInTheCrossingWindow) {
    lineFrom(0, 0, 10, 0);
    draw("(command \"_.CIRCLE\" '(10 5) 1)");
    draw("(command \"_.CIRCLE\" '(0 5) 1)");
    draw("(command \"_.RECTANG\" '(0 10) '(10 12))");
    enter({"STRETCH", "_C", "8,-1", "12,13", "", "0,0", "5,0"});
    EXPECT_EQ(now(), "LINE 0 0 0 15 0\n"
                     "CIRCLE 0 15 5 1\n"
                     "CIRCLE 0 0 5 1\n"
                     "LWPOLYLINE 0 0 10 15 10 15 12 0 12\n");
    draw("(command \"_.STRETCH\" \"_CP\" '(-2 -2) '(2 -2) '(2 2) '(-2 2) \"\" \"\" '(0 -3) \"\")");
    EXPECT_NE(now().find("LINE 0 0 -3 15 0\n"), std::string::npos) << now();
}

TEST_F(ModifyInput, UndoOfEachCommandRestoresTheSameBytes) {
    lineFrom(0, 0, 10, 0);
    lineFrom(5, -1, 5, 1);
    draw("(command \"_.CIRCLE\" '(20 0) 2)");
    draw("(command \"_.LINE\" '(20 -5) '(20 5) \"\")");
    const auto bytes = [&] { return first.drawing().toDxf(); };
    std::vector<std::string> states{bytes()};
    for (const char* command :
         {"(command \"_.TRIM\" \"\" '(7 0) '(22 0) \"\")", "(command \"_.EXTEND\" \"\" '(4 0) \"\")",
          "(command \"_.OFFSET\" 1 '(2 0) '(2 1) \"\")", "(command \"_.STRETCH\" \"_C\" '(-1 -1) '(1 2) \"\" '(0 0) '(-3 0))"}) {
        line.enter(command);
        states.push_back(bytes());
        EXPECT_NE(states.back(), states[states.size() - 2]) << command;
    }
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        line.enter("U");
        ASSERT_EQ(bytes(), states[i]) << "undoing step " << i + 1;
    }
}

TEST_F(ModifyInput, EzdxfReadsTheSameGeometryAsOurReader) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    draw("(command \"_.-LAYER\" \"_Make\" \"Wand\" \"_Color\" \"3\" \"Wand\" \"\")");
    lineFrom(0, 0, 10, 0);
    lineFrom(3, -5, 3, 5);
    lineFrom(7, -5, 7, 5);
    lineFrom(15, 0, 25, 0);
    draw("(command \"_.CIRCLE\" '(20 0) 3)");
    lineFrom(0, 20, 5, 20);
    lineFrom(8, 15, 8, 25);
    draw("(command \"_.RECTANG\" '(40 0) '(44 2))");
    draw("(command \"_.TRIM\" \"\" '(5 0) '(20 3) \"\")");
    draw("(command \"_.EXTEND\" \"\" '(4 20) \"\")");
    draw("(command \"_.OFFSET\" 1 '(40 1) '(50 1) '(15 0) '(15 5) \"\")");
    draw("(command \"_.STRETCH\" \"_C\" '(43 -5) '(50 5) \"\" '(0 0) '(1 0))");
    EXPECT_NE(now().find("LINE Wand 0 20 8 20\n"), std::string::npos) << now();
    const ardo::test::TempFolder folder;
    const std::string saved = folder.file("modified.dxf");
    const ardo::Status written = first.drawing().save(saved);
    ASSERT_TRUE(written) << written.error();
    auto reread = Drawing::open(saved);
    ASSERT_TRUE(reread) << reread.error();
    const std::string ours = describe(reread.value());
    EXPECT_EQ(ours, now());
    EXPECT_EQ(ardo::test::runPython(*python, kEzdxfDescription, {saved}).output, ours);
    EXPECT_NE(ours.find("ARC Wand 20 0 3 180 0\n"), std::string::npos) << ours;
}

}  // namespace
}  // namespace cadhost::test
