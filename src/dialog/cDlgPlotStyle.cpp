#include "dialog/cDlgPlotStyle.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

#include "dialog/DialogHelp.h"
#include "dialog/PlotStyleList.h"
#include "ui/UiTexts.h"

namespace ardo {

cDlgPlotStyle::cDlgPlotStyle(const std::vector<std::string>& names, const std::string& current, QWidget* parent)
    : QDialog(parent), plotStyle_(current) {
    setObjectName("cDlgPlotStyle");
    setWindowTitle(qCatalog(MsgKey::RsPlotStyleTitle));
    list_ = new QListWidget;
    for (const std::string& name : names) list_->addItem(qText(name));
    if (!names.empty()) list_->setCurrentRow(plotStyleRow(names, current));
    connect(list_, &QListWidget::itemDoubleClicked, this, &cDlgPlotStyle::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    layout->addWidget(okCancelHelpButtons(this, "LayerPlotStyles"));
    resize(280, 320);
}

void cDlgPlotStyle::accept() {
    if (const QListWidgetItem* item = list_->currentItem()) plotStyle_ = item->text().toStdString();
    QDialog::accept();
}

}  // namespace ardo
