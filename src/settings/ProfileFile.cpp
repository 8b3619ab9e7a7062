#include "settings/ProfileFile.h"

#include "base/CaseFold.h"
#include "base/CodePage.h"
#include "base/FileReplace.h"

namespace ardo {

namespace {

const char* endText(LineEnd lineEnd) { return lineEnd == LineEnd::CRLF ? "\r\n" : "\n"; }

}  // namespace

ProfileLine ProfileLine::parse(std::string text) {
    ProfileLine line;
    const std::string_view s = trimWhite(text);
    if (!s.empty() && s[0] == '[') {
        size_t close = s.find(']');
        if (close != std::string_view::npos) {
            line.kind = Kind::Section;
            line.name = std::string(trimWhite(s.substr(1, close - 1)));
        }
    } else if (!s.empty() && s[0] != ';') {
        size_t eq = s.find('=');
        if (eq != std::string_view::npos && eq > 0) {
            line.kind = Kind::Key;
            line.name = std::string(trimWhite(s.substr(0, eq)));
            line.value = std::string(trimWhite(s.substr(eq + 1)));
        }
    }
    line.text = std::move(text);
    return line;
}

ProfileFile ProfileFile::read(const std::string& path) {
    ProfileFile file;
    auto bytes = readFileBytes(path);
    if (!bytes) return file;
    file.lineEnd_ = detectLineEnd(*bytes);
    size_t pos = 0;
    while (pos < bytes->size()) {
        size_t lf = bytes->find('\n', pos);
        size_t next = lf == std::string::npos ? bytes->size() : lf + 1;
        size_t contentEnd = lf == std::string::npos ? bytes->size() : lf;
        if (lf != std::string::npos && contentEnd > pos && (*bytes)[contentEnd - 1] == '\r') --contentEnd;
        ProfileLine line =
            ProfileLine::parse(decodeFileText(std::string_view(*bytes).substr(pos, contentEnd - pos)));
        line.raw = bytes->substr(pos, next - pos);
        line.end = bytes->substr(contentEnd, next - contentEnd);
        file.lines_.push_back(std::move(line));
        pos = next;
    }
    return file;
}

size_t ProfileFile::findSection(std::string_view name) const {
    const std::string_view wanted = trimWhite(name);
    for (size_t i = 0; i < lines_.size(); ++i)
        if (lines_[i].kind == ProfileLine::Kind::Section && equalsNoCase(lines_[i].name, wanted)) return i;
    return lines_.size();
}

size_t ProfileFile::sectionEnd(size_t header) const {
    size_t i = header + 1;
    while (i < lines_.size() && lines_[i].kind != ProfileLine::Kind::Section) ++i;
    return i;
}

size_t ProfileFile::findKey(size_t header, std::string_view key) const {
    const std::string_view wanted = trimWhite(key);
    const size_t end = sectionEnd(header);
    for (size_t i = header + 1; i < end; ++i)
        if (lines_[i].kind == ProfileLine::Kind::Key && equalsNoCase(lines_[i].name, wanted)) return i;
    return lines_.size();
}

void ProfileFile::insert(size_t at, std::string text) {
    // The line before a new one must end; a last line without a line end gets the file's.
    if (at > 0 && lines_[at - 1].end.empty()) {
        lines_[at - 1].end = endText(lineEnd_);
        lines_[at - 1].raw.reset();
    }
    ProfileLine line = ProfileLine::parse(std::move(text));
    line.end = endText(lineEnd_);
    lines_.insert(lines_.begin() + std::ptrdiff_t(at), std::move(line));
}

void ProfileFile::replace(size_t at, std::string text) {
    std::string end = std::move(lines_[at].end);
    lines_[at] = ProfileLine::parse(std::move(text));
    lines_[at].end = std::move(end);
}

void ProfileFile::erase(size_t from, size_t to) {
    lines_.erase(lines_.begin() + std::ptrdiff_t(from), lines_.begin() + std::ptrdiff_t(to));
}

bool ProfileFile::write(const std::string& path) const {
    std::string bytes;
    for (const auto& line : lines_) {
        if (line.raw) {
            bytes += *line.raw;
        } else {
            bytes += encodeFileText(line.text);
            bytes += line.end;
        }
    }
    return replaceFile(path, bytes).ok();
}

}  // namespace ardo
