#include "cadhost/colors/ColorBook.h"

#include <array>

#include "base/CaseFold.h"

namespace cadhost {

std::span<const ColorBook> shippedColorBooks() {
    static const std::array<ColorBook, 1> books{ralClassicBook()};
    return books;
}

bool colorFromColorBookName(std::string_view book, std::string_view name, ardo::HostColor& color) {
    book = ardo::trimWhite(book);
    name = ardo::trimWhite(name);
    for (const ColorBook& b : shippedColorBooks()) {
        if (!book.empty() && !ardo::equalsNoCase(book, b.name)) continue;
        for (const BookColor& c : b.colors) {
            if (!ardo::equalsNoCase(name, c.name)) continue;
            color = ardo::HostColor::fromRgb(c.red, c.green, c.blue);
            color.method = ardo::HostColor::Method::ColorBook;
            color.bookName = b.name;
            color.colorName = c.name;
            return true;
        }
    }
    return false;
}

}  // namespace cadhost
