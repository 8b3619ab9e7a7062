#pragma once
// The groups of the entity a command drew last, as tests compare them.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::test {

// The newest entity's groups among `codes`, "code=value" in file order; numbers of groups
// 10 to 59 rounded to 1e-6.
inline std::string newestGroups(const Drawing& drawing, const std::vector<int>& codes) {
    std::optional<Handle> newest;
    drawing.forEachEntity([&](const EntityInfo& e) { return newest = e.handle, true; });
    std::string out;
    if (!newest) return out;
    for (const EntityTag& t : drawing.entityTags(*newest)) {
        if (std::find(codes.begin(), codes.end(), t.code) == codes.end()) continue;
        std::string value = t.value;
        if (t.code >= 10 && t.code <= 59) {
            double v = std::round(std::stod(value) * 1e6) / 1e6;
            if (v == 0) v = 0;
            char text[40];
            std::snprintf(text, sizeof text, "%.10g", v);
            value = text;
        }
        out += (out.empty() ? "" : " ") + std::to_string(t.code) + "=" + value;
    }
    return out;
}

}  // namespace cadhost::test
