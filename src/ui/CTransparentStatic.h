#pragma once
// A dialog label that draws only its text, so the dialog's background (an image or a
// coloured panel) shows through, in a colour its owner sets. It takes the style bits of a
// Windows static control (alignment, prefix, ellipsis) and draws by the text-drawing
// flags they translate to.
#include <QLabel>
#include <cstdint>

namespace ardo {

// Style bits of a static control.
inline constexpr std::uint32_t kSsCenter = 0x1;
inline constexpr std::uint32_t kSsRight = 0x2;
inline constexpr std::uint32_t kSsNoPrefix = 0x80;
inline constexpr std::uint32_t kSsCenterImage = 0x200;
inline constexpr std::uint32_t kSsEndEllipsis = 0x4000;
inline constexpr std::uint32_t kSsPathEllipsis = 0x8000;
inline constexpr std::uint32_t kSsEllipsisMask = 0xC000;

// Text-drawing flags.
inline constexpr std::uint32_t kDtCenter = 0x1;
inline constexpr std::uint32_t kDtRight = 0x2;
inline constexpr std::uint32_t kDtVCenter = 0x4;
inline constexpr std::uint32_t kDtWordBreak = 0x10;
inline constexpr std::uint32_t kDtSingleLine = 0x20;
inline constexpr std::uint32_t kDtNoPrefix = 0x800;
inline constexpr std::uint32_t kDtPathEllipsis = 0x4000;
inline constexpr std::uint32_t kDtEndEllipsis = 0x8000;
inline constexpr std::uint32_t kDtWordEllipsis = 0x40000;

// Each style bit adds its flags on its own: an end- or path-ellipsis label also carries
// the word ellipsis. Labels without alignment, vertical centring or ellipsis wrap at words.
std::uint32_t textDrawFlags(std::uint32_t style);

class CTransparentStatic : public QLabel {
public:
    explicit CTransparentStatic(const QString& text = {}, QWidget* parent = nullptr, std::uint32_t style = 0);

    // A colour value 0x00BBGGRR, as the owner's dialogs keep colours; black at first.
    void setTextColor(std::uint32_t colorRef) { textColor_ = colorRef; update(); }
    std::uint32_t textColor() const { return textColor_; }
    void setStaticStyle(std::uint32_t style) { style_ = style; update(); }
    std::uint32_t staticStyle() const { return style_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::uint32_t style_;
    std::uint32_t textColor_ = 0;
};

}  // namespace ardo
