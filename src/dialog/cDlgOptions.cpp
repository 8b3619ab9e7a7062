#include "dialog/cDlgOptions.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/UiTexts.h"
#include "dialog/DialogHelp.h"
#include "dialog/DialogIcons.h"
#include "dialog/cListControl.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

QString headerOf(char c) {
    LayerColumn column;
    return propertyColumnOfChar(c, column) ? QString::fromStdString(columnHeaderText(column)) : QString();
}

void addItem(QListWidget& list, const QString& text, char column) {
    auto* item = new QListWidgetItem(text, &list);
    item->setData(Qt::UserRole, QChar(column));
}

QPushButton* moveButton(DialogIcon icon, MsgKey tip) {
    auto* button = new QPushButton;
    button->setIcon(dialogIcon(icon));
    button->setIconSize(QSize(16, 16));
    button->setToolTip(qCatalog(tip));
    return button;
}

}  // namespace

cDlgOptions::cDlgOptions(LayerDialogSettings& settings, QWidget* parent)
    : QDialog(parent), settings_(settings), choice_(settings.dataCols) {
    setObjectName("cDlgOptions");
    setWindowTitle(qCatalog(MsgKey::RsOptTitle));

    auto* columns = new QGroupBox(qCatalog(MsgKey::RsOptFrmFlds));
    auto* columnsLayout = new QHBoxLayout(columns);
    auto* hiddenColumn = new QVBoxLayout;
    hiddenColumn->addWidget(new QLabel(qCatalog(MsgKey::RsOptRstFlds)));
    hiddenList_ = new QListWidget;
    hiddenList_->setToolTip(qCatalog(MsgKey::TtDlgOptsRestList));
    hiddenColumn->addWidget(hiddenList_);
    auto* buttons = new QVBoxLayout;
    showAll_ = moveButton(DialogIcon::ShowAll, MsgKey::TtDlgOptsBtnShowAll);
    showOne_ = moveButton(DialogIcon::ShowOne, MsgKey::TtDlgOptsBtnAddOne);
    hideOne_ = moveButton(DialogIcon::HideOne, MsgKey::TtDlgOptsBtnSubOne);
    hideAll_ = moveButton(DialogIcon::HideAll, MsgKey::TtDlgOptsBtnHideAll);
    buttons->addStretch();
    for (QPushButton* b : {showAll_, showOne_, hideOne_, hideAll_}) buttons->addWidget(b);
    buttons->addStretch();
    auto* shownColumn = new QVBoxLayout;
    shownColumn->addWidget(new QLabel(qCatalog(MsgKey::RsOptUseFlds)));
    shownList_ = new QListWidget;
    shownList_->setToolTip(qCatalog(MsgKey::TtDlgOptsShowList));
    shownColumn->addWidget(shownList_);
    columnsLayout->addLayout(hiddenColumn);
    columnsLayout->addLayout(buttons);
    columnsLayout->addLayout(shownColumn);

    auto* priority = new QGroupBox(qCatalog(MsgKey::RsOptFrmPrio));
    auto* priorityLayout = new QHBoxLayout(priority);
    dwgPrio_ = new QRadioButton(qCatalog(MsgKey::RsOptDwgPrio));
    dwgPrio_->setToolTip(qCatalog(MsgKey::TtDlgOptsPrioDwg));
    iniPrio_ = new QRadioButton(qCatalog(MsgKey::RsOptIniPrio));
    iniPrio_->setToolTip(qCatalog(MsgKey::TtDlgOptsPrioIni));
    priorityLayout->addWidget(dwgPrio_);
    priorityLayout->addWidget(iniPrio_);
    // The stored priority, not the one the menu may have set for this run.
    (settings_.dataPrio == 2 ? iniPrio_ : dwgPrio_)->setChecked(true);

    auto* marking = new QGroupBox(qCatalog(MsgKey::RsOptFrmRepr));
    auto* markingLayout = new QHBoxLayout(marking);
    mark_ = new QCheckBox(qCatalog(MsgKey::RsOptChkRepr));
    mark_->setToolTip(qCatalog(MsgKey::TtDlgOptsReprDwg));
    mark_->setChecked(settings_.markLayers);
    markingLayout->addWidget(mark_);

    QDialogButtonBox* box = okCancelHelpButtons(this, "LayerOptions");

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(columns, 1);
    layout->addWidget(priority);
    layout->addWidget(marking);
    layout->addWidget(box);

    connect(showAll_, &QPushButton::clicked, this, [this] { choice_.showAll(); fillLists(); });
    connect(hideAll_, &QPushButton::clicked, this, [this] { choice_.hideAll(); fillLists(); });
    connect(showOne_, &QPushButton::clicked, this, &cDlgOptions::showSelected);
    connect(hideOne_, &QPushButton::clicked, this, &cDlgOptions::hideSelected);
    connect(hiddenList_, &QListWidget::itemDoubleClicked, this, &cDlgOptions::showSelected);
    connect(shownList_, &QListWidget::itemDoubleClicked, this, &cDlgOptions::hideSelected);
    connect(hiddenList_, &QListWidget::currentRowChanged, this, &cDlgOptions::updateButtons);
    connect(shownList_, &QListWidget::currentRowChanged, this, &cDlgOptions::updateButtons);
    fillLists();
}

void cDlgOptions::fillLists() {
    hiddenList_->clear();
    shownList_->clear();
    addItem(*shownList_, QString::fromStdString(columnHeaderText(LayerColumn::Key)), '0');
    addItem(*shownList_, QString::fromStdString(columnHeaderText(LayerColumn::Name)), '1');
    for (char c : choice_.shown()) addItem(*shownList_, headerOf(c), c);
    for (char c : choice_.hidden()) addItem(*hiddenList_, headerOf(c), c);
    updateButtons();
}

void cDlgOptions::updateButtons() {
    showAll_->setEnabled(choice_.canShowAll());
    showOne_->setEnabled(choice_.canShowOne(hiddenList_->currentItem() ? hiddenList_->currentRow() : -1));
    hideOne_->setEnabled(choice_.canHideOne(shownList_->currentItem() ? shownList_->currentRow() : -1));
    hideAll_->setEnabled(choice_.canHideAll());
}

void cDlgOptions::showSelected() {
    QListWidgetItem* item = hiddenList_->currentItem();
    if (!item) return;
    choice_.show(item->data(Qt::UserRole).toChar().toLatin1());
    fillLists();
}

void cDlgOptions::hideSelected() {
    if (!choice_.canHideOne(shownList_->currentItem() ? shownList_->currentRow() : -1)) return;
    choice_.hide(shownList_->currentItem()->data(Qt::UserRole).toChar().toLatin1());
    fillLists();
}

void cDlgOptions::accept() {
    settings_.dataCols = choice_.columns();
    settings_.dataPrio = iniPrio_->isChecked() ? 2 : 1;
    settings_.currentPrio = settings_.dataPrio;
    settings_.markLayers = mark_->isChecked();
    QDialog::accept();
}

}  // namespace ardo
