// entmod, entdel, entupd and handent on the drawing, and the point, distance and angle
// functions as the AutoLISP reference gives their results.
#include "AppTestSupport.h"

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
