#pragma once
// What the drawing commands share: points from command-line input, and new entities of
// model space with the current layer, colour, linetype and lineweight.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

// The point an input gives: a point token, or typed text ("x,y", "@dx,dy", "@d<a", ...)
// read from LASTPOINT. An accepted point becomes LASTPOINT. Nothing for anything else.
std::optional<ardo::Point3> pointInput(Drawing& drawing, const ardo::ResBuf& input);

// A distance typed as a number, or given as a point whose distance from `base` counts.
std::optional<double> distanceInput(Drawing& drawing, const ardo::ResBuf& input, const ardo::Point3& base);

// An angle typed in degrees (as the drafter types it, "45", "45d30'"), or given as a point
// whose direction from `base` counts; in radians.
std::optional<double> angleInput(Drawing& drawing, const ardo::ResBuf& input, const ardo::Point3& base);
// A number typed or given; nothing for anything else.
std::optional<double> numberInput(const ardo::ResBuf& input);

// "2.5000", as prompts show a default length.
std::string shownLength(double value);

// Old drawings have neither subclass markers nor lineweights.
bool hasSubclassMarkers(const Drawing& drawing);

// Adds an entity with CLAYER, CECOLOR, CELTYPE and CELWEIGHT; `data` follows the entity's
// subclass marker. The new entity, or nothing when the drawing refused it.
std::optional<Handle> addEntity(Drawing& drawing, std::string_view type, std::string_view subclass,
                                std::vector<EntityTag> data);
// The same with the records that follow the entity (an INSERT's ATTRIBs), given whole.
std::optional<Handle> addEntity(Drawing& drawing, std::string_view type, std::string_view subclass,
                                std::vector<EntityTag> data, const Drawing::EntityRecords& parts);
// The common groups a new entity takes: marker, CLAYER, CELTYPE, CECOLOR, CELWEIGHT.
std::vector<EntityTag> currentProperties(const Drawing& drawing);

// The last step of a drawing command: adds the entity as addEntity does; when the drawing
// refuses it, tells the user that `what` ("The arc") could not be added.
Step finishWith(Context& context, std::string_view type, std::string_view subclass, std::vector<EntityTag> data,
                std::string_view what);
// Tells the user why the input was refused; the command asks again at the same prompt.
Step askAgain(const Context& context, const char* why);

// Tags for a point: x, y and z under `code`, `code`+10 and `code`+20.
void appendPoint(std::vector<EntityTag>& tags, int code, const ardo::Point3& p);
std::string dxfNumber(double value);
// An angle in radians as a DXF angle in degrees.
std::string dxfDegrees(double radians);

}  // namespace cadhost::commands
