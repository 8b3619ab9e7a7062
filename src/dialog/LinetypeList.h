#pragma once
// The linetypes a linetype definition file (".lin") defines, as the linetype picker lists
// them: "Continuous" first, then every "*name,description" line in file order.
#include <string>
#include <vector>

namespace ardo {

struct LinetypeRow {
    std::string name;
    std::string description;
};

// Empty when the file cannot be read, without even "Continuous".
std::vector<LinetypeRow> linetypesOfFile(const std::string& path);

// One definition line (its first character is "*"); false for any other line.
bool parseLinetypeLine(const std::string& line, LinetypeRow& row);

}  // namespace ardo
