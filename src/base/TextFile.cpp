#include "base/TextFile.h"

#include <fstream>
#include <iterator>

#include "base/CodePage.h"
#include "base/FileReplace.h"

namespace ardo {

std::optional<std::string> readFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    // A folder opens as a stream but fails on the first read, which the library throws.
    try {
        std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (in.bad()) return std::nullopt;
        return bytes;
    } catch (const std::ios_base::failure&) {
        return std::nullopt;
    }
}

LineEnd detectLineEnd(const std::string& bytes) {
    size_t lf = bytes.find('\n');
    if (lf == std::string::npos) return kNewFileLineEnd;
    return (lf > 0 && bytes[lf - 1] == '\r') ? LineEnd::CRLF : LineEnd::LF;
}

namespace {

// Text mode turns CRLF into LF; a lone CR stays.
std::string textModeContent(const std::string& bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
        out += bytes[i];
    }
    return out;
}

}  // namespace

std::optional<TextFileLines> readTextPieces(const std::string& path, size_t maxChars) {
    auto bytes = readFileBytes(path);
    if (!bytes) return std::nullopt;
    TextFileLines result;
    result.lineEnd = detectLineEnd(*bytes);
    const std::string text = textModeContent(*bytes);
    size_t pos = 0;
    while (pos < text.size()) {
        size_t lf = text.find('\n', pos);
        size_t lineEnd = lf == std::string::npos ? text.size() : lf + 1;
        size_t end = std::min(lineEnd, pos + maxChars);
        result.pieces.push_back(decodeFileText(std::string_view(text).substr(pos, end - pos)));
        pos = end;
    }
    return result;
}

bool writeTextFile(const std::string& path, const std::string& text, LineEnd lineEnd) {
    std::string encoded = encodeFileText(text);
    if (lineEnd == LineEnd::CRLF) {
        std::string crlf;
        crlf.reserve(encoded.size() + encoded.size() / 16);
        for (char c : encoded) {
            if (c == '\n') crlf += '\r';
            crlf += c;
        }
        encoded.swap(crlf);
    }
    return replaceFile(path, encoded).ok();
}

LineEnd lineEndOfFile(const std::string& path) {
    auto bytes = readFileBytes(path);
    return bytes ? detectLineEnd(*bytes) : kNewFileLineEnd;
}

}  // namespace ardo
