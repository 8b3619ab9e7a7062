#include "cadhost/commands/TypedInput.h"

#include <charconv>
#include <cmath>
#include <string>
#include <vector>

namespace cadhost::commands {

namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const auto at = text.find(separator);
        parts.push_back(trimmed(text.substr(0, at)));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

constexpr double kDegree = M_PI / 180.0;

}  // namespace

std::optional<double> parseReal(std::string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<double> parseAngle(std::string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '<') text.remove_prefix(1);
    // Degrees, minutes and seconds: 45d30'15"
    const auto d = text.find_first_of("dD");
    if (d == std::string_view::npos) {
        const auto degrees = parseReal(text);
        if (!degrees) return std::nullopt;
        return *degrees * kDegree;
    }
    const auto degrees = parseReal(text.substr(0, d));
    if (!degrees) return std::nullopt;
    std::string_view rest = text.substr(d + 1);
    double minutes = 0, seconds = 0;
    if (const auto q = rest.find('\''); q != std::string_view::npos) {
        const auto m = parseReal(rest.substr(0, q));
        if (!m) return std::nullopt;
        minutes = *m;
        rest.remove_prefix(q + 1);
    }
    if (!rest.empty()) {
        if (rest.back() != '"') return std::nullopt;
        const auto s = parseReal(rest.substr(0, rest.size() - 1));
        if (!s) return std::nullopt;
        seconds = *s;
    }
    const double sign = *degrees < 0 || text.front() == '-' ? -1.0 : 1.0;
    return (*degrees + sign * (minutes / 60.0 + seconds / 3600.0)) * kDegree;
}

std::optional<ardo::Point3> parsePoint(std::string_view text, const ardo::Point3& last) {
    text = trimmed(text);
    const bool relative = !text.empty() && text.front() == '@';
    if (relative) text.remove_prefix(1);
    if (relative && trimmed(text).empty()) return last;
    const ardo::Point3 origin = relative ? last : ardo::Point3{0, 0, 0};
    if (const auto lt = text.find('<'); lt != std::string_view::npos) {
        const auto distance = parseReal(text.substr(0, lt));
        const auto angle = parseAngle(text.substr(lt + 1));
        if (!distance || !angle) return std::nullopt;
        return polarPoint(origin, *angle, *distance);
    }
    const auto parts = split(text, ',');
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    ardo::Point3 p{0, 0, relative ? last[2] : 0.0};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto v = parseReal(parts[i]);
        if (!v) return std::nullopt;
        p[i] = relative ? origin[i] + *v : *v;
    }
    return p;
}

double distanceBetween(const ardo::Point3& a, const ardo::Point3& b, bool flat) {
    const double dz = flat ? 0.0 : b[2] - a[2];
    return std::sqrt((b[0] - a[0]) * (b[0] - a[0]) + (b[1] - a[1]) * (b[1] - a[1]) + dz * dz);
}

double angleBetween(const ardo::Point3& from, const ardo::Point3& to) {
    const double a = std::atan2(to[1] - from[1], to[0] - from[0]);
    return a < 0 ? a + 2 * M_PI : a;
}

ardo::Point3 polarPoint(const ardo::Point3& base, double angle, double distance) {
    return {base[0] + distance * std::cos(angle), base[1] + distance * std::sin(angle), base[2]};
}

}  // namespace cadhost::commands
