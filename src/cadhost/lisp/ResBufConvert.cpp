#include "cadhost/lisp/ResBufConvert.h"

#include "cadhost/lisp/Interpreter.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/Printer.h"
#include "cadhost/lisp/SelectionSet.h"
#include "cadhost/lisp/StackGuard.h"

namespace cadhost::lisp {

using ardo::ResBuf;
using ardo::ResBufChain;

bool asPoint(const Value& list, ResBuf& point) {
    const std::size_t n = listLength(list);
    if (n < 2 || n > 3 || !list.isList()) return false;
    ardo::Point3 p{};
    std::size_t i = 0;
    const Value* c = &list;
    for (; c->isList(); c = &c->cdr(), ++i) {
        if (!c->car().isNumber()) return false;
        p[i] = c->car().asNumber();
    }
    if (!c->isNil()) return false;
    point = ResBuf::point3(p);
    if (n == 2) point.restype = ardo::RTPOINT;
    return true;
}

void appendArgument(ResBufChain& out, const Value& v) {
    checkStack();
    switch (v.kind()) {
    case Kind::Nil: out.push_back(ResBuf::marker(ardo::RTNIL)); return;
    case Kind::Int:
        if (v.asInt() >= -32768 && v.asInt() <= 32767) out.push_back(ResBuf::shortInt(v.asInt()));
        else out.push_back(ResBuf::longInt(v.asInt()));
        return;
    case Kind::Real: out.push_back(ResBuf::realNum(v.asReal())); return;
    case Kind::Str: out.push_back(ResBuf::str(v.asString())); return;
    case Kind::Sym:
        if (v.asSymbol()->name == "T") out.push_back(ResBuf::marker(ardo::RTT));
        else out.push_back(ResBuf::str(v.asSymbol()->name));
        return;
    case Kind::Ename: out.push_back(ResBuf::entityName(v.asId())); return;
    case Kind::Pickset: out.push_back(ResBuf::selectionSet(v.asPickset().id)); return;
    case Kind::List: {
        ResBuf point;
        if (asPoint(v, point)) {
            out.push_back(point);
            return;
        }
        out.push_back(ResBuf::marker(ardo::RTLB));
        const Value* p = &v;
        for (; p->isList(); p = &p->cdr()) appendArgument(out, p->car());
        if (!p->isNil()) {
            out.push_back(ResBuf::marker(ardo::RTDOTE));
            appendArgument(out, *p);
        }
        out.push_back(ResBuf::marker(ardo::RTLE));
        return;
    }
    default: badArgType("stringp", v);
    }
}

namespace {

Value pointValue(const ResBuf& node, int dims) {
    std::vector<Value> coords;
    for (int i = 0; i < dims; ++i) coords.push_back(Value::real(node.point[static_cast<std::size_t>(i)]));
    return makeList(coords);
}

[[noreturn]] void brokenChain() {
    throw LispError("bad result list from an external function: unbalanced RTLB/RTLE or RTDOTE");
}

// Reads one value starting at pos; lists run from RTLB to the matching RTLE.
Value readChainValue(Interpreter& interp, const ResBufChain& chain, std::size_t& pos) {
    checkStack();
    const ResBuf& node = chain[pos++];
    if (node.restype == ardo::RTLE || node.restype == ardo::RTDOTE) brokenChain();
    if (node.restype != ardo::RTLB) return valueFromNode(interp, node);
    std::vector<Value> items;
    Value tail;
    for (;;) {
        if (pos >= chain.size()) brokenChain();
        const short type = chain[pos].restype;
        if (type == ardo::RTLE) {
            ++pos;
            break;
        }
        if (type == ardo::RTDOTE) {
            ++pos;
            if (items.empty() || pos >= chain.size()) brokenChain();
            tail = readChainValue(interp, chain, pos);
            if (pos >= chain.size() || chain[pos].restype != ardo::RTLE) brokenChain();
            ++pos;
            break;
        }
        items.push_back(readChainValue(interp, chain, pos));
    }
    Value list = std::move(tail);
    for (auto it = items.rbegin(); it != items.rend(); ++it) list = Value::cons(std::move(*it), std::move(list));
    return list;
}

}  // namespace

Value valueFromNode(Interpreter& interp, const ResBuf& node) {
    switch (node.restype) {
    case ardo::RTNIL: case ardo::RTNONE: return Value();
    case ardo::RTT: return interp.t();
    case ardo::RTVOID: return interp.voidValue();
    case ardo::RTSTR: return Value::string(node.text);
    case ardo::RTSHORT: case ardo::RTLONG: return Value::integer(static_cast<std::int32_t>(node.integer));
    case ardo::RTREAL: case ardo::RTANG: case ardo::RTORINT: return Value::real(node.real);
    case ardo::RTPOINT: return pointValue(node, 2);
    case ardo::RT3DPOINT: return pointValue(node, 3);
    case ardo::RTENAME: return Value::ename(node.integer);
    case ardo::RTPICKS: {
        if (auto set = interp.selectionSet(node.integer)) return Value::pickset(std::move(set));
        throw LispError("bad result from an external function: unknown selection set " +
                        std::to_string(node.integer));
    }
    default: throw LispError("bad result from an external function: result type " + std::to_string(node.restype));
    }
}

Value valueFromChain(Interpreter& interp, const ResBufChain& chain) {
    std::size_t pos = 0;
    if (chain.empty()) return Value();
    // Most results are one value; only more than one makes a list.
    Value first = readChainValue(interp, chain, pos);
    if (pos >= chain.size()) return first;
    std::vector<Value> items{std::move(first)};
    while (pos < chain.size()) items.push_back(readChainValue(interp, chain, pos));
    return makeList(items);
}

namespace {
enum class GroupType { Text, Real, Integer, Point, Name };

GroupType groupType(int code) {
    auto in = [code](int lo, int hi) { return code >= lo && code <= hi; };
    if (code == -1 || code == -2 || in(330, 369)) return GroupType::Name;
    if (in(10, 18) || in(110, 112) || in(210, 219) || in(1010, 1013)) return GroupType::Point;
    if (in(38, 59) || in(140, 149) || in(460, 469) || in(1014, 1059) || in(19, 37)) return GroupType::Real;
    if (in(60, 99) || in(160, 179) || in(270, 289) || in(370, 389) || in(400, 409) || in(420, 429) ||
        in(440, 459) || in(1060, 1071) || in(290, 299))
        return GroupType::Integer;
    return GroupType::Text;
}
}  // namespace

Value groupValue(const ResBuf& group) {
    switch (groupType(group.restype)) {
    case GroupType::Name: return Value::ename(group.integer);
    case GroupType::Point: return pointValue(group, 3);
    case GroupType::Real: return Value::real(group.real);
    case GroupType::Integer: return Value::integer(static_cast<std::int32_t>(group.integer));
    case GroupType::Text: return Value::string(group.text);
    }
    return Value();
}

ResBufChain listToGroups(const Value& list) {
    ResBufChain groups;
    for (const Value* p = &list; p->isList(); p = &p->cdr()) {
        const Value& entry = p->car();
        if (!entry.isList() || entry.car().kind() != Kind::Int) throw LispError("bad DXF group: " + prin1String(entry));
        const auto code = static_cast<short>(entry.car().asInt());
        const Value& v = entry.cdr();
        if (code == -3) {
            // Extended data: ("APP" groups...) for each application, each name a 1001 group.
            for (const Value* app = &v; app->isList(); app = &app->cdr()) {
                if (app->car().car().kind() != Kind::Str) throw LispError("bad DXF group: " + prin1String(entry));
                ResBuf name = ResBuf::str(app->car().car().asString());
                name.restype = 1001;
                groups.push_back(std::move(name));
                const ResBufChain data = listToGroups(app->car().cdr());
                groups.insert(groups.end(), data.begin(), data.end());
            }
            continue;
        }
        ResBuf node;
        if (v.kind() == Kind::Str) node = ResBuf::str(v.asString());
        else if (v.kind() == Kind::Int) node = ResBuf::longInt(v.asInt());
        else if (v.kind() == Kind::Real) node = ResBuf::realNum(v.asReal());
        else if (v.kind() == Kind::Ename) node = ResBuf::entityName(v.asId());
        else if (ResBuf point; v.isList() && asPoint(v, point)) node = ResBuf::point3(point.point);
        else throw LispError("bad DXF group: " + prin1String(entry));
        node.restype = code;
        groups.push_back(std::move(node));
    }
    return groups;
}

Value groupsToList(const ResBufChain& groups) {
    std::vector<Value> pairs;
    pairs.reserve(groups.size());
    std::vector<Value> applications;
    std::vector<Value> appData;
    Value appName;
    const auto closeApplication = [&] {
        if (!appName.isNil()) applications.push_back(Value::cons(appName, makeList(appData)));
        appData.clear();
    };
    for (const ResBuf& g : groups) {
        if (g.restype == 1001) {
            closeApplication();
            appName = Value::string(g.text);
            continue;
        }
        // Points are (10 x y z), every other group a dotted pair (8 . "0").
        Value pair = Value::cons(Value::integer(g.restype), groupValue(g));
        (appName.isNil() ? pairs : appData).push_back(std::move(pair));
    }
    closeApplication();
    // Extended data comes last, as (-3 ("APP" groups...) ...).
    if (!applications.empty()) pairs.push_back(Value::cons(Value::integer(-3), makeList(applications)));
    return makeList(pairs);
}

}  // namespace cadhost::lisp
