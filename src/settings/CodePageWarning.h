#pragma once
// A module file written in a code page that lacks some of its characters gets '?' in their
// place, and the next start reads other names. The user is told which keys lose what.
#include <string>

namespace ardo {

// Prints one warning per line of `text` (the file's content before encoding) that holds
// characters the module files' code page cannot store, naming the key and the characters.
void warnCharactersNotInCodePage(const std::string& path, const std::string& text);

}  // namespace ardo
