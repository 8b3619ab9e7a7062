#include "cadhost/drawing/LinetypeFile.h"

#include <cmath>
#include <sstream>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

namespace {

std::string trim(std::string s) {
    const auto b = s.find_first_not_of(" \t\r");
    const auto e = s.find_last_not_of(" \t\r");
    return b == std::string::npos ? std::string() : s.substr(b, e - b + 1);
}

// Splits at commas outside brackets and quotes.
std::vector<std::string> splitFields(const std::string& line) {
    std::vector<std::string> out(1);
    bool quoted = false;
    int depth = 0;
    for (char c : line) {
        if (c == '"') quoted = !quoted;
        else if (!quoted && c == '[') ++depth;
        else if (!quoted && c == ']') --depth;
        if (c == ',' && !quoted && depth == 0) out.emplace_back();
        else out.back() += c;
    }
    for (auto& f : out) f = trim(f);
    return out;
}

// "R=45", "r=1.2r", "A=0.5g": degrees unless a unit letter says radians or grads.
double angleRadians(std::string value) {
    double factor = M_PI / 180.0;
    if (!value.empty() && (value.back() == 'r' || value.back() == 'R')) { factor = 1; value.pop_back(); }
    else if (!value.empty() && (value.back() == 'g' || value.back() == 'G')) { factor = M_PI / 200.0; value.pop_back(); }
    else if (!value.empty() && (value.back() == 'd' || value.back() == 'D')) value.pop_back();
    return toDouble(value) * factor;
}

LinetypeElement complexElement(const std::string& inner) {
    LinetypeElement e;
    const auto fields = splitFields(inner);
    const std::string& first = fields[0];
    if (!first.empty() && first.front() == '"') {
        e.kind = LinetypeElement::Kind::Text;
        e.content = first.substr(1, first.size() >= 2 ? first.size() - 2 : 0);
    } else {
        e.kind = LinetypeElement::Kind::Shape;
        e.content = first;
    }
    if (fields.size() > 1) e.styleOrFile = fields[1];
    for (std::size_t i = 2; i < fields.size(); ++i) {
        const auto eq = fields[i].find('=');
        if (eq == std::string::npos) continue;
        const std::string key = foldName(trim(fields[i].substr(0, eq)));
        const std::string value = trim(fields[i].substr(eq + 1));
        if (key == "S") e.scale = toDouble(value, 1);
        else if (key == "X") e.xOffset = toDouble(value);
        else if (key == "Y") e.yOffset = toDouble(value);
        else if (key == "R" || key == "A") { e.rotationRadians = angleRadians(value); e.absoluteRotation = key == "A"; }
    }
    return e;
}

std::vector<LinetypeElement> parsePattern(const std::string& line) {
    std::vector<LinetypeElement> elements;
    auto fields = splitFields(line);
    for (std::size_t i = 1; i < fields.size(); ++i) {   // field 0 is the alignment "A"
        const std::string& f = fields[i];
        if (f.empty()) continue;
        if (f.front() == '[') {
            // A text or shape sits at the end of the element before it.
            LinetypeElement c = complexElement(f.substr(1, f.size() >= 2 ? f.size() - 2 : 0));
            if (elements.empty()) elements.emplace_back();
            c.length = elements.back().length;
            elements.back() = c;
        } else {
            LinetypeElement e;
            e.length = toDouble(f);
            elements.push_back(e);
        }
    }
    return elements;
}

}  // namespace

double LinetypeDefinition::patternLength() const {
    double sum = 0;
    for (const auto& e : elements) sum += std::fabs(e.length);
    return sum;
}

std::optional<LinetypeDefinition> findLinetype(const std::string& linText, const std::string& name) {
    std::istringstream in(linText);
    std::string line;
    const std::string wanted = foldName(name);
    while (std::getline(in, line)) {
        line = trim(line);
        if (line.empty() || line.front() != '*') continue;
        const auto comma = line.find(',');
        const std::string found = trim(line.substr(1, comma == std::string::npos ? std::string::npos : comma - 1));
        if (foldName(found) != wanted) continue;
        LinetypeDefinition def;
        def.name = found;
        if (comma != std::string::npos) def.description = trim(line.substr(comma + 1));
        std::string pattern;
        while (std::getline(in, line)) {
            line = trim(line);
            if (line.empty() || line.front() == ';') continue;
            pattern += line;
            if (line.back() != ',') break;   // a trailing comma continues the pattern
        }
        def.elements = parsePattern(pattern);
        return def;
    }
    return std::nullopt;
}

}  // namespace cadhost
