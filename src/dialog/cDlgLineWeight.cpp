#include "dialog/cDlgLineWeight.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "ui/UiTexts.h"
#include "dialog/DialogHelp.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

constexpr int kSampleWidth = 60;
constexpr int kRowHeight = 20;

// A sample line of the row's weight before its text; the default lineweight draws thin.
class LineweightDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        const QString text = opt.text;
        opt.text.clear();
        opt.widget->style()->drawControl(QStyle::CE_ItemViewItem, &opt, painter, opt.widget);
        const int value = index.data(Qt::UserRole).toInt();
        const bool selected = opt.state & QStyle::State_Selected;
        const QColor ink = opt.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        // Hundredths of a millimetre at about four pixels per millimetre, at least one pixel.
        const int pixels = std::max(1, value > 0 ? (value * 4 + 50) / 100 : 1);
        painter->save();
        painter->fillRect(QRect(opt.rect.left() + 4, opt.rect.center().y() - pixels / 2, kSampleWidth, pixels), ink);
        painter->setPen(ink);
        painter->drawText(opt.rect.adjusted(kSampleWidth + 12, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text);
        painter->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, kRowHeight));
    }
};

}  // namespace

cDlgLineWeight::cDlgLineWeight(int lineweight, QWidget* parent) : QDialog(parent), lineweight_(lineweight) {
    setObjectName("cDlgLineWeight");
    setWindowTitle(qCatalog(MsgKey::RsLwTitle));
    const LineweightState state = readLineweightState();
    list_ = new QListWidget;
    list_->setItemDelegate(new LineweightDelegate(list_));
    for (const LineweightListRow& row : lineweightListRows(state)) {
        auto* item = new QListWidgetItem(QString::fromStdString(row.text), list_);
        item->setData(Qt::UserRole, kLineweights[row.tableRow].value);
    }
    if (const auto row = lineweightRowOfValue(lineweight)) list_->setCurrentRow(static_cast<int>(*row));

    unit_ = new QLabel(qCatalog(state.millimetres ? MsgKey::RsLwUnitMillim : MsgKey::RsLwUnitInch));
    display_ = new QLabel(qCatalog(state.display ? MsgKey::RsLwDisplayOn : MsgKey::RsLwDisplayOff));
    auto* facts = new QFormLayout;
    facts->addRow(qCatalog(MsgKey::RsLwUnitTxt), unit_);
    facts->addRow(qCatalog(MsgKey::RsLwDispTxt), display_);

    QDialogButtonBox* box = okCancelHelpButtons(this, "LayerLineWeights");
    connect(list_, &QListWidget::itemDoubleClicked, this, &cDlgLineWeight::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    layout->addLayout(facts);
    layout->addWidget(box);
    resize(300, 420);
}

void cDlgLineWeight::accept() {
    if (QListWidgetItem* item = list_->currentItem()) lineweight_ = item->data(Qt::UserRole).toInt();
    QDialog::accept();
}

}  // namespace ardo
