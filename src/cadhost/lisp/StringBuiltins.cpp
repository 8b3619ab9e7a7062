// String functions. Positions and lengths count characters, not UTF-8 bytes.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "cadhost/lisp/LinearUnits.h"
#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Interpreter.h"
#include "cadhost/lisp/Printer.h"
#include "cadhost/lisp/Reader.h"
#include "cadhost/lisp/Text.h"
#include "base/CaseFold.h"
#include "base/Utf8.h"
#include "cadhost/lisp/Wildcard.h"

namespace cadhost::lisp {

namespace {

Value strcaseFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 2);
    const std::string& s = stringArg(args[0]);
    const bool lower = args.size() == 2 && !args[1].isNil();
    return Value::string(lower ? ardo::lowerCase(s) : ardo::upperCase(s));
}

Value strcatFn(Interpreter&, const Args& args) {
    std::string out;
    for (const Value& a : args) out += stringArg(a);
    return Value::string(std::move(out));
}

Value substrFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 3);
    const std::vector<char32_t> chars = decodeUtf8(stringArg(args[0]));
    const std::int32_t start = intArg(args[1]);
    if (start < 1) badArgValue("positive", args[1]);
    std::size_t count = chars.size();
    if (args.size() == 3) {
        const std::int32_t n = intArg(args[2]);
        if (n < 0) badArgValue("positive", args[2]);
        count = static_cast<std::size_t>(n);
    }
    std::string out;
    for (std::size_t i = static_cast<std::size_t>(start) - 1; i < chars.size() && count > 0; ++i, --count)
        ardo::appendUtf8(out, chars[i]);
    return Value::string(std::move(out));
}

Value strlenFn(Interpreter&, const Args& args) {
    std::size_t n = 0;
    for (const Value& a : args) n += utf8Length(stringArg(a));
    return Value::integer(static_cast<std::int32_t>(n));
}

Value itoaFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::string(std::to_string(intArg(args[0])));
}

Value atoiFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const long long v = std::strtoll(stringArg(args[0]).c_str(), nullptr, 10);
    return Value::integer(static_cast<std::int32_t>(static_cast<std::uint32_t>(v)));
}

Value atofFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::real(std::strtod(stringArg(args[0]).c_str(), nullptr));
}

// An integer system variable, or the fallback when the host does not know it.
int intVar(Interpreter& in, const char* name, int fallback) {
    ardo::ResBuf v;
    if (!in.host().getVar(name, v)) return fallback;
    if (v.restype == ardo::RTSHORT || v.restype == ardo::RTLONG) return static_cast<int>(v.integer);
    return fallback;
}

// (rtos number [mode [precision]]): modes 1 to 5 as LUNITS counts them; the defaults
// come from LUNITS and LUPREC, DIMZIN and UNITMODE shape the text as the host does.
Value rtosFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 3);
    const double v = numberArg(args[0]);
    LinearFormat format;
    format.mode = args.size() >= 2 ? intArg(args[1]) : intVar(in, "LUNITS", 2);
    format.precision = std::clamp(intVar(in, "LUPREC", 4), 0, 8);
    if (args.size() == 3) {
        format.precision = intArg(args[2]);
        if (format.precision < 0 || format.precision > 8) badArgValue("precision 0 to 8", args[2]);
    }
    format.dimzin = intVar(in, "DIMZIN", 0);
    format.asTyped = intVar(in, "UNITMODE", 0) == 1;
    const auto text = formatLength(v, format);
    if (!text) badArgValue("units mode 1 to 5", args.size() >= 2 ? args[1] : Value::integer(format.mode));
    return Value::string(*text);
}

Value chrFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const std::int32_t code = intArg(args[0]);
    std::string out;
    if (code > 0 && code < 0x110000) ardo::appendUtf8(out, static_cast<char32_t>(code));
    return Value::string(std::move(out));
}

Value asciiFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    const std::vector<char32_t> chars = decodeUtf8(stringArg(args[0]));
    return Value::integer(chars.empty() ? 0 : static_cast<std::int32_t>(chars.front()));
}

// The byte where the character of that index begins; the end for indexes past it.
std::size_t byteOffset(std::string_view s, std::size_t index) {
    std::size_t c = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if ((static_cast<unsigned char>(s[i]) & 0xC0) == 0x80) continue;
        if (c++ == index) return i;
    }
    return s.size();
}

// (vl-string-search pattern string [start]): the character position or nil.
Value vlStringSearchFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 3);
    const std::string& pattern = stringArg(args[0]);
    const std::string& text = stringArg(args[1]);
    const std::size_t startChar = args.size() == 3 ? static_cast<std::size_t>(std::max(0, intArg(args[2]))) : 0;
    const std::size_t byte = byteOffset(text, startChar);
    const auto found = text.find(pattern, byte);
    if (found == std::string::npos) return Value();
    return Value::integer(static_cast<std::int32_t>(utf8Length(std::string_view(text).substr(0, found))));
}

Value vlPrincToStringFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::string(princString(args[0]));
}

Value vlPrin1ToStringFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    return Value::string(prin1String(args[0]));
}

Value readFn(Interpreter& in, const Args& args) {
    checkCount(args, 0, 1);
    if (args.empty()) return Value();
    Reader reader(in.symbols(), stringArg(args[0]));
    auto form = reader.next();
    return form ? *form : Value();
}

Value wcmatchFn(Interpreter& in, const Args& args) {
    checkCount(args, 2, 2);
    return in.boolean(wildcardMatch(stringArg(args[0]), stringArg(args[1])));
}

const Builtin table[] = {
    {"STRCASE", strcaseFn, nullptr},
    {"STRCAT", strcatFn, nullptr},
    {"SUBSTR", substrFn, nullptr},
    {"STRLEN", strlenFn, nullptr},
    {"ITOA", itoaFn, nullptr},
    {"ATOI", atoiFn, nullptr},
    {"ATOF", atofFn, nullptr},
    {"RTOS", rtosFn, nullptr},
    {"CHR", chrFn, nullptr},
    {"ASCII", asciiFn, nullptr},
    {"VL-STRING-SEARCH", vlStringSearchFn, nullptr},
    {"VL-PRINC-TO-STRING", vlPrincToStringFn, nullptr},
    {"VL-PRIN1-TO-STRING", vlPrin1ToStringFn, nullptr},
    {"READ", readFn, nullptr},
    {"WCMATCH", wcmatchFn, nullptr},
};

}  // namespace

std::span<const Builtin> stringBuiltins() { return table; }

}  // namespace cadhost::lisp
