#include "cadhost/lisp/ArgCheck.h"

#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/SelectionSet.h"

namespace cadhost::lisp {

void checkCount(const Args& args, std::size_t min, std::size_t max) {
    if (args.size() < min) tooFewArguments();
    if (args.size() > max) tooManyArguments();
}

std::int32_t intArg(const Value& v) {
    if (v.kind() != Kind::Int) badArgType("fixnump", v);
    return v.asInt();
}

double numberArg(const Value& v) {
    if (!v.isNumber()) badArgType("numberp", v);
    return v.asNumber();
}

const std::string& stringArg(const Value& v) {
    if (v.kind() != Kind::Str) badArgType("stringp", v);
    return v.asString();
}

Symbol* symbolArg(const Value& v) {
    if (v.kind() != Kind::Sym) badArgType("symbolp", v);
    return v.asSymbol();
}

const Value& listArg(const Value& v) {
    if (!v.isNil() && !v.isList()) badArgType("listp", v);
    return v;
}

std::int64_t enameArg(const Value& v) {
    if (v.kind() != Kind::Ename) badArgType("lentityp", v);
    return v.asId();
}

SelectionSet& picksetArg(const Value& v) {
    if (v.kind() != Kind::Pickset) badArgType("lselsetp", v);
    return v.asPickset();
}

}  // namespace cadhost::lisp
