#pragma once
// Colour books shipped with the host: named collections of named RGB colours. Book and
// colour names are matched without regard to case.
#include <cstdint>
#include <span>
#include <string_view>

#include "boundary/HostColor.h"

namespace cadhost {

struct BookColor {
    const char* name;
    std::uint8_t red, green, blue;
};

struct ColorBook {
    const char* name;
    std::span<const BookColor> colors;
};

// Every book the host ships, in the order they are searched.
std::span<const ColorBook> shippedColorBooks();

// The RAL Classic collection.
const ColorBook& ralClassicBook();

// True when the book holds the colour; the colour then carries the book's own spelling
// of both names and the colour's RGB. An empty book name searches every book.
bool colorFromColorBookName(std::string_view book, std::string_view name, ardo::HostColor& color);

}  // namespace cadhost
