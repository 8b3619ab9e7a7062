#include "cadhost/lisp/LinearUnits.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace cadhost::lisp {

namespace {

// DIMZIN 4 drops a leading zero (".5"), 8 trailing zeros of decimals ("12.5").
std::string decimal(double value, int precision, int dimzin) {
    char buf[512];
    std::snprintf(buf, sizeof buf, "%.*f", precision, value);
    std::string s = buf;
    if ((dimzin & 8) && s.find('.') != std::string::npos) {
        while (s.back() == '0') s.pop_back();
        if (s.back() == '.') s.pop_back();
    }
    if ((dimzin & 4) && s.size() > 1 && s[0] == '0' && s[1] == '.') s.erase(0, 1);
    return s;
}

// Whole units and a fraction in lowest terms ("5 1/2", or "5-1/2" as typed).
std::string fraction(long long whole, long long numerator, long long denominator, bool asTyped, bool wholeShown) {
    if (numerator == 0) return std::to_string(whole);
    const long long common = std::gcd(numerator, denominator);
    const std::string part = std::to_string(numerator / common) + "/" + std::to_string(denominator / common);
    if (whole == 0 && !wholeShown) return part;
    return std::to_string(whole) + (asTyped ? "-" : " ") + part;
}

// Feet and inches; DIMZIN 0 to 3 says whether zero feet and zero inches are shown.
std::string feetAndInches(long long feet, const std::string& inches, bool zeroInches, const LinearFormat& format) {
    const int zeros = format.dimzin & 3;
    const bool showFeet = feet != 0 || zeros == 1 || zeros == 2;
    const bool showInches = !zeroInches || zeros == 1 || zeros == 3 || !showFeet;
    std::string out;
    if (showFeet) out += std::to_string(feet) + "'";
    if (showFeet && showInches && !format.asTyped) out += "-";
    if (showInches) out += inches + "\"";
    return out;
}

}  // namespace

std::optional<std::string> formatLength(double value, const LinearFormat& format) {
    const bool negative = value < 0;
    const double size = std::abs(value);
    std::string s;
    switch (format.mode) {
        case 1: {
            char buf[512];
            std::snprintf(buf, sizeof buf, "%.*E", format.precision, value);
            return std::string(buf);
        }
        case 2: s = decimal(size, format.precision, format.dimzin); break;
        case 3: {
            // Inches rounded first, so that 11.999 inches become the next foot.
            const double scale = std::pow(10.0, format.precision);
            const double inchesTotal = std::round(size * scale) / scale;
            long long feet = static_cast<long long>(std::floor(inchesTotal / 12 + 1e-12));
            double inches = inchesTotal - 12.0 * static_cast<double>(feet);
            if (inches < 0) inches = 0;
            s = feetAndInches(feet, decimal(inches, format.precision, format.dimzin & 12), inches * scale < 0.5, format);
            break;
        }
        case 4:
        case 5: {
            const long long denominator = 1LL << std::clamp(format.precision, 0, 8);
            const long long units = std::llround(size * static_cast<double>(denominator));
            const long long whole = units / denominator, numerator = units % denominator;
            if (format.mode == 5) {
                s = fraction(whole, numerator, denominator, format.asTyped, false);
            } else {
                const long long feet = whole / 12;
                // With feet before it, "0 1/2" keeps its zero.
                const bool feetShown = feet != 0 || (format.dimzin & 3) == 1 || (format.dimzin & 3) == 2;
                s = feetAndInches(feet, fraction(whole % 12, numerator, denominator, format.asTyped, feetShown),
                                  whole % 12 == 0 && numerator == 0, format);
            }
            break;
        }
        default: return std::nullopt;
    }
    // A negative number that rounds to zero shows no sign.
    if (negative && s.find_first_of("123456789") != std::string::npos) s.insert(0, "-");
    return s;
}

}  // namespace cadhost::lisp
