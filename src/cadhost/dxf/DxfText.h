#pragma once
// Text of a DXF file: before AutoCAD 2007 (AC1021) values are 8-bit text in the code page
// that $DWGCODEPAGE names, with \U+XXXX for characters outside it; from AC1021 on they are
// UTF-8. Inside the host all text is UTF-8.
#include <memory>
#include <string>
#include <string_view>

namespace cadhost {

class DxfTextCodec {
public:
    // UTF-8 file text (AC1021 and later).
    DxfTextCodec();
    // The codec for a drawing of version `acadVersion` ("AC1015") and code page
    // `dwgCodePage` ("ANSI_1252"); an unknown code page is read as ANSI_1252.
    static DxfTextCodec forDrawing(std::string_view acadVersion, std::string_view dwgCodePage);

    std::string decode(std::string_view fileText) const;
    // Characters the code page lacks are written as \U+XXXX.
    std::string encode(std::string_view utf8) const;

    bool isUtf8() const { return !iconvName_; }
    bool knewCodePage() const { return knewCodePage_; }

private:
    const char* iconvName_ = nullptr;   // null: UTF-8
    bool knewCodePage_ = true;
};

}  // namespace cadhost
