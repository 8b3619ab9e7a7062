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

// How an entry names a chosen linetype file: by its name alone when the host finds that
// very file along its support folders, as the suite's installations do, else by its path.
std::string linetypeFileReference(const std::string& path);

}  // namespace ardo
