#include "cadhost/commands/Viewports.h"

#include <algorithm>

#include "cadhost/dxf/TagValue.h"

namespace cadhost::commands {

namespace {

// The paper-space view of a layout has ID 1; floating viewports have higher IDs.
constexpr long long kPaperSpaceViewportId = 1;

long long groupValue(const Drawing& drawing, Handle viewport, int code, long long fallback) {
    for (const EntityTag& tag : drawing.entityTags(viewport))
        if (tag.code == code) return toInteger(tag.value, fallback);
    return fallback;
}

bool isFloating(const Drawing& drawing, Handle viewport) {
    return groupValue(drawing, viewport, 69, kPaperSpaceViewportId) > kPaperSpaceViewportId;
}

}  // namespace

std::vector<Handle> layoutViewports(const Drawing& drawing) {
    std::vector<Handle> out;
    for (Handle h : drawing.viewports()) {
        const auto info = drawing.entity(h);
        if (info && info->space == Space::Paper && isFloating(drawing, h)) out.push_back(h);
    }
    return out;
}

std::vector<Handle> allFloatingViewports(const Drawing& drawing) {
    std::vector<Handle> out;
    for (Handle h : drawing.viewports())
        if (isFloating(drawing, h)) out.push_back(h);
    return out;
}

std::optional<Handle> currentViewport(const Drawing& drawing) {
    const auto viewports = layoutViewports(drawing);
    if (const auto cvport = drawing.getVar("CVPORT")) {
        for (Handle h : viewports)
            if (groupValue(drawing, h, 69, 0) == cvport->integer) return h;
    }
    for (Handle h : viewports)
        if (groupValue(drawing, h, 68, 1) > 0) return h;
    return std::nullopt;
}

void freezeInViewport(Drawing& drawing, Handle viewport, const std::vector<std::string>& layers, bool freeze) {
    std::vector<std::string> frozen = drawing.viewportFrozenLayers(viewport);
    const auto listed = [&](const std::string& name) {
        return std::find_if(frozen.begin(), frozen.end(),
                            [&](const std::string& f) { return foldName(f) == foldName(name); });
    };
    for (const std::string& name : layers) {
        const auto at = listed(name);
        if (freeze && at == frozen.end()) frozen.push_back(name);
        if (!freeze && at != frozen.end()) frozen.erase(at);
    }
    drawing.setViewportFrozenLayers(viewport, frozen);
}

}  // namespace cadhost::commands
