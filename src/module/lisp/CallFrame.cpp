#include "module/lisp/CallFrame.h"

#include <algorithm>

#include "module/HostBinding.h"
#include "messages/MessageFile.h"

namespace ardo {

CallFrame::CallFrame() : chain_((host().retNil(), host().getArgs())) {
    flat_ = std::none_of(chain_.begin(), chain_.end(), [](const ResBuf& node) { return node.restype == RTLB; });
    if (flat_) return;
    args_.reserve(chain_.size());
    for (size_t i = 0; i < chain_.size();) {
        size_t start = i;
        if (chain_[i].restype == RTLB) {
            int depth = 0;
            for (; i < chain_.size(); ++i) {
                if (chain_[i].restype == RTLB) ++depth;
                else if (chain_[i].restype == RTLE && --depth == 0) break;
            }
            i = std::min(i + 1, chain_.size());
        } else {
            ++i;
        }
        args_.emplace_back(start, i - start);
    }
}

bool CallFrame::fits(ArgKind kind, const ResBuf& node) {
    switch (kind) {
        case ArgKind::String: return node.restype == RTSTR;
        case ArgKind::Integer: return node.restype == RTSHORT || node.restype == RTLONG;
        case ArgKind::Real: return node.restype == RTREAL;
        case ArgKind::Number:
            return node.restype == RTSHORT || node.restype == RTLONG || node.restype == RTREAL;
        case ArgKind::List: return node.restype == RTLB;
        case ArgKind::SelectionSet: return node.restype == RTPICKS;
        case ArgKind::Any: return true;
    }
    return false;
}

bool CallFrame::check(std::initializer_list<ArgDecl> declaration, ExtraArgs extra) {
    usable_ = 0;
    size_t required = 0;
    for (const auto& d : declaration)
        if (d.presence == Presence::Required) ++required;
    if (count() < required || (extra == ExtraArgs::Reject && count() > declaration.size())) {
        report("BadNumOfArg");
        return false;
    }
    size_t i = 0;
    for (const auto& d : declaration) {
        if (i >= count()) break;
        const bool ok = fits(d.kind, node(i));
        if (!ok && d.presence != Presence::OptionalLenient) {
            report("BadTypOfArg");
            return false;
        }
        if (i < kMostDeclared && ok) usable_ |= std::uint64_t{1} << i;
        ++i;
    }
    return true;
}

double CallFrame::number(size_t i) const {
    const ResBuf& n = node(i);
    return n.restype == RTREAL ? n.real : double(n.integer);
}

std::span<const ResBuf> CallFrame::list(size_t i) const {
    if (flat_) return std::span<const ResBuf>(chain_).subspan(i, 1);
    return std::span<const ResBuf>(chain_).subspan(args_[i].first, args_[i].second);
}

void CallFrame::reportBadValue() const { report("BadValueOfArg"); }

void CallFrame::report(const char* key) const {
    host().print(MessageFile::instance().text("LCINIT", key));
}

}  // namespace ardo
