// Evaluation, function application, files and the environment.
#include <cstdlib>

#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Interpreter.h"

namespace cadhost::lisp {

namespace {

Value typeFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    const char* name = nullptr;
    switch (args[0].kind()) {
    case Kind::Nil: return Value();
    case Kind::Int: name = "INT"; break;
    case Kind::Real: name = "REAL"; break;
    case Kind::Str: name = "STR"; break;
    case Kind::Sym: name = "SYM"; break;
    case Kind::List: name = "LIST"; break;
    case Kind::Subr: name = "SUBR"; break;
    case Kind::Usubr: name = "USUBR"; break;
    case Kind::Exsubr: name = "EXRXSUBR"; break;
    case Kind::Ename: name = "ENAME"; break;
    case Kind::Pickset: name = "PICKSET"; break;
    case Kind::File: name = "FILE"; break;
    case Kind::CatchError: name = "VL-CATCH-ALL-APPLY-ERROR"; break;
    }
    return Value::symbol(in.intern(name));
}

Value boundpFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    if (args[0].isNil()) return Value();
    return in.boolean(!symbolArg(args[0])->value.isNil());
}

Value evalFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.eval(args[0]);
}

Args elementsOf(const Value& list) {
    Args out;
    for (const Value* p = &listArg(list); p->isList(); p = &p->cdr()) out.push_back(p->car());
    return out;
}

Value applyFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 2);
    return in.apply(args[0], elementsOf(args[1]));
}

// (vl-catch-all-apply 'fn list): apply, but an error comes back as an object that
// vl-catch-all-error-p recognises instead of ending the expression (*error* not called).
Value catchAllApplyFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 2);
    return in.applyCatchingErrors(args[0], elementsOf(args[1]));
}

Value catchAllErrorPFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(args[0].kind() == Kind::CatchError);
}

Value catchAllErrorMessageFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    if (args[0].kind() != Kind::CatchError) badArgType("vl-catch-all-apply-error-p", args[0]);
    return Value::string(args[0].asCaughtMessage());
}

Value mapcarFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, SIZE_MAX);
    std::vector<const Value*> cursors;
    for (std::size_t i = 1; i < args.size(); ++i) cursors.push_back(&listArg(args[i]));
    std::vector<Value> results;
    Args call(cursors.size());
    for (;;) {
        for (std::size_t i = 0; i < cursors.size(); ++i) {
            if (!cursors[i]->isList()) return makeList(results);
            call[i] = cursors[i]->car();
            cursors[i] = &cursors[i]->cdr();
        }
        results.push_back(in.apply(args[0], call));
    }
}

Value getenvFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const char* v = std::getenv(stringArg(args[0]).c_str());
    return v ? Value::string(v) : Value();
}

Value findfileFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    const auto path = in.findFile(stringArg(args[0]));
    return path ? Value::string(path->generic_string()) : Value();
}

// (load file [onfailure]): onfailure is returned instead of an error when the file is missing.
Value loadFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 2);
    const std::string& name = stringArg(args[0]);
    if (args.size() == 2 && !in.findLoadFile(name)) return args[1];
    return in.load(name);
}

Value exitFn(Interpreter&, const Args& args) {
    checkCount(args, 0, 0);
    throw LispError("quit / exit abort");
}

// The ActiveX extensions have nothing to load here; code that asks for them goes on.
Value vlLoadComFn(Interpreter&, const Args& args) {
    checkCount(args, 0, 0);
    return Value();
}

const Builtin table[] = {
    {"TYPE", typeFn, nullptr},         {"BOUNDP", boundpFn, nullptr},     {"EVAL", evalFn, nullptr},
    {"APPLY", applyFn, nullptr},
    {"VL-CATCH-ALL-APPLY", catchAllApplyFn, nullptr},
    {"VL-CATCH-ALL-ERROR-P", catchAllErrorPFn, nullptr},
    {"VL-CATCH-ALL-ERROR-MESSAGE", catchAllErrorMessageFn, nullptr},       {"MAPCAR", mapcarFn, nullptr},     {"GETENV", getenvFn, nullptr},
    {"FINDFILE", findfileFn, nullptr}, {"LOAD", loadFn, nullptr},         {"EXIT", exitFn, nullptr},
    {"QUIT", exitFn, nullptr},         {"VL-LOAD-COM", vlLoadComFn, nullptr},
};

}  // namespace

std::span<const Builtin> systemBuiltins() { return table; }

}  // namespace cadhost::lisp
