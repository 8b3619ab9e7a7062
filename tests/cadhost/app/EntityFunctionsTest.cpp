// entmod, entdel, entupd and handent on the drawing, and the point, distance and angle
// functions as the AutoLISP reference gives their results.
#include "AppTestSupport.h"

#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

TEST_F(HostTest, EntmodChangesTheEntityAndRefusesWhatTheDrawingCannotTake) {
    run("(entmake '((0 . \"LINE\") (10 0 0 0) (11 1 0 0)))");
    run("(setq e (entlast) d (entget e))");
    EXPECT_EQ(run("(entmod (subst '(10 5.0 6.0 0.0) (assoc 10 d) d))") != "nil", true);
    EXPECT_EQ(run("(cdr (assoc 10 (entget e)))"), "(5.0 6.0 0.0)");
    // The handle stays; an unknown layer or another type is refused and changes nothing.
    EXPECT_EQ(run("(equal (assoc 5 (entget e)) (assoc 5 d))"), "T");
    EXPECT_EQ(run("(entmod (subst '(8 . \"Nowhere\") (assoc 8 d) d))"), "nil");
    EXPECT_EQ(run("(entmod (subst '(0 . \"CIRCLE\") (assoc 0 d) d))"), "nil");
    EXPECT_EQ(run("(cdr (assoc 8 (entget e)))"), "\"0\"");
    EXPECT_EQ(run("(entmod '((8 . \"0\")))").substr(0, 4), "ERR:");
    EXPECT_EQ(run("(entupd e)"), run("e"));
}

// The file holds angles in degrees; LISP lists hold them in radians, both ways.
TEST_F(HostTest, AngleGroupsAreRadiansInLispAndDegreesInTheFile) {
    run("(entmake (list '(0 . \"ARC\") '(10 0 0 0) '(40 . 1.0) (cons 50 (/ pi 2)) (cons 51 pi)))");
    run("(setq a (entlast))");
    const auto groupInFile = [&](const std::string& entity, int code) {
        const auto tags = first.drawing().entityTags(static_cast<Handle>(std::stoll(run("(cdr (assoc 5 (entget " + entity + ")))").substr(1), nullptr, 16)));
        for (const EntityTag& t : tags)
            if (t.code == code) return t.value;
        return std::string("absent");
    };
    EXPECT_EQ(groupInFile("a", 50), "90.0");
    EXPECT_EQ(groupInFile("a", 51), "180.0");
    EXPECT_EQ(run("(equal (cdr (assoc 51 (entget a))) pi 1e-12)"), "T");
    run("(command \"_.TEXT\" '(0 0) 2.5 45 \"Wand\")");
    run("(setq t1 (entlast))");
    EXPECT_EQ(run("(equal (cdr (assoc 50 (entget t1))) (/ pi 4) 1e-12)"), "T");
    run("(setq d (entget t1))");
    run("(entmod (subst (cons 50 (* 1.5 pi)) (assoc 50 d) d))");
    EXPECT_EQ(groupInFile("t1", 50), "270.0");
    // An entity's list read and written back unchanged changes nothing in the file.
    run("(setq d (entget a))");
    run("(entmod d)");
    EXPECT_EQ(groupInFile("a", 51), "180.0");
}

TEST_F(HostTest, ExtendedDataByApplicationName) {
    EXPECT_NE(run("(entmake '((0 . \"LINE\") (10 0 0 0) (11 1 0 0) (-3 (\"ARDO\" (1000 . \"Wand\") (1070 . 3)"
                  " (1040 . 2.5) (1010 1.0 2.0 3.0)) (\"OTHER\" (1000 . \"x\")))))"),
              "nil");
    run("(setq e (entlast))");
    EXPECT_EQ(run("(assoc -3 (entget e))"), "nil");   // only when asked for
    EXPECT_EQ(run("(assoc -3 (entget e '(\"ARDO\")))"),
              "(-3 (\"ARDO\" (1000 . \"Wand\") (1070 . 3) (1040 . 2.5) (1010 1.0 2.0 3.0)))");
    EXPECT_EQ(run("(mapcar 'car (cdr (assoc -3 (entget e '(\"*\")))))"), "(\"ARDO\" \"OTHER\")");
    EXPECT_EQ(run("(mapcar 'car (cdr (assoc -3 (entget e '(\"oth*\" \"NONE\")))))"), "(\"OTHER\")");
    EXPECT_EQ(run("(assoc -3 (entget e '(\"NONE\")))"), "nil");
    // entmod replaces the data of the applications it names; the others' stays.
    run("(setq d (entget e '(\"ARDO\")))");
    EXPECT_NE(run("(entmod (subst '(-3 (\"ARDO\" (1000 . \"Dach\"))) (assoc -3 d) d))"), "nil");
    EXPECT_EQ(run("(cdr (assoc -3 (entget e '(\"*\"))))"), "((\"ARDO\" (1000 . \"Dach\")) (\"OTHER\" (1000 . \"x\")))");
    // A new application gets its APPID record, which ezdxf reads with the data.
    run("(entmod (append (entget e) '((-3 (\"NEUAPP\" (1000 . \"n\"))))))");
    const auto python = ardo::test::pythonWithEzdxf();
    if (!python) GTEST_SKIP() << ardo::test::kNoEzdxf;
    const ardo::test::TempFolder folder;
    const std::string saved = folder.file("xdata.dxf");
    ASSERT_TRUE(first.drawing().save(saved));
    const auto result = ardo::test::runPython(*python, R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
print(doc.audit().has_errors, [a in doc.appids for a in ('ARDO', 'OTHER', 'NEUAPP')])
line = doc.modelspace().query('LINE')[0]
print([tuple(line.get_xdata(a)) for a in ('ARDO', 'NEUAPP')])
)", {saved});
    EXPECT_EQ(result.output, "False [True, True, True]\n[(DXFTag(1000, 'Dach'),), (DXFTag(1000, 'n'),)]\n");
}

