#include "layers/LayerValue.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <vector>

#include "base/CaseFold.h"

namespace ardo {

namespace {

constexpr size_t kMaxFields = 11;

// Cuts at each comma of the value with one comma appended, at most eleven fields, stopping
// when no comma follows or the next field would begin at or past the end.
std::vector<std::string> cutFields(const std::string& value) {
    const std::string text = value + ",";
    std::vector<std::string> fields;
    size_t begin = 0;
    while (fields.size() < kMaxFields && begin < text.size()) {
        size_t comma = text.find(',', begin);
        if (comma == std::string::npos) break;
        fields.push_back(text.substr(begin, comma - begin));
        begin = comma + 1;
    }
    return fields;
}

}  // namespace

bool readDecimal(const std::string& text, std::int32_t& value) {
    size_t i = 0;
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    if (i >= text.size() || !std::isdigit(static_cast<unsigned char>(text[i]))) {
        value = 0;
        return false;
    }
    long long n = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i)
        n = std::min(n * 10 + (text[i] - '0'), 1LL << 40);  // overflow saturates, as the runtime's reader does
    if (negative) n = -n;
    value = static_cast<std::int32_t>(std::clamp<long long>(n, INT_MIN, INT_MAX));
    return true;
}

bool parseLayerValue(const std::string& value, LayerValue& out) {
    out = LayerValue{};
    const auto fields = cutFields(value);
    const size_t n = fields.size();
    auto field = [&](size_t i) -> const std::string& {
        static const std::string empty;
        return i < n ? fields[i] : empty;
    };
    out.name = field(0);
    out.colorText = field(1);
    readDecimal(out.colorText, out.color);
    out.linetype = equalsNoCase(field(2), "Continuous") ? "Continuous" : field(2);
    out.linetypeFile = field(3);
    out.statesText = field(4);
    readDecimal(out.statesText, out.states);
    out.colorBookName = field(5);
    out.colorName = field(6);
    out.lineweightText = field(7);
    std::int32_t weight = 0;
    if (!out.lineweightText.empty() && readDecimal(out.lineweightText, weight)) out.lineweight = weight;
    out.plotStyle = field(8);
    out.textField10 = field(9);
    out.plottableText = field(10);
    if (n > 10) {
        std::int32_t flag = 0;
        readDecimal(out.plottableText, flag);
        out.plottable = flag != 0;
    }
    const bool valid = n >= 5 && n <= kMaxFields;
    if (valid && out.plotStyle.empty()) out.plotStyle = "Normal";
    return valid;
}

std::string formatLayerValue(const LayerValue& v) {
    std::string s;
    s.reserve(64 + v.name.size());
    s += v.name;
    s += ',';
    s += std::to_string(v.color);
    s += ',';
    s += v.linetype;
    s += ',';
    s += v.linetypeFile;
    s += ',';
    s += std::to_string(v.states);
    s += ',';
    s += v.colorBookName;
    s += ',';
    s += v.colorName;
    s += ',';
    s += std::to_string(v.lineweight);
    s += ',';
    s += v.plotStyle;
    s += ',';
    s += v.textField10;
    s += ',';
    s += v.plottable ? '1' : '0';
    return s;
}

}  // namespace ardo
