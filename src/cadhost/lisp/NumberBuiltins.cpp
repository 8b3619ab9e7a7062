// Arithmetic and comparison. Integers are 32-bit and wrap around on overflow, as in the
// commercial host; any real among the arguments makes the result real.
#include <cmath>
#include <cstdint>

#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Equality.h"
#include "cadhost/lisp/Interpreter.h"
#include "cadhost/lisp/Printer.h"

namespace cadhost::lisp {

namespace {

std::int32_t wrap(std::int64_t v) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(v)); }

bool allInts(const Args& args) {
    for (const Value& a : args)
        if (numberArg(a), a.kind() != Kind::Int) return false;
    return true;
}

[[noreturn]] void divideByZero() { throw LispError("divide by zero"); }

enum class Op { Add, Sub, Mul, Div };

Value arithmetic(const Args& args, Op op) {
    const bool ints = allInts(args);
    if (args.empty()) return Value::integer(op == Op::Mul ? 1 : 0);
    if (args.size() == 1 && op == Op::Sub)
        return ints ? Value::integer(wrap(-std::int64_t(args[0].asInt()))) : Value::real(-args[0].asNumber());
    if (ints) {
        std::int64_t acc = args[0].asInt();
        for (std::size_t i = 1; i < args.size(); ++i) {
            const std::int64_t v = args[i].asInt();
            switch (op) {
            case Op::Add: acc = wrap(acc + v); break;
            case Op::Sub: acc = wrap(acc - v); break;
            case Op::Mul: acc = wrap(acc * v); break;
            case Op::Div:
                if (v == 0) divideByZero();
                acc = wrap(acc / v);
                break;
            }
        }
        return Value::integer(static_cast<std::int32_t>(acc));
    }
    double acc = args[0].asNumber();
    for (std::size_t i = 1; i < args.size(); ++i) {
        const double v = args[i].asNumber();
        switch (op) {
        case Op::Add: acc += v; break;
        case Op::Sub: acc -= v; break;
        case Op::Mul: acc *= v; break;
        case Op::Div:
            if (v == 0.0) divideByZero();
            acc /= v;
            break;
        }
    }
    return Value::real(acc);
}

Value addFn(Interpreter&, const Args& a) { return arithmetic(a, Op::Add); }
Value subFn(Interpreter&, const Args& a) { return arithmetic(a, Op::Sub); }
Value mulFn(Interpreter&, const Args& a) { return arithmetic(a, Op::Mul); }
Value divFn(Interpreter&, const Args& a) { return arithmetic(a, Op::Div); }

Value remFn(Interpreter&, const Args& args) {
    if (args.empty()) return Value::integer(0);
    const bool ints = allInts(args);
    if (ints) {
        std::int64_t acc = args[0].asInt();
        for (std::size_t i = 1; i < args.size(); ++i) {
            if (args[i].asInt() == 0) divideByZero();
            acc %= args[i].asInt();
        }
        return Value::integer(static_cast<std::int32_t>(acc));
    }
    double acc = args[0].asNumber();
    for (std::size_t i = 1; i < args.size(); ++i) {
        if (args[i].asNumber() == 0.0) divideByZero();
        acc = std::fmod(acc, args[i].asNumber());
    }
    return Value::real(acc);
}

Value step(const Args& args, int delta) {
    checkCount(args, 1, 1);
    numberArg(args[0]);
    if (args[0].kind() == Kind::Int) return Value::integer(wrap(std::int64_t(args[0].asInt()) + delta));
    return Value::real(args[0].asReal() + delta);
}
Value incFn(Interpreter&, const Args& a) { return step(a, 1); }
Value decFn(Interpreter&, const Args& a) { return step(a, -1); }

Value absFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    numberArg(args[0]);
    if (args[0].kind() == Kind::Int) return Value::integer(wrap(std::llabs(args[0].asInt())));
    return Value::real(std::fabs(args[0].asReal()));
}

Value extreme(const Args& args, bool wantMax) {
    checkCount(args, 1, SIZE_MAX);
    const bool ints = allInts(args);
    std::size_t best = 0;
    for (std::size_t i = 1; i < args.size(); ++i)
        if (wantMax ? args[i].asNumber() > args[best].asNumber() : args[i].asNumber() < args[best].asNumber())
            best = i;
    return ints ? args[best] : Value::real(args[best].asNumber());
}
Value minFn(Interpreter&, const Args& a) { return extreme(a, false); }
Value maxFn(Interpreter&, const Args& a) { return extreme(a, true); }

// Compares numbers with numbers and strings with strings: -1, 0 or 1.
int compare(const Value& a, const Value& b) {
    if (a.kind() == Kind::Str && b.kind() == Kind::Str) {
        const int c = a.asString().compare(b.asString());
        return c < 0 ? -1 : c > 0;
    }
    const double x = numberArg(a);
    const double y = numberArg(b);
    return x < y ? -1 : x > y;
}

template <typename Test>
Value comparison(Interpreter& in, const Args& args, Test test) {
    checkCount(args, 1, SIZE_MAX);
    if (args.size() == 1) {
        if (args[0].kind() != Kind::Str) numberArg(args[0]);
        return in.t();
    }
    for (std::size_t i = 1; i < args.size(); ++i)
        if (!test(compare(args[i - 1], args[i]))) return Value();
    return in.t();
}

