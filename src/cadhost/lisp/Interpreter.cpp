#include "cadhost/lisp/Interpreter.h"

#include <cmath>
#include <fstream>
#include <sstream>

#include "base/FileLookup.h"
#include "cadhost/lisp/Binding.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Printer.h"
#include "cadhost/lisp/Reader.h"
#include "cadhost/lisp/ResBufConvert.h"
#include "cadhost/lisp/SelectionSet.h"
#include "cadhost/lisp/StackGuard.h"
#include "base/CaseFold.h"

namespace cadhost::lisp {

Interpreter::Interpreter(LispHost& host)
    : host_(host),
      symT_(symbols_.intern("T")),
      symVoid_(symbols_.intern("")),
      symLambda_(symbols_.intern("LAMBDA")),
      symSlash_(symbols_.intern("/")),
      symError_(symbols_.intern("*ERROR*")) {
    for (auto table : {specialForms(), listBuiltins(), numberBuiltins(), stringBuiltins(), outputBuiltins(),
                       systemBuiltins(), hostBuiltins(), geometryBuiltins()})
        for (const Builtin& b : table) symbols_.intern(b.name)->value = Value::subr(&b);
    symT_->value = t();
    symVoid_->value = voidValue();
    intern("PI")->value = Value::real(M_PI);
    intern("PAUSE")->value = Value::string("\\");
}

Value Interpreter::eval(const Value& form) {
    switch (form.kind()) {
    case Kind::Sym: return form.asSymbol()->value;
    case Kind::List: return evalForm(form);
    default: return form;
    }
}

Value Interpreter::evalBody(const Value& forms) {
    Value result;
    for (const Value* p = &forms; p->isList(); p = &p->cdr()) result = eval(p->car());
    return result;
}

Value Interpreter::evalForm(const Value& form) {
    checkStack();
    const Value& head = form.car();
    Value fn;
    if (head.kind() == Kind::Sym) {
        fn = head.asSymbol()->value;
        if (fn.isNil()) throw LispError("no function definition: " + head.asSymbol()->name);
    } else if (head.isList()) {
        fn = eval(head);
    } else {
        throw LispError("bad function: " + prin1String(head));
    }
    if (fn.kind() == Kind::Subr && fn.asSubr()->special) return fn.asSubr()->special(*this, form.cdr());
    Args args;
    args.reserve(4);
    const Value* p = &form.cdr();
    for (; p->isList(); p = &p->cdr()) args.push_back(eval(p->car()));
    if (!p->isNil()) throw LispError("bad list: " + prin1String(form));
    return apply(fn, args);
}

Value Interpreter::apply(const Value& fn, const Args& args) {
    switch (fn.kind()) {
    case Kind::Subr:
        if (fn.asSubr()->special) throw LispError("bad function: " + prin1String(fn));
        return fn.asSubr()->fn(*this, args);
    case Kind::Usubr: return callLambda(fn.asLambda(), args);
    case Kind::Exsubr: return callExternal(fn.asExternal(), args);
    case Kind::Sym: {
        const Value target = fn.asSymbol()->value;
        if (target.isNil()) throw LispError("no function definition: " + fn.asSymbol()->name);
        if (target.kind() == Kind::Sym) throw LispError("bad function: " + prin1String(target));
        return apply(target, args);
    }
    case Kind::List:
        if (fn.car().kind() == Kind::Sym && fn.car().asSymbol() == symLambda_) {
            const Value lambda = makeLambda(fn.cdr(), nullptr);
            return callLambda(lambda.asLambda(), args);
        }
        [[fallthrough]];
    default: throw LispError("bad function: " + prin1String(fn));
    }
}

Value Interpreter::makeLambda(const Value& paramsAndBody, Symbol* name) {
    if (!paramsAndBody.isList()) tooFewArguments();
    const Value& params = paramsAndBody.car();
    if (!params.isNil() && !params.isList()) badArgType("listp", params);
    auto lambda = std::make_shared<Lambda>();
    bool locals = false;
    for (const Value* p = &params; p->isList(); p = &p->cdr()) {
        const Value& item = p->car();
        if (item.kind() != Kind::Sym) badArgType("symbolp", item);
        if (item.asSymbol() == symSlash_ && !locals) {
            locals = true;
            continue;
        }
        (locals ? lambda->locals : lambda->params).push_back(item.asSymbol());
    }
    lambda->body = paramsAndBody.cdr();
    lambda->name = name;
    return Value::usubr(std::move(lambda));
}

Value Interpreter::callLambda(const Lambda& lambda, const Args& args) {
    if (args.size() < lambda.params.size()) tooFewArguments();
    if (args.size() > lambda.params.size()) tooManyArguments();
    Binding binding;
    binding.reserve(lambda.params.size() + lambda.locals.size());
    for (std::size_t i = 0; i < args.size(); ++i) binding.bind(lambda.params[i], args[i]);
    for (Symbol* local : lambda.locals) binding.bind(local, Value());
    try {
        return evalBody(lambda.body);
    } catch (LispError& e) {
        reportError(e);  // while the locals are still bound, as *error* expects
        throw;
    }
}

Value Interpreter::callExternal(const External& ext, const Args& args) {
    // Each depth of nested external calls keeps its argument chain's storage for the next
    // call at that depth: most calls then allocate no chain.
    if (externalDepth_ == argumentChains_.size()) argumentChains_.emplace_back();
    ardo::ResBufChain& chain = argumentChains_[externalDepth_];
    chain.clear();
    for (const Value& a : args) appendArgument(chain, a);
    struct Depth {
        std::size_t& depth;
        explicit Depth(std::size_t& d) : depth(++d) {}
        ~Depth() { --depth; }
    } depth(externalDepth_);
    ardo::ResBufChain result;
    try {
        result = ext.fn(ext.code, chain);
    } catch (const LispError&) {
        throw;
    } catch (const std::exception& e) {
        throw LispError(ardo::upperCase(ext.name) + " failed: " + e.what());
    }
    return valueFromChain(*this, result);
}

Value Interpreter::applyCatchingErrors(const Value& fn, const Args& args) {
    ++catching_;
    try {
        Value result = apply(fn, args);
        --catching_;
        return result;
    } catch (const LispError& e) {
        --catching_;
        return Value::catchError(e.what());
    }
}

void Interpreter::reportError(LispError& error) {
    if (error.reported || catching_ > 0) return;
    error.reported = true;
    const Value handler = symError_->value;
    const bool userHandler = handler.kind() == Kind::Usubr || handler.kind() == Kind::List;
    if (userHandler && !inErrorHandler_) {
        inErrorHandler_ = true;
        try {
            apply(handler, Args{Value::string(error.what())});
        } catch (LispError& inner) {
            // An error inside *error* itself gets the plain report, once.
            if (!inner.reported) host_.print(std::string("; error: ") + inner.what() + "\n");
        }
        inErrorHandler_ = false;
        return;
    }
    host_.print(std::string("; error: ") + error.what() + "\n");
}

template <typename Body>
bool Interpreter::guarded(Body body, std::string* message) {
    StackScope scope;
    try {
        body();
        return true;
    } catch (LispError& e) {
        reportError(e);
        if (message) *message = e.what();
        return false;
    }
}

EvalResult Interpreter::evaluate(std::string_view source) {
    EvalResult result;
    Reader reader(symbols_, source);
    result.ok = guarded(
        [&] {
            while (auto form = reader.next()) result.value = eval(*form);
        },
        &result.error);
    if (result.ok && !isVoid(result.value)) result.printed = prin1String(result.value);
    return result;
}

bool Interpreter::topLevel(std::string_view line) {
    Reader reader(symbols_, line);
    return guarded(
        [&] {
            while (auto form = reader.next()) {
                const Value value = eval(*form);
                if (!isVoid(value)) host_.print(prin1String(value) + "\n");
            }
        },
        nullptr);
}

EvalResult Interpreter::loadFile(const std::string& name) {
    EvalResult result;
    result.ok = guarded([&] { result.value = load(name); }, &result.error);
    if (result.ok && !isVoid(result.value)) result.printed = prin1String(result.value);
    return result;
}

std::optional<std::filesystem::path> Interpreter::findLoadFile(const std::string& name) const {
    if (std::filesystem::path(name).extension().empty())
        if (auto path = findFile(name + ".lsp")) return path;
    return findFile(name);
}

Value Interpreter::load(const std::string& name) {
    const std::optional<std::filesystem::path> path = findLoadFile(name);
    std::ifstream in;
    if (path) in.open(*path, std::ios::binary);
    if (!path || !in) throw LispError("LOAD failed: " + prin1String(Value::string(name)));
    std::ostringstream text;
    text << in.rdbuf();
    const std::string source = text.str();
    Reader reader(symbols_, source);
    Value result;
    while (auto form = reader.next()) result = eval(*form);
    return result;
}

bool Interpreter::isCommand(std::string_view name) const {
    const Symbol* s = symbols_.find("C:" + std::string(name));
    return s && s->value.isFunction();
}

bool Interpreter::runCommand(std::string_view name) {
    if (!isCommand(name)) return false;
    const Value fn = symbols_.find("C:" + std::string(name))->value;
    guarded([&] { apply(fn, Args{}); }, nullptr);
    return true;
}

void Interpreter::defineExternal(std::string_view name, int code, ExternalFunction fn) {
    auto ext = std::make_shared<External>();
    ext->name = std::string(name);
    ext->code = code;
    ext->fn = std::move(fn);
    intern(name)->value = Value::exsubr(std::move(ext));
}

bool Interpreter::undefineExternal(std::string_view name) {
    Symbol* s = symbols_.find(name);
    if (!s || s->value.kind() != Kind::Exsubr) return false;
    s->value = Value();
    return true;
}

void Interpreter::queueExpression(std::string expression) { queue_.push_back(std::move(expression)); }

std::size_t Interpreter::runQueuedExpressions() {
    std::size_t n = 0;
    while (!queue_.empty()) {
        const std::string expression = std::move(queue_.front());
        queue_.pop_front();
        evaluate(expression);
        ++n;
    }
    return n;
}

std::optional<std::filesystem::path> Interpreter::findFile(const std::string& name) const {
    namespace fs = std::filesystem;
    if (name.empty()) return std::nullopt;
    // Names from Windows installations: any case, backslashes as separators.
    const bool inFolder = name.find_first_of("/\\") != std::string::npos;
    if (inFolder) {
        if (auto found = ardo::findOnDisk(name)) return fs::path(*found);
        return std::nullopt;
    }
    std::error_code ec;
    if (auto found = ardo::findOnDisk(name)) return fs::absolute(*found, ec);
    for (const fs::path& folder : host_.supportPath())
        if (auto found = ardo::findOnDisk((folder / name).string())) return fs::path(*found);
    return std::nullopt;
}

Value Interpreter::variable(std::string_view name) const {
    const Symbol* s = symbols_.find(name);
    return s ? s->value : Value();
}

void Interpreter::setVariable(std::string_view name, Value value) { intern(name)->value = std::move(value); }

Value Interpreter::newSelectionSet(std::vector<std::int64_t> entities) {
    auto set = std::make_shared<SelectionSet>();
    set->id = nextSelectionId_++;
    set->entities = std::move(entities);
    // Forget sets nobody holds any more, so the table stays small.
    std::erase_if(selectionSets_, [](const auto& entry) { return entry.second.expired(); });
    selectionSets_[set->id] = set;
    return Value::pickset(std::move(set));
}

std::shared_ptr<SelectionSet> Interpreter::selectionSet(std::int64_t id) const {
    auto it = selectionSets_.find(id);
    return it == selectionSets_.end() ? nullptr : it->second.lock();
}

}  // namespace cadhost::lisp
