// Built-ins served by the CAD host: system variables, commands, selection sets,
// entities and symbol tables.
#include <algorithm>

#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Interpreter.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/Printer.h"
#include "cadhost/lisp/ResBufConvert.h"
#include "cadhost/lisp/SelectionSet.h"
#include "cadhost/lisp/SsgetFilter.h"
#include "cadhost/lisp/Wildcard.h"
#include "base/CaseFold.h"

namespace cadhost::lisp {

namespace {

Value getvarFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    ardo::ResBuf value;
    if (!in.host().getVar(ardo::upperCase(stringArg(args[0])), value)) return Value();
    return valueFromNode(in, value);
}

// A system variable value: an integer, real, string or point.
ardo::ResBuf sysvarValue(const Value& v) {
    ardo::ResBuf node;
    switch (v.kind()) {
    case Kind::Int:
    case Kind::Real:
    case Kind::Str: {
        ardo::ResBufChain one;
        appendArgument(one, v);
        return one.front();
    }
    case Kind::List:
        if (asPoint(v, node)) return node;
        [[fallthrough]];
    default: badArgType("stringp", v);
    }
}

Value setvarFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 2);
    const std::string name = ardo::upperCase(stringArg(args[0]));
    if (!in.host().setVar(name, sysvarValue(args[1])))
        throw LispError("AutoCAD variable setting rejected: " + prin1String(Value::string(name)) + " " +
                        prin1String(args[1]));
    return args[1];
}

// Command arguments become command-line tokens; nil gives none, a list that is not a
// point gives its elements.
void appendTokens(ardo::ResBufChain& tokens, const Value& v) {
    ardo::ResBuf point;
    switch (v.kind()) {
    case Kind::Nil: return;
    case Kind::Int:
    case Kind::Real:
    case Kind::Str:
    case Kind::Ename:
    case Kind::Pickset: appendArgument(tokens, v); return;
    case Kind::List:
        if (asPoint(v, point)) {
            tokens.push_back(point);
            return;
        }
        for (const Value* p = &v; p->isList(); p = &p->cdr()) appendTokens(tokens, p->car());
        return;
    default: badArgType("stringp", v);
    }
}

Value commandFn(Interpreter& in, const Args& args) {
    ardo::ResBufChain tokens;
    for (const Value& a : args) appendTokens(tokens, a);
    if (in.host().command(tokens) == ardo::RTCAN) throw LispError("Function cancelled");
    return Value();
}

std::vector<std::int64_t> allEntities(LispHost& host) {
    std::vector<std::int64_t> out;
    for (std::int64_t e = host.entNext(0); e != 0; e = host.entNext(e)) out.push_back(e);
    return out;
}

ardo::Point3 pointArg(const Value& v) {
    ardo::ResBuf point;
    if (!asPoint(v, point)) throw LispError("bad point argument: " + prin1String(v));
    return point.point;
}

bool isPointValue(const Value& v) {
    ardo::ResBuf point;
    return v.isList() && asPoint(v, point);
}

