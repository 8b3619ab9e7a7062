#include "cadhost/colors/ColorServices.h"

#include "cadhost/colors/AciPalette.h"
#include "cadhost/colors/ColorBook.h"
#include "cadhost/colors/RgbName.h"

namespace cadhost {

bool ColorServices::fromAciName(std::string_view text, ardo::HostColor& color) const {
    return colorFromAciName(text, language_, color);
}

bool ColorServices::fromRgbName(std::string_view text, ardo::HostColor& color) const {
    return colorFromRgbName(text, color);
}

bool ColorServices::fromColorBookName(std::string_view book, std::string_view name,
                                      ardo::HostColor& color) const {
    return colorFromColorBookName(book, name, color);
}

std::uint32_t ColorServices::rgbOfIndex(int index) const { return aciRgb(index); }

}  // namespace cadhost
