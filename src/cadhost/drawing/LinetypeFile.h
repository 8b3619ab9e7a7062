#pragma once
// Linetype definitions of a ".lin" file: "*NAME,description" followed by the pattern line
// "A,dash,gap,..." whose elements may carry a text ["TEXT",style,...] or a shape
// [NAME,file.shx,...].
#include <optional>
#include <string>
#include <vector>

namespace cadhost {

struct LinetypeElement {
    double length = 0;            // > 0 dash, < 0 gap, 0 dot
    enum class Kind { Simple, Text, Shape } kind = Kind::Simple;
    std::string content;          // the text, or the shape's name
    std::string styleOrFile;      // text style name, or shape file
    double scale = 1, rotationRadians = 0, xOffset = 0, yOffset = 0;
    bool absoluteRotation = false;
};

struct LinetypeDefinition {
    std::string name, description;
    std::vector<LinetypeElement> elements;
    double patternLength() const;
};

// The definition named `name` (without regard to case) from the file's UTF-8 text;
// nothing when the file does not define it.
std::optional<LinetypeDefinition> findLinetype(const std::string& linText, const std::string& name);

}  // namespace cadhost
