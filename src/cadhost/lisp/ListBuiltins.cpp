// List construction, access and search.
#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Equality.h"
#include "cadhost/lisp/Interpreter.h"

namespace cadhost::lisp {

namespace {

// car and cdr accept lists and nil only.
const Value& carOf(const Value& v) {
    if (!v.isNil() && !v.isList()) badArgType("consp", v);
    return v.car();
}
const Value& cdrOf(const Value& v) {
    if (!v.isNil() && !v.isList()) badArgType("consp", v);
    return v.cdr();
}

// Walks the path of a c[ad]+r name from the last letter to the first.
template <char... Path>
Value cxr(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const Value* v = &args[0];
    constexpr char path[] = {Path...};
    for (int i = sizeof...(Path) - 1; i >= 0; --i) v = path[i] == 'a' ? &carOf(*v) : &cdrOf(*v);
    return *v;
}

Value listFn(Interpreter&, const Args& args) { return makeList(args); }

Value consFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    return Value::cons(args[0], args[1]);
}

// Copies the elements of a proper list.
std::vector<Value> elements(const Value& list) {
    std::vector<Value> out;
    const Value* p = &listArg(list);
    for (; p->isList(); p = &p->cdr()) out.push_back(p->car());
    return out;
}

Value appendFn(Interpreter&, const Args& args) {
    if (args.empty()) return Value();
    Value result = listArg(args.back());
    for (std::size_t i = args.size() - 1; i-- > 0;) {
        const std::vector<Value> items = elements(args[i]);
        for (auto it = items.rbegin(); it != items.rend(); ++it) result = Value::cons(*it, std::move(result));
    }
    return result;
}

Value reverseFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    Value result;
    for (const Value* p = &listArg(args[0]); p->isList(); p = &p->cdr()) result = Value::cons(p->car(), result);
    return result;
}

Value lengthFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::integer(static_cast<std::int32_t>(listLength(listArg(args[0]))));
}

Value nthFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    std::int32_t n = intArg(args[0]);
    const Value* p = &listArg(args[1]);
    if (n < 0) return Value();
    for (; n > 0 && p->isList(); --n) p = &p->cdr();
    return p->car();
}

Value memberFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    for (const Value* p = &listArg(args[1]); p->isList(); p = &p->cdr())
        if (isEqual(p->car(), args[0])) return *p;
    return Value();
}

Value assocFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    for (const Value* p = &listArg(args[1]); p->isList(); p = &p->cdr())
        if (p->car().isList() && isEqual(p->car().car(), args[0])) return p->car();
    return Value();
}

Value substFn(Interpreter&, const Args& args) {
    checkCount(args, 3, 3);
    std::vector<Value> items = elements(args[2]);
    for (Value& item : items)
        if (isEqual(item, args[1])) item = args[0];
    return makeList(items);
}

Value lastFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const Value* p = &listArg(args[0]);
    while (p->cdr().isList()) p = &p->cdr();
    return p->car();
}

Value listpFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(args[0].isNil() || args[0].isList());
}

Value atomFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(!args[0].isList());
}

Value nullFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(args[0].isNil());
}

Value vlPositionFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    std::int32_t i = 0;
    for (const Value* p = &listArg(args[1]); p->isList(); p = &p->cdr(), ++i)
        if (isEqual(p->car(), args[0])) return Value::integer(i);
    return Value();
}

Value vlRemoveFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    std::vector<Value> kept;
    for (const Value& item : elements(args[1]))
        if (!isEqual(item, args[0])) kept.push_back(item);
    return makeList(kept);
}

const Builtin table[] = {
    {"CAR", cxr<'a'>, nullptr},
    {"CDR", cxr<'d'>, nullptr},
    {"CAAR", cxr<'a', 'a'>, nullptr},
    {"CADR", cxr<'a', 'd'>, nullptr},
    {"CDAR", cxr<'d', 'a'>, nullptr},
    {"CDDR", cxr<'d', 'd'>, nullptr},
    {"CADDR", cxr<'a', 'd', 'd'>, nullptr},
    {"CADAR", cxr<'a', 'd', 'a'>, nullptr},
    {"CDDDR", cxr<'d', 'd', 'd'>, nullptr},
    {"CAADR", cxr<'a', 'a', 'd'>, nullptr},
    {"LIST", listFn, nullptr},
    {"CONS", consFn, nullptr},
    {"APPEND", appendFn, nullptr},
    {"REVERSE", reverseFn, nullptr},
    {"LENGTH", lengthFn, nullptr},
    {"NTH", nthFn, nullptr},
    {"MEMBER", memberFn, nullptr},
    {"ASSOC", assocFn, nullptr},
    {"SUBST", substFn, nullptr},
    {"LAST", lastFn, nullptr},
    {"LISTP", listpFn, nullptr},
    {"ATOM", atomFn, nullptr},
    {"NULL", nullFn, nullptr},
    {"NOT", nullFn, nullptr},
    {"VL-POSITION", vlPositionFn, nullptr},
    {"VL-REMOVE", vlRemoveFn, nullptr},
};

}  // namespace

std::span<const Builtin> listBuiltins() { return table; }

}  // namespace cadhost::lisp
