#include "settings/registry/RegistryTree.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "base/CaseFold.h"
#include "base/CodePage.h"
#include "base/Utf8.h"

namespace ardo {

namespace {

constexpr const char* kRootNames[kRegRootCount] = {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",
                                                   "HKEY_LOCAL_MACHINE", "HKEY_USERS",
                                                   "HKEY_CURRENT_CONFIG"};
constexpr const char* kHeader = "REGEDIT4";
constexpr size_t kHexBytesPerLine = 25;

template <class Key>
auto* findNamed(std::vector<Key>& items, std::string_view name) {
    for (auto& item : items)
        if (equalsNoCase(item.name, name)) return &item;
    return static_cast<Key*>(nullptr);
}

template <class Key>
const auto* findNamed(const std::vector<Key>& items, std::string_view name) {
    for (const auto& item : items)
        if (equalsNoCase(item.name, name)) return &item;
    return static_cast<const Key*>(nullptr);
}

void appendUtf16(std::string& out, char32_t c) {
    auto unit = [&out](unsigned u) {
        out.push_back(static_cast<char>(u & 0xFF));
        out.push_back(static_cast<char>(u >> 8));
    };
    if (c >= 0x10000) {
        c -= 0x10000;
        unit(0xD800 + (c >> 10));
        unit(0xDC00 + (c & 0x3FF));
    } else {
        unit(c);
    }
}

// A quoted text in the file: backslash and quote escaped, the rest as the code page has it.
std::string quoted(std::string_view utf8) {
    std::string out = "\"";
    for (char c : encodeFileText(utf8)) {
        if (c == '\\' || c == '"') out.push_back('\\');
        out.push_back(c);
    }
    return out + "\"";
}

// A text the quoted form keeps exactly: in the code page, without line breaks.
bool quotable(std::string_view utf8) {
    return !hasControlCharacter(utf8) && charactersNotInFileCodePage(utf8).empty();
}

std::string hexData(std::string prefix, std::string_view data) {
    std::string out = std::move(prefix);
    char byte[4];
    for (size_t i = 0; i < data.size(); ++i) {
        std::snprintf(byte, sizeof byte, "%02x", static_cast<unsigned char>(data[i]));
        out += byte;
        if (i + 1 < data.size()) {
            out += ',';
            if ((i + 1) % kHexBytesPerLine == 0) out += "\\\r\n  ";
        }
    }
    return out;
}

std::string valueLine(const RegistryValue& v) {
    std::string line = v.name.empty() ? std::string("@") : quoted(v.name);
    line += '=';
    if (v.type == kRegSz && v.data.size() % 2 == 0 && v.data.size() >= 2 &&
        v.data.compare(v.data.size() - 2, 2, std::string(2, '\0')) == 0) {
        const std::string text = regDataToText(v.data);
        if (quotable(text) && textToRegData(text) == v.data) return line + quoted(text);
    }
    if (v.type == kRegDword && v.data.size() == 4) {
        std::uint32_t n = 0;
        for (int i = 3; i >= 0; --i) n = (n << 8) | static_cast<unsigned char>(v.data[i]);
        char number[16];
        std::snprintf(number, sizeof number, "dword:%08x", n);
        return line + number;
    }
    if (v.type == kRegBinary) return hexData(line + "hex:", v.data);
    return hexData(line + "hex(" + std::to_string(v.type) + "):", v.data);
}

void writeKey(std::string& out, const RegistryKey& key, const std::string& path, bool header) {
    if (header) {
        out += "[" + encodeFileText(path) + "]\r\n";
        for (const auto& v : key.values) out += valueLine(v) + "\r\n";
        out += "\r\n";
    }
    for (const auto& sub : key.subkeys) writeKey(out, sub, path + "\\" + sub.name, true);
}

// Reads a quoted text at `pos` (at the opening quote); leaves `pos` after the closing one.
bool readQuoted(std::string_view line, size_t& pos, std::string& utf8) {
    if (pos >= line.size() || line[pos] != '"') return false;
    std::string bytes;
    for (++pos; pos < line.size(); ++pos) {
        char c = line[pos];
        if (c == '"') {
            ++pos;
            utf8 = decodeFileText(bytes);
            return true;
        }
        if (c == '\\' && pos + 1 < line.size()) c = line[++pos];
        bytes.push_back(c);
    }
    return false;
}

bool readHex(std::string_view text, std::string& data) {
    data.clear();
    size_t pos = 0;
    while (pos < text.size()) {
        while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\t')) ++pos;
        if (pos >= text.size()) break;
        size_t end = pos;
        while (end < text.size() && std::isxdigit(static_cast<unsigned char>(text[end]))) ++end;
        if (end == pos || end - pos > 2) return false;
        data.push_back(static_cast<char>(std::stoul(std::string(text.substr(pos, end - pos)), nullptr, 16)));
        pos = end;
        while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\t')) ++pos;
        if (pos < text.size()) {
            if (text[pos] != ',') return false;
            ++pos;
        }
    }
    return true;
}

// The value after '=': a quoted text, dword:, hex: or hex(n):.
bool readData(std::string_view text, RegistryValue& v) {
    text = trimWhite(text);
    if (!text.empty() && text[0] == '"') {
        size_t pos = 0;
        std::string utf8;
        if (!readQuoted(text, pos, utf8) || !trimWhite(text.substr(pos)).empty()) return false;
        v.type = kRegSz;
        v.data = textToRegData(utf8);
        return true;
    }
    if (text.starts_with("dword:")) {
        const std::string digits(trimWhite(text.substr(6)));
        if (digits.empty() || digits.size() > 8 ||
            digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
            return false;
        std::uint32_t n = static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
        v.type = kRegDword;
        v.data.clear();
        for (int i = 0; i < 4; ++i) v.data.push_back(static_cast<char>((n >> (8 * i)) & 0xFF));
        return true;
    }
    if (text.starts_with("hex:")) {
        v.type = kRegBinary;
        return readHex(text.substr(4), v.data);
    }
    if (text.starts_with("hex(")) {
        const size_t close = text.find("):");
        if (close == std::string_view::npos) return false;
        const std::string digits(text.substr(4, close - 4));
        if (digits.empty() || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
            return false;
        v.type = static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
        return readHex(text.substr(close + 2), v.data);
    }
    return false;
}

// The file's lines with continuations (a line ending in a backslash) joined.
std::vector<std::pair<int, std::string>> logicalLines(std::string_view text) {
    std::vector<std::pair<int, std::string>> lines;
    std::string current;
    int number = 0, start = 0;
    bool continuing = false;
    size_t pos = 0;
    while (pos <= text.size()) {
        size_t end = text.find('\n', pos);
        if (end == std::string_view::npos) end = text.size();
        std::string_view line = text.substr(pos, end - pos);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        ++number;
        if (!continuing) {
            current.clear();
            start = number;
        } else {
            line = trimWhiteLeft(line);
        }
        current += line;
        continuing = !current.empty() && current.back() == '\\' && current.find("=hex") != std::string::npos;
        if (continuing) current.pop_back();
        else lines.emplace_back(start, current);
        pos = end + 1;
    }
    if (continuing) lines.emplace_back(start, current);
    return lines;
}

bool parseRootedPath(std::string_view text, RegRoot& root, std::vector<std::string>& names) {
    const size_t slash = text.find('\\');
    const std::string_view rootName = text.substr(0, slash);
    for (int i = 0; i < kRegRootCount; ++i) {
        if (rootName == kRootNames[i]) {
            root = static_cast<RegRoot>(i);
            names.clear();
            return slash == std::string_view::npos || splitKeyPath(text.substr(slash + 1), names);
        }
    }
    return false;
}

}  // namespace

const char* regRootName(RegRoot root) { return kRootNames[static_cast<int>(root)]; }

RegistryKey* RegistryKey::subkey(std::string_view n) { return findNamed(subkeys, n); }
const RegistryKey* RegistryKey::subkey(std::string_view n) const { return findNamed(subkeys, n); }
RegistryValue* RegistryKey::value(std::string_view n) { return findNamed(values, n); }
const RegistryValue* RegistryKey::value(std::string_view n) const { return findNamed(values, n); }

void RegistryKey::setValue(RegistryValue v) {
    if (RegistryValue* existing = value(v.name)) {
        existing->type = v.type;
        existing->data = std::move(v.data);
    } else {
        values.push_back(std::move(v));
    }
}

bool RegistryKey::removeValue(std::string_view n) {
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (equalsNoCase(it->name, n)) {
            values.erase(it);
            return true;
        }
    }
    return false;
}

bool splitKeyPath(std::string_view path, std::vector<std::string>& names) {
    names.clear();
    if (path.empty()) return true;
    if (path.back() == '\\') path.remove_suffix(1);
    size_t pos = 0;
    while (true) {
        const size_t slash = path.find('\\', pos);
        const std::string_view name = path.substr(pos, slash == std::string_view::npos ? path.npos : slash - pos);
        if (name.empty()) return false;
        names.emplace_back(name);
        if (slash == std::string_view::npos) return true;
        pos = slash + 1;
    }
}

RegistryKey* RegistryTree::find(RegRoot r, const std::vector<std::string>& names) {
    RegistryKey* key = &root(r);
    for (const auto& n : names)
        if (!(key = key->subkey(n))) return nullptr;
    return key;
}

const RegistryKey* RegistryTree::find(RegRoot r, const std::vector<std::string>& names) const {
    const RegistryKey* key = &root(r);
    for (const auto& n : names)
        if (!(key = key->subkey(n))) return nullptr;
    return key;
}

RegistryKey& RegistryTree::create(RegRoot r, const std::vector<std::string>& names) {
    RegistryKey* key = &root(r);
    for (const auto& n : names) {
        RegistryKey* next = key->subkey(n);
        if (!next) {
            key->subkeys.push_back(RegistryKey{n, {}, {}});
            next = &key->subkeys.back();
        }
        key = next;
    }
    return *key;
}

std::string RegistryTree::toRegedit4() const {
    std::string out = std::string(kHeader) + "\r\n\r\n";
    for (int i = 0; i < kRegRootCount; ++i) writeKey(out, roots_[i], kRootNames[i], !roots_[i].values.empty());
    return out;
}

Result<RegistryTree> RegistryTree::fromRegedit4(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    RegistryTree tree;
    RegistryKey* key = nullptr;
    bool headerSeen = false;
    for (const auto& numbered : logicalLines(text)) {
        const int number = numbered.first;
        const std::string_view line = trimWhite(numbered.second);
        if (line.empty() || line[0] == ';') continue;
        auto fail = [number](const char* what) {
            return Error{"line " + std::to_string(number) + ": " + what};
        };
        if (!headerSeen) {
            if (line != kHeader) return fail("the file does not begin with REGEDIT4");
            headerSeen = true;
            continue;
        }
        if (line[0] == '[') {
            if (line.back() != ']') return fail("a key line lacks its closing bracket");
            std::string_view path = line.substr(1, line.size() - 2);
            const bool remove = path.starts_with("-");
            if (remove) path.remove_prefix(1);
            RegRoot root{};
            std::vector<std::string> names;
            if (!parseRootedPath(decodeFileText(path), root, names)) return fail("unknown root key or bad key path");
            key = nullptr;
            if (!remove) {
                key = &tree.create(root, names);
            } else if (!names.empty()) {
                const std::string last = names.back();
                names.pop_back();
                if (RegistryKey* parent = tree.find(root, names))
                    std::erase_if(parent->subkeys, [&](const RegistryKey& k) { return equalsNoCase(k.name, last); });
            }
            continue;
        }
        if (!key) return fail("a value stands before any key");
        RegistryValue v;
        size_t pos = 0;
        if (line[0] == '@') {
            pos = 1;
        } else if (!readQuoted(line, pos, v.name)) {
            return fail("a value name is not quoted");
        }
        if (pos >= line.size() || line[pos] != '=') return fail("a value lacks '='");
        const std::string_view data = trimWhite(line.substr(pos + 1));
        if (data == "-") {
            key->removeValue(v.name);
            continue;
        }
        if (!readData(data, v)) return fail("a value's data cannot be read");
        key->setValue(std::move(v));
    }
    if (!headerSeen) return Error{"the file does not begin with REGEDIT4"};
    return tree;
}

std::string textToRegData(std::string_view utf8) {
    std::string data;
    forEachCodePoint(utf8, [&data](char32_t c) { appendUtf16(data, c); });
    data.append(2, '\0');
    return data;
}

std::string regDataToText(std::string_view data) {
    std::string out;
    for (size_t i = 0; i + 1 < data.size(); i += 2) {
        char32_t unit = static_cast<unsigned char>(data[i]) | (static_cast<unsigned char>(data[i + 1]) << 8);
        if (unit == 0) break;
        if (unit >= 0xD800 && unit < 0xDC00 && i + 3 < data.size()) {
            const char32_t low = static_cast<unsigned char>(data[i + 2]) | (static_cast<unsigned char>(data[i + 3]) << 8);
            if (low >= 0xDC00 && low < 0xE000) {
                unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
                i += 2;
            }
        }
        appendUtf8(out, unit);
    }
    return out;
}

}  // namespace ardo
