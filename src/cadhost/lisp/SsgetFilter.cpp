#include "cadhost/lisp/SsgetFilter.h"

#include "cadhost/lisp/Equality.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/ResBufConvert.h"
#include "cadhost/lisp/Wildcard.h"

namespace cadhost::lisp {

SsgetFilter::SsgetFilter(const Value& list) {
    for (const Value* p = &list; p->isList(); p = &p->cdr()) {
        const Value& entry = p->car();
        // Relational and grouping operators (-4) are not part of this host's selection.
        if (!entry.isList() || entry.car().kind() != Kind::Int || entry.car().asInt() == -4)
            throw LispError("bad SSGET list");
        tests_.push_back({entry.car().asInt(), entry.cdr()});
    }
}

bool SsgetFilter::matches(const Test& test, const ardo::ResBuf& group) {
    const Value actual = groupValue(group);
    if (test.value.kind() == Kind::Str && actual.kind() == Kind::Str)
        return wildcardMatch(actual.asString(), test.value.asString(), true);
    return isEqual(actual, test.value, 1e-10);
}

bool SsgetFilter::accepts(const ardo::ResBufChain& groups) const {
    for (const Test& test : tests_) {
        bool found = false;
        for (const ardo::ResBuf& g : groups) {
            if (g.restype == test.code && matches(test, g)) {
                found = true;
                break;
            }
        }
        if (!found) return false;
    }
    return true;
}

}  // namespace cadhost::lisp
