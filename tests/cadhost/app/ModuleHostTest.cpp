#include "AppTestSupport.h"

#include "cadhost/lisp/Printer.h"

namespace cadhost::test {
namespace {

using ModuleHost = HostTest;

TEST_F(ModuleHost, LoadSendsInitThenLoadDrawingAndQueuedExpressionsRunWhenAsked) {
    loadTestModule();
    EXPECT_EQ(output, "testmod: init\ntestmod: load drawing\n");
    EXPECT_EQ(run("testmod-ready"), "nil");
    EXPECT_EQ(host.lisp().runQueuedExpressions(), 1u);
    EXPECT_EQ(run("testmod-ready"), "T");
    EXPECT_EQ(run("(arx)"), "(\"testmod.arx\")");
}

TEST_F(ModuleHost, RegFuncHandlerAnswersItsCodeAndChecksArguments) {
    loadTestModule();
    output.clear();
    EXPECT_EQ(run("(tm_add 1 2)"), "3");
    EXPECT_EQ(run("(tm_add 1 2.5)"), "3.5");
    EXPECT_EQ(run("(TM_ADD 40000 1)"), "40001");
    EXPECT_EQ(run("(tm_add \"a\" 1)"), "nil");
    EXPECT_EQ(run("(tm_add 1)"), "nil");
    EXPECT_EQ(output, "tm_add: numbers only\ntm_add: two numbers expected\n");
}

TEST_F(ModuleHost, InvokeMessageDeliversResultsOfEveryKind) {
    loadTestModule();
    EXPECT_EQ(run("(tm_result \"nil\")"), "nil");
    EXPECT_EQ(run("(tm_result \"t\")"), "T");
    EXPECT_EQ(run("(tm_result \"str\")"), "\"text\"");
    EXPECT_EQ(run("(tm_result \"int\")"), "42");
    EXPECT_EQ(run("(tm_result \"real\")"), "2.5");
    EXPECT_EQ(run("(tm_result \"list\")"), "(\"a\" 1 2.5 (\"b\"))");
    EXPECT_EQ(run("(tm_result \"code\")"), "1");
    EXPECT_EQ(run("(tm_result \"layer\")"), "\"0\"");
    // A void result prints nothing at the prompt.
    EXPECT_EQ(run("(tm_result \"void\")"), "");
    output.clear();
    host.lisp().topLevel("(tm_result \"void\") (tm_result \"int\")");
    EXPECT_EQ(output, "42\n");
}

TEST_F(ModuleHost, ArgumentsArriveAsTheHostsChainInOrder) {
    loadTestModule();
    EXPECT_EQ(run("(tm_result \"args\" 7 \"x\" 2.5 nil T '(\"p\" 1))"),
              "(\"args\" 7 \"x\" 2.5 nil T (\"p\" 1))");
    // A missing or wrong first argument is the module's to report; the result stays nil.
    output.clear();
    EXPECT_EQ(run("(tm_result 1)"), "nil");
    EXPECT_EQ(output, "tm_result: a kind is expected\n");
}

TEST_F(ModuleHost, UnloadSendsUnloadAndTheFunctionsAreGone) {
    loadTestModule();
    output.clear();
    EXPECT_EQ(run("(arxunload \"testmod\")"), "\"testmod\"");
    EXPECT_EQ(output, "testmod: unload\n");
    EXPECT_EQ(run("(tm_add 1 2)"), "ERR:no function definition: TM_ADD");
    EXPECT_EQ(run("(tm_result \"t\")"), "ERR:no function definition: TM_RESULT");
    EXPECT_EQ(run("(arx)"), "nil");
    EXPECT_EQ(run("(arxunload \"testmod\" 'gone)"), "GONE");
    EXPECT_EQ(run("(arxunload \"testmod\" '(1 2))"), "(1 2)");
    EXPECT_EQ(run("(arxunload \"testmod\")"), "ERR:ARXUNLOAD failed");
}

TEST_F(ModuleHost, QuitSendsPreQuitUnloadDrawingAndQuitThenUnloads) {
    loadTestModule();
    output.clear();
    host.modules().quit();
    EXPECT_EQ(output, "testmod: pre-quit\ntestmod: unload drawing\ntestmod: quit\n");
    EXPECT_TRUE(host.modules().appNames().empty());
    EXPECT_EQ(run("(tm_add 1 2)"), "ERR:no function definition: TM_ADD");
}

TEST_F(ModuleHost, ModulesThatCannotBeLoadedAreRefusedWithAReason) {
    auto missing = host.modules().load("no-such-module.arx");
    ASSERT_FALSE(missing);
    EXPECT_NE(missing.error().find("no such file"), std::string::npos) << missing.error();
    auto notLibrary = host.modules().load(ARDO_TEST_DATA "/app/not-a-module.arx");
    ASSERT_FALSE(notLibrary);
    EXPECT_NE(notLibrary.error().find("shared library"), std::string::npos) << notLibrary.error();
    auto noEntry = host.modules().load(ARDO_TEST_NOENTRY);
    ASSERT_FALSE(noEntry);
    EXPECT_NE(noEntry.error().find("no entry point acrxEntryPoint"), std::string::npos) << noEntry.error();
    EXPECT_TRUE(host.modules().appNames().empty());

    loadTestModule();
    auto twice = host.modules().load(ARDO_TEST_MODULE);
    ASSERT_FALSE(twice);
    EXPECT_NE(twice.error().find("already loaded"), std::string::npos) << twice.error();
}

TEST_F(ModuleHost, ArxloadFromLisp) {
    output.clear();
    EXPECT_EQ(run("(arxload \"no-such-module\")"), "ERR:ARXLOAD failed");
    EXPECT_NE(output.find("no-such-module.arx"), std::string::npos) << output;
    EXPECT_EQ(run("(arxload \"no-such-module\" 'failed)"), "FAILED");
    EXPECT_EQ(run("(arxload " + lisp::prin1String(lisp::Value::string(ARDO_TEST_MODULE)) + ")"),
              lisp::prin1String(lisp::Value::string(ARDO_TEST_MODULE)));
    EXPECT_EQ(run("(tm_add 2 2)"), "4");
    EXPECT_EQ(run("(arxload 1)"), "ERR:bad argument type: stringp 1");
}

TEST_F(ModuleHost, DocumentLockIsHeldOnceAndReleased) {
    loadTestModule();
    EXPECT_EQ(run("(tm_result \"lock\")"), "(T nil)");
    // The module unlocked once, so the document is free again.
    EXPECT_TRUE(host.lockDocument());
    EXPECT_FALSE(host.lockDocument());
    host.unlockDocument();
    EXPECT_TRUE(host.lockDocument());
}

}  // namespace
}  // namespace cadhost::test
