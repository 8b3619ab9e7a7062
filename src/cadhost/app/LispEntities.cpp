// entmake: DXF groups from LISP become an entity of model space, with the subclass markers
// and the current layer filled in where the list leaves them out, as the common hosts do;
// entmod, entdel and handent on the drawing's entities.
#include <map>
#include <string_view>
#include <utility>

#include "cadhost/app/CadLispHost.h"
#include "cadhost/app/Document.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/dxf/GroupCode.h"
#include "cadhost/dxf/TagValue.h"
#include "base/CaseFold.h"

namespace cadhost {

namespace {

// Groups of every entity, which belong before the type's own subclass marker.
bool isCommonGroup(int code) {
    switch (code) {
        case 6: case 8: case 48: case 60: case 62: case 67: case 370: case 420: case 430: case 440: return true;
        default: return false;
    }
}

std::string_view subclassOf(std::string_view type) {
    static constexpr std::pair<std::string_view, std::string_view> known[] = {
        {"LINE", "AcDbLine"},         {"CIRCLE", "AcDbCircle"},   {"ARC", "AcDbCircle"},
        {"POINT", "AcDbPoint"},       {"LWPOLYLINE", "AcDbPolyline"}, {"TEXT", "AcDbText"},
        {"MTEXT", "AcDbMText"},       {"ELLIPSE", "AcDbEllipse"}, {"INSERT", "AcDbBlockReference"},
        {"SOLID", "AcDbTrace"},       {"HATCH", "AcDbHatch"},     {"SPLINE", "AcDbSpline"},
    };
    for (const auto& [name, subclass] : known)
        if (name == type) return subclass;
    return {};
}

// Registers the applications that extended data in the groups names.
void registerApplications(Drawing& drawing, const ardo::ResBufChain& groups) {
    for (const ardo::ResBuf& g : groups)
        if (g.restype == 1001) drawing.registerApplication(g.text);
}

void appendGroup(std::vector<EntityTag>& tags, const ardo::ResBuf& g) {
    const int code = g.restype;
    // Names, handles and owners are the drawing's to give.
    if (code == 5 || !isValidGroupCode(code) || valueKind(code) == ValueKind::Handle) return;
    if (startsPoint(code)) {
        commands::appendPoint(tags, code, g.point);
        return;
    }
    switch (valueKind(code)) {
        case ValueKind::String:
        case ValueKind::Binary: tags.push_back({code, g.text}); return;
        case ValueKind::Double: {
            // (40 . 2) gives an integer where a real belongs.
            const double value = g.real != 0 ? g.real : static_cast<double>(g.integer);
            tags.push_back({code, isAngleGroup(code) ? commands::dxfDegrees(value) : commands::dxfNumber(value)});
            return;
        }
        default: tags.push_back({code, std::to_string(g.integer)}); return;
    }
}

}  // namespace

std::int64_t CadLispHost::entMake(const ardo::ResBufChain& groups) {
    Drawing& drawing = document_.drawing();
    if (groups.empty() || groups.front().restype != 0 || groups.front().text.empty()) return 0;
    const std::string type = ardo::upperCase(groups.front().text);
    bool hasLayer = false, hasMarkers = false;
    for (const ardo::ResBuf& g : groups) {
        hasLayer = hasLayer || g.restype == 8;
        hasMarkers = hasMarkers || g.restype == 100;
    }
    const bool markers = !hasMarkers && drawing.acadVersion() > "AC1009";
    std::vector<EntityTag> tags{{0, type}};
    if (markers) tags.push_back({100, "AcDbEntity"});
    if (!hasLayer) {
        const auto layer = drawing.getVar("CLAYER");
        tags.push_back({8, layer ? layer->text : "0"});
    }
    const auto rest = groups.begin() + 1;
    // With the list's own markers its order is kept; otherwise the common groups come first.
    for (auto g = rest; g != groups.end(); ++g)
        if (!markers || isCommonGroup(g->restype)) appendGroup(tags, *g);
    if (markers) {
        if (const auto subclass = subclassOf(type); !subclass.empty()) tags.push_back({100, std::string(subclass)});
        bool arcMarked = false;
        for (auto g = rest; g != groups.end(); ++g) {
            if (isCommonGroup(g->restype)) continue;
            if (type == "ARC" && !arcMarked && (g->restype == 50 || g->restype == 51)) {
                tags.push_back({100, "AcDbArc"});
                arcMarked = true;
            }
            appendGroup(tags, *g);
        }
    }
    registerApplications(drawing, groups);
    const auto made = drawing.makeEntity(tags);
    return made ? static_cast<std::int64_t>(*made) : 0;
}

bool CadLispHost::entMod(std::int64_t entity, const ardo::ResBufChain& groups) {
    Drawing& drawing = document_.drawing();
    const auto handle = static_cast<Handle>(entity);
    const std::vector<EntityTag> before = drawing.entityTags(handle);
    if (before.empty()) return false;
    // References to other objects keep the values the entity has: the list names them as
    // entity names, which the drawing resolves, not the list.
    std::map<int, std::size_t> referenceSeen;
    std::vector<EntityTag> tags;
    for (const ardo::ResBuf& g : groups) {
        if (g.restype == -1 || g.restype == 5) continue;
        if (isValidGroupCode(g.restype) && valueKind(g.restype) == ValueKind::Handle) {
            std::size_t k = referenceSeen[g.restype]++;
            for (const EntityTag& t : before)
                if (t.code == g.restype && k-- == 0) {
                    tags.push_back(t);
                    break;
                }
            continue;
        }
        appendGroup(tags, g);
    }
    registerApplications(drawing, groups);
    return drawing.modifyEntity(handle, tags) == ardo::DbStatus::Ok;
}

bool CadLispHost::entDel(std::int64_t entity) {
    Drawing& drawing = document_.drawing();
    const auto handle = static_cast<Handle>(entity);
    if (drawing.entity(handle)) return drawing.eraseEntity(handle) == ardo::DbStatus::Ok;
    return drawing.isErasedEntity(handle) && drawing.restoreEntity(handle) == ardo::DbStatus::Ok;
}

std::int64_t CadLispHost::handEnt(const std::string& text) {
    const Handle handle = toHandle(text);
    const Drawing& drawing = document_.drawing();
    return handle != 0 && (drawing.entity(handle) || drawing.isErasedEntity(handle)) ? static_cast<std::int64_t>(handle) : 0;
}

}  // namespace cadhost
