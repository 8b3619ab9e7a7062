#pragma once
// Starting programs without waiting for them.
#include <string>
#include <vector>

namespace ardo {

// Splits an argument text at blanks; double quotes keep words together and are removed.
std::vector<std::string> splitArguments(const std::string& text);

// Starts the program (searched along PATH when it names no folder); true when it started.
bool startProgram(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace ardo
