// The boundary's calls that need the person in front of the host: redraw of single
// entities, the colour dialog and entity picking, handed to the user interface.
#include "cadhost/app/Application.h"

#include "cadhost/app/Document.h"

namespace cadhost {

int Application::redraw(std::int64_t entity, int mode) {
    if (mode < 1 || mode > 4 || !current_ || entity <= 0) return ardo::RTERROR;
    // A blink phase asks this for every entity it shows: a look-up, not a read of its tags.
    if (!current_->drawing().hasEntity(static_cast<Handle>(entity))) return ardo::RTERROR;
    ui_.redrawEntity(entity, mode);
    return ardo::RTNORM;
}

int Application::colorDialog(ardo::HostColor& color, bool allowMetaColors) {
    if (auto answer = ui_.chooseColor(color, allowMetaColors)) return *answer;
    // Without a dialog the colour is typed, as the command line's colour prompts take it.
    const std::string question = allowMetaColors
                                     ? "Enter a color name or number (1-255), BYLAYER or BYBLOCK: "
                                     : "Enter a color name or number (1-255): ";
    for (;;) {
        auto typed = ui_.prompt(question);
        if (!typed) return ardo::RTCAN;
        if (typed->empty()) return ardo::RTNORM;  // Enter keeps the colour
        ardo::HostColor chosen;
        const bool known = colors_.fromAciName(*typed, chosen) || colors_.fromRgbName(*typed, chosen);
        const bool meta = chosen.method == ardo::HostColor::Method::ByLayer ||
                          chosen.method == ardo::HostColor::Method::ByBlock;
        if (known && (allowMetaColors || !meta)) {
            color = chosen;
            return ardo::RTNORM;
        }
        ui_.print("Invalid color.\n");
    }
}

int Application::entSel(const std::string& prompt, std::int64_t& entity, ardo::Point3& point) {
    if (auto answer = ui_.pickEntity(prompt, entity, point)) return *answer;
    return ardo::RTERROR;
}

}  // namespace cadhost
