#include <gtest/gtest.h>

#include "layers/ColourCode.h"

namespace ardo {
namespace {

TEST(ColourCode, DrawingColoursBecomeCodes) {
    EXPECT_EQ(encodeColour(HostColor::byLayer()).code, 256);
    EXPECT_EQ(encodeColour(HostColor::byBlock()).code, 0);
    EXPECT_EQ(encodeColour(HostColor::fromIndex(7)).code, 7);
    const ColourCode rgb = encodeColour(HostColor::fromRgb(0x12, 0x34, 0x56));
    EXPECT_EQ(rgb.code, 0x02123456);
    EXPECT_TRUE(rgb.bookName.empty());
    EXPECT_TRUE(rgb.colourName.empty());
}

TEST(ColourCode, BookColourNeedsBothNames) {
    HostColor c = HostColor::fromRgb(0xFF, 0, 0x80);
    c.method = HostColor::Method::ColorBook;
    c.bookName = "RAL CLASSIC";
    c.colorName = "RAL 3000";
    const ColourCode book = encodeColour(c);
    EXPECT_EQ(book.code, 0x04FF0080);
    EXPECT_EQ(book.bookName, "RAL CLASSIC");
    EXPECT_EQ(book.colourName, "RAL 3000");

    c.colorName.clear();
    const ColourCode plain = encodeColour(c);
    EXPECT_EQ(plain.code, 0x02FF0080);
    EXPECT_TRUE(plain.bookName.empty());
}

TEST(ColourCode, CodesDecodeByTopByte) {
    EXPECT_EQ(decodeColour(256).method, HostColor::Method::ByLayer);
    EXPECT_EQ(decodeColour(0).method, HostColor::Method::ByBlock);
    EXPECT_EQ(decodeColour(42), HostColor::fromIndex(42));
    EXPECT_EQ(decodeColour(0x01A0B0C0), HostColor::fromRgb(0xA0, 0xB0, 0xC0));
    EXPECT_EQ(decodeColour(0x02A0B0C0), HostColor::fromRgb(0xA0, 0xB0, 0xC0));

    const HostColor book = decodeColour(0x04010203, "Buch", "Farbe");
    EXPECT_EQ(book.method, HostColor::Method::ColorBook);
    EXPECT_EQ(book.rgb(), 0x010203u);
    EXPECT_EQ(book.bookName, "Buch");
    EXPECT_EQ(book.colorName, "Farbe");
}

TEST(ColourCode, UnknownTopBytesAndIndexesAreNoColour) {
    for (std::int32_t code : {0x03000001, 0x05000001, 0x7F000000, -1, 257, 0x0000FFFF})
        EXPECT_EQ(decodeColour(code).method, HostColor::Method::None) << code;
    HostColor none;
    none.method = HostColor::Method::None;
    EXPECT_EQ(decodeColour(encodeColour(none).code).method, HostColor::Method::None);
}

TEST(ColourCode, DrawingColoursRoundTrip) {
    for (const HostColor& c : {HostColor::byLayer(), HostColor::byBlock(), HostColor::fromIndex(1),
                               HostColor::fromIndex(255), HostColor::fromRgb(1, 2, 3)}) {
        const ColourCode code = encodeColour(c);
        EXPECT_EQ(decodeColour(code.code, code.bookName, code.colourName), c);
    }
}

}  // namespace
}  // namespace ardo
