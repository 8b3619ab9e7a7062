#include "module/lisp/CallFrame.h"

#include <gtest/gtest.h>

#include "module/HostBinding.h"
#include "messages/MessageFile.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

const ArgDecl kString{ArgKind::String};
const ResBufChain kNil{ResBuf::marker(RTNIL)};
const std::string kBadNum = "\nfalsche Anzahl Argumente";
const std::string kBadTyp = "\nfalscher Argumenttyp";
const std::string kBadValue = "\nunbrauchbarer Argumentwert";

ResBuf str(const char* s) { return ResBuf::str(s); }
ResBuf lb() { return ResBuf::marker(RTLB); }
ResBuf le() { return ResBuf::marker(RTLE); }

// Handlers of the shapes the module's LISP functions have.
int twoStrings() {
    CallFrame frame;
    if (frame.check({kString, kString})) host().retStr(frame.text(0) + "+" + frame.text(1));
    return RSRSLT;
}

int oneStringNoExtras() {
    CallFrame frame;
    if (frame.check({kString}, ExtraArgs::Reject)) host().retStr(frame.text(0));
    return RSRSLT;
}

int stringAndOptionalInteger() {
    CallFrame frame;
    if (frame.check({kString, {ArgKind::Integer, Presence::Optional}}))
        host().retInt(frame.has(1) ? int(frame.integer(1)) : -1);
    return RSRSLT;
}

int stringAndLenientInteger() {
    CallFrame frame;
    if (frame.check({kString, {ArgKind::Integer, Presence::OptionalLenient}}))
        host().retInt(frame.has(1) ? int(frame.integer(1)) : -1);
    return RSRSLT;
}

// Gives the node count of the list and the string after it.
int listThenString() {
    CallFrame frame;
    if (frame.check({{ArgKind::List}, kString}))
        host().retStr(std::to_string(frame.list(0).size()) + " " + frame.text(1));
    return RSRSLT;
}

int nonEmptyName() {
    CallFrame frame;
    if (!frame.check({kString})) return RSRSLT;
    if (frame.text(0).empty()) {
        frame.reportBadValue();
        return RSRSLT;
    }
    host().retStr(frame.text(0));
    return RSRSLT;
}

class CallFrameTest : public ::testing::Test {
protected:
    void SetUp() override { file.attach(SettingsStore::load(ARDO_TEST_DATA "/messages/ardo.msg")); }
    void TearDown() override { file.release(); }

    // Calls as the host does, without clearing what an earlier call returned.
    void callKeepingResult(LispHandler handler, ResBufChain args) {
        host.setArgs(std::move(args));
        EXPECT_EQ(handler(), RSRSLT);
    }

    test::ScriptedHost host;
    MessageFile& file = MessageFile::instance();
};

TEST_F(CallFrameTest, NoArgumentIsACountErrorNotATypeError) {
    host.call(twoStrings, {});
    EXPECT_EQ(host.printed, kBadNum);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(CallFrameTest, TooFewArgumentsOfTheWrongTypeAreStillACountError) {
    host.call(twoStrings, {ResBuf::shortInt(1)});
    EXPECT_EQ(host.printed, kBadNum);
}

TEST_F(CallFrameTest, OnlyTheFirstWrongTypeIsReportedOnce) {
    host.call(twoStrings, {str("a"), ResBuf::shortInt(2)});
    EXPECT_EQ(host.printed, kBadTyp);
    host.clearOutput();
    host.call(twoStrings, {ResBuf::realNum(1.0), ResBuf::shortInt(2)});
    EXPECT_EQ(host.printed, kBadTyp);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(CallFrameTest, ExtraArgumentsAreIgnoredUnchecked) {
    host.call(twoStrings, {str("a"), str("b"), ResBuf::shortInt(3), lb(), le()});
    EXPECT_EQ(host.result, ResBufChain{str("a+b")});
    EXPECT_TRUE(host.printed.empty());
}

TEST_F(CallFrameTest, AHandlerThatRejectsExtraArgumentsReportsACountError) {
    host.call(oneStringNoExtras, {str("a")});
    EXPECT_EQ(host.result, ResBufChain{str("a")});
    host.call(oneStringNoExtras, {str("a"), str("b")});
    EXPECT_EQ(host.printed, kBadNum);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(CallFrameTest, AnOptionalArgumentIsThereOnlyWhenAFurtherNodeIs) {
    host.call(stringAndOptionalInteger, {str("a")});
    EXPECT_EQ(host.result, ResBufChain{ResBuf::longInt(-1)});
    host.call(stringAndOptionalInteger, {str("a"), ResBuf::shortInt(7)});
    EXPECT_EQ(host.result, ResBufChain{ResBuf::longInt(7)});
    host.call(stringAndOptionalInteger, {str("a"), str("7")});
    EXPECT_EQ(host.printed, kBadTyp);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(CallFrameTest, ALenientOptionalOfAnotherTypeCountsAsAbsent) {
    host.call(stringAndLenientInteger, {str("a"), str("7")});
    EXPECT_EQ(host.result, ResBufChain{ResBuf::longInt(-1)});
    EXPECT_TRUE(host.printed.empty());
    host.call(stringAndLenientInteger, {str("a"), ResBuf::longInt(70000)});
    EXPECT_EQ(host.result, ResBufChain{ResBuf::longInt(70000)});
}

TEST_F(CallFrameTest, AListArgumentSpansItsBracketsNestedListsIncluded) {
    host.call(listThenString, {lb(), str("x"), lb(), str("y"), le(), le(), str("after")});
    EXPECT_EQ(host.result, ResBufChain{str("6 after")});
    host.call(listThenString, {lb(), le(), str("after")});
    EXPECT_EQ(host.result, ResBufChain{str("2 after")});
    // The brackets make one argument: a list alone is one argument short.
    host.clearOutput();
    host.call(listThenString, {lb(), str("x"), str("y"), le()});
    EXPECT_EQ(host.printed, kBadNum);
    host.clearOutput();
    host.call(listThenString, {str("x"), str("after")});
    EXPECT_EQ(host.printed, kBadTyp);
}

TEST_F(CallFrameTest, AfterAnyErrorTheResultIsNilNotThePreviousCallsValue) {
    callKeepingResult(twoStrings, {str("a"), str("b")});
    EXPECT_EQ(host.result, ResBufChain{str("a+b")});
    callKeepingResult(twoStrings, {str("a")});
    EXPECT_EQ(host.result, kNil);
    callKeepingResult(twoStrings, {str("a"), str("b")});
    callKeepingResult(twoStrings, {str("a"), ResBuf::shortInt(1)});
    EXPECT_EQ(host.result, kNil);
    callKeepingResult(nonEmptyName, {str("a")});
    callKeepingResult(nonEmptyName, {str("")});
    EXPECT_EQ(host.result, kNil);
}

TEST_F(CallFrameTest, AnUnusableValueIsReportedAsBadValueOfArg) {
    host.call(nonEmptyName, {str("")});
    EXPECT_EQ(host.printed, kBadValue);
    EXPECT_EQ(host.result, kNil);
}

TEST_F(CallFrameTest, AMissingReportTextIsReportedByTheLookupAndPrintedEmpty) {
    auto store = std::make_unique<SettingsStore>();
    store->appendLine("[LCINIT]");
    store->appendLine("MsgNotFound=\\n'%s' fehlt in '%s'");
    file.attach(std::move(store));
    host.call(twoStrings, {});
    EXPECT_EQ(host.printed, "\n'BadNumOfArg' fehlt in 'LCINIT'");
    EXPECT_EQ(host.result, kNil);
}

}  // namespace
}  // namespace ardo
