// BLOCK, INSERT, EXPLODE and HATCH through (command ...), a drawing file found on the
// support path, and each command taken back by one undo step.
#include <filesystem>

#include "AppTestSupport.h"
#include "cadhost/app/CommandLine.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

TEST_F(HostTest, BlocksAndHatchesFromLispAreUndoneInOneStep) {
    // Each line entered is one undo step, as at the prompt.
    CommandLine line{host};
    const auto enter = [&](const char* expression) {
        output.clear();
        line.enter(expression);
        EXPECT_EQ(output.find("; error"), std::string::npos) << expression << "\n" << output;
    };
    enter("(command \"_.LINE\" '(0 0) '(4 0) \"\")");
    enter("(command \"_.CIRCLE\" '(2 2) 1)");
    enter("(command \"_.-BLOCK\" \"Zeichen\" '(2 0) (ssget \"_X\") \"\")");
    EXPECT_EQ(run("(ssget \"_X\")"), "nil");
    EXPECT_TRUE(first.drawing().hasBlock("Zeichen"));

    enter("(command \"_.INSERT\" \"Zeichen\" '(10 10 0) 1 1 0)");
    EXPECT_EQ(run("(cdr (assoc 2 (entget (entlast))))"), "\"Zeichen\"");
    EXPECT_EQ(run("(cdr (assoc 10 (entget (entlast))))"), "(10.0 10.0 0.0)");

    enter("(command \"_.EXPLODE\" (entlast) \"\")");
    EXPECT_EQ(run("(mapcar '(lambda (e) (cdr (assoc 0 (entget e)))) (list (entnext) (entnext (entnext))))"),
              "(\"LINE\" \"CIRCLE\")");
    EXPECT_EQ(run("(cdr (assoc 10 (entget (entlast))))"), "(10.0 12.0 0.0)");

    enter("(command \"_.-HATCH\" \"_P\" \"_S\" \"_S\" (entlast) \"\" \"\")");
    EXPECT_EQ(run("(cdr (assoc 0 (entget (entlast))))"), "\"HATCH\"");

    // Each command is one step back: the hatch, the explode, the insert, then the block.
    enter("(command \"_.UNDO\" 1)");
    EXPECT_EQ(run("(cdr (assoc 0 (entget (entlast))))"), "\"CIRCLE\"");
    enter("(command \"_.UNDO\" 1)");
    EXPECT_EQ(run("(cdr (assoc 0 (entget (entlast))))"), "\"INSERT\"");
    enter("(command \"_.UNDO\" 1)");
    EXPECT_EQ(run("(entlast)"), "nil");
    EXPECT_TRUE(first.drawing().hasBlock("Zeichen"));
    enter("(command \"_.UNDO\" 1)");
    EXPECT_FALSE(first.drawing().hasBlock("Zeichen"));
    EXPECT_EQ(run("(sslength (ssget \"_X\"))"), "2");
}

TEST_F(HostTest, InsertFindsADrawingOnTheSupportPath) {
    const ardo::test::TempFolder folder;
    {
        Drawing symbol;
        ASSERT_TRUE(symbol.makeEntity({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "1"}}));
        ASSERT_TRUE(symbol.save(folder.file("Pfeil.dxf")));
    }
    EXPECT_EQ(run("(command \"_.INSERT\" \"Pfeil\" '(1 2) 1 1 0)"), "nil");
    EXPECT_NE(output.find("\"Pfeil.dxf\": Can't find file in search path."), std::string::npos) << output;
    run("(command)");   // the command waits at the name prompt; cancel it
    host.setSupportPath({folder.path()});
    EXPECT_EQ(run("(command \"_.INSERT\" \"Pfeil\" '(1 2) 1 1 0)"), "nil");
    EXPECT_EQ(run("(cdr (assoc 2 (entget (entlast))))"), "\"Pfeil\"");
}

}  // namespace
}  // namespace cadhost::test
