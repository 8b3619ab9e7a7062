#include "cadhost/dxf/TagValue.h"

#include <cctype>
#include <charconv>

#include "cadhost/dxf/GroupCode.h"

namespace cadhost {

namespace {
std::string_view trimmed(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    if (!s.empty() && s.front() == '+') s.remove_prefix(1);
    return s;
}
}  // namespace

double toDouble(std::string_view text, double fallback) {
    text = trimmed(text);
    double v = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    return ec == std::errc() && end == text.data() + text.size() ? v : fallback;
}

long long toInteger(std::string_view text, long long fallback) {
    text = trimmed(text);
    long long v = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (ec == std::errc() && end == text.data() + text.size()) return v;
    // Some writers put integers as reals ("1.0"). Outside (-2^63, 2^63) the conversion
    // would be undefined; NaN fails both comparisons.
    const double d = toDouble(text, static_cast<double>(fallback));
    if (!(d > -9223372036854775808.0 && d < 9223372036854775808.0)) return fallback;
    return static_cast<long long>(d);
}

std::optional<long long> toIntegerWithin(std::string_view text, long long low, long long high) {
    // Two different fallbacks tell an unreadable text from a value that reads as one of them.
    const long long a = toInteger(text, 0), b = toInteger(text, 1);
    if (a != b || a < low || a > high) return std::nullopt;
    return a;
}

long long toGroupInteger(int code, std::string_view text, long long fallback) {
    long long low = INT64_MIN, high = INT64_MAX;
    switch (valueKind(code)) {
        case ValueKind::Int16: low = INT16_MIN; high = INT16_MAX; break;
        case ValueKind::Int32: low = INT32_MIN; high = INT32_MAX; break;
        case ValueKind::Bool: low = 0; high = 255; break;
        default: break;
    }
    return toIntegerWithin(text, low, high).value_or(fallback);
}

std::uint64_t toHandle(std::string_view text) {
    // Read for every record of a file: hex digits by hand, 0 for anything else or an
    // overflow, as for no handle.
    text = trimmed(text);
    std::uint64_t v = 0;
    for (const char c : text) {
        const auto lower = static_cast<unsigned char>(c | 0x20);
        unsigned digit = 0;
        if (c >= '0' && c <= '9') digit = static_cast<unsigned>(c - '0');
        else if (lower >= 'a' && lower <= 'f') digit = lower - 'a' + 10u;
        else return 0;
        if (v >> 60) return 0;
        v = v << 4 | digit;
    }
    return v;
}

std::string handleToText(std::uint64_t handle) {
    char buf[20];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, handle, 16);
    std::string s(buf, end);
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

std::string doubleToText(double value) {
    char buf[32];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
    std::string s(buf, end);
    if (s.find_first_of(".eEn") == std::string::npos) s += ".0";
    return s;
}

}  // namespace cadhost