// (ssget [mode] [point [point] | point-list] [filter]): "X" all, "P" previous, "L" last,
// "W"/"C" two corners, "F"/"WP"/"CP" a list of points, ":S" one pick, a point alone picks
// there, nothing asks at "Select objects:"; each with "_" before it as well.
Value ssgetFn(Interpreter& in, const Args& args) {
    checkCount(args, 0, 4);
    std::size_t next = 0;
    std::string mode;
    std::vector<ardo::Point3> points;
    if (next < args.size() && args[next].kind() == Kind::Str) {
        mode = ardo::upperCase(stringArg(args[next++]));
        if (!mode.empty() && mode.front() == '_') mode.erase(0, 1);
    } else if (next < args.size() && isPointValue(args[next])) {
        mode = ".";
        points.push_back(pointArg(args[next++]));
    }
    if (mode == "W" || mode == "C") {
        for (int corner = 0; corner < 2; ++corner) {
            if (next >= args.size()) throw LispError("too few arguments");
            points.push_back(pointArg(args[next++]));
        }
    } else if (mode == "F" || mode == "WP" || mode == "CP") {
        if (next >= args.size()) throw LispError("too few arguments");
        for (const Value* p = &listArg(args[next++]); p->isList(); p = &p->cdr()) points.push_back(pointArg(p->car()));
    }
    if (args.size() > next + 1) throw LispError("too many arguments");
    const SsgetFilter filter(next < args.size() ? listArg(args[next]) : Value());
    std::vector<std::int64_t> candidates;
    if (mode == "X") {
        candidates = allEntities(in.host());
    } else if (mode == "P") {
        candidates = in.host().previousSelection();
    } else if (mode == "L") {
        if (const std::int64_t last = in.host().entLast(); last != 0) candidates.push_back(last);
    } else if (mode.empty() || mode == ":S" || mode == "." || !points.empty()) {
        auto chosen = in.host().selectEntities(mode, points);
        if (!chosen) return Value();
        candidates = std::move(*chosen);
    } else {
        throw LispError("ssget mode " + prin1String(args[0]) +
                        " is not known; use \"X\", \"P\", \"L\", \"W\", \"C\", \"F\", \"WP\", \"CP\" or \":S\"");
    }
    // Every entity of "X" exists; other modes may name erased ones, which the groups weed out.
    if (filter.empty() && mode == "X") return candidates.empty() ? Value() : in.newSelectionSet(std::move(candidates));
    std::vector<std::int64_t> chosen;
    ardo::ResBufChain groups;
    for (std::int64_t e : candidates) {
        groups.clear();
        if (in.host().entGet(e, groups) && filter.accepts(groups)) chosen.push_back(e);
    }
    if (chosen.empty()) return Value();
    return in.newSelectionSet(std::move(chosen));
}

Value sslengthFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::integer(static_cast<std::int32_t>(picksetArg(args[0]).entities.size()));
}

Value ssnameFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    const SelectionSet& set = picksetArg(args[0]);
    const std::int32_t i = intArg(args[1]);
    if (i < 0 || static_cast<std::size_t>(i) >= set.entities.size()) return Value();
    return Value::ename(set.entities[static_cast<std::size_t>(i)]);
}

Value ssaddFn(Interpreter& in, const Args& args) {
    checkCount(args, 0, 2);
    if (args.empty()) return in.newSelectionSet({});
    const std::int64_t e = enameArg(args[0]);
    if (args.size() == 1) return in.newSelectionSet({e});
    SelectionSet& set = picksetArg(args[1]);
    if (!set.contains(e)) set.entities.push_back(e);
    return args[1];
}

Value ssdelFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    const std::int64_t e = enameArg(args[0]);
    SelectionSet& set = picksetArg(args[1]);
    auto it = std::find(set.entities.begin(), set.entities.end(), e);
    if (it == set.entities.end()) return Value();
    set.entities.erase(it);
    return args[1];
}

Value ssmembFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    const std::int64_t e = enameArg(args[0]);
    return picksetArg(args[1]).contains(e) ? args[0] : Value();
}

// (entget ename [applications]): with application names (wildcards allowed, "*" for
// all), the extended data of those that match follows as (-3 ("APP" ...) ...).
Value entgetFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 2);
    const std::int64_t e = enameArg(args[0]);
    ardo::ResBufChain groups;
    const bool extended = args.size() == 2 && !args[1].isNil();
    if (!(extended ? in.host().entGetWithExtendedData(e, groups) : in.host().entGet(e, groups))) return Value();
    std::vector<Value> items{Value::cons(Value::integer(-1), args[0])};
    const Value list = groupsToList(groups);
    for (const Value* p = &list; p->isList(); p = &p->cdr()) items.push_back(p->car());
    if (extended && items.back().car().kind() == Kind::Int && items.back().car().asInt() == -3) {
        std::vector<Value> wanted;
        for (const Value* app = &items.back().cdr(); app->isList(); app = &app->cdr()) {
            const std::string& name = app->car().car().asString();
            for (const Value* pattern = &listArg(args[1]); pattern->isList(); pattern = &pattern->cdr())
                if (wildcardMatch(name, stringArg(pattern->car()), true)) {
                    wanted.push_back(app->car());
                    break;
                }
        }
        items.pop_back();
        if (!wanted.empty()) items.push_back(Value::cons(Value::integer(-3), makeList(wanted)));
    }
    return makeList(items);
}

