#pragma once
// Printed forms of values: princ shows strings raw, prin1 quotes and escapes them the
// way the reader reads them back.
#include <string>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

enum class PrintStyle { Princ, Prin1 };

void printValue(std::string& out, const Value& v, PrintStyle style);
std::string princString(const Value& v);
std::string prin1String(const Value& v);
// Reals as the commercial host prints them: six significant digits, always a decimal
// point, three-digit exponents ("3.14159", "100.0", "1.0e+010").
std::string formatReal(double r);

}  // namespace cadhost::lisp
