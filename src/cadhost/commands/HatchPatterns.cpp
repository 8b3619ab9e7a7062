#include "cadhost/commands/HatchPatterns.h"

#include <cmath>

#include "cadhost/commands/NewEntity.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

// One line family as pattern files give it: angle in degrees, origin, offset to the next
// line along and across the line, and dashes (drawn > 0, gap < 0, dot 0), in drawing units
// at scale 1.
struct Family {
    double angle, x, y, along, across;
    std::vector<double> dashes;
};

struct Pattern {
    std::string_view name;
    std::vector<Family> families;
};

const std::vector<Pattern>& patterns() {
    constexpr double d = 0.176776695;   // an eighth of an inch times the square root of two
    static const std::vector<Pattern> table{
        {"SOLID", {}},
        {"ANSI31", {{45, 0, 0, 0, 0.125, {}}}},
        {"ANSI32", {{45, 0, 0, 0, 0.375, {}}, {45, d, 0, 0, 0.375, {}}}},
        {"ANSI33", {{45, 0, 0, 0, 0.25, {}}, {45, d, 0, 0, 0.25, {0.125, -0.0625}}}},
        {"ANSI34", {{45, 0, 0, 0, 0.75, {}}, {45, d, 0, 0, 0.75, {}}, {45, 2 * d, 0, 0, 0.75, {}}, {45, 3 * d, 0, 0, 0.75, {}}}},
        {"ANSI35", {{45, 0, 0, 0, 0.25, {}}, {45, d, 0, 0, 0.25, {0.3125, -0.0625, 0, -0.0625}}}},
        {"ANSI36", {{45, 0, 0, 0.21875, 0.125, {0.3125, -0.0625, 0, -0.0625}}}},
        {"ANSI37", {{45, 0, 0, 0, 0.125, {}}, {135, 0, 0, 0, 0.125, {}}}},
        {"ANSI38", {{45, 0, 0, 0, 0.125, {}}, {135, 0, 0, 0.25, 0.125, {0.125, -0.25}}}},
        {"LINE", {{0, 0, 0, 0, 0.125, {}}}},
        {"NET", {{0, 0, 0, 0, 0.125, {}}, {90, 0, 0, 0, 0.125, {}}}},
        {"DOTS", {{0, 0, 0, 0.03125, 0.0625, {0, -0.0625}}}},
    };
    return table;
}

const Pattern* find(std::string_view name) {
    const std::string key = ardo::upperCase(name);
    for (const Pattern& p : patterns())
        if (p.name == key) return &p;
    return nullptr;
}

ardo::Point3 turned(double x, double y, double radians) {
    return {x * std::cos(radians) - y * std::sin(radians), x * std::sin(radians) + y * std::cos(radians), 0};
}

}  // namespace

std::vector<std::string_view> hatchPatternNames() {
    std::vector<std::string_view> names;
    for (const Pattern& p : patterns()) names.push_back(p.name);
    return names;
}

std::optional<std::string_view> findHatchPattern(std::string_view name) {
    if (const Pattern* p = find(name)) return p->name;
    return std::nullopt;
}

std::vector<EntityTag> hatchPatternTags(std::string_view name, double scale, double angle) {
    std::vector<EntityTag> out;
    const Pattern* pattern = find(name);
    if (!pattern) return out;
    for (const Family& f : pattern->families) {
        const double line = f.angle * M_PI / 180 + angle;
        const ardo::Point3 base = turned(f.x * scale, f.y * scale, angle);
        // The offset is written in drawing axes: along and across the line, turned with it.
        const ardo::Point3 offset = turned(f.along * scale, f.across * scale, line);
        out.push_back({53, dxfDegrees(line)});
        out.push_back({43, dxfNumber(base[0])});
        out.push_back({44, dxfNumber(base[1])});
        out.push_back({45, dxfNumber(offset[0])});
        out.push_back({46, dxfNumber(offset[1])});
        out.push_back({79, std::to_string(f.dashes.size())});
        for (double dash : f.dashes) out.push_back({49, dxfNumber(dash * scale)});
    }
    return out;
}

}  // namespace cadhost::commands
