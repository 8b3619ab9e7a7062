// The editing commands typed and through (command ...), checked on the drawing and on the
// saved file as ezdxf reads it.
#include "AppTestSupport.h"

#include "cadhost/app/CommandLine.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

class EditInput : public HostTest {
protected:
    CommandLine line{host};
    void enter(std::initializer_list<const char*> lines) {
        for (const char* l : lines) line.enter(l);
    }
    // Group values of the entity as the prompt prints them.
    std::string group(const std::string& entity, int code) {
        return run("(cdr (assoc " + std::to_string(code) + " (entget " + entity + ")))");
    }
    std::size_t count() { return static_cast<std::size_t>(std::stoi(run("(sslength (ssget \"_X\"))"))); }
};

TEST_F(EditInput, MoveCopyRotateScaleAndMirrorTypedAndFromLisp) {
    run("(command \"_.LINE\" '(0 0) '(10 0) \"\")");
    run("(setq l (entlast))");
    run("(command \"_.CIRCLE\" '(5 5) 2)");
    run("(setq c (entlast))");
    enter({"MOVE", "(ssadd c (ssadd l))", "", "0,0", "3,4"});
    EXPECT_EQ(group("l", 10), "(3.0 4.0 0.0)");
    EXPECT_EQ(group("c", 10), "(8.0 9.0 0.0)");
    // Displacement given at once: the first point is the displacement.
    run("(command \"_.MOVE\" c \"\" \"-8,-9\" \"\")");
    EXPECT_EQ(group("c", 10), "(0.0 0.0 0.0)");
    enter({"COPY", "(ssadd l)", "", "0,0", "0,10", "0,20", "_Undo", "0,30", ""});
    EXPECT_EQ(count(), 4u);   // two copies: 0,10 and 0,30
    EXPECT_EQ(group("(entlast)", 10), "(3.0 34.0 0.0)");
    run("(command \"_.ROTATE\" l \"\" '(3 4) 90)");
    EXPECT_EQ(group("l", 11), "(3.0 14.0 0.0)");
    enter({"SCALE", "(ssadd c)", "", "0,0", "2.5"});
    EXPECT_EQ(group("c", 40), "5.0");
    enter({"SCALE", "(ssadd c)", "", "0,0", "_Reference", "5", "1"});
    EXPECT_EQ(group("c", 40), "1.0");
    run("(entmake (list '(0 . \"ARC\") '(10 0 0 0) '(40 . 1.0) '(50 . 0.0) (cons 51 (/ pi 2))))");
    run("(setq a (entlast))");
    enter({"MIRROR", "(ssadd a)", "", "0,0", "0,1", "_Yes"});
    // Mirrored in the y axis, the quarter arc from 0 to 90 degrees runs from 90 to 180;
    // LISP reads the angles in radians.
    EXPECT_EQ(run("(mapcar '(lambda (g) (angtos (cdr (assoc g (entget a))) 0 4)) '(50 51))"), "(\"90.0000\" \"180.0000\")");
    const std::size_t before = count();
    enter({"MIRROR", "(ssadd a)", "", "0,0", "1,0", ""});
    EXPECT_EQ(count(), before + 1);   // the original stays by default
}

TEST_F(EditInput, BadInputAtEachPromptIsRefusedAndAskedAgain) {
    run("(command \"_.CIRCLE\" '(0 0) 1)");
    output.clear();
    enter({"MOVE", "L", "", "nowhere", "0,0", "a,b", "1,0"});
    EXPECT_NE(output.find("Point or option keyword required."), std::string::npos) << output;
    EXPECT_NE(output.find("Invalid point."), std::string::npos) << output;
    EXPECT_EQ(group("(entlast)", 10), "(1.0 0.0 0.0)");
    output.clear();
    enter({"SCALE", "L", "", "0,0", "0", "-2", "x", "2"});
    EXPECT_NE(output.find("Value must be positive and nonzero."), std::string::npos) << output;
    EXPECT_NE(output.find("Requires numeric distance, second point, or option keyword."), std::string::npos);
    EXPECT_EQ(group("(entlast)", 40), "2.0");
    output.clear();
    enter({"ROTATE", "L", "", "0,0", "north", "90"});
    EXPECT_NE(output.find("Requires valid numeric angle or second point."), std::string::npos);
    output.clear();
    enter({"CHPROP", "L", "", "Size", "_LAyer", "Nowhere", "0", ""});
    EXPECT_NE(output.find("Invalid option keyword."), std::string::npos);
    EXPECT_NE(output.find("Cannot find layer \"Nowhere\"."), std::string::npos);
    EXPECT_EQ(line.prompt(), "Command: ");
}

