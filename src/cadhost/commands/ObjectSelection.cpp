#include "cadhost/commands/ObjectSelection.h"

#include <algorithm>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

constexpr const char* kInvalidSelection =
    "*Invalid selection*\nExpects a point or "
    "Window/Last/Crossing/Fence/WPolygon/CPolygon/ALL/Previous/Add/Remove\n";

std::vector<std::int64_t> ids(const std::vector<Handle>& handles) {
    return {handles.begin(), handles.end()};
}

}  // namespace

ObjectSelection::ObjectSelection(const Drawing& drawing, std::vector<std::int64_t> previous, Members members,
                                 bool single)
    : drawing_(drawing), previous_(std::move(previous)), members_(std::move(members)), single_(single) {}

std::string ObjectSelection::prompt() const {
    switch (stage_) {
        case Stage::Objects: return removing_ ? "Remove objects: " : "Select objects: ";
        case Stage::FirstCorner: return "Specify first corner: ";
        case Stage::OppositeCorner: return "Specify opposite corner: ";
        case Stage::FirstVertex: return shape_ == Shape::Fence ? "Specify first fence point: " : "First polygon point: ";
        case Stage::NextVertex: return "Specify endpoint of line or [Undo]: ";
    }
    return {};
}

InputRequest ObjectSelection::request() const {
    if (stage_ == Stage::Objects) {
        InputRequest objects;
        objects.kind = InputRequest::Kind::Objects;
        objects.takesPickfirst = selected_.empty() && !removing_;
        return objects;
    }
    return pointRequest(points_.empty() ? std::nullopt : std::optional(points_.back()), stage_ == Stage::OppositeCorner);
}

std::optional<ardo::Point3> ObjectSelection::pointOf(const ardo::ResBuf& input) const {
    if (input.restype == ardo::RTPOINT || input.restype == ardo::RT3DPOINT) return input.point;
    if (input.restype != ardo::RTSTR) return std::nullopt;
    return parsePoint(input.text, points_.empty() ? ardo::Point3{} : points_.back());
}

std::vector<std::int64_t> ObjectSelection::everything() const {
    std::vector<std::int64_t> out;
    drawing_.forEachEntity([&](const EntityInfo& e) {
        out.push_back(static_cast<std::int64_t>(e.handle));
        return true;
    });
    return out;
}

std::vector<std::int64_t> ObjectSelection::regionResult() {
    using geometry::Region;
    switch (shape_) {
        case Shape::Window:
        case Shape::Crossing: {
            // A window opened by a miss and dragged from right to left crosses, as in the
            // common hosts.
            const bool crossing =
                shape_ == Shape::Crossing || (implied_ && points_[1][0] < points_[0][0]);
            regions_.push_back(geometry::rectangle(points_[0], points_[1]));
            return ids(geometry::selectByPolygon(drawing_, regions_.back(), crossing ? Region::Crossing : Region::Window));
        }
        case Shape::Fence: return ids(geometry::selectByFence(drawing_, points_));
        case Shape::WPolygon:
        case Shape::CPolygon:
            regions_.push_back(points_);
            return ids(geometry::selectByPolygon(drawing_, points_,
                                                 shape_ == Shape::WPolygon ? Region::Window : Region::Crossing));
    }
    return {};
}

