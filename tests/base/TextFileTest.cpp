#include "base/TextFile.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ardo {
namespace {

using test::readBytes;
using test::TempFolder;

TEST(TextFile, WindowsFileWithUmlautsReadsAsUtf8LinesWithoutCarriageReturns) {
    TempFolder dir;
    const auto path = dir.write("w.ini", "[W\xE4nde]\r\nFarbe=gr\xFCn\r\nLast");
    auto lines = readTextPieces(path, 553);
    ASSERT_TRUE(lines);
    EXPECT_EQ(lines->lineEnd, LineEnd::CRLF);
    EXPECT_EQ(lines->pieces, (std::vector<std::string>{"[Wände]\n", "Farbe=grün\n", "Last"}));
}

TEST(TextFile, LongLinesComeInPiecesAndALoneCarriageReturnStays) {
    TempFolder dir;
    const auto path = dir.write("long.txt", "abcdefg\na\rb\n");
    auto lines = readTextPieces(path, 3);
    ASSERT_TRUE(lines);
    EXPECT_EQ(lines->lineEnd, LineEnd::LF);
    EXPECT_EQ(lines->pieces, (std::vector<std::string>{"abc", "def", "g\n", "a\rb", "\n"}));
}

TEST(TextFile, MissingFileReadsAsNone) {
    TempFolder dir;
    EXPECT_FALSE(readTextPieces(dir.file("none.ini"), 553));
    EXPECT_FALSE(readFileBytes(dir.file("none.ini")));
    EXPECT_EQ(lineEndOfFile(dir.file("none.ini")), kNewFileLineEnd);
}

TEST(TextFile, LineEndDetectionFollowsTheFirstLine) {
    EXPECT_EQ(detectLineEnd("a\r\nb\n"), LineEnd::CRLF);
    EXPECT_EQ(detectLineEnd("a\nb\r\n"), LineEnd::LF);
    EXPECT_EQ(detectLineEnd("\r\n"), LineEnd::CRLF);
    EXPECT_EQ(detectLineEnd("no line end"), kNewFileLineEnd);
}

TEST(TextFile, WritingAppliesCodePageAndLineEnds) {
    TempFolder dir;
    const auto path = dir.file("out.ini");
    ASSERT_TRUE(writeTextFile(path, "[Wände]\nA=ä\n", LineEnd::CRLF));
    EXPECT_EQ(readBytes(path), "[W\xE4nde]\r\nA=\xE4\r\n");
    EXPECT_EQ(lineEndOfFile(path), LineEnd::CRLF);
    ASSERT_TRUE(writeTextFile(path, "x\ny\n", LineEnd::LF));
    EXPECT_EQ(readBytes(path), "x\ny\n");
}

TEST(TextFile, WindowsFileReadAndWrittenBackIsByteIdentical) {
    TempFolder dir;
    const std::string original = "[W\xE4nde]\r\nFarbe=gr\xFCn \x80\r\n\r\n;\x81\x8D\x8F\x90\x9D\r\n";
    const auto path = dir.write("w.ini", original);
    auto lines = readTextPieces(path, 553);
    ASSERT_TRUE(lines);
    std::string text;
    for (const auto& p : lines->pieces) text += p;
    ASSERT_TRUE(writeTextFile(dir.file("copy.ini"), text, lines->lineEnd));
    EXPECT_EQ(readBytes(dir.file("copy.ini")), original);
}

}  // namespace
}  // namespace ardo
