// ZOOM and PAN from LISP and scripts in the console: there is no view, so they take their
// input as in the window and change nothing, and a program that zooms runs unchanged.
#include "AppTestSupport.h"

namespace cadhost::test {
namespace {

TEST_F(HostTest, ZoomAndPanAreTakenWithoutAView) {
    EXPECT_EQ(run("(command \"_.ZOOM\" \"_E\")"), "nil");
    EXPECT_EQ(run("(command \"ZOOM\" \"_W\" '(0 0) '(10 5))"), "nil");
    EXPECT_EQ(run("(command \"_.ZOOM\" \"_C\" '(5 5) 20)"), "nil");
    EXPECT_EQ(run("(command \"_.ZOOM\" \"_C\" '(5 5) \"2X\")"), "nil");
    EXPECT_EQ(run("(command \"_.ZOOM\" \"_P\")"), "nil");
    EXPECT_EQ(run("(command \"_.ZOOM\" \"2X\")"), "nil");
    EXPECT_EQ(run("(command \"_.ZOOM\" 0.5)"), "nil");
    EXPECT_EQ(run("(command \"_.PAN\" '(0 0) '(3 4))"), "nil");
    EXPECT_EQ(run("(command \"_.PAN\" \"1,1\" \"\")"), "nil");
    // Each one ended: nothing waits for more input, and nothing complained.
    EXPECT_EQ(run("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(output.find("Requires"), std::string::npos) << output;
    EXPECT_EQ(output.find("Invalid"), std::string::npos) << output;
    EXPECT_EQ(output.find("Unknown command"), std::string::npos) << output;

    // Input the command cannot take is refused as typed input is; it asks again.
    EXPECT_EQ(run("(command \"_.ZOOM\" \"0X\")"), "nil");
    EXPECT_NE(output.find("Requires a positive scale factor."), std::string::npos) << output;
    EXPECT_EQ(run("(getvar \"CMDACTIVE\")"), "1");
    EXPECT_EQ(run("(command \"_E\")"), "nil");
    EXPECT_EQ(run("(getvar \"CMDACTIVE\")"), "0");
    // A script's lines drive them the same way.
    EXPECT_EQ(run("(command \"ZOOM\" \"W\" \"0,0\" \"10,10\" \"PAN\" \"0,0\" \"1,1\")"), "nil");
    EXPECT_EQ(run("(getvar \"CMDACTIVE\")"), "0");
}

}  // namespace
}  // namespace cadhost::test
