#include "dialog/cDlgOpenLineType.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

#include "ui/UiTexts.h"
#include "dialog/DialogHelp.h"
#include "dialog/LinetypeList.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

constexpr int kNameWidth = 120;
constexpr int kDescriptionWidth = 320;

}  // namespace

cDlgOpenLineType::cDlgOpenLineType(QWidget* parent, const std::string& folder)
    : QFileDialog(parent, qCatalog(MsgKey::RsFileDlgTiGetLineType), QString::fromStdString(folder),
                  qCatalog(MsgKey::RsFileDlgLineType) + " (*.lin)") {
    setObjectName("cDlgOpenLineType");
    // The native dialogs take no extension widget.
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    setAcceptMode(QFileDialog::AcceptOpen);

    list_ = new QTableWidget(0, 2, this);
    list_->setObjectName("linetypeList");
    list_->setHorizontalHeaderLabels({qCatalog(MsgKey::RsLinDlgHdLineType), qCatalog(MsgKey::RsLinDlgHdDescr)});
    list_->setColumnWidth(0, kNameWidth);
    list_->setColumnWidth(1, kDescriptionWidth);
    list_->horizontalHeader()->setStretchLastSection(true);
    list_->verticalHeader()->hide();
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* help = new QPushButton(qCatalog(MsgKey::RsBtnHelp), this);
    connect(help, &QPushButton::clicked, this, [] { showHelpTopic("LinetypeDialog"); });
    if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
        const int row = grid->rowCount();
        grid->addWidget(list_, row, 0, 1, grid->columnCount() - 1);
        grid->addWidget(help, row, grid->columnCount() - 1, Qt::AlignTop | Qt::AlignRight);
    }
    connect(this, &QFileDialog::currentChanged, this, &cDlgOpenLineType::showLinetypesOf);
    connect(this, &QFileDialog::directoryEntered, this, [this] {
        showLinetypesOf(selectedFiles().isEmpty() ? QString() : selectedFiles().first());
    });
    connect(this, &QFileDialog::filterSelected, this, [this] {
        showLinetypesOf(selectedFiles().isEmpty() ? QString() : selectedFiles().first());
    });
}

void cDlgOpenLineType::showLinetypesOf(const QString& path) {
    list_->setRowCount(0);
    listedFile_ = path;
    if (path.isEmpty()) return;
    for (const LinetypeRow& row : linetypesOfFile(path.toStdString())) {
        const int at = list_->rowCount();
        list_->insertRow(at);
        list_->setItem(at, 0, new QTableWidgetItem(QString::fromStdString(row.name)));
        list_->setItem(at, 1, new QTableWidgetItem(QString::fromStdString(row.description)));
    }
    if (list_->rowCount() > 0) list_->selectRow(0);
}

void cDlgOpenLineType::selectLinetypeFile(const QString& path, const QString& linetype) {
    selectFile(path);
    showLinetypesOf(path);
    for (int row = 0; row < list_->rowCount(); ++row)
        if (list_->item(row, 0)->text().compare(linetype, Qt::CaseInsensitive) == 0) list_->selectRow(row);
}

std::string cDlgOpenLineType::chosenFile() const {
    return listedFile_.toStdString();
}

std::string cDlgOpenLineType::chosenLinetype() const {
    const QList<QTableWidgetItem*> items = list_->selectedItems();
    for (const QTableWidgetItem* item : items)
        if (item->column() == 0) return item->text().toStdString();
    return {};
}

}  // namespace ardo