Value eqNumFn(Interpreter& in, const Args& a) { return comparison(in, a, [](int c) { return c == 0; }); }
Value neFn(Interpreter& in, const Args& a) { return comparison(in, a, [](int c) { return c != 0; }); }
Value ltFn(Interpreter& in, const Args& a) { return comparison(in, a, [](int c) { return c < 0; }); }
Value gtFn(Interpreter& in, const Args& a) { return comparison(in, a, [](int c) { return c > 0; }); }
Value leFn(Interpreter& in, const Args& a) { return comparison(in, a, [](int c) { return c <= 0; }); }
Value geFn(Interpreter& in, const Args& a) { return comparison(in, a, [](int c) { return c >= 0; }); }

Value eqFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 2);
    return in.boolean(isEq(args[0], args[1]));
}

Value equalFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 3);
    const double fuzz = args.size() == 3 ? numberArg(args[2]) : 0.0;
    return in.boolean(isEqual(args[0], args[1], fuzz));
}

Value zeropFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(numberArg(args[0]) == 0.0);
}

Value minuspFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(numberArg(args[0]) < 0.0);
}

Value numberpFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    return in.boolean(args[0].isNumber());
}

Value fixFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const double v = std::trunc(numberArg(args[0]));
    if (!(std::fabs(v) < 9.2e18)) badArgValue("fix: out of range", args[0]);
    return Value::integer(wrap(static_cast<std::int64_t>(v)));
}

Value floatFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::real(numberArg(args[0]));
}

// The real-valued functions of one argument.
template <double (*F)(double)>
Value realFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const double x = numberArg(args[0]);
    const double r = F(x);
    if (std::isnan(r)) throw LispError("function undefined for argument: " + prin1String(args[0]));
    return Value::real(r);
}

Value atanFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 2);
    if (args.size() == 2) return Value::real(std::atan2(numberArg(args[0]), numberArg(args[1])));
    return Value::real(std::atan(numberArg(args[0])));
}

Value exptFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    if (allInts(args)) {
        std::int64_t base = args[0].asInt();
        std::int32_t e = args[1].asInt();
        if (e < 0) return Value::integer(base == 1 ? 1 : base == -1 ? (e % 2 ? -1 : 1) : 0);
        std::int64_t r = 1;
        for (; e > 0; --e) r = wrap(r * base);
        return Value::integer(static_cast<std::int32_t>(r));
    }
    return Value::real(std::pow(args[0].asNumber(), args[1].asNumber()));
}

Value bitwise(const Args& args, bool isAnd) {
    std::int32_t acc = isAnd ? -1 : 0;
    if (args.empty()) return Value::integer(0);
    for (const Value& a : args) acc = isAnd ? (acc & intArg(a)) : (acc | intArg(a));
    return Value::integer(acc);
}
Value logandFn(Interpreter&, const Args& a) { return bitwise(a, true); }
Value logiorFn(Interpreter&, const Args& a) { return bitwise(a, false); }

Value notBitsFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::integer(~intArg(args[0]));
}

double sqrtOf(double x) { return std::sqrt(x); }
double sinOf(double x) { return std::sin(x); }
double cosOf(double x) { return std::cos(x); }
double logOf(double x) { return x > 0 ? std::log(x) : NAN; }
double expOf(double x) { return std::exp(x); }

const Builtin table[] = {
    {"+", addFn, nullptr},        {"-", subFn, nullptr},          {"*", mulFn, nullptr},
    {"/", divFn, nullptr},        {"REM", remFn, nullptr},        {"1+", incFn, nullptr},
    {"1-", decFn, nullptr},       {"ABS", absFn, nullptr},        {"MIN", minFn, nullptr},
    {"MAX", maxFn, nullptr},      {"=", eqNumFn, nullptr},        {"/=", neFn, nullptr},
    {"<", ltFn, nullptr},         {">", gtFn, nullptr},           {"<=", leFn, nullptr},
    {">=", geFn, nullptr},        {"EQ", eqFn, nullptr},          {"EQUAL", equalFn, nullptr},
    {"ZEROP", zeropFn, nullptr},  {"MINUSP", minuspFn, nullptr},  {"NUMBERP", numberpFn, nullptr},
    {"FIX", fixFn, nullptr},      {"FLOAT", floatFn, nullptr},    {"SQRT", realFn<sqrtOf>, nullptr},
    {"SIN", realFn<sinOf>, nullptr}, {"COS", realFn<cosOf>, nullptr}, {"LOG", realFn<logOf>, nullptr},
    {"EXP", realFn<expOf>, nullptr}, {"ATAN", atanFn, nullptr},   {"EXPT", exptFn, nullptr},
    {"LOGAND", logandFn, nullptr}, {"LOGIOR", logiorFn, nullptr}, {"~", notBitsFn, nullptr},
};

}  // namespace

std::span<const Builtin> numberBuiltins() { return table; }

}  // namespace cadhost::lisp
