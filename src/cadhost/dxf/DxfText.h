#pragma once
// Text of a DXF file: before AutoCAD 2007 (AC1021) values are 8-bit text in the code page
// that $DWGCODEPAGE names, with \U+XXXX for characters outside it; from AC1021 on they are
// UTF-8. Inside the host all text is UTF-8.
#include <memory>
#include <string>
#include <string_view>

namespace cadhost {

// Control characters in caret form, which keeps line breaks out of a value's line.
std::string caretEncode(std::string_view text);
std::string caretDecode(std::string_view text);

class DxfTextCodec {
public:
    // UTF-8 file text (AC1021 and later).
    DxfTextCodec();
    // The codec for a drawing of version `acadVersion` ("AC1015") and code page
    // `dwgCodePage` ("ANSI_1252"); an unknown code page is read as ANSI_1252.
    static DxfTextCodec forDrawing(std::string_view acadVersion, std::string_view dwgCodePage);

    // Control characters are read from and written in caret form ("^J" for a line feed,
    // "^ " for a caret that would read as one).
    std::string decode(std::string_view fileText) const;
    // Characters the code page lacks are written as \U+XXXX, those beyond U+FFFF as a
    // pair of surrogates (\U+D83D\U+DE00).
    std::string encode(std::string_view utf8) const;

    bool isUtf8() const { return !iconvName_; }
    bool knewCodePage() const { return knewCodePage_; }

private:
    std::string decodeEscapes(std::string_view fileText) const;
    std::string encodeEscapes(std::string_view utf8) const;

    const char* iconvName_ = nullptr;   // null: UTF-8
    bool knewCodePage_ = true;
};

}  // namespace cadhost
