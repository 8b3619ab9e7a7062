#pragma once
// Module text files as Windows reads and writes them in text mode: CRLF is one line end,
// lines come in pieces of bounded length, and a file keeps its own line ends when written back.
#include <optional>
#include <string>
#include <vector>

namespace ardo {

enum class LineEnd { LF, CRLF };

// The platform's line end for files that do not exist yet.
constexpr LineEnd kNewFileLineEnd = LineEnd::LF;

struct TextFileLines {
    // Each piece as a fixed-size line buffer would receive it: at most the given number of
    // characters, its line feed included when the line ended within the piece. UTF-8.
    std::vector<std::string> pieces;
    LineEnd lineEnd = kNewFileLineEnd;
};

// Reads the whole file; none when it cannot be opened.
std::optional<std::string> readFileBytes(const std::string& path);

// Reads an 8-bit text file in the module's code page, cut into pieces of at most
// maxChars characters (line feed counted). None when the file cannot be opened.
std::optional<TextFileLines> readTextPieces(const std::string& path, size_t maxChars);

// The line end style of existing file content: CRLF when its first line ends so.
LineEnd detectLineEnd(const std::string& bytes);

// Writes UTF-8 text whose lines end in '\n' as an 8-bit file in the module's code page,
// with the given line ends, replacing the file atomically. False when it cannot be written.
bool writeTextFile(const std::string& path, const std::string& text, LineEnd lineEnd);

// The line end a file has now, or the platform's for a file that does not exist.
LineEnd lineEndOfFile(const std::string& path);

}  // namespace ardo
