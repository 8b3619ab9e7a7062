// Every row of the table called with no, too few, wrongly typed and extra arguments: the
// argument errors are reported with the message file's texts, the result is nil (void for
// commands) and never a value left from an earlier call.
#include <cctype>

#include "module/ModuleFixture.h"
#include "module/TableRows.h"

namespace ardo {
namespace {

class BadArgumentsTest : public test::ModuleFixture {
protected:
    void SetUp() override {
        ModuleFixture::SetUp();
        moduleEntryPoint(kInitAppMsg, &host);
    }

    // Runs one row with a result left over from an earlier call, and returns what it printed.
    std::string run(int code, ResBufChain args) {
        host.clearOutput();
        host.setArgs(std::move(args));
        host.result = {kLeftOver};
        host.setFunCode(code);
        moduleEntryPoint(kInvkSubrMsg, &host);
        return host.printed;
    }

    static ResBuf valid(char kind) {
        return std::toupper(kind) == 'I' ? ResBuf::shortInt(0) : ResBuf::str("ardo-test-none");
    }
    static ResBuf wrong(char kind) {
        return std::toupper(kind) == 'I' ? ResBuf::str("0") : ResBuf::realNum(1.5);
    }
    static bool isCommand(const std::string& name) { return name.starts_with("c:") || name.starts_with("C:"); }

    void expectRefused(const std::string& printed, const char* message) {
        EXPECT_EQ(printed, message);
        EXPECT_TRUE(isNil(host.result)) << "result type " << (host.result.empty() ? 0 : host.result[0].restype);
    }
    void expectWorked(const std::string& name, const std::string& printed) {
        EXPECT_EQ(printed.find(kBadNum), std::string::npos) << printed;
        EXPECT_EQ(printed.find(kBadTyp), std::string::npos) << printed;
        ASSERT_FALSE(host.result.empty());
        EXPECT_NE(host.result[0].text, kLeftOver.text) << "the earlier result was left";
        if (isCommand(name)) {
            EXPECT_TRUE(isVoid(host.result));
        }
    }

    const ResBuf kLeftOver = ResBuf::str("<earlier result>");
};

TEST_F(BadArgumentsTest, EveryRowChecksItsArgumentsAndNeverKeepsAnEarlierResult) {
    const auto& rows = test::tableRows();
    for (size_t code = 0; code < rows.size(); ++code) {
        const test::TableRow& row = rows[code];
        SCOPED_TRACE(row.name);
        const std::string args = row.arguments;
        size_t required = 0;
        while (required < args.size() && std::isupper(static_cast<unsigned char>(args[required]))) ++required;

        {
            SCOPED_TRACE("no arguments");
            const std::string printed = run(int(code), {});
            if (required > 0) expectRefused(printed, kBadNum);
            else expectWorked(row.name, printed);
        }
        if (required >= 2) {
            SCOPED_TRACE("one argument too few");
            ResBufChain few;
            for (size_t i = 0; i + 1 < required; ++i) few.push_back(valid(args[i]));
            expectRefused(run(int(code), few), kBadNum);
        }
        for (size_t bad = 0; bad < required; ++bad) {
            if (args[bad] == 'A') continue;  // any value fits
            SCOPED_TRACE("wrong type of argument " + std::to_string(bad + 1));
            ResBufChain chain;
            for (size_t i = 0; i < required; ++i) chain.push_back(i == bad ? wrong(args[i]) : valid(args[i]));
            expectRefused(run(int(code), chain), kBadTyp);
        }
        {
            SCOPED_TRACE("one argument more than all");
            ResBufChain chain;
            for (char kind : args) chain.push_back(valid(kind));
            chain.push_back(ResBuf::str("extra"));
            const std::string printed = run(int(code), chain);
            if (row.rejectsExtra) expectRefused(printed, kBadNum);
            else expectWorked(row.name, printed);
        }
    }
}

}  // namespace
}  // namespace ardo
