#include "cadhost/lisp/Printer.h"

#include <cmath>
#include <cstdio>

#include "cadhost/lisp/External.h"
#include "cadhost/lisp/SelectionSet.h"
#include "cadhost/lisp/StackGuard.h"
#include "base/CaseFold.h"

namespace cadhost::lisp {

namespace {

void printEscaped(std::string& out, const std::string& s) {
    out += '"';
    for (char ch : s) {
        switch (ch) {
        case '\\': out += "\\\\"; break;
        case '"': out += "\\\""; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        case '\x1b': out += "\\e"; break;
        default:
            if (static_cast<unsigned char>(ch) < 0x20) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\%03o", static_cast<unsigned>(static_cast<unsigned char>(ch)));
                out += buf;
            } else {
                out += ch;
            }
        }
    }
    out += '"';
}

void printAddressed(std::string& out, const char* kind, const void* address, const std::string& name) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "#<%s @%016llx", kind,
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(address)));
    out += buf;
    if (!name.empty()) out += ' ' + name;
    out += '>';
}

bool isQuoteForm(const Value& v) {
    return v.car().kind() == Kind::Sym && v.car().asSymbol()->name == "QUOTE" && v.cdr().isList() &&
           v.cdr().cdr().isNil();
}

void printList(std::string& out, const Value& v, PrintStyle style) {
    if (isQuoteForm(v)) {
        out += '\'';
        printValue(out, v.cdr().car(), style);
        return;
    }
    out += '(';
    const Value* p = &v;
    bool first = true;
    for (; p->isList(); p = &p->cdr()) {
        if (!first) out += ' ';
        first = false;
        printValue(out, p->car(), style);
    }
    if (!p->isNil()) {
        out += " . ";
        printValue(out, *p, style);
    }
    out += ')';
}

}  // namespace

std::string formatReal(double r) {
    if (std::isnan(r)) return "-1.#IND";
    if (std::isinf(r)) return r > 0 ? "1.#INF" : "-1.#INF";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.6g", r);
    std::string s = buf;
    const auto e = s.find('e');
    std::string mantissa = s.substr(0, e);
    if (mantissa.find('.') == std::string::npos) mantissa += ".0";
    if (e == std::string::npos) return mantissa;
    // The exponent gets the three digits of the Windows runtime: e+10 -> e+010.
    std::string sign(1, s[e + 1]);
    std::string digits = s.substr(e + 2);
    while (digits.size() < 3) digits.insert(digits.begin(), '0');
    return mantissa + "e" + sign + digits;
}

void printValue(std::string& out, const Value& v, PrintStyle style) {
    checkStack();
    switch (v.kind()) {
    case Kind::Nil: out += "nil"; break;
    case Kind::Int: out += std::to_string(v.asInt()); break;
    case Kind::Real: out += formatReal(v.asReal()); break;
    case Kind::Str:
        if (style == PrintStyle::Prin1) printEscaped(out, v.asString());
        else out += v.asString();
        break;
    case Kind::Sym: out += v.asSymbol()->name; break;
    case Kind::List: printList(out, v, style); break;
    case Kind::Subr: printAddressed(out, "SUBR", v.asSubr(), v.asSubr()->name); break;
    case Kind::Usubr: {
        const Lambda& l = v.asLambda();
        printAddressed(out, "USUBR", &l, l.name ? l.name->name : "-lambda-");
        break;
    }
    case Kind::Exsubr: printAddressed(out, "EXRXSUBR", &v.asExternal(), ardo::upperCase(v.asExternal().name)); break;
    case Kind::Ename: {
        char buf[48];
        std::snprintf(buf, sizeof buf, "<Entity name: %llx>", static_cast<unsigned long long>(v.asId()));
        out += buf;
        break;
    }
    case Kind::Pickset: out += "<Selection set: " + std::to_string(v.asPickset().id) + ">"; break;
    case Kind::File: printAddressed(out, "FILE", &v.asFile(), ""); break;
    case Kind::CatchError: out += "#<%catch-all-apply-error%>"; break;
    }
}

std::string princString(const Value& v) {
    std::string s;
    printValue(s, v, PrintStyle::Princ);
    return s;
}

std::string prin1String(const Value& v) {
    std::string s;
    printValue(s, v, PrintStyle::Prin1);
    return s;
}

}  // namespace cadhost::lisp
