// Forms that get their arguments unevaluated: binding, definition and control flow.
#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Binding.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Interpreter.h"

namespace cadhost::lisp {

namespace {

// Checks the count of an unevaluated argument list.
void checkFormCount(const Value& args, std::size_t min, std::size_t max) {
    const std::size_t n = listLength(args);
    if (n < min) tooFewArguments();
    if (n > max) tooManyArguments();
}

Value setqForm(Interpreter& in, const Value& args) {
    Value result;
    for (const Value* p = &args; p->isList(); p = &p->cdr().cdr()) {
        Symbol* target = symbolArg(p->car());
        if (!p->cdr().isList()) tooFewArguments();
        result = in.eval(p->cdr().car());
        target->value = result;
    }
    return result;
}

Value defunForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 2, SIZE_MAX);
    Symbol* name = symbolArg(args.car());
    name->value = in.makeLambda(args.cdr(), name);
    return args.car();
}

Value lambdaForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 1, SIZE_MAX);
    return in.makeLambda(args, nullptr);
}

Value ifForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 2, 3);
    if (!in.eval(args.car()).isNil()) return in.eval(args.cdr().car());
    return in.eval(args.cdr().cdr().car());
}

Value condForm(Interpreter& in, const Value& args) {
    for (const Value* p = &args; p->isList(); p = &p->cdr()) {
        const Value& clause = p->car();
        if (!clause.isList()) badArgType("listp", clause);
        Value test = in.eval(clause.car());
        if (test.isNil()) continue;
        return clause.cdr().isNil() ? test : in.evalBody(clause.cdr());
    }
    return Value();
}

Value whileForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 1, SIZE_MAX);
    Value result;
    while (!in.eval(args.car()).isNil()) result = in.evalBody(args.cdr());
    return result;
}

Value repeatForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 1, SIZE_MAX);
    const std::int32_t n = intArg(in.eval(args.car()));
    Value result;
    for (std::int32_t i = 0; i < n; ++i) result = in.evalBody(args.cdr());
    return result;
}

Value foreachForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 2, SIZE_MAX);
    Symbol* var = symbolArg(args.car());
    const Value list = listArg(in.eval(args.cdr().car()));
    Binding binding;
    binding.bind(var, Value());
    Value result;
    for (const Value* p = &list; p->isList(); p = &p->cdr()) {
        var->value = p->car();
        result = in.evalBody(args.cdr().cdr());
    }
    return result;
}

Value prognForm(Interpreter& in, const Value& args) { return in.evalBody(args); }

Value andForm(Interpreter& in, const Value& args) {
    for (const Value* p = &args; p->isList(); p = &p->cdr())
        if (in.eval(p->car()).isNil()) return Value();
    return in.t();
}

Value orForm(Interpreter& in, const Value& args) {
    for (const Value* p = &args; p->isList(); p = &p->cdr())
        if (!in.eval(p->car()).isNil()) return in.t();
    return Value();
}

Value quoteForm(Interpreter&, const Value& args) {
    checkFormCount(args, 1, 1);
    return args.car();
}

// (function (lambda ...)) compiles the lambda; (function name) gives the name back.
Value functionForm(Interpreter& in, const Value& args) {
    checkFormCount(args, 1, 1);
    const Value& f = args.car();
    if (f.isList() && f.car().kind() == Kind::Sym && f.car().asSymbol()->name == "LAMBDA")
        return in.makeLambda(f.cdr(), nullptr);
    return f;
}

const Builtin table[] = {
    {"SETQ", nullptr, setqForm},     {"DEFUN", nullptr, defunForm},     {"LAMBDA", nullptr, lambdaForm},
    {"IF", nullptr, ifForm},         {"COND", nullptr, condForm},       {"WHILE", nullptr, whileForm},
    {"REPEAT", nullptr, repeatForm}, {"FOREACH", nullptr, foreachForm}, {"PROGN", nullptr, prognForm},
    {"AND", nullptr, andForm},       {"OR", nullptr, orForm},           {"QUOTE", nullptr, quoteForm},
    {"FUNCTION", nullptr, functionForm},
};

}  // namespace

std::span<const Builtin> specialForms() { return table; }

}  // namespace cadhost::lisp
