#pragma once
// The profile-string functions of Windows over the module's 8-bit INI files. Sections and
// keys are found without regard to case, blanks around keys and values do not count, and a
// value enclosed in a matching pair of double or single quotes is read without them.
// Writing changes only the line it must and keeps every other line, comment and line end
// byte for byte; a file read and written back unchanged stays byte-identical, and the file
// is replaced atomically.
//
// Lines: "[name]" (first non-blank '[' up to the first ']') is a section header; a line
// whose first non-blank is ';' is a comment; "key=value" with a non-empty key is a key line.
// Every other line (no '=', an unterminated '[', an empty key) is kept but means nothing.
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "settings/ProfileFile.h"

namespace ardo {

struct ProfileText {
    // The value or the default, when both section and key were given.
    std::string text;
    // The section names (no section given) or the key names of the section (no key given),
    // in file order; the last one may be cut short by the buffer size.
    std::vector<std::string> names;
    // What Windows returns: the characters copied, without the final terminator; size-1
    // for a value cut short, size-2 for a list cut short.
    size_t length = 0;
};

// size is the caller's buffer in characters, terminators included: a value is cut to
// size-1 characters. A missing default reads as empty, and a default's trailing blanks
// are dropped. A missing or unreadable file reads as empty.
ProfileText GetPrivateProfileStringW(const std::optional<std::string>& section,
                                     const std::optional<std::string>& key,
                                     const std::optional<std::string>& defaultText, size_t size,
                                     const std::string& path);

// The same over a file read once, for callers that read many keys of one file.
ProfileText readProfileString(const std::optional<std::string>& section, const std::optional<std::string>& key,
                              const std::optional<std::string>& defaultText, size_t size,
                              const ProfileFile& file);

// Sets key=value in the section, creating the file, the section (at the end of the file)
// and the key (after the section's last key) when missing. No value deletes the key; no
// key deletes the whole section with its lines. Deleting what is not there, or setting the
// value a key already has, leaves the file untouched. No section: nothing is written (true
// only for the all-empty call, which flushes Windows' cache). False when the file cannot
// be written, or when a name or value would not stay one line ("\n", "\r", NUL; ']' in a
// section name; '=' in a key).
bool WritePrivateProfileStringW(const std::optional<std::string>& section,
                                const std::optional<std::string>& key,
                                const std::optional<std::string>& value, const std::string& path);

}  // namespace ardo
