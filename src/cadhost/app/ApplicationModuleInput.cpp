// The boundary's keyword and distance prompts, selection sets and entity calls: what a
// module needs to show, frame, select and erase the entities it was given.
#include "cadhost/app/Application.h"
#include "cadhost/app/InputLisp.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/lisp/SelectionSet.h"

namespace cadhost {

int Application::initGet(int bits, const std::string& keywords) {
    if (!current_) return ardo::RTERROR;
    current_->inputRules() = InputRules{bits, keywords};
    return ardo::RTNORM;
}

int Application::getKword(const std::string& prompt, std::string& result) {
    return current_ ? askKeyword(current_->lisp(), prompt, result) : ardo::RTERROR;
}

int Application::getDist(const std::string& prompt, double& result) {
    return current_ ? askDistance(current_->lisp(), prompt, result) : ardo::RTERROR;
}

int Application::ssLength(std::int64_t set, long& length) {
    const auto members = current_ ? current_->lisp().selectionSet(set) : nullptr;
    if (!members) return ardo::RTERROR;
    length = static_cast<long>(members->entities.size());
    return ardo::RTNORM;
}

int Application::ssName(std::int64_t set, long index, std::int64_t& entity) {
    const auto members = current_ ? current_->lisp().selectionSet(set) : nullptr;
    if (!members || index < 0 || static_cast<std::size_t>(index) >= members->entities.size()) return ardo::RTERROR;
    entity = members->entities[static_cast<std::size_t>(index)];
    return ardo::RTNORM;
}

int Application::ssAdd(std::int64_t entity, std::int64_t set, std::int64_t& result) {
    if (!current_) return ardo::RTERROR;
    if (entity != 0 && !current_->drawing().entity(static_cast<Handle>(entity))) return ardo::RTERROR;
    if (entity == 0 || set == 0) {
        lisp::Value made = current_->lisp().newSelectionSet(entity ? std::vector<std::int64_t>{entity}
                                                                   : std::vector<std::int64_t>{});
        result = made.asPickset().id;
        moduleSets_.emplace(result, std::move(made));
        return ardo::RTNORM;
    }
    const auto members = current_->lisp().selectionSet(set);
    if (!members) return ardo::RTERROR;
    if (!members->contains(entity)) members->entities.push_back(entity);
    result = set;
    return ardo::RTNORM;
}

int Application::ssFree(std::int64_t set) {
    if (!current_ || !current_->lisp().selectionSet(set)) return ardo::RTERROR;
    // A set LISP code still holds stays alive for it; the module only lets go.
    moduleSets_.erase(set);
    return ardo::RTNORM;
}

int Application::entityType(std::int64_t entity, std::string& type) {
    // Only the type is asked: its tag is read, not the entity's layer and space.
    const std::string_view found = current_ ? current_->drawing().entityType(static_cast<Handle>(entity)) : "";
    if (found.empty()) return ardo::RTERROR;
    type = found;
    return ardo::RTNORM;
}

int Application::entityExtents(std::int64_t entity, ardo::Point3& min, ardo::Point3& max) {
    const auto box = current_ ? current_->drawing().extents(static_cast<Handle>(entity)) : std::nullopt;
    if (!box) return ardo::RTERROR;
    min = box->min;
    max = box->max;
    return ardo::RTNORM;
}

int Application::entDel(std::int64_t entity) {
    if (!current_) return ardo::RTERROR;
    return current_->drawing().eraseEntity(static_cast<Handle>(entity)) == ardo::DbStatus::Ok ? ardo::RTNORM
                                                                                              : ardo::RTERROR;
}

int Application::addPolyline(const std::vector<ardo::Point3>& vertices, double width, const std::string& layer,
                             std::int64_t& entity) {
    if (!current_ || vertices.empty() || !current_->drawing().findLayer(layer)) return ardo::RTERROR;
    Drawing& drawing = current_->drawing();
    std::vector<EntityTag> data{{90, std::to_string(vertices.size())},
                                {70, "0"},
                                {43, commands::dxfNumber(width)},
                                {38, commands::dxfNumber(vertices.front()[2])}};
    for (const ardo::Point3& p : vertices) {
        data.push_back({10, commands::dxfNumber(p[0])});
        data.push_back({20, commands::dxfNumber(p[1])});
    }
    const auto made = commands::addEntity(drawing, "LWPOLYLINE", "AcDbPolyline", std::move(data));
    if (!made || drawing.setEntityLayer(*made, layer) != ardo::DbStatus::Ok) return ardo::RTERROR;
    entity = static_cast<std::int64_t>(*made);
    return ardo::RTNORM;
}

}  // namespace cadhost
