#pragma once
// An INI file as the profile-string functions see it: its lines in order, each with the
// bytes it had in the file, so lines nobody changed are written back exactly as read.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextFile.h"

namespace ardo {

struct ProfileLine {
    enum class Kind { Other, Section, Key };

    // Classifies a line's text (UTF-8, without its line end).
    static ProfileLine parse(std::string text);

    Kind kind = Kind::Other;
    std::string text;  // UTF-8, without the line end
    std::string name;  // section name or key, trimmed
    std::string value; // key line: the text after '=', trimmed, quotes not yet removed
    // The line's bytes and line end as in the file; none for a line made or changed here.
    std::optional<std::string> raw;
    std::string end;   // "\n", "\r\n" or "" for a last line without one
};

class ProfileFile {
public:
    // A missing or unreadable file gives an empty one with the platform's line end.
    static ProfileFile read(const std::string& path);

    std::vector<ProfileLine>& lines() { return lines_; }
    const std::vector<ProfileLine>& lines() const { return lines_; }
    LineEnd lineEnd() const { return lineEnd_; }

    // The first header of that name, or lines().size().
    size_t findSection(std::string_view name) const;
    // The header's section runs up to the next header.
    size_t sectionEnd(size_t header) const;
    // The first key line of that name in the section, or lines().size().
    size_t findKey(size_t header, std::string_view key) const;

    // A new line in the file's line end, inserted before the given index.
    void insert(size_t at, std::string text);
    // Replaces a line's text; it keeps its line end.
    void replace(size_t at, std::string text);
    void erase(size_t from, size_t to);

    // Replaces the file atomically; false when it cannot be written.
    bool write(const std::string& path) const;

private:
    std::vector<ProfileLine> lines_;
    LineEnd lineEnd_ = kNewFileLineEnd;
};

}  // namespace ardo
