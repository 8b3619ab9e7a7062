#include <string>
#include <vector>

#include "TestHost.h"

namespace cadhost::lisp::test {
namespace {

using ardo::ResBuf;
using ardo::ResBufChain;

class ExternalFunctions : public LispTest {
protected:
    ResBufChain lastArgs;
    int lastCode = -1;
    ResBufChain reply;

    void SetUp() override {
        lisp.defineExternal("kemb_newlayer", 10, [this](int code, const ResBufChain& args) {
            lastCode = code;
            lastArgs = args;
            return reply;
        });
    }
};

TEST_F(ExternalFunctions, ArgumentsArriveAsTheHostsChain) {
    reply = {ResBuf::marker(ardo::RTNIL)};
    EXPECT_EQ(run("(KEMB_NEWLAYER \"cmd\" 5 70000 2.5 nil T '(1 2 3) '(\"a\" (8 . \"0\")) '(1 2 . 3))"), "nil");
    EXPECT_EQ(lastCode, 10);
    const ResBufChain expected = {
        ResBuf::str("cmd"), ResBuf::shortInt(5), ResBuf::longInt(70000), ResBuf::realNum(2.5),
        ResBuf::marker(ardo::RTNIL), ResBuf::marker(ardo::RTT), ResBuf::point3({1, 2, 3}),
        ResBuf::marker(ardo::RTLB), ResBuf::str("a"), ResBuf::marker(ardo::RTLB), ResBuf::shortInt(8),
        ResBuf::marker(ardo::RTDOTE), ResBuf::str("0"), ResBuf::marker(ardo::RTLE), ResBuf::marker(ardo::RTLE),
        ResBuf::marker(ardo::RTLB), ResBuf::shortInt(1), ResBuf::shortInt(2), ResBuf::marker(ardo::RTDOTE),
        ResBuf::shortInt(3), ResBuf::marker(ardo::RTLE)};
    EXPECT_EQ(lastArgs, expected);
    EXPECT_EQ(run("(kemb_newlayer)"), "nil");
    EXPECT_TRUE(lastArgs.empty());
}

// A function that runs LISP calling another external function, as module handlers do:
// each call keeps its own arguments, before and after the inner call, also when it fails.
TEST_F(ExternalFunctions, NestedCallsKeepTheirOwnArguments) {
    std::vector<std::string> seen;
    lisp.defineExternal("outer", 11, [&](int, const ResBufChain& args) {
        seen.push_back(args.at(0).text);
        lisp.evaluate("(kemb_newlayer \"inner\" 1 2)");
        lisp.evaluate("(kemb_newlayer (/ 1 0))");
        seen.push_back(args.at(0).text + "/" + std::to_string(args.size()));
        return ResBufChain{ResBuf::str(args.at(0).text)};
    });
    reply = {ResBuf::marker(ardo::RTNIL)};
    EXPECT_EQ(run("(outer \"first\" 7)"), "\"first\"");
    EXPECT_EQ(lastArgs, (ResBufChain{ResBuf::str("inner"), ResBuf::shortInt(1), ResBuf::shortInt(2)}));
    EXPECT_EQ(run("(list (outer \"second\") (kemb_newlayer \"after\"))"), "(\"second\" nil)");
    EXPECT_EQ(lastArgs, ResBufChain{ResBuf::str("after")});
    EXPECT_EQ(seen, (std::vector<std::string>{"first", "first/2", "second", "second/1"}));
}

TEST_F(ExternalFunctions, ResultChainsBecomeLispValues) {
    reply = {ResBuf::str("Wand")};
    EXPECT_EQ(run("(kemb_newlayer)"), "\"Wand\"");
    reply = {ResBuf::shortInt(36)};
    EXPECT_EQ(run("(kemb_newlayer)"), "36");
    reply = {ResBuf::marker(ardo::RTT)};
    EXPECT_EQ(run("(kemb_newlayer)"), "T");
    reply = {ResBuf::marker(ardo::RTVOID)};
    EXPECT_EQ(lisp.evaluate("(kemb_newlayer)").printed, "");
    reply = {ResBuf::marker(ardo::RTLB), ResBuf::shortInt(5), ResBuf::str("Wand"), ResBuf::marker(ardo::RTLB),
             ResBuf::shortInt(62), ResBuf::marker(ardo::RTDOTE), ResBuf::shortInt(1), ResBuf::marker(ardo::RTLE),
             ResBuf::realNum(0.25), ResBuf::marker(ardo::RTLE)};
    EXPECT_EQ(run("(kemb_newlayer)"), "(5 \"Wand\" (62 . 1) 0.25)");
    reply = {ResBuf::str("a"), ResBuf::str("b")};
    EXPECT_EQ(run("(kemb_newlayer)"), "(\"a\" \"b\")");
    reply = {};
    EXPECT_EQ(run("(kemb_newlayer)"), "nil");
    reply = {ResBuf::marker(ardo::RTLB), ResBuf::shortInt(1)};
    EXPECT_EQ(run("(kemb_newlayer)"),
              "ERR:bad result list from an external function: unbalanced RTLB/RTLE or RTDOTE");
}

TEST_F(ExternalFunctions, NamesAreCaseInsensitiveAndCanBeUndefined) {
    reply = {ResBuf::marker(ardo::RTT)};
    EXPECT_EQ(run("(type Kemb_NewLayer)"), "EXRXSUBR");
    EXPECT_EQ(run("(mapcar 'kemb_newlayer '(\"a\"))"), "(T)");
    EXPECT_TRUE(lisp.undefineExternal("KEMB_NEWLAYER"));
    EXPECT_FALSE(lisp.undefineExternal("kemb_newlayer"));
    EXPECT_EQ(run("(kemb_newlayer)"), "ERR:no function definition: KEMB_NEWLAYER");
}

TEST_F(ExternalFunctions, HostExceptionsBecomeLispErrors) {
    lisp.defineExternal("kemb_broken", 11, [](int, const ResBufChain&) -> ResBufChain {
        throw std::runtime_error("central layer file missing");
    });
    EXPECT_EQ(run("(kemb_broken)"), "ERR:KEMB_BROKEN failed: central layer file missing");
    EXPECT_EQ(run("(+ 1 1)"), "2");
}

}  // namespace
}  // namespace cadhost::lisp::test
