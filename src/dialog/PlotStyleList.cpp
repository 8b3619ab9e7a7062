#include "dialog/PlotStyleList.h"

#include <algorithm>
#include <map>

#include "base/CaseFold.h"
#include "module/HostBinding.h"

namespace ardo {

namespace {

constexpr const char* kNormal = "Normal";

}  // namespace

std::vector<std::string> plotStyleNames(const CentralLayerFile& list) {
    // By upper-case name: one spelling per name, the first met.
    std::map<std::string, std::string> named;
    const auto add = [&](const std::string& name) {
        if (!name.empty() && !equalsNoCase(name, kNormal)) named.emplace(upperCase(name), name);
    };
    if (const HostDrawing* drawing = host().workingDrawing())
        drawing->forEachLayer([&](const LayerRecord& layer) {
            add(layer.plotStyleName);
            return true;
        });
    for (const auto& e : list.entries()) {
        if (e->isDeleted()) continue;
        add(e->filePlotStyle);
        add(e->dwgPlotStyle);
    }
    std::vector<std::string> names{kNormal};
    for (const auto& [upper, name] : named) names.push_back(name);
    return names;
}

int plotStyleRow(const std::vector<std::string>& names, const std::string& name) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& n) { return equalsNoCase(n, name); });
    return found == names.end() ? 0 : static_cast<int>(found - names.begin());
}

}  // namespace ardo
