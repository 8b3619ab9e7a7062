#pragma once
// The filter list of ssget: ((0 . "LINE,ARC") (8 . "A*") (62 . 1) ...). Every group
// must match; string groups match as wildcards without regard to case, numbers by value.
// (-4 . "<OR") ... (-4 . "OR>") groups tests with AND, OR, XOR (two operands) and NOT
// (one); (-4 . "op") before a test compares with =, !=, /=, <>, <, <=, >, >=, * (any),
// & (some bits) or &= (all bits), a point per coordinate with "op,op,op".
#include <string>
#include <vector>

#include "cadhost/lisp/Value.h"
#include "boundary/ResBuf.h"

namespace cadhost::lisp {

class SsgetFilter {
public:
    // Throws "bad SSGET list" for entries that are not (code . value) pairs, unbalanced
    // groups and unknown operators.
    explicit SsgetFilter(const Value& list);
    bool accepts(const ardo::ResBufChain& groups) const;
    // No tests: every entity passes, without reading its groups.
    bool empty() const { return root_.operands.empty(); }

    struct Node {
        enum class Op { Test, And, Or, Xor, Not } op = Op::Test;
        int code = 0;
        std::vector<std::string> relations;   // one, or one per coordinate; empty: equality
        Value value;
        std::vector<Node> operands;
    };

private:
    Node root_;
};

}  // namespace cadhost::lisp
