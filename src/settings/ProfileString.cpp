#include "settings/ProfileString.h"

#include "base/CaseFold.h"
#include "base/Utf8.h"
#include "settings/ProfileFile.h"

namespace ardo {

namespace {

size_t charCount(std::string_view s) {
    size_t n = 0;
    forEachCodePoint(s, [&](char32_t) { ++n; });
    return n;
}

// The first n characters, as a buffer of n characters would hold them.
std::string firstChars(std::string_view s, size_t n) {
    size_t pos = 0;
    for (size_t i = 0; i < n && pos < s.size(); ++i) decodeUtf8At(s, pos);
    return std::string(s.substr(0, pos));
}

std::string_view withoutQuotes(std::string_view v) {
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
        return v.substr(1, v.size() - 2);
    return v;
}

ProfileText valueResult(std::string_view text, size_t size) {
    ProfileText result;
    if (size == 0) return result;
    result.text = firstChars(text, size - 1);
    result.length = charCount(result.text);
    return result;
}

// The names as Windows lays them out: each zero-terminated, a second zero at the end; when
// they do not fit, size-2 characters of them and two zeros.
ProfileText listResult(std::vector<std::string> names, size_t size) {
    ProfileText result;
    size_t total = 0;
    for (const auto& n : names) total += charCount(n) + 1;
    if (total + 1 <= size) {
        result.names = std::move(names);
        result.length = total;
        return result;
    }
    if (size < 2) return result;
    size_t budget = size - 2;
    for (auto& n : names) {
        if (budget == 0) break;
        const size_t len = charCount(n);
        if (len + 1 <= budget) {
            budget -= len + 1;
            result.names.push_back(std::move(n));
        } else {
            result.names.push_back(firstChars(n, budget));
            budget = 0;
        }
    }
    result.length = size - 2;
    return result;
}

std::vector<std::string> namesOf(const ProfileFile& file, size_t from, size_t to, ProfileLine::Kind kind) {
    std::vector<std::string> names;
    for (size_t i = from; i < to; ++i)
        if (file.lines()[i].kind == kind) names.push_back(file.lines()[i].name);
    return names;
}

bool staysOneLine(std::string_view s) { return s.find_first_of(std::string_view("\n\r\0", 3)) == s.npos; }

bool writable(const std::string& section, const std::optional<std::string>& key,
              const std::optional<std::string>& value) {
    if (!staysOneLine(section) || section.find(']') != std::string::npos) return false;
    if (key && (!staysOneLine(*key) || key->find('=') != std::string::npos || trimWhite(*key).empty()))
        return false;
    return !value || staysOneLine(*value);
}

}  // namespace

ProfileText GetPrivateProfileStringW(const std::optional<std::string>& section,
                                     const std::optional<std::string>& key,
                                     const std::optional<std::string>& defaultText, size_t size,
                                     const std::string& path) {
    return readProfileString(section, key, defaultText, size, ProfileFile::read(path));
}

ProfileText readProfileString(const std::optional<std::string>& section, const std::optional<std::string>& key,
                              const std::optional<std::string>& defaultText, size_t size,
                              const ProfileFile& file) {
    const size_t count = file.lines().size();
    if (!section) return listResult(namesOf(file, 0, count, ProfileLine::Kind::Section), size);

    const size_t header = file.findSection(*section);
    if (!key) {
        if (header == count) return listResult({}, size);
        return listResult(namesOf(file, header + 1, file.sectionEnd(header), ProfileLine::Kind::Key), size);
    }
    const size_t line = header == count ? count : file.findKey(header, *key);
    if (line != count) return valueResult(withoutQuotes(file.lines()[line].value), size);
    return valueResult(trimWhiteRight(defaultText.value_or("")), size);
}

bool WritePrivateProfileStringW(const std::optional<std::string>& section,
                                const std::optional<std::string>& key,
                                const std::optional<std::string>& value, const std::string& path) {
    if (!section) return !key && !value;
    if (!writable(*section, key, value)) return false;

    ProfileFile file = ProfileFile::read(path);
    const size_t count = file.lines().size();
    const size_t header = file.findSection(*section);

    if (!key) {
        if (header == count) return true;
        file.erase(header, file.sectionEnd(header));
        return file.write(path);
    }
    const size_t line = header == count ? count : file.findKey(header, *key);
    if (!value) {
        if (line == count) return true;
        file.erase(line, line + 1);
        return file.write(path);
    }
    const std::string keyText = std::string(trimWhite(*key));
    if (header == count) {
        file.insert(count, "[" + *section + "]");
        file.insert(count + 1, keyText + "=" + *value);
    } else if (line == count) {
        size_t at = header + 1;
        const size_t end = file.sectionEnd(header);
        for (size_t i = header + 1; i < end; ++i)
            if (file.lines()[i].kind == ProfileLine::Kind::Key) at = i + 1;
        file.insert(at, keyText + "=" + *value);
    } else {
        const ProfileLine& current = file.lines()[line];
        if (current.value == *value) return true;
        file.replace(line, current.name + "=" + *value);
    }
    return file.write(path);
}

}  // namespace ardo
