#pragma once
// printf-style formatting of the system's message templates ("%s", "%d", "%.3lf", ...).
// Templates may come from user-edited files, so a template that asks for more or other
// arguments than given never reads past them: a missing argument formats as empty or 0.
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace ardo {

using FormatArg = std::variant<std::string, std::int64_t, double>;

std::string formatArgs(const std::string& templ, const std::vector<FormatArg>& args);

namespace detail {
inline FormatArg toFormatArg(const std::string& v) { return v; }
inline FormatArg toFormatArg(const char* v) { return std::string(v ? v : ""); }
inline FormatArg toFormatArg(double v) { return v; }
template <class T>
FormatArg toFormatArg(T v) requires std::is_integral_v<T> { return std::int64_t(v); }
}  // namespace detail

template <class... Args>
std::string format(const std::string& templ, const Args&... args) {
    return formatArgs(templ, {detail::toFormatArg(args)...});
}

}  // namespace ardo
