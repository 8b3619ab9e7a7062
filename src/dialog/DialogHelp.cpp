#include "dialog/DialogHelp.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

#include "help/Help.h"
#include "ui/UiTexts.h"

namespace ardo {

void showHelpTopic(const std::string& topic) { showHelp(kHelpSection, topic); }

QDialogButtonBox* okCancelHelpButtons(QDialog* dialog, const std::string& helpTopic) {
    auto* box = new QDialogButtonBox;
    box->addButton(qCatalog(MsgKey::RsBtnOk), QDialogButtonBox::AcceptRole)->setObjectName("ok");
    box->addButton(qCatalog(MsgKey::RsBtnCancel), QDialogButtonBox::RejectRole)->setObjectName("cancel");
    box->addButton(qCatalog(MsgKey::RsBtnHelp), QDialogButtonBox::HelpRole)->setObjectName("help");
    QObject::connect(box, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(box, &QDialogButtonBox::helpRequested, dialog, [helpTopic] { showHelpTopic(helpTopic); });
    return box;
}

}  // namespace ardo
