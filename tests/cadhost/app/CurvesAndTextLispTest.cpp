// PLINE, ARC, TEXT and MTEXT driven through (command ...), as the suite's modules draw.
#include "AppTestSupport.h"

namespace cadhost::test {
namespace {

TEST_F(HostTest, CommandDrawsPolylinesArcsAndTexts) {
    EXPECT_EQ(run("(command \"_.PLINE\" '(0 0) \"_A\" '(10 10) \"_L\" '(10 20) \"\")"), "nil");
    EXPECT_EQ(run("(cdr (assoc 0 (entget (entlast))))"), "\"LWPOLYLINE\"");
    EXPECT_EQ(run("(fix (* 1000 (cdr (assoc 42 (entget (entlast))))))"), "414");
    EXPECT_EQ(run("(command \"_.ARC\" \"_C\" '(0 0) '(5 0) \"_A\" 90)"), "nil");
    EXPECT_EQ(run("(mapcar '(lambda (g) (cdr (assoc g (entget (entlast))))) '(0 10 40))"),
              "(\"ARC\" (0.0 0.0 0.0) 5.0)");
    EXPECT_EQ(run("(command \"_.TEXT\" '(1 1) 2.5 30 \"Hallo Welt\")"), "nil");
    EXPECT_EQ(run("(mapcar '(lambda (g) (cdr (assoc g (entget (entlast))))) '(1 10 40))"),
              "(\"Hallo Welt\" (1.0 1.0 0.0) 2.5)");
    EXPECT_EQ(run("(command \"_.MTEXT\" '(0 0) '(10 -5) \"Eins\" \"Zwei\" \"\")"), "nil");
    EXPECT_EQ(run("(cdr (assoc 1 (entget (entlast))))"), "\"Eins\\\\PZwei\"");
    EXPECT_EQ(run("(getvar \"CMDACTIVE\")"), "0");
}

}  // namespace
}  // namespace cadhost::test
