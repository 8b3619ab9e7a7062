#include "cadhost/colors/ColorNames.h"

#include <array>

#include "base/CaseFold.h"

namespace cadhost {

namespace {

struct NamedIndex {
    const char* english;
    const char* german;
    const char* germanAlternative;  // spelling without the sharp s, or none
    int index;
};

// 0 stands for by block and 256 for by layer, as the host numbers them.
constexpr std::array<NamedIndex, 9> kNames{{
    {"red", "rot", nullptr, 1},
    {"yellow", "gelb", nullptr, 2},
    {"green", "grün", nullptr, 3},
    {"cyan", "cyan", nullptr, 4},
    {"blue", "blau", nullptr, 5},
    {"magenta", "magenta", nullptr, 6},
    {"white", "weiß", "weiss", 7},
    {"BYBLOCK", "VONBLOCK", nullptr, 0},
    {"BYLAYER", "VONLAYER", nullptr, 256},
}};

ardo::HostColor colourOfIndex(int index) {
    if (index == 0) return ardo::HostColor::byBlock();
    if (index == 256) return ardo::HostColor::byLayer();
    return ardo::HostColor::fromIndex(index);
}

bool readIndexNumber(std::string_view text, int& index) {
    if (text.empty() || text.size() > 3) return false;
    int n = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return false;
        n = n * 10 + (c - '0');
    }
    if (n < 1 || n > 255) return false;
    index = n;
    return true;
}

bool matches(std::string_view text, const NamedIndex& entry, ColorNameLanguage language) {
    if (language == ColorNameLanguage::English) return ardo::equalsNoCase(text, entry.english);
    return ardo::equalsNoCase(text, entry.german) ||
           (entry.germanAlternative && ardo::equalsNoCase(text, entry.germanAlternative));
}

}  // namespace

bool colorFromAciName(std::string_view text, ColorNameLanguage language, ardo::HostColor& color) {
    text = ardo::trimWhite(text);
    int index = 0;
    if (readIndexNumber(text, index)) {
        color = colourOfIndex(index);
        return true;
    }
    for (const auto& entry : kNames) {
        if (matches(text, entry, language)) {
            color = colourOfIndex(entry.index);
            return true;
        }
    }
    return false;
}

}  // namespace cadhost
