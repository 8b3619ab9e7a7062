#include "module/LispFunctionTable.h"

#include <gtest/gtest.h>

#include "module/LispRegistry.h"
#include "module/TableRows.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

using test::ScriptedHost;

TEST(LispFunctionTableTest, HoldsEveryRowInOrderAndSpelling) {
    const auto table = lispFunctionTable();
    const auto& expected = test::tableRows();
    ASSERT_EQ(table.size(), 54u);
    ASSERT_EQ(expected.size(), 54u);
    for (size_t code = 0; code < table.size(); ++code) {
        EXPECT_STREQ(table[code].name, expected[code].name) << "code " << code;
        EXPECT_NE(table[code].handler, nullptr) << table[code].name;
    }
}

TEST(LispRegistryTest, RegistersEachRowUnderItsIndexAndUnregistersAll) {
    ScriptedHost host;
    const auto table = lispFunctionTable();
    EXPECT_EQ(registerFunctions(table), RTNORM);
    ASSERT_EQ(host.defined.size(), table.size());
    for (size_t code = 0; code < table.size(); ++code) {
        EXPECT_EQ(host.defined[int(code)], table[code].name);
        EXPECT_EQ(host.handlers[int(code)], table[code].handler);
    }
    EXPECT_EQ(unregisterFunctions(table), RTNORM);
    EXPECT_TRUE(host.defined.empty());
    EXPECT_TRUE(host.handlers.empty());
}

TEST(LispRegistryTest, StopsAtTheFirstRefusedNameLeavingLaterRowsUnregistered) {
    ScriptedHost host;
    host.defunFailsAt = 7;
    EXPECT_EQ(registerFunctions(lispFunctionTable()), RTERROR);
    EXPECT_EQ(host.defined.size(), 7u);
    EXPECT_EQ(host.handlers.size(), 7u);
    EXPECT_EQ(host.defined.rbegin()->first, 6);
    EXPECT_FALSE(host.handlers.contains(7));
    EXPECT_TRUE(host.printed.empty());
}

int calls[3];
int first() { ++calls[0]; return RSRSLT; }
int second() { ++calls[1]; return RSRSLT; }
int third() { ++calls[2]; return -1; }
constexpr LispFunction kSmallTable[] = {{"eins", first}, {"zwei", second}, {"drei", third}};

TEST(LispRegistryTest, DispatchCallsTheHandlerOfTheCodeAndIgnoresCodesOutsideTheTable) {
    ScriptedHost host;
    for (int code : {-1, 3, 100, -5001}) {
        host.setFunCode(code);
        EXPECT_EQ(dispatchFunction(kSmallTable), RTNORM);
    }
    EXPECT_EQ(calls[0] + calls[1] + calls[2], 0);
    host.setFunCode(1);
    dispatchFunction(kSmallTable);
    EXPECT_EQ(calls[1], 1);
    // The handler's own answer does not reach the host.
    host.setFunCode(2);
    EXPECT_EQ(dispatchFunction(kSmallTable), RTNORM);
    host.setFunCode(0);
    dispatchFunction(kSmallTable);
    EXPECT_EQ(calls[0], 1);
    EXPECT_EQ(calls[1], 1);
    EXPECT_EQ(calls[2], 1);
}

}  // namespace
}  // namespace ardo
