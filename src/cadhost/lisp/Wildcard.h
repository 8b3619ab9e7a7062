#pragma once
// AutoCAD wildcard matching as wcmatch, ssget filters and the command processor use it:
//   #  a digit            @  a letter          .  a character that is neither
//   *  any sequence       ?  any character     ~  (first) anything but the pattern
//   [...] one of the characters, ranges a-z allowed; [~...] none of them
//   `  takes the next character literally;  ,  separates alternative patterns
#include <string_view>

namespace cadhost::lisp {

// wcmatch compares case-sensitively; ssget filters and table names ignore case.
bool wildcardMatch(std::string_view text, std::string_view pattern, bool ignoreCase = false);

}  // namespace cadhost::lisp