TEST_F(EditInput, LockedLayersAreLeftAloneAndCounted) {
    run("(command \"_.-LAYER\" \"_New\" \"Fest\" \"_LOck\" \"Fest\" \"\")");
    run("(entmake '((0 . \"LINE\") (8 . \"Fest\") (10 0 0) (11 1 0)))");
    run("(setq fest (entlast))");
    run("(command \"_.LINE\" '(0 0) '(0 1) \"\")");
    output.clear();
    run("(command \"_.MOVE\" (ssget \"_X\") \"\" '(0 0) '(5 5))");
    EXPECT_NE(output.find("1 was on a locked layer."), std::string::npos) << output;
    EXPECT_EQ(group("fest", 10), "(0.0 0.0 0.0)");
    EXPECT_EQ(group("(entlast)", 10), "(5.0 5.0 0.0)");
}

TEST_F(EditInput, PropertiesLayersAndMatchprop) {
    run("(command \"_.-LAYER\" \"_New\" \"Wand,Dach\" \"\")");
    run("(command \"_.LINE\" '(0 0) '(1 0) \"\")");
    run("(setq a (entlast))");
    run("(command \"_.LINE\" '(0 1) '(1 1) \"\")");
    run("(setq b (entlast))");
    enter({"CHPROP", "(ssadd a)", "", "_Color", "red", "_LAyer", "wand", "_LWeight", "0.5", "_ltScale", "2",
           "_Thickness", "3", ""});
    EXPECT_EQ(group("a", 62), "1");
    EXPECT_EQ(group("a", 8), "\"Wand\"");
    EXPECT_EQ(group("a", 370), "50");
    EXPECT_EQ(group("a", 48), "2.0");
    EXPECT_EQ(group("a", 39), "3.0");
    run("(command \"_.MATCHPROP\" a b \"\")");
    for (int code : {62, 8, 370, 48, 39}) EXPECT_EQ(group("b", code), group("a", code)) << code;
    run("(command \"_.CHPROP\" a \"\" \"_C\" \"BYLAYER\" \"\")");
    EXPECT_EQ(group("a", 62), "nil");
    // LAYMCUR takes the current layer from an object, LAYCUR moves objects onto it.
    run("(command \"_.LAYMCUR\" b)");
    EXPECT_EQ(run("(getvar \"CLAYER\")"), "\"Wand\"");
    run("(command \"_.CHPROP\" b \"\" \"_LA\" \"Dach\" \"\")");
    output.clear();
    enter({"LAYCUR", "(ssadd b (ssadd a))", ""});
    EXPECT_EQ(group("b", 8), "\"Wand\"");
    EXPECT_NE(output.find("1 object changed to layer \"Wand\" (the current layer)."), std::string::npos) << output;
}

TEST_F(EditInput, EzdxfReadsTheEditedDrawing) {
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    const ardo::test::TempFolder folder;
    const std::string saved = folder.file("edited.dxf");
    run("(command \"_.-LAYER\" \"_New\" \"Wand\" \"\")");
    run("(command \"_.LINE\" '(0 0) '(10 0) \"\")");
    run("(command \"_.CIRCLE\" '(5 5) 2)");
    run("(entmake (list '(0 . \"ARC\") '(10 0 0 0) '(40 . 1.0) '(50 . 0.0) (cons 51 (/ pi 2))))");
    run("(command \"_.ROTATE\" (ssget \"_X\") \"\" '(0 0) 90)");
    run("(command \"_.COPY\" (ssget \"_X\" '((0 . \"CIRCLE\"))) \"\" '(0 0) '(100 0) \"\")");
    run("(command \"_.MIRROR\" (ssget \"_X\" '((0 . \"ARC\"))) \"\" '(0 0) '(1 0) \"_Y\")");
    run("(command \"_.CHPROP\" (ssget \"_X\" '((0 . \"LINE\"))) \"\" \"_LA\" \"Wand\" \"_C\" \"3\" \"\")");
    const ardo::Status written = first.drawing().save(saved);
    ASSERT_TRUE(written) << written.error();
    const auto result = ardo::test::runPython(*python, R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
auditor = doc.audit()
print('errors', len(auditor.errors))
for e in doc.modelspace():
    t = e.dxftype()
    if t == 'LINE': print(t, e.dxf.layer, e.dxf.color, *(round(v, 6) + 0.0 for v in (*e.dxf.start, *e.dxf.end)))
    elif t == 'CIRCLE': print(t, *(round(v, 6) + 0.0 for v in (*e.dxf.center, e.dxf.radius)))
    elif t == 'ARC': print(t, *(round(v, 6) + 0.0 for v in (*e.dxf.center, e.dxf.radius, e.dxf.start_angle, e.dxf.end_angle)))
)", {saved});
    EXPECT_EQ(result.output, "errors 0\n"
                             "LINE Wand 3 0.0 0.0 0.0 0.0 10.0 0.0\n"
                             "CIRCLE -5.0 5.0 0.0 2.0\n"
                             "ARC 0.0 0.0 0.0 1.0 180.0 270.0\n"
                             "CIRCLE 95.0 5.0 0.0 2.0\n");
}

}  // namespace
}  // namespace cadhost::test
