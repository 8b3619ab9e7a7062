#include "cadhost/lisp/Equality.h"

#include <cmath>

#include "cadhost/lisp/StackGuard.h"

namespace cadhost::lisp {

bool isEq(const Value& a, const Value& b) {
    if (a.kind() != b.kind()) return false;
    switch (a.kind()) {
    case Kind::Nil: return true;
    case Kind::Int: return a.asInt() == b.asInt();
    case Kind::Real: return a.asReal() == b.asReal();
    case Kind::Sym: return a.asSymbol() == b.asSymbol();
    case Kind::Subr: return a.asSubr() == b.asSubr();
    case Kind::Ename: return a.asId() == b.asId();
    default: return a.object() == b.object();
    }
}

bool isEqual(const Value& a, const Value& b, double fuzz) {
    checkStack();
    if (a.isNumber() && b.isNumber()) {
        if (a.kind() == Kind::Int && b.kind() == Kind::Int) return std::abs(double(a.asInt()) - b.asInt()) <= fuzz;
        return std::abs(a.asNumber() - b.asNumber()) <= fuzz;
    }
    if (a.kind() != b.kind()) return false;
    if (a.kind() == Kind::Str) return a.asString() == b.asString();
    if (a.kind() != Kind::List) return isEq(a, b);
    const Value* p = &a;
    const Value* q = &b;
    for (; p->isList() && q->isList(); p = &p->cdr(), q = &q->cdr())
        if (!isEqual(p->car(), q->car(), fuzz)) return false;
    return isEqual(*p, *q, fuzz);
}

}  // namespace cadhost::lisp
