#include "cadhost/app/CadLispHost.h"

#include <cmath>

#include "cadhost/app/Application.h"
#include "cadhost/dxf/GroupCode.h"
#include "cadhost/lisp/Interpreter.h"
#include "base/CaseFold.h"

namespace cadhost {

using ardo::ResBuf;
using ardo::ResBufChain;

namespace {

ResBuf group(short code, std::string text) {
    ResBuf r = ResBuf::str(std::move(text));
    r.restype = code;
    return r;
}

ResBuf group(short code, std::int64_t value) {
    ResBuf r = ResBuf::longInt(value);
    r.restype = code;
    return r;
}

// The record as tblsearch shows it: the layer's flags 1 frozen, 4 locked; colour negative when off.
ResBufChain layerRecord(const ardo::LayerRecord& layer) {
    const int flags = (layer.isFrozen ? 1 : 0) | (layer.isLocked ? 4 : 0);
    const int color = layer.color.method == ardo::HostColor::Method::Index ? layer.color.index : 7;
    ResBufChain record{group(0, "LAYER"), group(2, layer.name), group(70, flags),
                       group(62, layer.isOff ? -color : color), group(6, layer.linetype)};
    if (layer.color.method == ardo::HostColor::Method::TrueColor) record.push_back(group(420, layer.color.rgb()));
    record.push_back(group(290, layer.isPlottable ? 1 : 0));
    record.push_back(group(370, layer.lineweight));
    return record;
}

}  // namespace

void CadLispHost::print(std::string_view text) { app_.ui().print(text); }

bool CadLispHost::getVar(const std::string& name, ResBuf& value) {
    return app_.getVar(document_, name, value) == ardo::RTNORM;
}

bool CadLispHost::setVar(const std::string& name, const ResBuf& value) {
    return app_.setVar(document_, name, value) == ardo::RTNORM;
}

int CadLispHost::command(const ResBufChain& tokens) { return document_.commands().feed(tokens); }

std::int64_t CadLispHost::entNext(std::int64_t after) {
    const Drawing& d = document_.drawing();
    const std::optional<Handle> next = after == 0 ? d.firstEntity() : d.nextEntity(static_cast<Handle>(after));
    return next ? static_cast<std::int64_t>(*next) : 0;
}

std::int64_t CadLispHost::entLast() {
    std::int64_t last = 0;
    document_.drawing().forEachEntity([&](const EntityInfo& e) {
        last = static_cast<std::int64_t>(e.handle);
        return true;
    });
    return last;
}

bool CadLispHost::entGet(std::int64_t entity, ResBufChain& groups) { return entityGroups(entity, false, groups); }

bool CadLispHost::entGetWithExtendedData(std::int64_t entity, ResBufChain& groups) {
    return entityGroups(entity, true, groups);
}

bool CadLispHost::entityGroups(std::int64_t entity, bool withExtendedData, ResBufChain& groups) {
    groups = document_.drawing().entityList(static_cast<Handle>(entity), withExtendedData);
    if (groups.empty()) return false;
    groups.erase(groups.begin());   // the (-1 . name) the interpreter adds itself
    for (ResBuf& g : groups)
        if (isAngleGroup(g.restype)) g.real *= M_PI / 180;
    return true;
}

bool CadLispHost::tblSearch(const std::string& table, const std::string& name, ResBufChain& record) {
    const Drawing& d = document_.drawing();
    if (table == "LAYER") {
        const std::optional<ardo::LayerRecord> layer = d.findLayer(name);
        if (layer) record = layerRecord(*layer);
        return layer.has_value();
    }
    if (table == "LTYPE") {
        for (const std::string& lt : d.linetypeNames())
            if (ardo::equalsNoCase(lt, name)) {
                record = {group(0, "LTYPE"), group(2, lt), group(70, 0)};
                return true;
            }
    }
    return false;
}

std::vector<std::string> CadLispHost::recordNames(const std::string& table) const {
    if (table == "LTYPE") return document_.drawing().linetypeNames();
    std::vector<std::string> names;
    if (table == "LAYER")
        document_.drawing().forEachLayer([&](const ardo::LayerRecord& layer) {
            names.push_back(layer.name);
            return true;
        });
    return names;
}

bool CadLispHost::tblNext(const std::string& table, bool rewind, ResBufChain& record) {
    TableWalk& walk = tableWalks_[table];
    if (rewind) walk = {};
    // The names are taken once per walk, so a walk over many layers stays linear; records
    // added meanwhile come after the others and are picked up when the walk gets there.
    if (walk.cursor >= walk.names.size()) walk.names = recordNames(table);
    while (walk.cursor < walk.names.size())
        if (tblSearch(table, walk.names[walk.cursor++], record)) return true;
    return false;
}

std::vector<std::int64_t> CadLispHost::previousSelection() { return document_.commands().previousSelection(); }

const std::vector<std::filesystem::path>& CadLispHost::supportPath() const { return app_.supportPath(); }

// The built-ins get the interpreter only; its host is always a document's LISP side.
Application& applicationOf(lisp::Interpreter& in) { return dynamic_cast<CadLispHost&>(in.host()).application(); }
Document& documentOf(lisp::Interpreter& in) { return dynamic_cast<CadLispHost&>(in.host()).document(); }

}  // namespace cadhost