TEST_F(HostTest, EntdelTogglesAndHandentFindsByHandle) {
    run("(entmake '((0 . \"CIRCLE\") (10 0 0 0) (40 . 2.0)))");
    run("(setq e (entlast) h (cdr (assoc 5 (entget e))))");
    EXPECT_EQ(run("(equal (handent h) e)"), "T");
    EXPECT_EQ(run("(entdel e)"), run("e"));
    EXPECT_EQ(run("(entget e)"), "nil");
    EXPECT_EQ(run("(entlast)"), "nil");
    EXPECT_EQ(run("(equal (handent h) e)"), "T");   // an erased entity keeps its handle
    EXPECT_EQ(run("(entdel e)"), run("e"));        // and comes back
    EXPECT_EQ(run("(cdr (assoc 40 (entget e)))"), "2.0");
    EXPECT_EQ(run("(equal (entlast) e)"), "T");
    EXPECT_EQ(run("(handent \"FFFFF\")"), "nil");
}

TEST_F(HostTest, PointsDistancesAndAngles) {
    EXPECT_EQ(run("(distance '(1 2) '(4 6))"), "5.0");
    EXPECT_EQ(run("(distance '(0 0 0) '(0 0 3))"), "3.0");
    EXPECT_EQ(run("(distance '(0 0) '(0 0 3))"), "0.0");   // a 2D point measures in the plane
    EXPECT_EQ(run("(angle '(1 1) '(1 0))"), run("(* 1.5 pi)"));
    EXPECT_EQ(run("(polar '(1 1 2) (/ pi 2) 3)"), "(1.0 4.0 2.0)");
    EXPECT_EQ(run("(polar '(1 1) 0 3)"), "(4.0 1.0)");
    EXPECT_EQ(run("(inters '(0 0) '(2 2) '(0 2) '(2 0))"), "(1.0 1.0)");
    EXPECT_EQ(run("(inters '(0 0) '(1 1) '(0 4) '(4 0))"), "nil");
    EXPECT_EQ(run("(inters '(0 0) '(1 1) '(0 4) '(4 0) nil)"), "(2.0 2.0)");
    EXPECT_EQ(run("(inters '(0 0) '(1 0) '(0 1) '(1 1) nil)"), "nil");
    EXPECT_EQ(run("(trans '(1 2) 0 1)"), "(1.0 2.0 0.0)");
    EXPECT_EQ(run("(distance '(1) '(2 3))").substr(0, 4), "ERR:");
}

TEST_F(HostTest, AngtosModes) {
    EXPECT_EQ(run("(angtos (/ pi 4) 0 2)"), "\"45.00\"");
    EXPECT_EQ(run("(angtos (/ pi 4) 2 0)"), "\"50g\"");
    EXPECT_EQ(run("(angtos (/ pi 4) 3 4)"), "\"0.7854r\"");
    EXPECT_EQ(run("(angtos (* (/ 45.5 180) pi) 1 4)"), "\"45d30'0\\\"\"");
    EXPECT_EQ(run("(angtos (- (/ pi 4)) 0 0)"), "\"315\"");
    EXPECT_EQ(run("(angtos (/ pi 4) 4 0)"), "\"N 45d E\"");
}

}  // namespace
}  // namespace cadhost::test
