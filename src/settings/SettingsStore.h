#pragma once
// The settings-file store: an INI-style file held in memory as an ordered list of
// section-header and key records. Comment and blank lines are not kept.
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>

#include "base/FileLock.h"
#include "base/TextFile.h"

namespace ardo {

struct SettingsRecord {
    std::string section;  // set on a section-header record
    std::string key;      // set on a key record
    std::string value;    // key: text after "=", leading blanks removed; header: text after "]"
    // A key line whose key trims to nothing (" = x") is still a key line, not a header.
    bool keyLine = false;

    bool isSection() const { return !keyLine && key.empty(); }
};

class SettingsStore {
public:
    using Records = std::list<SettingsRecord>;
    using Position = Records::iterator;
    using ConstPosition = Records::const_iterator;

    // Lines are read in pieces of at most this many characters.
    static constexpr size_t kLinePiece = 553;

    // None when the file cannot be opened; no message.
    static std::unique_ptr<SettingsStore> load(const std::string& path);

    // Parses one line piece as the loader does and appends its record, if it makes one.
    void appendLine(std::string line);

    Records& records() { return records_; }
    const Records& records() const { return records_; }
    LineEnd lineEnd() const { return lineEnd_; }

    // Sections are found by name without regard to case, from the given place onward.
    Position findSection(const std::string& name);
    Position findSection(const std::string& name, Position from);
    ConstPosition findSection(const std::string& name) const;
    Position findOrCreateSection(const std::string& name);
    // Keys are searched from the record after the header up to the next header, without
    // regard to case; the first match wins. end() when missing.
    Position findKey(Position header, const std::string& key);
    ConstPosition findKey(ConstPosition header, const std::string& key) const;
    // A missing key is appended at the end of the section.
    Position findOrCreateKey(Position header, const std::string& key);
    // The position after the section's last record.
    Position sectionEnd(Position header);
    ConstPosition sectionEnd(ConstPosition header) const;

    Position end() { return records_.end(); }
    ConstPosition end() const { return records_.end(); }

    // Writes every record back: key lines as key=value, each section header after an empty
    // line. On failure the alert "\nIch kann die Datei %s nicht schreiben" is shown.
    bool write(const std::string& path) const;
    // The alert of a failed write.
    static void reportCannotWrite(const std::string& path);
    // True when the file at `path` is no longer what this store last read or wrote there:
    // another session wrote it meanwhile.
    bool changedOnDisk(const std::string& path) const { return FileStamp::of(path) != stamp_; }
    // The text write() puts in the file, before the code page and line ends are applied.
    std::string text() const;

    // Tells stores apart for caches of their positions, also when one takes the place of
    // another at the same address.
    std::uint64_t serial() const { return serial_; }

private:
    static std::uint64_t nextSerial();

    Records records_;
    LineEnd lineEnd_ = kNewFileLineEnd;
    // The file as last read or written here.
    mutable std::optional<FileStamp> stamp_;
    std::uint64_t serial_ = nextSerial();
};

}  // namespace ardo
