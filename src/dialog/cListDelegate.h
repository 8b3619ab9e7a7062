#pragma once
// Paints the cells of the layer list: the background the model gives (marking or light
// blue), and in the colour column a swatch before the colour's text.
#include <QStyledItemDelegate>

namespace ardo {

class cListDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The swatch: from the cell's left edge + 2 to the smaller of its right edge and left
    // edge + 14, from its top + 1 to its bottom - 2; empty when the cell is narrower.
    static QRect swatchRect(const QRect& cell);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace ardo
