#include "dialog/cListDelegate.h"

#include <QApplication>
#include <QPainter>

#include "dialog/cListControl.h"

namespace ardo {

namespace {

constexpr int kSwatchRight = 14;
constexpr int kTextAfterSwatch = 18;

}  // namespace

QRect cListDelegate::swatchRect(const QRect& cell) {
    const int right = std::min(cell.right(), cell.left() + kSwatchRight);
    if (right <= cell.left() + 2) return {};
    return QRect(QPoint(cell.left() + 2, cell.top() + 1), QPoint(right, cell.bottom() - 2));
}

void cListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QVariant swatch = index.data(cListControl::SwatchRole);
    if (!swatch.isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const QString text = opt.text;
    opt.text.clear();
    QStyle* style = opt.widget ? opt.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, opt.widget);

    painter->save();
    const QRect box = swatchRect(opt.rect);
    if (!box.isEmpty()) {
        painter->fillRect(box, swatch.value<QColor>());
        painter->setPen(opt.palette.color(QPalette::WindowText));
        painter->drawRect(box.adjusted(0, 0, -1, -1));
    }
    const bool selected = opt.state & QStyle::State_Selected;
    painter->setPen(opt.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(opt.font);
    painter->drawText(opt.rect.adjusted(kTextAfterSwatch, 0, -2, 0), Qt::AlignVCenter | Qt::AlignLeft,
                      opt.fontMetrics.elidedText(text, Qt::ElideRight, opt.rect.width() - kTextAfterSwatch - 2));
    painter->restore();
}

}  // namespace ardo
