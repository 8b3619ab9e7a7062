#pragma once
// The filter list of ssget: ((0 . "LINE,ARC") (8 . "A*") (62 . 1) ...). Every group
// must match; string groups match as wildcards without regard to case, numbers by value.
#include <vector>

#include "cadhost/lisp/Value.h"
#include "boundary/ResBuf.h"

namespace cadhost::lisp {

class SsgetFilter {
public:
    // Throws "bad SSGET list" for entries that are not (code . value) pairs.
    explicit SsgetFilter(const Value& list);
    bool accepts(const ardo::ResBufChain& groups) const;

private:
    struct Test {
        int code;
        Value value;
    };
    static bool matches(const Test& test, const ardo::ResBuf& group);
    std::vector<Test> tests_;
};

}  // namespace cadhost::lisp
