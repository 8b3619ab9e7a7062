#include "base/Printf.h"

#include <cstdio>

namespace ardo {

namespace {

std::int64_t asInteger(const FormatArg* a) {
    if (!a) return 0;
    if (auto i = std::get_if<std::int64_t>(a)) return *i;
    if (auto d = std::get_if<double>(a)) return std::int64_t(*d);
    return 0;
}

double asReal(const FormatArg* a) {
    if (!a) return 0.0;
    if (auto d = std::get_if<double>(a)) return *d;
    if (auto i = std::get_if<std::int64_t>(a)) return double(*i);
    return 0.0;
}

std::string asText(const FormatArg* a) {
    if (!a) return {};
    if (auto s = std::get_if<std::string>(a)) return *s;
    if (auto i = std::get_if<std::int64_t>(a)) return std::to_string(*i);
    return std::to_string(std::get<double>(*a));
}

template <class T>
std::string one(const std::string& spec, T value) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    char small[128];
    int n = std::snprintf(small, sizeof small, spec.c_str(), value);
    if (n < 0) return {};
    if (size_t(n) < sizeof small) return std::string(small, size_t(n));
    std::string out(size_t(n) + 1, '\0');
    std::snprintf(out.data(), out.size(), spec.c_str(), value);
#pragma GCC diagnostic pop
    out.resize(size_t(n));
    return out;
}

}  // namespace

std::string formatArgs(const std::string& templ, const std::vector<FormatArg>& args) {
    std::string out;
    out.reserve(templ.size() + 32);
    size_t next = 0;
    size_t i = 0;
    while (i < templ.size()) {
        char c = templ[i];
        if (c != '%') {
            out += c;
            ++i;
            continue;
        }
        size_t start = i++;
        if (i < templ.size() && templ[i] == '%') {
            out += '%';
            ++i;
            continue;
        }
        std::string flags;
        while (i < templ.size() && std::string_view("-+ 0#").find(templ[i]) != std::string_view::npos)
            flags += templ[i++];
        std::string width, precision;
        while (i < templ.size() && isdigit(static_cast<unsigned char>(templ[i])) && width.size() < 3)
            width += templ[i++];
        if (i < templ.size() && templ[i] == '.') {
            precision = ".";
            ++i;
            while (i < templ.size() && isdigit(static_cast<unsigned char>(templ[i])) && precision.size() < 3)
                precision += templ[i++];
        }
        while (i < templ.size() && (templ[i] == 'l' || templ[i] == 'h' || templ[i] == 'L')) ++i;
        if (i >= templ.size()) {
            out.append(templ, start, std::string::npos);
            break;
        }
        char conv = templ[i++];
        const FormatArg* arg = next < args.size() ? &args[next] : nullptr;
        const std::string head = "%" + flags + width + precision;
        switch (conv) {
            case 'd': case 'i':
                out += one(head + "lld", static_cast<long long>(asInteger(arg)));
                ++next;
                break;
            case 'u': case 'x': case 'X': case 'o':
                out += one(head + "ll" + conv, static_cast<unsigned long long>(asInteger(arg)));
                ++next;
                break;
            case 'f': case 'F': case 'e': case 'E': case 'g': case 'G':
                out += one(head + conv, asReal(arg));
                ++next;
                break;
            case 'c':
                out += char(asInteger(arg));
                ++next;
                break;
            case 's':
                out += one(head + "s", asText(arg).c_str());
                ++next;
                break;
            default:
                // Not a conversion: the text stands as written.
                out.append(templ, start, i - start);
                break;
        }
    }
    return out;
}

}  // namespace ardo
