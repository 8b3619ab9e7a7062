#pragma once
// The "Select objects:" prompt that SELECT, the editing commands and an interactive ssget
// share: entities picked in a view or at a typed point, Window, Crossing, Fence, WPolygon,
// CPolygon, Last, ALL, Previous, Add and Remove, ended by Enter.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/InputRequest.h"
#include "cadhost/geometry/Picking.h"
#include "boundary/ResBuf.h"

namespace cadhost::commands {

class ObjectSelection {
public:
    using Members = std::function<std::vector<std::int64_t>(std::int64_t set)>;
    // `single`: the first pick or region that finds something ends the selection.
    ObjectSelection(const Drawing& drawing, std::vector<std::int64_t> previous, Members members, bool single = false);

    std::string prompt() const;
    InputRequest request() const;

    enum class Outcome { More, Done, Refused };
    // Counts ("1 found, 1 total") are reports that CMDECHO 0 silences; complaints about
    // the input are always shown.
    struct Voice {
        std::function<void(const std::string&)> report, complain;
    };
    // One input: a point (typed "x,y" or a point token), an entity name, a selection set,
    // a keyword or Enter.
    Outcome take(const ardo::ResBuf& input, const Voice& voice);
    // Entities a view found for the prompt (a pick, window or crossing there).
    Outcome add(const std::vector<std::int64_t>& found, const Voice& voice);

    const std::vector<std::int64_t>& selected() const { return selected_; }
    // The windows and polygons the objects were chosen by (STRETCH moves what lies in them).
    const std::vector<geometry::Polygon>& regions() const { return regions_; }

private:
    enum class Stage { Objects, FirstCorner, OppositeCorner, FirstVertex, NextVertex };
    enum class Shape { Window, Crossing, Fence, WPolygon, CPolygon };

    std::optional<ardo::Point3> pointOf(const ardo::ResBuf& input) const;
    std::vector<std::int64_t> regionResult();
    std::vector<std::int64_t> everything() const;

    const Drawing& drawing_;
    std::vector<std::int64_t> previous_;
    Members members_;
    bool single_;
    std::vector<std::int64_t> selected_;
    std::unordered_set<std::int64_t> chosen_;   // the same, for fast lookups in large selections
    bool removing_ = false;
    Stage stage_ = Stage::Objects;
    Shape shape_ = Shape::Window;
    bool implied_ = false;
    std::vector<ardo::Point3> points_;
    std::vector<geometry::Polygon> regions_;
};

// One input of a command's "Select objects:" prompt, with the counts echoed and complaints
// shown on the command line: More or Refused while it goes on, nothing once Enter ended it.
std::optional<Step> takeObjects(ObjectSelection& selection, const ardo::ResBuf& input, const Context& context);

// A command whose input is one "Select objects:" prompt, with the counts echoed and
// complaints shown on the command line; `selected` acts on what Enter ended with.
class SelectingCommand : public Command {
public:
    explicit SelectingCommand(Context& context);
    std::string prompt() const override { return selection_.prompt(); }
    InputRequest request() const override { return selection_.request(); }
    Step take(const ardo::ResBuf& input) final;

protected:
    virtual Step selected(const std::vector<std::int64_t>& entities) = 0;
    Context& context_;

private:
    ObjectSelection selection_;
};

}  // namespace cadhost::commands
