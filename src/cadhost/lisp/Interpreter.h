#pragma once
// The AutoLISP interpreter of ardo-cad: reader, evaluator with dynamic binding, the
// built-in functions, the host's external functions and the error handling of the
// commercial host (*error*, "; error: ..." and unwinding to the prompt).
#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cadhost/lisp/External.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/LispHost.h"
#include "cadhost/lisp/SymbolTable.h"
#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

struct EvalResult {
    bool ok = false;
    Value value;          // the last form's value
    std::string printed;  // its printed form as the prompt shows it; empty for no value
    std::string error;    // the error message when not ok
};

class Interpreter {
public:
    explicit Interpreter(LispHost& host);
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    // Evaluates every form of the source in order. An error is reported as the prompt
    // reports it (*error* or "; error: ...") and stops the evaluation.
    EvalResult evaluate(std::string_view source);
    // The interactive prompt: evaluates each form and prints its value on its own line.
    // False when an error stopped it.
    bool topLevel(std::string_view line);
    // Loads a LISP file as (load) does; errors are reported as for evaluate.
    EvalResult loadFile(const std::string& name);
    // Finds the file (adding ".lsp" when the name has no extension) and evaluates its
    // forms; throws "LOAD failed: ..." naming the file when it cannot be read.
    Value load(const std::string& name);
    // The file that (load name) reads, or nothing when there is none.
    std::optional<std::filesystem::path> findLoadFile(const std::string& name) const;

    // Commands: functions named C:NAME, run when the user types NAME.
    bool isCommand(std::string_view name) const;
    // Runs the command; false when there is none of that name.
    bool runCommand(std::string_view name);

    // Functions of the host, by case-insensitive name and numeric code.
    void defineExternal(std::string_view name, int code, ExternalFunction fn);
    bool undefineExternal(std::string_view name);

    // Expressions to evaluate once the host is ready (the host's ads_queueexpr).
    void queueExpression(std::string expression);
    // Evaluates and empties the queue; returns how many expressions ran.
    std::size_t runQueuedExpressions();

    // The file along the current folder and the host's support path.
    std::optional<std::filesystem::path> findFile(const std::string& name) const;

    Value variable(std::string_view name) const;
    void setVariable(std::string_view name, Value value);
    Symbol* intern(std::string_view name) { return symbols_.intern(name); }
    SymbolTable& symbols() { return symbols_; }
    LispHost& host() { return host_; }

    // Evaluation, for the built-in functions.
    Value eval(const Value& form);
    Value evalBody(const Value& forms);
    // Calls a function value: a SUBR, USUBR, external function, a symbol naming one, or
    // a (LAMBDA ...) list.
    Value apply(const Value& fn, const Args& args);
    // As apply, but an error comes back as a CatchError value, reported to nobody
    // (vl-catch-all-apply).
    Value applyCatchingErrors(const Value& fn, const Args& args);
    Value callLambda(const Lambda& lambda, const Args& args);
    Value makeLambda(const Value& paramsAndBody, Symbol* name);

    Value t() const { return Value::symbol(symT_); }
    Value boolean(bool b) const { return b ? t() : Value(); }
    // What (princ) returns: a symbol with an empty name that prints as nothing.
    Value voidValue() const { return Value::symbol(symVoid_); }
    bool isVoid(const Value& v) const { return v.kind() == Kind::Sym && v.asSymbol() == symVoid_; }

    Value newSelectionSet(std::vector<std::int64_t> entities);
    // The live selection set of that id, for hosts that get RTPICKS tokens.
    std::shared_ptr<SelectionSet> selectionSet(std::int64_t id) const;

    // Reports an error once: calls the user's *error* with the message, or prints
    // "; error: <message>". Runs where the error happened, before local bindings unwind.
    void reportError(LispError& error);

private:
    Value evalForm(const Value& form);
    Value callExternal(const External& ext, const Args& args);
    template <typename Body>
    bool guarded(Body body, std::string* message);

    LispHost& host_;
    SymbolTable symbols_;
    Symbol* symT_;
    Symbol* symVoid_;
    Symbol* symLambda_;
    Symbol* symSlash_;
    Symbol* symError_;
    std::deque<std::string> queue_;
    std::unordered_map<std::int64_t, std::weak_ptr<SelectionSet>> selectionSets_;
    std::int64_t nextSelectionId_ = 1;
    bool inErrorHandler_ = false;
    int catching_ = 0;   // vl-catch-all-apply calls under way
    // Argument chains of external calls by nesting depth; a deque, so that a deeper call
    // adding one leaves the chains of the calls under way where they are.
    std::deque<ardo::ResBufChain> argumentChains_;
    std::size_t externalDepth_ = 0;
};

}  // namespace cadhost::lisp
