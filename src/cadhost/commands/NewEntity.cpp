#include "cadhost/commands/NewEntity.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "cadhost/commands/TypedInput.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

std::optional<ardo::Point3> pointInput(Drawing& drawing, const ardo::ResBuf& input) {
    std::optional<ardo::Point3> p;
    if (input.restype == ardo::RTPOINT || input.restype == ardo::RT3DPOINT) {
        p = input.point;
    } else if (input.restype == ardo::RTSTR) {
        const auto last = drawing.getVar("LASTPOINT");
        p = parsePoint(input.text, last ? last->point : ardo::Point3{});
    }
    if (p) drawing.setVar("LASTPOINT", ardo::ResBuf::point3(*p));
    return p;
}

std::optional<double> numberInput(const ardo::ResBuf& input) {
    switch (input.restype) {
        case ardo::RTREAL: return input.real;
        case ardo::RTSHORT:
        case ardo::RTLONG: return static_cast<double>(input.integer);
        case ardo::RTSTR: return parseReal(input.text);
        default: return std::nullopt;
    }
}

std::optional<double> distanceInput(Drawing& drawing, const ardo::ResBuf& input, const ardo::Point3& base) {
    if (const auto number = numberInput(input)) return number;
    if (const auto p = pointInput(drawing, input)) return distanceBetween(base, *p);
    return std::nullopt;
}

std::optional<double> angleInput(Drawing& drawing, const ardo::ResBuf& input, const ardo::Point3& base) {
    if (input.restype == ardo::RTSTR) {
        if (const auto angle = parseAngle(input.text)) return angle;
    } else if (const auto degrees = numberInput(input)) {
        return *degrees * M_PI / 180;
    }
    if (const auto p = pointInput(drawing, input)) return angleBetween(base, *p);
    return std::nullopt;
}

std::string shownLength(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.4f", value);
    return text;
}

bool hasSubclassMarkers(const Drawing& drawing) { return drawing.acadVersion() > "AC1009"; }

std::string dxfNumber(double value) {
    if (value == 0) value = 0;   // no "-0.0" in the file
    // The shortest text that reads back as the same number; printf's is many times slower.
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text - 2, value).ptr;
    std::string out(text, end);
    if (out.find_first_of(".eEn") == std::string::npos) out += ".0";
    return out;
}

std::string dxfDegrees(double radians) { return dxfNumber(radians * 180 / M_PI); }

void appendPoint(std::vector<EntityTag>& tags, int code, const ardo::Point3& p) {
    for (int i = 0; i < 3; ++i) tags.push_back({code + 10 * i, dxfNumber(p[static_cast<std::size_t>(i)])});
}

std::vector<EntityTag> currentProperties(const Drawing& drawing) {
    const bool r12 = !hasSubclassMarkers(drawing);
    std::vector<EntityTag> tags;
    if (!r12) tags.push_back({100, "AcDbEntity"});
    const auto layer = drawing.getVar("CLAYER");
    tags.push_back({8, layer ? layer->text : "0"});
    if (const auto linetype = drawing.getVar("CELTYPE"); linetype && !linetype->text.empty() &&
                                                          ardo::upperCase(linetype->text) != "BYLAYER")
        tags.push_back({6, linetype->text});
    for (EntityTag& color : drawing.currentColorTags()) tags.push_back(std::move(color));
    if (const auto weight = drawing.getVar("CELWEIGHT"); !r12 && weight && weight->integer != -1)
        tags.push_back({370, std::to_string(weight->integer)});
    return tags;
}

std::optional<Handle> addEntity(Drawing& drawing, std::string_view type, std::string_view subclass,
                                std::vector<EntityTag> data) {
    return addEntity(drawing, type, subclass, std::move(data), {});
}

std::optional<Handle> addEntity(Drawing& drawing, std::string_view type, std::string_view subclass,
                                std::vector<EntityTag> data, const Drawing::EntityRecords& parts) {
    std::vector<EntityTag> tags{{0, std::string(type)}};
    for (EntityTag& common : currentProperties(drawing)) tags.push_back(std::move(common));
    if (hasSubclassMarkers(drawing)) tags.push_back({100, std::string(subclass)});
    tags.insert(tags.end(), std::make_move_iterator(data.begin()), std::make_move_iterator(data.end()));
    return drawing.makeEntity(tags, parts);
}

Step finishWith(Context& context, std::string_view type, std::string_view subclass, std::vector<EntityTag> data,
                std::string_view what) {
    if (addEntity(*context.drawing, type, subclass, std::move(data))) return Step::Done;
    context.message(std::string(what) + " could not be added to the drawing.\n");
    return Step::Refused;
}

Step askAgain(const Context& context, const char* why) {
    context.message(why);
    return Step::More;
}

}  // namespace cadhost::commands