Value enameOrNil(std::int64_t id) { return id == 0 ? Value() : Value::ename(id); }

// (entmake list) gives the list back, (entmakex list) the new entity's name; nil when the
// drawing refuses it.
Value entmakeWith(Interpreter& in, const Args& args, bool name) {
    checkCount(args, 1, 1);
    const std::int64_t made = in.host().entMake(listToGroups(listArg(args[0])));
    if (made == 0) return Value();
    return name ? Value::ename(made) : args[0];
}

Value entmakeFn(Interpreter& in, const Args& args) { return entmakeWith(in, args, false); }
Value entmakexFn(Interpreter& in, const Args& args) { return entmakeWith(in, args, true); }

Value entlastFn(Interpreter& in, const Args& args) {
    checkCount(args, 0, 0);
    return enameOrNil(in.host().entLast());
}

Value entnextFn(Interpreter& in, const Args& args) {
    checkCount(args, 0, 1);
    return enameOrNil(in.host().entNext(args.empty() ? 0 : enameArg(args[0])));
}

Value recordOrNil(bool found, const ardo::ResBufChain& record) {
    return found ? groupsToList(record) : Value();
}

Value tblsearchFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 3);
    ardo::ResBufChain record;
    const bool found = in.host().tblSearch(ardo::upperCase(stringArg(args[0])), stringArg(args[1]), record);
    return recordOrNil(found, record);
}

Value tblnextFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 2);
    ardo::ResBufChain record;
    const bool rewind = args.size() == 2 && !args[1].isNil();
    const bool found = in.host().tblNext(ardo::upperCase(stringArg(args[0])), rewind, record);
    return recordOrNil(found, record);
}

// (entmod list): the list back, or nil when the drawing refuses it.
Value entmodFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    const Value& list = listArg(args[0]);
    std::int64_t entity = 0;
    for (const Value* p = &list; p->isList(); p = &p->cdr()) {
        const Value& pair = p->car();
        if (pair.isList() && pair.car().kind() == Kind::Int && pair.car().asInt() == -1 && pair.cdr().kind() == Kind::Ename)
            entity = pair.cdr().asId();
    }
    if (entity == 0) throw LispError("bad DXF group: " + prin1String(list));
    return in.host().entMod(entity, listToGroups(list)) ? args[0] : Value();
}

// (entdel ename): erases the entity, or brings it back when this session erased it.
Value entdelFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.host().entDel(enameArg(args[0])) ? args[0] : Value();
}

// (entupd ename): the drawing shows changes at once, so only the name comes back.
Value entupdFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    ardo::ResBufChain groups;
    return in.host().entGet(enameArg(args[0]), groups) ? args[0] : Value();
}

Value handentFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return enameOrNil(in.host().handEnt(stringArg(args[0])));
}

const Builtin table[] = {
    {"ENTMOD", entmodFn, nullptr},       {"ENTDEL", entdelFn, nullptr},   {"ENTUPD", entupdFn, nullptr},
    {"HANDENT", handentFn, nullptr},
    {"GETVAR", getvarFn, nullptr},       {"SETVAR", setvarFn, nullptr},   {"COMMAND", commandFn, nullptr},
    {"SSGET", ssgetFn, nullptr},         {"SSLENGTH", sslengthFn, nullptr}, {"SSNAME", ssnameFn, nullptr},
    {"SSADD", ssaddFn, nullptr},         {"SSDEL", ssdelFn, nullptr},       {"SSMEMB", ssmembFn, nullptr},     {"ENTGET", entgetFn, nullptr},
    {"ENTLAST", entlastFn, nullptr},     {"ENTNEXT", entnextFn, nullptr}, {"TBLSEARCH", tblsearchFn, nullptr},
    {"TBLNEXT", tblnextFn, nullptr},     {"ENTMAKE", entmakeFn, nullptr}, {"ENTMAKEX", entmakexFn, nullptr},
};

}  // namespace

std::span<const Builtin> hostBuiltins() { return table; }

}  // namespace cadhost::lisp
