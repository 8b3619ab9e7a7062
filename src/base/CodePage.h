#pragma once
// Module files are 8-bit text in a configurable code page; inside, all text is UTF-8.
// Conversion happens only at the file boundary.
#include <string>
#include <string_view>

namespace ardo {

// Selects the code page of module files by its Windows number or iconv name
// ("1252", "CP1250", "ISO-8859-15", "UTF-8"). Default: Windows-1252.
// Returns false, keeping the previous one, when the code page is unknown.
bool setFileCodePage(const std::string& name);
const std::string& fileCodePage();

// 8-bit file text to UTF-8. Every byte maps to a character, so a file read and written
// back unchanged comes out byte-identical (undefined Windows-1252 bytes map to C1 controls).
std::string decodeFileText(std::string_view bytes);
// UTF-8 to 8-bit file text; characters the code page lacks become '?'.
std::string encodeFileText(std::string_view utf8);
// The characters of the text that the code page lacks, each once, in order of appearance;
// empty when the text can be written as it is.
std::string charactersNotInFileCodePage(std::string_view utf8);

}  // namespace ardo