ObjectSelection::Outcome ObjectSelection::take(const ardo::ResBuf& input,
                                               const Voice& voice) {
    const auto point = pointOf(input);
    switch (stage_) {
        case Stage::FirstCorner:
        case Stage::OppositeCorner:
            if (!point) {
                voice.complain(kInvalidPoint);
                return Outcome::Refused;
            }
            points_.push_back(*point);
            if (stage_ == Stage::FirstCorner) {
                stage_ = Stage::OppositeCorner;
                return Outcome::More;
            }
            stage_ = Stage::Objects;
            return add(regionResult(), voice);
        case Stage::FirstVertex:
        case Stage::NextVertex: {
            if (isEnter(input) && stage_ == Stage::NextVertex) {
                const std::size_t needed = shape_ == Shape::Fence ? 2 : 3;
                stage_ = Stage::Objects;
                if (points_.size() < needed) return Outcome::More;
                return add(regionResult(), voice);
            }
            if (stage_ == Stage::NextVertex && matchKeyword(input, {"Undo"})) {
                points_.pop_back();
                if (points_.empty()) stage_ = Stage::FirstVertex;
                return Outcome::More;
            }
            if (!point) {
                voice.complain(kInvalidPoint);
                return Outcome::Refused;
            }
            points_.push_back(*point);
            stage_ = Stage::NextVertex;
            return Outcome::More;
        }
        case Stage::Objects: break;
    }
    if (isEnter(input)) return Outcome::Done;
    if (input.restype == ardo::RTENAME) {
        if (!drawing_.entity(static_cast<Handle>(input.integer))) {
            voice.complain(kInvalidSelection);
            return Outcome::Refused;
        }
        return add({input.integer}, voice);
    }
    if (input.restype == ardo::RTPICKS) return add(members_ ? members_(input.integer) : std::vector<std::int64_t>{}, voice);
    if (point) {
        const auto hit = geometry::pickAt(drawing_, *point, geometry::pickAperture(drawing_));
        points_ = {*point};
        if (hit) return add({static_cast<std::int64_t>(*hit)}, voice);
        // A miss starts a window from there, as a click beside the objects does.
        shape_ = Shape::Window;
        implied_ = true;
        stage_ = Stage::OppositeCorner;
        return Outcome::More;
    }
    const auto keyword = matchKeyword(
        input, {"Window", "Last", "Crossing", "Fence", "WPolygon", "CPolygon", "ALL", "Previous", "Add", "Remove"});
    if (!keyword) {
        voice.complain(kInvalidSelection);
        return Outcome::Refused;
    }
    points_.clear();
    implied_ = false;
    switch (*keyword) {
        case 0: shape_ = Shape::Window; stage_ = Stage::FirstCorner; return Outcome::More;
        case 2: shape_ = Shape::Crossing; stage_ = Stage::FirstCorner; return Outcome::More;
        case 3: shape_ = Shape::Fence; stage_ = Stage::FirstVertex; return Outcome::More;
        case 4: shape_ = Shape::WPolygon; stage_ = Stage::FirstVertex; return Outcome::More;
        case 5: shape_ = Shape::CPolygon; stage_ = Stage::FirstVertex; return Outcome::More;
        case 1: {
            const auto all = everything();
            return add(all.empty() ? all : std::vector<std::int64_t>{all.back()}, voice);
        }
        case 6: return add(everything(), voice);
        case 7: return add(previous_, voice);
        default: removing_ = *keyword == 9; return Outcome::More;
    }
}

ObjectSelection::Outcome ObjectSelection::add(const std::vector<std::int64_t>& found,
                                              const Voice& voice) {
    std::size_t changed = 0;
    std::unordered_set<std::int64_t> removed;
    for (std::int64_t e : found) {
        if (!removing_ && chosen_.insert(e).second) {
            selected_.push_back(e);
            ++changed;
        } else if (removing_ && chosen_.erase(e) != 0) {
            removed.insert(e);
            ++changed;
        }
    }
    if (!removed.empty()) std::erase_if(selected_, [&](std::int64_t e) { return removed.count(e) != 0; });
    std::string report = std::to_string(found.size()) + " found";
    if (!removing_ && changed < found.size()) report += " (" + std::to_string(found.size() - changed) + " duplicate)";
    if (removing_) report += ", " + std::to_string(changed) + " removed";
    voice.report(report + ", " + std::to_string(selected_.size()) + " total\n");
    return single_ && !selected_.empty() ? Outcome::Done : Outcome::More;
}

SelectingCommand::SelectingCommand(Context& context)
    : context_(context), selection_(*context.drawing, context.previousSelection, context.selectionMembers) {}

std::optional<Step> takeObjects(ObjectSelection& selection, const ardo::ResBuf& input, const Context& context) {
    const ObjectSelection::Voice voice{[&context](const std::string& text) { context.echo(text); },
                                       [&context](const std::string& text) { context.message(text); }};
    switch (selection.take(input, voice)) {
        case ObjectSelection::Outcome::More: return Step::More;
        case ObjectSelection::Outcome::Refused: return Step::Refused;
        case ObjectSelection::Outcome::Done: break;
    }
    return std::nullopt;
}

Step SelectingCommand::take(const ardo::ResBuf& input) {
    if (const auto going = takeObjects(selection_, input, context_)) return *going;
    return selected(selection_.selected());
}

}  // namespace cadhost::commands
