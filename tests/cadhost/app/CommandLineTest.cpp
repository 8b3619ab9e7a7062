#include "AppTestSupport.h"

#include "cadhost/app/CommandLine.h"

namespace cadhost::test {
namespace {

class CommandLineInput : public HostTest {
protected:
    CommandLine line{host};
};

TEST(ExpressionComplete, CountsParenthesesOutsideStringsAndComments) {
    EXPECT_TRUE(expressionComplete("(+ 1 2)"));
    EXPECT_FALSE(expressionComplete("(defun f ()"));
    EXPECT_TRUE(expressionComplete("(princ \"(\")"));
    EXPECT_FALSE(expressionComplete("(princ \"a\\\")"));   // the escaped quote leaves the string open
    EXPECT_TRUE(expressionComplete("(princ \"a\\\\\")"));
    EXPECT_TRUE(expressionComplete("(+ 1 2) ; (comment"));
    EXPECT_FALSE(expressionComplete("(+ 1 ;| ) |; 2"));
    EXPECT_TRUE(expressionComplete("(+ 1 ;| ( |; 2)"));
    EXPECT_FALSE(expressionComplete("(+ 1 ;| open"));
}

TEST_F(CommandLineInput, ExpressionsPrintTheirValueAndMayStretchOverLines) {
    line.enter("(setq a 41)");
    line.enter("(defun c:bump ()");
    EXPECT_EQ(line.prompt(), "");
    line.enter("  (setq a (1+ a))");
    line.enter("  (princ))");
    EXPECT_EQ(line.prompt(), "Command: ");
    line.enter("bump");
    line.enter("!a");
    line.enter("(princ)");
    EXPECT_EQ(output, "41\nC:BUMP\n42\n");
}

TEST_F(CommandLineInput, ErrorsAreReportedAndThePromptGoesOn) {
    line.enter("(car 1)");
    line.enter("(+ 1 2)");
    line.enter("NOSUCHCMD now");
    EXPECT_EQ(output,
              "; error: bad argument type: consp 1\n3\n"
              "Unknown command \"NOSUCHCMD\".  Press F1 for help.\n");
    line.enter("(princ \"open");
    line.finish();
    EXPECT_NE(output.find("; error: malformed list on input\n"), std::string::npos);
    EXPECT_EQ(line.prompt(), "Command: ");
}

TEST_F(CommandLineInput, QueuedExpressionsRunAfterEachLine) {
    host.queueExpr("(setq queued 1)");
    line.enter("(princ)");
    EXPECT_EQ(host.lisp().evaluate("queued").printed, "1");
}

TEST_F(CommandLineInput, QuitEndsFromLispAndAsACommand) {
    line.enter("(progn (setq before 1) (quit) (setq after 1))");
    EXPECT_TRUE(line.quitRequested());
    EXPECT_EQ(output, "");   // no error is shown for a quit
    EXPECT_EQ(host.lisp().evaluate("(list before after)").printed, "(1 nil)");

    ConsoleInterface quiet{[](std::string_view) {}};
    Application fresh{quiet};
    fresh.addDocument(Drawing(), false);
    CommandLine typed{fresh};
    typed.enter("quit");
    EXPECT_TRUE(typed.quitRequested());
}

}  // namespace
}  // namespace cadhost::test
