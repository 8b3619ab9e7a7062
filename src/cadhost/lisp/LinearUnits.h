#pragma once
// A length as text in the linear units of LUNITS: scientific, decimal, engineering (feet
// and decimal inches), architectural (feet and fractional inches) and fractional, with
// the zero suppression of DIMZIN and the typed-input form of UNITMODE 1.
#include <optional>
#include <string>

namespace cadhost::lisp {

struct LinearFormat {
    int mode = 2;        // LUNITS 1 to 5
    int precision = 4;   // decimal places; for fractions, the denominator is 2^precision
    int dimzin = 0;
    bool asTyped = false;   // UNITMODE 1: "1'5-1/2\"" rather than "1'-5 1/2\""
};

// Nothing for a mode outside 1 to 5.
std::optional<std::string> formatLength(double value, const LinearFormat& format);

}  // namespace cadhost::lisp
