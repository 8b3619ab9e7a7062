#include "dialog/LinetypeList.h"

#include <filesystem>

#include "base/CaseFold.h"
#include "base/TextFile.h"
#include "module/HostBinding.h"

namespace ardo {

namespace {

// A line is read in pieces of this many characters, its line feed counted.
constexpr size_t kLinePiece = 256;

}  // namespace

bool parseLinetypeLine(const std::string& line, LinetypeRow& row) {
    if (line.empty() || line.front() != '*') return false;
    const std::string_view text = trimWhite(std::string_view(line).substr(1));
    const size_t comma = text.find(',');
    if (comma != std::string_view::npos && comma > 0) {
        row.name = std::string(trimWhiteRight(text.substr(0, comma)));
        row.description = std::string(trimWhiteLeft(text.substr(comma + 1)));
    } else {
        row.name = std::string(trimWhiteRight(text));
        row.description.clear();
    }
    return true;
}

std::vector<LinetypeRow> linetypesOfFile(const std::string& path) {
    std::vector<LinetypeRow> rows;
    const auto file = readTextPieces(path, kLinePiece);
    if (!file) return rows;
    rows.push_back({"Continuous", "Continuous"});
    for (const std::string& piece : file->pieces) {
        LinetypeRow row;
        if (parseLinetypeLine(piece, row)) rows.push_back(std::move(row));
    }
    return rows;
}

std::string linetypeFileReference(const std::string& path) {
    const std::string name = std::filesystem::path(path).filename().string();
    std::string found;
    if (host().findFile(name, found) && std::filesystem::path(found) == std::filesystem::path(path)) return name;
    return path;
}

}  // namespace ardo
