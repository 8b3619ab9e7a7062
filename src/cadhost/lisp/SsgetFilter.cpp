#include "cadhost/lisp/SsgetFilter.h"

#include <algorithm>
#include <cmath>

#include "base/CaseFold.h"
#include "cadhost/lisp/Equality.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/ResBufConvert.h"
#include "cadhost/lisp/Wildcard.h"

namespace cadhost::lisp {

namespace {

using Node = SsgetFilter::Node;

[[noreturn]] void bad() { throw LispError("bad SSGET list"); }

const Value* operatorText(const Value& entry) {
    if (!entry.isList() || entry.car().kind() != Kind::Int || entry.car().asInt() != -4) return nullptr;
    if (entry.cdr().kind() != Kind::Str) bad();
    return &entry.cdr();
}

std::vector<std::string> relationsOf(const std::string& text) {
    static const char* const known[] = {"=", "!=", "/=", "<>", "<", "<=", ">", ">=", "*", "&", "&="};
    std::vector<std::string> out;
    std::size_t from = 0;
    for (;;) {
        const auto comma = text.find(',', from);
        std::string one(ardo::trimWhite(std::string_view(text).substr(from, comma - from)));
        bool ok = false;
        for (const char* k : known) ok = ok || one == k;
        if (!ok) bad();
        out.push_back(std::move(one));
        if (comma == std::string::npos) return out;
        from = comma + 1;
    }
}

// Reads entries up to `closing` ("OR>" ...) or the end of the list when `closing` is empty.
std::vector<Node> parseSequence(const Value*& p, const std::string& closing) {
    std::vector<Node> nodes;
    std::vector<std::string> relations;
    for (; p->isList(); p = &p->cdr()) {
        const Value& entry = p->car();
        if (const Value* op = operatorText(entry)) {
            const std::string text = ardo::upperCase(op->asString());
            if (!relations.empty()) bad();
            if (text == closing) return nodes;
            if (text.size() > 1 && text.front() == '<' && text.find(',') == std::string::npos &&
                text != "<>" && text != "<=") {
                Node group;
                const std::string name = text.substr(1);
                if (name == "AND") group.op = Node::Op::And;
                else if (name == "OR") group.op = Node::Op::Or;
                else if (name == "XOR") group.op = Node::Op::Xor;
                else if (name == "NOT") group.op = Node::Op::Not;
                else bad();
                p = &p->cdr();
                group.operands = parseSequence(p, name + ">");
                const std::size_t n = group.operands.size();
                if ((group.op == Node::Op::Not && n != 1) || (group.op == Node::Op::Xor && n != 2) || n == 0) bad();
                nodes.push_back(std::move(group));
                continue;
            }
            relations = relationsOf(op->asString());
            continue;
        }
        if (!entry.isList() || entry.car().kind() != Kind::Int) bad();
        Node test;
        test.code = entry.car().asInt();
        test.value = entry.cdr();
        test.relations = std::move(relations);
        relations.clear();
        nodes.push_back(std::move(test));
    }
    if (!closing.empty() || !relations.empty()) bad();
    return nodes;
}

bool compareNumbers(const std::string& relation, double actual, double wanted) {
    if (relation == "*") return true;
    if (relation == "=") return std::abs(actual - wanted) <= 1e-10;
    if (relation == "!=" || relation == "/=" || relation == "<>") return std::abs(actual - wanted) > 1e-10;
    if (relation == "<") return actual < wanted;
    if (relation == "<=") return actual <= wanted;
    if (relation == ">") return actual > wanted;
    if (relation == ">=") return actual >= wanted;
    const auto a = static_cast<std::int64_t>(actual), w = static_cast<std::int64_t>(wanted);
    if (relation == "&") return (a & w) != 0;
    return (a & w) == w;   // "&="
}

bool matchesGroup(const Node& test, const ardo::ResBuf& group) {
    const Value actual = groupValue(group);
    if (test.relations.empty() || test.relations == std::vector<std::string>{"="}) {
        if (test.value.kind() == Kind::Str && actual.kind() == Kind::Str)
            return wildcardMatch(actual.asString(), test.value.asString(), true);
        return isEqual(actual, test.value, 1e-10);
    }
    if (test.relations.front() == "*") return true;
    if (actual.isNumber() && test.value.isNumber())
        return compareNumbers(test.relations.front(), actual.asNumber(), test.value.asNumber());
    if (actual.isList() && test.value.isList()) {
        // Points, coordinate by coordinate; a single operator serves all three.
        const Value* a = &actual;
        const Value* w = &test.value;
        for (std::size_t i = 0; a->isList() && w->isList(); ++i, a = &a->cdr(), w = &w->cdr()) {
            const std::string& relation = test.relations[std::min(i, test.relations.size() - 1)];
            if (!a->car().isNumber() || !w->car().isNumber()) return false;
            if (!compareNumbers(relation, a->car().asNumber(), w->car().asNumber())) return false;
        }
        return true;
    }
    if (actual.kind() == Kind::Str && test.value.kind() == Kind::Str) {
        const bool same = wildcardMatch(actual.asString(), test.value.asString(), true);
        const std::string& relation = test.relations.front();
        return relation == "!=" || relation == "/=" || relation == "<>" ? !same : same;
    }
    return false;
}

bool evaluate(const Node& node, const ardo::ResBufChain& groups) {
    switch (node.op) {
        case Node::Op::Test:
            for (const ardo::ResBuf& g : groups)
                if (g.restype == node.code && matchesGroup(node, g)) return true;
            return false;
        case Node::Op::And:
            for (const Node& n : node.operands)
                if (!evaluate(n, groups)) return false;
            return true;
        case Node::Op::Or:
            for (const Node& n : node.operands)
                if (evaluate(n, groups)) return true;
            return false;
        case Node::Op::Xor: return evaluate(node.operands[0], groups) != evaluate(node.operands[1], groups);
        case Node::Op::Not: return !evaluate(node.operands[0], groups);
    }
    return false;
}

}  // namespace

SsgetFilter::SsgetFilter(const Value& list) {
    root_.op = Node::Op::And;
    const Value* p = &list;
    root_.operands = parseSequence(p, "");
}

bool SsgetFilter::accepts(const ardo::ResBufChain& groups) const { return evaluate(root_, groups); }

}  // namespace cadhost::lisp
