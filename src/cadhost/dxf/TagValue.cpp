#include "cadhost/dxf/TagValue.h"

#include <cctype>
#include <charconv>

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
    // Some writers put integers as reals ("1.0").
    const double d = toDouble(text, static_cast<double>(fallback));
    return static_cast<long long>(d);
}

std::uint64_t toHandle(std::string_view text) {
    text = trimmed(text);
    std::uint64_t v = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v, 16);
    return ec == std::errc() && end == text.data() + text.size() ? v : 0;
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
