#include "settings/SettingsStore.h"

#include "base/CaseFold.h"
#include "settings/CodePageWarning.h"
#include "module/HostBinding.h"
#include "base/Printf.h"

namespace ardo {

std::uint64_t SettingsStore::nextSerial() {
    static std::uint64_t serial = 0;
    return ++serial;
}

std::unique_ptr<SettingsStore> SettingsStore::load(const std::string& path) {
    // Taken before reading: a change made while reading shows as a change at the next write.
    const auto stamp = FileStamp::of(path);
    auto lines = readTextPieces(path, kLinePiece);
    if (!lines) return nullptr;
    auto store = std::make_unique<SettingsStore>();
    store->stamp_ = stamp;
    store->lineEnd_ = lines->lineEnd;
    for (auto& piece : lines->pieces) store->appendLine(std::move(piece));
    return store;
}

void SettingsStore::appendLine(std::string line) {
    // A line feed that stands first is kept, as a line buffer leaves it.
    size_t lf = line.find('\n');
    if (lf != std::string::npos && lf != 0) line.resize(lf);
    // Carriage returns before the line end belong to it (a CRLF file read as LF lines, or
    // "\r\r\n"), so no value ends in one and a value survives being written and read again.
    while (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) return;

    if (line[0] == '[') {
        SettingsRecord header;
        size_t close = line.find(']');
        if (close != std::string::npos && close != 0) {
            header.section = line.substr(1, close - 1);
            header.value = line.substr(close + 1);
        } else {
            header.section = line.substr(1);
        }
        records_.push_back(std::move(header));
        return;
    }
    size_t eq = line.find('=');
    if (eq == std::string::npos || eq == 0 || line[0] == '/') return;
    SettingsRecord key;
    key.keyLine = true;
    key.key = std::string(trimWhiteRight(std::string_view(line).substr(0, eq)));
    key.value = std::string(trimWhiteLeft(std::string_view(line).substr(eq + 1)));
    records_.push_back(std::move(key));
}

SettingsStore::Position SettingsStore::findSection(const std::string& name) {
    return findSection(name, records_.begin());
}

SettingsStore::Position SettingsStore::findSection(const std::string& name, Position from) {
    const std::string wanted = upperCase(name);
    for (auto it = from; it != records_.end(); ++it)
        if (it->isSection() && upperCase(it->section) == wanted) return it;
    return records_.end();
}

SettingsStore::ConstPosition SettingsStore::findSection(const std::string& name) const {
    return const_cast<SettingsStore*>(this)->findSection(name);
}

SettingsStore::Position SettingsStore::findOrCreateSection(const std::string& name) {
    auto it = findSection(name);
    if (it != records_.end()) return it;
    SettingsRecord header;
    header.section = name;
    return records_.insert(records_.end(), std::move(header));
}

SettingsStore::Position SettingsStore::sectionEnd(Position header) {
    auto it = header;
    if (it == records_.end()) return it;
    for (++it; it != records_.end() && !it->isSection(); ++it) {
    }
    return it;
}

SettingsStore::ConstPosition SettingsStore::sectionEnd(ConstPosition header) const {
    auto it = header;
    if (it == records_.end()) return it;
    for (++it; it != records_.end() && !it->isSection(); ++it) {
    }
    return it;
}

SettingsStore::Position SettingsStore::findKey(Position header, const std::string& key) {
    if (header == records_.end()) return records_.end();
    for (auto it = std::next(header); it != records_.end() && !it->isSection(); ++it)
        if (equalsNoCase(it->key, key)) return it;
    return records_.end();
}

SettingsStore::ConstPosition SettingsStore::findKey(ConstPosition header, const std::string& key) const {
    if (header == records_.end()) return records_.end();
    for (auto it = std::next(header); it != records_.end() && !it->isSection(); ++it)
        if (equalsNoCase(it->key, key)) return it;
    return records_.end();
}

SettingsStore::Position SettingsStore::findOrCreateKey(Position header, const std::string& key) {
    auto it = findKey(header, key);
    if (it != records_.end()) return it;
    SettingsRecord record;
    record.keyLine = true;
    record.key = key;
    return records_.insert(sectionEnd(header), std::move(record));
}

std::string SettingsStore::text() const {
    std::string out;
    for (const auto& r : records_) {
        if (!r.isSection()) {
            out += r.key;
            out += '=';
            out += r.value;
            out += '\n';
        } else {
            out += "\n[";
            out += r.section;
            out += ']';
            out += r.value;
            out += '\n';
        }
    }
    return out;
}

bool SettingsStore::write(const std::string& path) const {
    const std::string content = text();
    warnCharactersNotInCodePage(path, content);
    if (writeTextFile(path, content, lineEnd_)) {
        stamp_ = FileStamp::of(path);
        return true;
    }
    reportCannotWrite(path);
    return false;
}

void SettingsStore::reportCannotWrite(const std::string& path) {
    host().alert(format("\nIch kann die Datei %s nicht schreiben", path));
}

}  // namespace ardo
