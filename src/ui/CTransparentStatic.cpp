#include "ui/CTransparentStatic.h"

#include <QPainter>
#include <QTextLayout>

namespace ardo {

namespace {

constexpr std::uint32_t kWrapBlockers = 0xC20C;

// "&x" marks a mnemonic and "&&" stands for "&", unless the label has no prefix.
QString withoutPrefix(const QString& text) {
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;
        out += text[i];
    }
    return out;
}

QString elided(const QFontMetrics& fm, const QString& text, std::uint32_t flags, int width) {
    if (flags & kDtPathEllipsis) return fm.elidedText(text, Qt::ElideMiddle, width);
    if (flags & (kDtEndEllipsis | kDtWordEllipsis)) return fm.elidedText(text, Qt::ElideRight, width);
    return text;
}

}  // namespace

std::uint32_t textDrawFlags(std::uint32_t style) {
    std::uint32_t flags = 0;
    if (style & kSsRight) flags |= kDtRight;
    if (style & kSsCenter) flags |= kDtCenter;
    if (style & kSsCenterImage) flags |= kDtVCenter | kDtSingleLine;
    if (style & kSsNoPrefix) flags |= kDtNoPrefix;
    if (style & kSsEllipsisMask) flags |= kDtWordEllipsis;
    if (style & kSsEndEllipsis) flags |= kDtEndEllipsis;
    if (style & kSsPathEllipsis) flags |= kDtPathEllipsis;
    if (!(style & kWrapBlockers)) flags |= kDtWordBreak;
    return flags;
}

CTransparentStatic::CTransparentStatic(const QString& text, QWidget* parent, std::uint32_t style)
    : QLabel(text, parent), style_(style) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAutoFillBackground(false);
}

void CTransparentStatic::paintEvent(QPaintEvent*) {
    const QString raw = text();
    if (raw.isEmpty()) return;
    const std::uint32_t flags = textDrawFlags(style_);
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(QColor(textColor_ & 0xFF, (textColor_ >> 8) & 0xFF, (textColor_ >> 16) & 0xFF));

    int align = Qt::AlignTop | Qt::AlignLeft;
    if (flags & kDtRight) align = Qt::AlignTop | Qt::AlignRight;
    if (flags & kDtCenter) align = Qt::AlignTop | Qt::AlignHCenter;
    if (flags & kDtVCenter) align = (align & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter;
    QString shown = (flags & kDtNoPrefix) ? raw : withoutPrefix(raw);
    if (flags & kDtSingleLine) shown.replace('\n', ' ');
    if (flags & kDtWordBreak) align |= Qt::TextWordWrap;
    else if (!(flags & kDtSingleLine)) shown = shown.split('\n').join(QChar::LineSeparator);
    if (!(flags & kDtWordBreak)) {
        QStringList lines = shown.split(QChar::LineSeparator);
        for (auto& line : lines) line = elided(painter.fontMetrics(), line, flags, contentsRect().width());
        shown = lines.join(QChar::LineSeparator);
    }
    painter.drawText(contentsRect(), align, shown);
}

}  // namespace ardo
