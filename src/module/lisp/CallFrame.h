#pragma once
// The one argument check every LISP handler uses. A handler declares its arguments; the
// frame sets the nil result first, checks count before types, reports the first wrong
// type only, and prints "BadNumOfArg", "BadTypOfArg" or "BadValueOfArg" of section
// "LCINIT" as they stand.
#include <initializer_list>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "boundary/ResBuf.h"

namespace ardo {

enum class ArgKind {
    String,   // RTSTR
    Integer,  // RTSHORT or RTLONG
    Real,     // RTREAL
    Number,   // an integer or a real
    List,     // a bracketed list
    SelectionSet,  // RTPICKS
    Any,
};

enum class Presence {
    Required,
    Optional,         // recognised by the presence of a further node; type-checked
    OptionalLenient,  // as Optional, but a node of another type counts as absent
};

struct ArgDecl {
    ArgKind kind;
    Presence presence = Presence::Required;
};

enum class ExtraArgs { Ignore, Reject };

class CallFrame {
public:
    // Sets the nil result and takes the argument chain of the current call.
    CallFrame();

    // True when the arguments fit the declaration; otherwise the message is printed.
    bool check(std::initializer_list<ArgDecl> declaration, ExtraArgs extra = ExtraArgs::Ignore);

    // Top-level arguments; a list argument spans its brackets.
    size_t count() const { return flat_ ? chain_.size() : args_.size(); }
    // True when argument i is there and (after check) of its declared kind.
    bool has(size_t i) const { return i < kMostDeclared && (usable_ >> i & 1u) != 0; }
    const ResBuf& node(size_t i) const { return chain_[flat_ ? i : args_[i].first]; }
    const std::string& text(size_t i) const { return node(i).text; }
    std::int64_t integer(size_t i) const { return node(i).integer; }
    double number(size_t i) const;
    // The nodes of a list argument, brackets included.
    std::span<const ResBuf> list(size_t i) const;

    // An argument of the right type whose value cannot be used.
    void reportBadValue() const;

private:
    static bool fits(ArgKind kind, const ResBuf& node);
    void report(const char* key) const;

    const ResBufChain& chain_;
    // Most calls pass no list: then argument i is node i and nothing is kept beside the chain.
    bool flat_ = true;
    std::vector<std::pair<size_t, size_t>> args_;  // first node, node count; only when not flat
    // One bit per declared argument: no handler declares more than a few, and a frame is
    // made for every module call.
    static constexpr size_t kMostDeclared = 64;
    std::uint64_t usable_ = 0;
};

}  // namespace ardo
