// The ssget modes that choose entities by geometry or by asking at "Select objects:".
#include "cadhost/app/Application.h"
#include "cadhost/app/CadLispHost.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/geometry/Picking.h"
#include "cadhost/lisp/SelectionSet.h"

namespace cadhost {

namespace {

std::vector<std::int64_t> ids(const std::vector<Handle>& handles) { return {handles.begin(), handles.end()}; }

}  // namespace

std::optional<std::vector<std::int64_t>> CadLispHost::selectEntities(const std::string& mode,
                                                                     const std::vector<ardo::Point3>& points) {
    using geometry::Region;
    const Drawing& drawing = document_.drawing();
    if (mode == ".") {
        const auto hit = geometry::pickAt(drawing, points.front(), geometry::pickAperture(drawing));
        return hit ? std::vector<std::int64_t>{static_cast<std::int64_t>(*hit)} : std::vector<std::int64_t>{};
    }
    if (mode == "W" || mode == "C")
        return ids(geometry::selectByPolygon(drawing, geometry::rectangle(points[0], points[1]),
                                             mode == "W" ? Region::Window : Region::Crossing));
    if (mode == "F") return ids(geometry::selectByFence(drawing, points));
    if (mode == "WP" || mode == "CP")
        return ids(geometry::selectByPolygon(drawing, points, mode == "WP" ? Region::Window : Region::Crossing));

    commands::ObjectSelection selection(
        drawing, previousSelection(),
        [this](std::int64_t set) {
            const auto members = document_.lisp().selectionSet(set);
            return members ? members->entities : std::vector<std::int64_t>{};
        },
        mode == ":S");
    UserInterface& ui = app_.ui();
    const commands::ObjectSelection::Voice voice{[&ui](const std::string& t) { ui.print(t); },
                                                 [&ui](const std::string& t) { ui.print(t); }};
    for (;;) {
        const auto answer = ui.ask(selection.prompt(), selection.request());
        if (!answer) return std::nullopt;
        commands::ObjectSelection::Outcome outcome;
        if (!answer->entities.empty()) outcome = selection.add(answer->entities, voice);
        else if (answer->point) outcome = selection.take(ardo::ResBuf::point3(*answer->point), voice);
        else outcome = selection.take(ardo::ResBuf::str(answer->text.value_or(std::string())), voice);
        if (outcome == commands::ObjectSelection::Outcome::Done) return selection.selected();
    }
}

}  // namespace cadhost
