#pragma once
// The host's colour services in one place: index colour names in the host's language, RGB
// names, shipped colour books and the index palette. The host's language is a setting,
// since which words for by layer and by block it knows decides how colour texts parse.
#include <cstdint>
#include <string_view>

#include "cadhost/colors/ColorNames.h"
#include "boundary/HostColor.h"

namespace cadhost {

class ColorServices {
public:
    explicit ColorServices(ColorNameLanguage language = ColorNameLanguage::English) : language_(language) {}

    ColorNameLanguage language() const { return language_; }
    void setLanguage(ColorNameLanguage language) { language_ = language; }

    bool fromAciName(std::string_view text, ardo::HostColor& color) const;
    bool fromRgbName(std::string_view text, ardo::HostColor& color) const;
    bool fromColorBookName(std::string_view book, std::string_view name, ardo::HostColor& color) const;
    std::uint32_t rgbOfIndex(int index) const;

private:
    ColorNameLanguage language_;
};

}  // namespace cadhost
