#include <string>

#include "TestHost.h"
#include "cadhost/lisp/Printer.h"
#include "cadhost/lisp/Reader.h"

namespace cadhost::lisp::test {
namespace {

std::string readPrinted(std::string_view text) {
    SymbolTable symbols;
    Reader reader(symbols, text);
    std::string out;
    try {
        while (auto form = reader.next()) out += (out.empty() ? "" : "|") + prin1String(*form);
    } catch (const LispError& e) {
        out += std::string("ERR:") + e.what();
    }
    return out;
}

TEST(LispReader, ReadsNumbersWithIntegerOverflowToReal) {
    EXPECT_EQ(readPrinted("42 -7 +3"), "42|-7|3");
    EXPECT_EQ(readPrinted("2147483647 -2147483648"), "2147483647|-2147483648");
    EXPECT_EQ(readPrinted("2147483648"), "2.14748e+009");
    EXPECT_EQ(readPrinted("1.5 .5 1. -0.25 1e3 2.5E-2"), "1.5|0.5|1.0|-0.25|1000.0|0.025");
    EXPECT_EQ(readPrinted("1+ 1- - + 1e 0x10"), "1+|1-|-|+|1E|0X10");
}

TEST(LispReader, ReadsStringsWithEscapes) {
    SymbolTable symbols;
    Reader reader(symbols, R"("a\\b\"c\n\r\t\e\101\7x" "ä")");
    EXPECT_EQ(reader.next()->asString(), std::string("a\\b\"c\n\r\t\x1b" "A\ax"));
    EXPECT_EQ(reader.next()->asString(), "ä");
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(readPrinted(R"("" "plain" "\\" "x\"y\"z")"), R"(""|"plain"|"\\"|"x\"y\"z")");
    EXPECT_EQ(readPrinted(R"("ab\)"), "ERR:malformed string on input");
}

TEST(LispReader, SymbolsAreCaseInsensitiveAndInterned) {
    SymbolTable symbols;
    Reader reader(symbols, "foo FOO Foo nil NIL t");
    const Value a = *reader.next();
    EXPECT_EQ(a.asSymbol()->name, "FOO");
    EXPECT_EQ(reader.next()->asSymbol(), a.asSymbol());
    EXPECT_EQ(reader.next()->asSymbol(), a.asSymbol());
    EXPECT_TRUE(reader.next()->isNil());
    EXPECT_TRUE(reader.next()->isNil());
    EXPECT_EQ(reader.next()->asSymbol()->name, "T");
}

TEST(LispReader, ReadsListsDottedPairsQuotesAndComments) {
    EXPECT_EQ(readPrinted("(1 (2 \"x\") 3)"), "(1 (2 \"x\") 3)");
    EXPECT_EQ(readPrinted("(8 . \"0\") (1 2 . 3)"), "(8 . \"0\")|(1 2 . 3)");
    EXPECT_EQ(readPrinted("'a '(1 2)"), "'A|'(1 2)");
    EXPECT_EQ(readPrinted("(a ; rest of line\n b) ;| block\n (c) |; d"), "(A B)|D");
    EXPECT_EQ(readPrinted("() (a.b)"), "nil|(A.B)");
}

TEST(LispReader, ReportsMalformedInput) {
    EXPECT_EQ(readPrinted("(1 2"), "ERR:malformed list on input");
    EXPECT_EQ(readPrinted("1 )"), "1ERR:extra right paren on input");
    EXPECT_EQ(readPrinted("\"abc"), "ERR:malformed string on input");
    EXPECT_EQ(readPrinted("(. 1)"), "ERR:malformed list on input");
    EXPECT_EQ(readPrinted("(1 . 2 3)"), "ERR:malformed list on input");
    EXPECT_EQ(readPrinted("'"), "ERR:malformed list on input");
}

TEST(LispReader, DeepNestingIsAnErrorNotACrash) {
    const std::string deep(200000, '(');
    EXPECT_EQ(readPrinted(deep), "ERR:malformed list on input: nested deeper than 1000 levels");
    const std::string quotes(5000, '\'');
    EXPECT_EQ(readPrinted(quotes + "x"), "ERR:malformed list on input: nested deeper than 1000 levels");
    const std::string ok = std::string(500, '(') + std::string(500, ')');
    EXPECT_EQ(readPrinted(ok).substr(0, 3), "(((");
}

}  // namespace
}  // namespace cadhost::lisp::test
