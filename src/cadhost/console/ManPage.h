#pragma once
// The manual page ardo-cad.1, written from the option table that --help prints too.
#include <string>

namespace cadhost::console {

// The page in man(7) format for the given program version.
std::string manPage(const std::string& version);

}  // namespace cadhost::console
