#include "layers/LayerValue.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <climits>
#include <string_view>

#include "base/CaseFold.h"

namespace ardo {

namespace {

constexpr size_t kMaxFields = 11;

struct Fields {
    std::array<std::string_view, kMaxFields> text;
    size_t count = 0;
};

// Cuts at each comma of the value with one comma appended, at most eleven fields, stopping
// when no comma follows or the next field would begin at or past the end. Views into the
// value: a lookup of a key parses its line on every call.
Fields cutFields(std::string_view value) {
    Fields fields;
    const size_t size = value.size() + 1;  // with the appended comma
    size_t begin = 0;
    while (fields.count < kMaxFields && begin < size) {
        const size_t comma = std::min(value.find(',', begin), value.size());
        fields.text[fields.count++] = value.substr(begin, comma - begin);
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
    const Fields fields = cutFields(value);
    const size_t n = fields.count;
    auto field = [&](size_t i) { return i < n ? fields.text[i] : std::string_view(); };
    out.name = field(0);
    out.colorText = field(1);
    readDecimal(out.colorText, out.color);
    out.linetype = equalsNoCase(field(2), "Continuous") ? std::string_view("Continuous") : field(2);
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
