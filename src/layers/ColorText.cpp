#include "layers/ColorText.h"

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "base/Printf.h"
#include "layers/ColorNearestIndex.h"

namespace ardo {

namespace {

bool tryAciThenRgb(const std::string& text, HostColor& color) {
    return host().colorFromAciName(text, color) || host().colorFromRgbName(text, color);
}

void appendPair(ResBufChain& list, int code, ResBuf value) {
    list.push_back(ResBuf::marker(RTLB));
    list.push_back(ResBuf::shortInt(code));
    list.push_back(ResBuf::marker(RTDOTE));
    list.push_back(std::move(value));
    list.push_back(ResBuf::marker(RTLE));
}

}  // namespace

int parseColorText(HostColor& color, const std::string& text) {
    const std::string copy(trimWhite(upperCase(text)));
    const std::string rgbText = copy.size() > 4 && copy.starts_with("RGB:") ? copy.substr(4) : copy;
    if (host().colorFromAciName(copy, color)) return 1;
    if (host().colorFromRgbName(rgbText, color)) return 1;
    if (equalsNoCase(copy, "BYLAYER") && tryAciThenRgb("VONLAYER", color)) return 1;
    if (equalsNoCase(copy, "BYBLOCK") && tryAciThenRgb("VONBLOCK", color)) return 1;
    const size_t dollar = copy.find('$');
    const std::string book = dollar == std::string::npos ? std::string() : copy.substr(0, dollar);
    const std::string name = dollar == std::string::npos ? copy : copy.substr(dollar + 1);
    return host().colorFromColorBookName(book, name, color) ? 1 : 0;
}

ResBufChain colorDataList(const HostColor& color) {
    ResBufChain list;
    switch (color.method) {
        case HostColor::Method::ByBlock:
            appendPair(list, 62, ResBuf::shortInt(0));
            break;
        case HostColor::Method::ByLayer:
            appendPair(list, 62, ResBuf::shortInt(256));
            break;
        case HostColor::Method::Index:
            appendPair(list, 62, ResBuf::shortInt(color.index));
            break;
        case HostColor::Method::TrueColor:
        case HostColor::Method::ColorBook:
            appendPair(list, 62, ResBuf::shortInt(nearestIndexColor(color.rgb())));
            appendPair(list, 420, ResBuf::longInt(color.rgb()));
            if (color.method == HostColor::Method::ColorBook)
                appendPair(list, 430, ResBuf::str(format("%s$%s", color.bookName, color.colorName)));
            break;
        case HostColor::Method::None:
            break;
    }
    return list;
}

std::string colorText(const HostColor& c) {
    switch (c.method) {
        case HostColor::Method::ByLayer: return "BYLAYER";
        case HostColor::Method::ByBlock: return "BYBLOCK";
        case HostColor::Method::Index: return std::to_string(c.index);
        case HostColor::Method::TrueColor: return format("RGB:%d,%d,%d", c.red, c.green, c.blue);
        case HostColor::Method::ColorBook: return c.bookName + "$" + c.colorName;
        case HostColor::Method::None: break;
    }
    return {};
}

}  // namespace ardo
