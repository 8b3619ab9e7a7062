#pragma once
// LISP data: one small value type for every kind AutoLISP knows. Scalars live inline;
// strings, lists and functions are shared, immutable heap objects.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace cadhost::lisp {

class Interpreter;
struct Symbol;
struct Builtin;
struct Cons;
struct Lambda;
struct External;
struct SelectionSet;
struct LispFile;

// CatchError: what vl-catch-all-apply gives back for an error it caught.
enum class Kind : std::uint8_t { Nil, Int, Real, Str, Sym, List, Subr, Usubr, Exsubr, Ename, Pickset, File, CatchError };

struct Object {
    virtual ~Object() = default;
};

struct StrObj : Object {
    explicit StrObj(std::string s) : text(std::move(s)) {}
    std::string text;
};

class Value {
public:
    Value() = default;

    static Value integer(std::int32_t v) { Value x(Kind::Int); x.u_.i = v; return x; }
    static Value real(double v) { Value x(Kind::Real); x.u_.r = v; return x; }
    static Value string(std::string s);
    static Value symbol(Symbol* s) { Value x(Kind::Sym); x.u_.sym = s; return x; }
    static Value cons(Value car, Value cdr);
    static Value subr(const Builtin* b) { Value x(Kind::Subr); x.u_.subr = b; return x; }
    static Value usubr(std::shared_ptr<Lambda> l);
    static Value exsubr(std::shared_ptr<External> e);
    static Value ename(std::int64_t id) { Value x(Kind::Ename); x.u_.id = id; return x; }
    static Value pickset(std::shared_ptr<SelectionSet> s);
    static Value file(std::shared_ptr<LispFile> f);
    static Value catchError(std::string message);

    Kind kind() const { return kind_; }
    bool isNil() const { return kind_ == Kind::Nil; }
    bool isList() const { return kind_ == Kind::List; }
    bool isNumber() const { return kind_ == Kind::Int || kind_ == Kind::Real; }
    bool isFunction() const { return kind_ == Kind::Subr || kind_ == Kind::Usubr || kind_ == Kind::Exsubr; }

    std::int32_t asInt() const { return u_.i; }
    double asReal() const { return u_.r; }
    double asNumber() const { return kind_ == Kind::Int ? u_.i : u_.r; }
    Symbol* asSymbol() const { return u_.sym; }
    const Builtin* asSubr() const { return u_.subr; }
    std::int64_t asId() const { return u_.id; }
    const std::string& asString() const { return static_cast<const StrObj*>(obj_.get())->text; }
    const Cons& asCons() const;
    Lambda& asLambda() const;
    External& asExternal() const;
    SelectionSet& asPickset() const;
    LispFile& asFile() const;
    // The message of a caught error (Kind::CatchError).
    const std::string& asCaughtMessage() const { return static_cast<const StrObj*>(obj_.get())->text; }
    const std::shared_ptr<Object>& object() const { return obj_; }

    const Value& car() const;  // nil for nil
    const Value& cdr() const;

private:
    explicit Value(Kind k) : kind_(k) {}

    Kind kind_ = Kind::Nil;
    union {
        std::int64_t id;
        std::int32_t i;
        double r;
        Symbol* sym;
        const Builtin* subr;
    } u_{0};
    std::shared_ptr<Object> obj_;
};

struct Cons : Object {
    Cons(Value a, Value d) : car(std::move(a)), cdr(std::move(d)) {}
    ~Cons() override;
    Value car;
    Value cdr;
};

inline const Cons& Value::asCons() const { return *static_cast<const Cons*>(obj_.get()); }

inline const Value& nilValue() {
    static const Value nil;
    return nil;
}
inline const Value& Value::car() const { return kind_ == Kind::List ? asCons().car : nilValue(); }
inline const Value& Value::cdr() const { return kind_ == Kind::List ? asCons().cdr : nilValue(); }

struct Symbol {
    std::string name;  // upper case, as printed
    Value value;
};

using Args = std::vector<Value>;
using SubrFn = Value (*)(Interpreter&, const Args&);
// Special forms get their unevaluated argument list.
using SpecialFn = Value (*)(Interpreter&, const Value&);

struct Builtin {
    const char* name;
    SubrFn fn;
    SpecialFn special;
};

struct Lambda : Object {
    std::vector<Symbol*> params;
    std::vector<Symbol*> locals;
    Value body;         // list of forms
    Symbol* name = nullptr;
};

// Builds a list front to back, one cell per item and no copy of the items on the way.
class ListBuilder {
public:
    void append(Value item);
    // Ends the list with a dotted tail instead of nil.
    void endWith(Value tail);
    bool empty() const { return head_.isNil(); }
    Value take() { last_ = nullptr; return std::move(head_); }

private:
    Value head_;
    Cons* last_ = nullptr;   // the cell whose cdr the next item goes to; the list is not shared yet
};

// Builds a proper list from values, in order.
Value makeList(const std::vector<Value>& items);
// Number of elements of a proper list; dotted tails are not counted.
std::size_t listLength(const Value& list);

}  // namespace cadhost::lisp
