#include "cadhost/commands/CommandInput.h"

#include <cstdio>

#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

std::string number(double v) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.15g", v);
    return buffer;
}

std::size_t abbreviationLength(std::string_view keyword) {
    std::size_t n = 0;
    while (n < keyword.size() && !(keyword[n] >= 'a' && keyword[n] <= 'z')) ++n;
    return n;
}

}  // namespace

std::string inputText(const ardo::ResBuf& input) {
    switch (input.restype) {
        case ardo::RTSTR: return input.text;
        case ardo::RTSHORT:
        case ardo::RTLONG: return std::to_string(input.integer);
        case ardo::RTREAL:
        case ardo::RTANG: return number(input.real);
        case ardo::RTPOINT: return number(input.point[0]) + "," + number(input.point[1]);
        case ardo::RT3DPOINT:
            return number(input.point[0]) + "," + number(input.point[1]) + "," + number(input.point[2]);
        case ardo::RTENAME: {
            char buffer[48];
            std::snprintf(buffer, sizeof buffer, "<Entity name: %llX>", static_cast<unsigned long long>(input.integer));
            return buffer;
        }
        case ardo::RTPICKS: return "<Selection set: " + std::to_string(input.integer) + ">";
        default: return {};
    }
}

bool isEnter(const ardo::ResBuf& input) { return input.restype == ardo::RTSTR && input.text.empty(); }

std::optional<std::size_t> matchKeyword(const ardo::ResBuf& input, const std::vector<std::string_view>& keywords) {
    if (input.restype != ardo::RTSTR) return std::nullopt;
    std::string_view text = ardo::trimWhite(input.text);
    if (!text.empty() && text.front() == '_') text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    const std::string typed = ardo::upperCase(text);
    for (std::size_t i = 0; i < keywords.size(); ++i) {
        const std::string word = ardo::upperCase(keywords[i]);
        if (typed.size() >= abbreviationLength(keywords[i]) && word.compare(0, typed.size(), typed) == 0 &&
            typed.size() <= word.size())
            return i;
    }
    return std::nullopt;
}

}  // namespace cadhost::commands
