#pragma once
// Reading command-line input: tokens as text, Enter, option keywords.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "boundary/ResBuf.h"

namespace cadhost::commands {

// The token as the command line shows it ("0.25", "10,20,0", "<Entity name: 2F>").
std::string inputText(const ardo::ResBuf& input);
// "" answers a prompt with Enter.
bool isEnter(const ardo::ResBuf& input);

// The keyword the input names, as an index into `keywords`. Keywords carry their
// abbreviation in capitals ("LOck" is "LO", "No plot" is "N"); the input may be
// anything from the abbreviation to the whole word, in any case, with "_" before it
// for the language-independent form.
std::optional<std::size_t> matchKeyword(const ardo::ResBuf& input, const std::vector<std::string_view>& keywords);

// "Invalid option keyword." and the like end in a new line.
inline constexpr const char* kInvalidKeyword = "Invalid option keyword.\n";

}  // namespace cadhost::commands
