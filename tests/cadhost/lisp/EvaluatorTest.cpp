#include "TestHost.h"

namespace cadhost::lisp::test {
namespace {

using Evaluator = LispTest;

TEST_F(Evaluator, SpecialFormsControlFlow) {
    EXPECT_EQ(run("(setq a 1 b (+ a 1)) (list a b)"), "(1 2)");
    EXPECT_EQ(run("(if (> a 0) \"pos\" \"neg\")"), "\"pos\"");
    EXPECT_EQ(run("(if nil 1)"), "nil");
    EXPECT_EQ(run("(cond ((= a 2) 'two) ((= a 1) 'one) (T 'other))"), "ONE");
    EXPECT_EQ(run("(cond ((member 2 '(1 2 3))))"), "(2 3)");
    EXPECT_EQ(run("(setq i 0 s 0) (while (< i 5) (setq s (+ s i) i (1+ i)))"), "5");
    EXPECT_EQ(run("s"), "10");
    EXPECT_EQ(run("(setq n 0) (repeat 4 (setq n (+ n 2)))"), "8");
    EXPECT_EQ(run("(setq acc nil) (foreach x '(1 2 3) (setq acc (cons x acc)))"), "(3 2 1)");
    EXPECT_EQ(run("(progn 1 2 3)"), "3");
    EXPECT_EQ(run("(list (and 1 2) (and 1 nil) (or nil 2) (or nil nil) (and) (or))"), "(T nil T nil T nil)");
    EXPECT_EQ(run("(quote (a b)) (function car)"), "CAR");
    EXPECT_EQ(run("((lambda (x y) (* x y)) 6 7)"), "42");
}

TEST_F(Evaluator, DefunLocalsStartNilAndAreRestored) {
    EXPECT_EQ(run("(setq x 10 tmp \"outer\")"), "\"outer\"");
    EXPECT_EQ(run("(defun f (x / tmp) (setq seen tmp tmp (* x 2)) tmp)"), "F");
    EXPECT_EQ(run("(list (f 3) x tmp seen)"), "(6 10 \"outer\" nil)");
    // Errors unwind through the function and still restore the bindings.
    EXPECT_EQ(run("(defun g (x / tmp) (setq tmp 1) (car x)) (g 5)"), "ERR:bad argument type: consp 5");
    EXPECT_EQ(run("(list x tmp)"), "(10 \"outer\")");
    // Dynamic scope: a called function sees the caller's locals.
    EXPECT_EQ(run("(defun inner () depth) (defun outer (/ depth) (setq depth 3) (inner)) (outer)"), "3");
    EXPECT_EQ(run("(foreach x '(1 2) x) x"), "10");
}

TEST_F(Evaluator, ArgumentCountAndFunctionErrors) {
    EXPECT_EQ(run("(defun two (a b) (list a b)) (two 1)"), "ERR:too few arguments");
    EXPECT_EQ(run("(two 1 2 3)"), "ERR:too many arguments");
    EXPECT_EQ(run("(foo 1)"), "ERR:no function definition: FOO");
    EXPECT_EQ(run("(1 2)"), "ERR:bad function: 1");
    EXPECT_EQ(run("(car 1 2)"), "ERR:too many arguments");
    EXPECT_EQ(run("(if)"), "ERR:too few arguments");
    EXPECT_EQ(run("(setq 1 2)"), "ERR:bad argument type: symbolp 1");
    EXPECT_EQ(run("(+ 1 \"a\")"), "ERR:bad argument type: numberp: \"a\"");
    EXPECT_EQ(run("(strcat \"a\" 1)"), "ERR:bad argument type: stringp 1");
    EXPECT_EQ(run("(exit)"), "ERR:quit / exit abort");
}

TEST_F(Evaluator, ErrorsPrintOnTheCommandLineAndLeaveTheInterpreterUsable) {
    lisp.topLevel("(+ 1 \"a\")");
    EXPECT_EQ(host.output, "; error: bad argument type: numberp: \"a\"\n");
    host.output.clear();
    lisp.topLevel("(+ 1 2) (car");
    EXPECT_EQ(host.output, "3\n; error: malformed list on input\n");
    host.output.clear();
    lisp.topLevel("(setq z 5)");
    EXPECT_EQ(host.output, "5\n");
}

TEST_F(Evaluator, UserErrorHandlerGetsTheMessageWhileLocalsAreBound) {
    run("(defun *error* (msg) (setq caught msg seenLocal loc) (princ \"handled\"))");
    run("(defun c:work (/ loc) (setq loc \"inside\") (/ 1 0))");
    EXPECT_EQ(run("(c:work)"), "ERR:divide by zero");
    EXPECT_EQ(host.output, "handled");
    EXPECT_EQ(run("(list caught seenLocal loc)"), "(\"divide by zero\" \"inside\" nil)");
    // An error inside *error* falls back to the plain report and does not recurse.
    host.output.clear();
    run("(defun *error* (msg) (car 1))");
    EXPECT_EQ(run("(foo)"), "ERR:no function definition: FOO");
    EXPECT_EQ(host.output, "; error: bad argument type: consp 1\n");
}

TEST_F(Evaluator, CatchAllApplyTurnsErrorsIntoValues) {
    run("(defun *error* (msg) (princ \"handled\"))");
    run("(defun risky (a / loc) (setq loc 1) (/ a 0))");
    EXPECT_EQ(run("(setq r (vl-catch-all-apply 'risky '(1)))"), "#<%catch-all-apply-error%>");
    EXPECT_EQ(host.output, "");   // neither *error* nor the plain report
    EXPECT_EQ(run("(list (vl-catch-all-error-p r) (vl-catch-all-error-message r) (type r) loc)"),
              "(T \"divide by zero\" VL-CATCH-ALL-APPLY-ERROR nil)");
    EXPECT_EQ(run("(list (vl-catch-all-apply '+ '(1 2)) (vl-catch-all-apply (lambda (x) (* x x)) '(3)))"), "(3 9)");
    EXPECT_EQ(run("(vl-catch-all-error-p 3)"), "nil");
    EXPECT_EQ(run("(vl-catch-all-error-message 3)"), "ERR:bad argument type: vl-catch-all-apply-error-p 3");
    // Outside it, errors are reported again.
    host.output.clear();
    EXPECT_EQ(run("(risky 1)"), "ERR:divide by zero");
    EXPECT_EQ(host.output, "handled");
}

TEST_F(Evaluator, TopLevelPrintsValuesAsThePromptDoes) {
    lisp.topLevel("(princ \"hi\") (setq s \"a\\nb\") 1.5 '(1 \"x\" . 2) (princ) (defun f () 1)");
    EXPECT_EQ(host.output, "hi\"hi\"\n\"a\\nb\"\n1.5\n(1 \"x\" . 2)\nF\n");
}

TEST_F(Evaluator, EvaluateReturnsLastValueAndItsPrintedForm) {
    const EvalResult r = lisp.evaluate("(setq a 2) (* a 21)");
    ASSERT_TRUE(r.ok);
    EXPECT_EQ(r.value.asInt(), 42);
    EXPECT_EQ(r.printed, "42");
    const EvalResult quiet = lisp.evaluate("(princ)");
    EXPECT_TRUE(quiet.ok);
    EXPECT_EQ(quiet.printed, "");
}

TEST_F(Evaluator, RunawayRecursionEndsInAnError) {
    EXPECT_EQ(run("(defun down (n) (+ 1 (down n))) (down 1)"), "ERR:LISP stack overflow");
    EXPECT_EQ(run("(defun count (n) (if (= n 0) 0 (+ 1 (count (1- n))))) (count 500)"), "500");
}

TEST_F(Evaluator, CommandsAreDefunsNamedWithCPrefix) {
    run("(defun C:Hello () (princ \"hello\") (princ))");
    EXPECT_TRUE(lisp.isCommand("hello"));
    EXPECT_TRUE(lisp.isCommand("HELLO"));
    EXPECT_FALSE(lisp.isCommand("other"));
    run("(setq c:novalue 1)");
    EXPECT_FALSE(lisp.isCommand("novalue"));
    EXPECT_TRUE(lisp.runCommand("Hello"));
    EXPECT_EQ(host.output, "hello");
    EXPECT_FALSE(lisp.runCommand("other"));
}

TEST_F(Evaluator, QueuedExpressionsRunInOrder) {
    lisp.queueExpression("(setq q (list 1))");
    lisp.queueExpression("(setq q (cons 2 q))");
    EXPECT_EQ(run("q"), "nil");
    EXPECT_EQ(lisp.runQueuedExpressions(), 2u);
    EXPECT_EQ(run("q"), "(2 1)");
    EXPECT_EQ(lisp.runQueuedExpressions(), 0u);
}

TEST_F(Evaluator, EvalApplyMapcarAndTypes) {
    EXPECT_EQ(run("(eval '(+ 1 2))"), "3");
    EXPECT_EQ(run("(apply '+ '(1 2 3))"), "6");
    EXPECT_EQ(run("(apply (function (lambda (a b) (- a b))) '(5 3))"), "2");
    EXPECT_EQ(run("(mapcar '1+ '(1 2 3))"), "(2 3 4)");
    EXPECT_EQ(run("(mapcar '(lambda (a b) (+ a b)) '(1 2 3) '(10 20))"), "(11 22)");
    EXPECT_EQ(run("(mapcar 'strcase '(\"a\" \"b\"))"), "(\"A\" \"B\")");
    EXPECT_EQ(run("(defun f () 1) (mapcar 'type (list 1 1.0 \"s\" 'a '(1) car f nil))"),
              "(INT REAL STR SYM LIST SUBR USUBR nil)");
    EXPECT_EQ(run("(list (boundp 'f) (boundp 'unbound-thing))"), "(T nil)");
}

}  // namespace
}  // namespace cadhost::lisp::test

namespace cadhost::lisp::test {
namespace {

TEST_F(Evaluator, DeepDataIsFreedAndPrintedWithoutCrashing) {
    EXPECT_EQ(run("(setq deep nil) (repeat 200000 (setq deep (list deep))) (length deep)"), "1");
    EXPECT_EQ(run("(princ deep)"), "ERR:LISP stack overflow");
    EXPECT_EQ(run("(setq deep nil long nil) (repeat 300000 (setq long (cons 1 long))) (length long)"), "300000");
    EXPECT_EQ(run("(setq long nil)"), "nil");
}

}  // namespace
}  // namespace cadhost::lisp::test
