#include "cadhost/commands/LayerNames.h"

#include "cadhost/drawing/Drawing.h"
#include "cadhost/lisp/Wildcard.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

std::vector<std::string> matchingLayers(const Drawing& drawing, std::string_view pattern) {
    std::vector<std::string> names;
    const std::string trimmed(ardo::trimWhite(pattern));
    drawing.forEachLayer([&](const ardo::LayerRecord& layer) {
        if (lisp::wildcardMatch(layer.name, trimmed, true)) names.push_back(layer.name);
        return true;
    });
    return names;
}

std::vector<std::string> splitNames(std::string_view list) {
    std::vector<std::string> names;
    std::size_t start = 0;
    while (start <= list.size()) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        const auto name = ardo::trimWhite(list.substr(start, comma - start));
        if (!name.empty()) names.emplace_back(name);
        start = comma + 1;
    }
    return names;
}

std::string currentLayer(const Drawing& drawing) {
    const auto clayer = drawing.getVar("CLAYER");
    return clayer ? clayer->text : std::string("0");
}

bool isCurrentLayer(const Drawing& drawing, std::string_view name) {
    return foldName(name) == foldName(currentLayer(drawing));
}

}  // namespace cadhost::commands
